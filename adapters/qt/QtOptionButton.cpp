#include "adapters/qt/QtOptionButton.h"

#include "adapters/qt/AccessKey.h"
#include "adapters/qt/QText.h"

namespace kvex::qt {
namespace {

/// Tab reaches of a group the selected member, from which the arrow keys lead to the others. Qt
/// sees to that only once the group has the focus.
void updateTabStop(QButtonGroup &group) {
    const QAbstractButton *selected = group.checkedButton();
    for (QAbstractButton *member : group.buttons()) {
        const bool isStop = selected == nullptr || member == selected;
        member->setFocusPolicy(isStop ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

} // namespace

QtOptionButton::QtOptionButton(const ControlDesign &design, const std::u16string &window,
                               QWidget &parent, QButtonGroup &group)
    : WidgetControl(design, window, *new QRadioButton(toQt(design.caption), &parent)) {
    group.addButton(&shown());
    QObject::connect(&shown(), &QRadioButton::toggled, &group, [&group] { updateTabStop(group); });
    shown().setChecked(design.selected);
    updateTabStop(group);
    clickByAccessKey(shown());
    QObject::connect(&shown(), &QRadioButton::clicked, &shown(), [this] { run(onClick); });
}

std::u16string QtOptionButton::caption() const {
    return fromQt(shown().text());
}

void QtOptionButton::setCaption(const std::u16string &caption) {
    shown().setText(toQt(caption));
}

} // namespace kvex::qt
