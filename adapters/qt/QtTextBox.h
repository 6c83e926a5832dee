// A text box of one line.
#pragma once

#include "adapters/qt/ControlWidget.h"
#include "adapters/qt/LineEdit.h"
#include "platform/controls/TextBox.h"

namespace kvex::qt {

class QtTextBox final : public WidgetControl<TextBox, LineEdit> {
public:
    QtTextBox(const ControlDesign &design, const std::u16string &window, QWidget &parent);

    [[nodiscard]] std::u16string text() const override;
    void setText(const std::u16string &text) override;
};

} // namespace kvex::qt
