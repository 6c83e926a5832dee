// A check box: a QCheckBox.
#pragma once

#include "adapters/qt/ControlWidget.h"
#include "platform/controls/CheckBox.h"

#include <QCheckBox>

namespace kvex::qt {

class QtCheckBox final : public WidgetControl<CheckBox, QCheckBox> {
public:
    QtCheckBox(const ControlDesign &design, const std::u16string &window, QWidget &parent);

    [[nodiscard]] std::int16_t value() const override;
    void setValue(std::int16_t value) override;
};

} // namespace kvex::qt
