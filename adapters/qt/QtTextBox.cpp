#include "adapters/qt/QtTextBox.h"

#include "adapters/qt/QText.h"

namespace kvex::qt {

QtTextBox::QtTextBox(const ControlDesign &design, const std::u16string &window, QWidget &parent)
    : WidgetControl(design, window, *new LineEdit(&parent, design.maxLength, design.columns)) {
    shown().showText(toQt(design.caption));
    shown().setReadOnly(design.readOnly);
    shown().setKeyFilter([this](std::int16_t code) {
        run(onKeyPress, code);
        return code != 0;
    });
    QObject::connect(&shown(), &QLineEdit::textChanged, &shown(), [this] { run(onChange); });
}

std::u16string QtTextBox::text() const {
    return fromQt(shown().text());
}

void QtTextBox::setText(const std::u16string &text) {
    shown().showText(toQt(text));
}

} // namespace kvex::qt
