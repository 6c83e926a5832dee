// A command button: a QPushButton.
#pragma once

#include "adapters/qt/ControlWidget.h"
#include "platform/controls/CommandButton.h"

#include <QPushButton>

namespace kvex::qt {

class QtCommandButton final : public WidgetControl<CommandButton, QPushButton> {
public:
    QtCommandButton(const ControlDesign &design, const std::u16string &window, QWidget &parent);

    [[nodiscard]] std::u16string caption() const override;
    void setCaption(const std::u16string &caption) override;
};

} // namespace kvex::qt
