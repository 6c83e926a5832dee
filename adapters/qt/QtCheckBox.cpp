#include "adapters/qt/QtCheckBox.h"

#include "adapters/qt/AccessKey.h"
#include "adapters/qt/QText.h"
#include "platform/Error.h"

namespace kvex::qt {

QtCheckBox::QtCheckBox(const ControlDesign &design, const std::u16string &window, QWidget &parent)
    : WidgetControl(design, window, *new QCheckBox(toQt(design.caption), &parent)) {
    shown().setChecked(design.selected);
    clickByAccessKey(shown());
    QObject::connect(&shown(), &QCheckBox::clicked, &shown(), [this] { run(onClick); });
}

std::int16_t QtCheckBox::value() const {
    return shown().isChecked() ? 1 : 0;
}

void QtCheckBox::setValue(std::int16_t value) {
    if (value != 0 && value != 1) {
        throw Error(error_number::invalidPropertyValue);
    }
    shown().setChecked(value == 1);
}

} // namespace kvex::qt
