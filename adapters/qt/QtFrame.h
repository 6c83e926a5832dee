// A frame: a box around other controls, or a separating line.
#pragma once

#include "adapters/qt/ControlWidget.h"

namespace kvex::qt {

class QtFrame final : public WidgetControl<Control> {
public:
    /// `surrounds`: the layout puts controls into it.
    QtFrame(const ControlDesign &design, const std::u16string &window, QWidget &parent,
            bool surrounds);
};

} // namespace kvex::qt
