#include "adapters/qt/QtCommandButton.h"

#include "adapters/qt/AccessKey.h"
#include "adapters/qt/QText.h"

namespace kvex::qt {

QtCommandButton::QtCommandButton(const ControlDesign &design, const std::u16string &window,
                                 QWidget &parent)
    : WidgetControl(design, window, *new QPushButton(toQt(design.caption), &parent)) {
    // Which button Enter presses is the dialog's business.
    shown().setAutoDefault(false);
    shown().setDefault(design.isDefault);
    clickByAccessKey(shown());
    QObject::connect(&shown(), &QPushButton::clicked, &shown(), [this] { run(onClick); });
}

std::u16string QtCommandButton::caption() const {
    return fromQt(shown().text());
}

void QtCommandButton::setCaption(const std::u16string &caption) {
    shown().setText(toQt(caption));
}

} // namespace kvex::qt
