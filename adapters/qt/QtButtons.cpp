#include "adapters/qt/QtButtons.h"

#include "adapters/qt/QText.h"
#include "platform/Error.h"

#include <QShortcutEvent>

namespace kvex::qt {
namespace {

class AccessKeyFilter final : public QObject {
public:
    explicit AccessKeyFilter(QAbstractButton &button) : QObject(&button), button_(button) {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        const bool isOwnKey = event->type() == QEvent::Shortcut &&
                              !static_cast<const QShortcutEvent *>(event)->isAmbiguous();
        if (isOwnKey) {
            button_.setFocus(Qt::ShortcutFocusReason);
            button_.click();
        }
        return isOwnKey || QObject::eventFilter(watched, event);
    }

private:
    QAbstractButton &button_;
};

/// The access key works like a click: the button takes the focus and is pressed at once.
void clickByAccessKey(QAbstractButton &button) {
    button.installEventFilter(new AccessKeyFilter(button));
}

/// Tab stops at the selected member of a group, or at each member if none is selected. Qt does this
/// itself only after the group had the focus.
void leadTabToSelected(const QButtonGroup &group) {
    const QAbstractButton *selected = group.checkedButton();
    for (QAbstractButton *member : group.buttons()) {
        const bool isStop = selected == nullptr || member == selected;
        member->setFocusPolicy(isStop ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

} // namespace

QtCommandButton::QtCommandButton(const ControlDesign &design, const std::u16string &window,
                                 QWidget &parent)
    : QtControl(design, window, *new QPushButton(toQt(design.caption), &parent)) {
    // The dialog decides which button Enter presses.
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

QtCheckBox::QtCheckBox(const ControlDesign &design, const std::u16string &window, QWidget &parent)
    : QtControl(design, window, *new QCheckBox(toQt(design.caption), &parent)) {
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

QtOptionButton::QtOptionButton(const ControlDesign &design, const std::u16string &window,
                               QWidget &parent, QButtonGroup &group)
    : QtControl(design, window, *new QRadioButton(toQt(design.caption), &parent)) {
    group.addButton(&shown());
    shown().setChecked(design.selected);
    leadTabToSelected(group);
    QObject::connect(&shown(), &QRadioButton::toggled, &group,
                     [&group] { leadTabToSelected(group); });
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
