#include "tests/support/QtUser.h"

#include "adapters/qt/ListTree.h"
#include "adapters/qt/QText.h"
#include "adapters/qt/ScrollPane.h"
#include "platform/Text.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDateTimeEdit>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

#include <array>

namespace kvex::test {
namespace {

using qt::toQt;

/// The middle of the widget, or the indicator of a check box or option button.
QPoint placeToClick(const QWidget &widget) {
    const bool isTickable = widget.inherits("QCheckBox") || widget.inherits("QRadioButton");
    const QPoint middle = widget.rect().center();
    return isTickable ? QPoint(widget.height() / 2, middle.y()) : middle;
}

struct KeyStroke {
    int key;
    Qt::KeyboardModifiers held;
    const char16_t *text;
};

KeyStroke strokeOf(Key key) {
    constexpr Qt::KeyboardModifiers none = Qt::NoModifier;
    constexpr Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    constexpr Qt::KeyboardModifiers control = Qt::ControlModifier;
    switch (key) {
    case Key::enter:
        return {Qt::Key_Return, none, u"\r"};
    case Key::escape:
        return {Qt::Key_Escape, none, u"\x1b"};
    case Key::tab:
        return {Qt::Key_Tab, none, u"\t"};
    case Key::shiftTab:
        return {Qt::Key_Backtab, shift, u""};
    case Key::space:
        return {Qt::Key_Space, none, u" "};
    case Key::backspace:
        return {Qt::Key_Backspace, none, u"\b"};
    case Key::deleteKey:
        return {Qt::Key_Delete, none, u"\x7f"};
    case Key::up:
        return {Qt::Key_Up, none, u""};
    case Key::down:
        return {Qt::Key_Down, none, u""};
    case Key::left:
        return {Qt::Key_Left, none, u""};
    case Key::right:
        return {Qt::Key_Right, none, u""};
    case Key::wordLeft:
        return {Qt::Key_Left, control, u""};
    case Key::wordRight:
        return {Qt::Key_Right, control, u""};
    case Key::home:
        return {Qt::Key_Home, none, u""};
    case Key::end:
        return {Qt::Key_End, none, u""};
    case Key::pageUp:
        return {Qt::Key_PageUp, none, u""};
    case Key::pageDown:
        return {Qt::Key_PageDown, none, u""};
    case Key::textStart:
        return {Qt::Key_Home, control, u""};
    case Key::textEnd:
        return {Qt::Key_End, control, u""};
    case Key::goUp:
        return {Qt::Key_Up, control, u""};
    case Key::goDown:
        return {Qt::Key_Down, control, u""};
    case Key::selectUp:
        return {Qt::Key_Up, shift, u""};
    case Key::selectDown:
        return {Qt::Key_Down, shift, u""};
    case Key::selectLeft:
        return {Qt::Key_Left, shift, u""};
    case Key::selectRight:
        return {Qt::Key_Right, shift, u""};
    case Key::selectWordLeft:
        return {Qt::Key_Left, shift | control, u""};
    case Key::selectWordRight:
        return {Qt::Key_Right, shift | control, u""};
    case Key::selectHome:
        return {Qt::Key_Home, shift, u""};
    case Key::selectEnd:
        return {Qt::Key_End, shift, u""};
    case Key::toggleRow:
        return {Qt::Key_Space, control, u" "};
    case Key::cut:
        return {Qt::Key_X, control, u"\x18"};
    case Key::copy:
        return {Qt::Key_C, control, u"\x03"};
    case Key::paste:
        return {Qt::Key_V, control, u"\x16"};
    case Key::selectAll:
        return {Qt::Key_A, control, u"\x01"};
    case Key::help:
        return {Qt::Key_F1, none, u""};
    case Key::accessKey:
        return {Qt::Key_F2, none, u""};
    case Key::suspend:
        return {Qt::Key_Z, control, u"\x1a"};
    }
    return {};
}

} // namespace

void QtUser::click(std::u16string_view control) {
    if (QWidget *widget = usable(control)) {
        pressMouse(*widget, placeToClick(*widget));
    }
}

void QtUser::tryToClick(std::u16string_view control) {
    if (QWidget *clicked = widget(control)) {
        pressMouse(*clicked, placeToClick(*clicked));
    } else {
        complain("no control " + toUtf8(control));
    }
}

void QtUser::clickRow(std::u16string_view list, int row) {
    if (auto *view = listWithRow(list, row)) {
        const QModelIndex index = view->model()->index(row - 1, 0);
        pressMouse(*view->viewport(), view->visualRect(index).center());
    }
}

void QtUser::doubleClickRow(std::u16string_view list, int row) {
    if (auto *view = listWithRow(list, row)) {
        const QModelIndex index = view->model()->index(row - 1, 0);
        pressMouse(*view->viewport(), view->visualRect(index).center(), true);
    }
}

void QtUser::doubleClickBesideRows(std::u16string_view list) {
    if (auto *view = dynamic_cast<QAbstractItemView *>(usable(list))) {
        const QPoint place = view->viewport()->rect().bottomLeft() + QPoint(9, -3);
        if (view->indexAt(place).isValid()) {
            complain("the rows cover all of " + toUtf8(list));
            return;
        }
        pressMouse(*view->viewport(), place, true);
    }
}

void QtUser::tickRow(std::u16string_view list, int row) {
    if (auto *view = listWithRow(list, row)) {
        const auto *tree = dynamic_cast<qt::ListTree *>(view);
        const QRect box = tree->tickRect(view->model()->index(row - 1, 0));
        if (box.isEmpty()) {
            complain("no check boxes in " + toUtf8(list));
            return;
        }
        pressMouse(*view->viewport(), box.center());
    }
}

void QtUser::closeByFrame() {
    if (isOpen()) {
        dialog_->windowHandle()->close();
    }
}

void QtUser::press(Key key) {
    const KeyStroke stroke = strokeOf(key);
    pressKey(stroke.key, QString::fromUtf16(stroke.text), stroke.held);
}

void QtUser::type(std::u16string_view text) {
    const QString typed = toQt(text);
    for (qsizetype at = 0; at < typed.size(); ++at) {
        QString character = typed.mid(at, typed.at(at).isHighSurrogate() ? 2 : 1);
        at += character.size() - 1;
        const bool isBreak = character == u"\r" || character == u"\n";
        if (character == u"\n" && at > 0 && typed.at(at - 1) == u'\r') {
            continue;
        }
        const int key = isBreak ? static_cast<int>(Qt::Key_Return)
                                : static_cast<int>(character.front().toUpper().unicode());
        pressKey(key, isBreak ? QStringLiteral("\r") : character);
    }
}

void QtUser::pressAccessKey(char16_t key) {
    pressKey(QChar(key).toUpper().unicode(), QString(QChar(key)), Qt::AltModifier);
}

void QtUser::focusOn(std::u16string_view control) {
    if (QWidget *widget = usable(control)) {
        widget->setFocus(Qt::MouseFocusReason);
    }
}

void QtUser::pickDate(std::u16string_view picker, int year, int month, int day) {
    retype(picker, QDateTime(QDate(year, month, day), QTime()));
}

void QtUser::pickTime(std::u16string_view picker, int hour, int minute, int second) {
    retype(picker, QDateTime(QDate(2000, 1, 1), QTime(hour, minute, second)));
}

/// Enters the whole text at once, as an input method does.
void QtUser::retype(std::u16string_view picker, const QDateTime &value) {
    const QWidget *whole = usable(picker);
    auto *field = whole != nullptr ? whole->findChild<QDateTimeEdit *>() : nullptr;
    if (field == nullptr || !field->isEnabled()) {
        complain("nothing can be typed into " + toUtf8(picker));
        return;
    }
    auto *line = field->findChild<QLineEdit *>();
    field->setFocus(Qt::MouseFocusReason);
    line->selectAll();
    QInputMethodEvent commit;
    commit.setCommitString(value.toString(field->displayFormat()));
    QApplication::sendEvent(field, &commit);
}

void QtUser::tickPicker(std::u16string_view picker, bool ticked) {
    if (const QWidget *whole = usable(picker)) {
        if (auto *tick = whole->findChild<QCheckBox *>(); tick->isChecked() != ticked) {
            pressMouse(*tick, placeToClick(*tick));
        }
    }
}

std::u16string QtUser::focused() const {
    return controlOf(QApplication::focusWidget());
}

std::u16string QtUser::description(std::u16string_view control) const {
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(widget(control));
    return spoken == nullptr ? std::u16string()
                             : qt::fromQt(spoken->text(QAccessible::Description));
}

bool QtUser::isOpen() const {
    return dialog_ != nullptr && dialog_->isVisible();
}

bool QtUser::isUsable(std::u16string_view control) const {
    return widget(control)->isEnabled();
}

std::u16string QtUser::waitsFor(std::u16string_view control) const {
    return qt::fromQt(widget(control)->toolTip());
}

std::vector<std::u16string> QtUser::tabOrder() const {
    std::vector<std::u16string> names;
    for (const QWidget *next = dialog_->nextInFocusChain(); next != dialog_.data();
         next = next->nextInFocusChain()) {
        const bool takesTab = (next->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        const std::u16string name = controlOf(next);
        if (takesTab && next->focusProxy() == nullptr && next->isEnabled() && next->isVisible() &&
            !name.empty() && (names.empty() || names.back() != name)) {
            names.push_back(name);
        }
    }
    return names;
}

QWidget *QtUser::widget(std::u16string_view name) const {
    return dialog_ != nullptr ? dialog_->findChild<QWidget *>(toQt(name)) : nullptr;
}

QWidget *QtUser::usable(std::u16string_view control) {
    QWidget *found = widget(control);
    if (found == nullptr || !found->isEnabled() || !found->isVisible()) {
        complain("nobody can use " + toUtf8(control) + " now");
        return nullptr;
    }
    return found;
}

QAbstractItemView *QtUser::listWithRow(std::u16string_view list, int row) {
    auto *view = dynamic_cast<QAbstractItemView *>(usable(list));
    if (view == nullptr || row < 1 || row > view->model()->rowCount()) {
        complain("no row " + std::to_string(row) + " in " + toUtf8(list));
        return nullptr;
    }
    view->scrollTo(view->model()->index(row - 1, 0));
    return view;
}

/// The control whose widget this is, or contains it.
std::u16string QtUser::controlOf(const QWidget *widget) const {
    for (; widget != nullptr && widget != dialog_.data(); widget = widget->parentWidget()) {
        try {
            const std::u16string name = qt::fromQt(widget->objectName());
            return dialog_->owner().get<Control>(name).name();
        } catch (const Error &) {
            // This widget is a part of a control's widget.
        }
    }
    return {};
}

/// Sends the event as the window system does: to the window, with the position.
void QtUser::pressMouse(QWidget &widget, QPoint at, bool isDouble) {
    if (auto *pane = dialog_->findChild<qt::ScrollPane *>(); pane->isAncestorOf(&widget)) {
        pane->bringIntoView(widget);
    }
    QWindow *const window = widget.window()->windowHandle();
    const QPoint place = widget.mapTo(widget.window(), at);
    if (isDouble) {
        QTest::mouseDClick(window, Qt::LeftButton, Qt::NoModifier, place);
    } else {
        QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
    }
    QCoreApplication::processEvents();
}

void QtUser::pressKey(int key, const QString &text, Qt::KeyboardModifiers held) {
    if (!isOpen()) {
        complain("a key was pressed in a closed window");
        return;
    }
    QTest::sendKeyEvent(QTest::Click, dialog_->windowHandle(), static_cast<Qt::Key>(key), text,
                        held);
    QCoreApplication::processEvents();
}

void QtUser::complain(const std::string &problem) {
    problems_.push_back(problem);
}

} // namespace kvex::test
