#include "adapters/qt/Dialog.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLayout>

namespace kvex::qt {
namespace {

void pressIfUsable(QPushButton *button) {
    if (button != nullptr && button->isEnabled() && button->isVisible()) {
        button->click();
    }
}

} // namespace

Dialog::Dialog(Window &owner) : owner_(owner) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    // Whether the host goes on when its last window is closed is not this window's business.
    setAttribute(Qt::WA_QuitOnClose, false);
    connect(qApp, &QApplication::focusChanged, this, &Dialog::noteFocus);
}

/// The button that Enter presses is outlined.
void Dialog::noteFocus(QWidget *before, QWidget *now) {
    if (now == nullptr || now->window() != this) {
        return;
    }
    if (before != nullptr && before->window() == this) {
        previousFocus_ = before;
    }
    QPushButton *const pressed = buttonOfEnter();
    for (QPushButton *button : findChildren<QPushButton *>()) {
        button->setDefault(button == pressed);
    }
}

QPushButton *Dialog::buttonOfEnter() const {
    auto *const focused = dynamic_cast<QPushButton *>(focusWidget());
    return focused != nullptr ? focused : defaultButton_;
}

void Dialog::focusFirst() {
    if (focusWidget() == nullptr) {
        focusNextChild();
    }
}

void Dialog::keyPressEvent(QKeyEvent *event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isPlain && isEnter) {
        pressIfUsable(buttonOfEnter());
    } else if (isPlain && event->key() == Qt::Key_Escape) {
        pressIfUsable(cancelButton_);
    } else {
        event->ignore();
    }
}

bool Dialog::event(QEvent *event) {
    const bool result = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest) {
        keepTextsWhole();
    }
    return result;
}

void Dialog::resizeEvent(QResizeEvent *event) {
    QDialog::resizeEvent(event);
    keepTextsWhole();
}

/// The narrower the window, the more lines a wrapped text takes.
void Dialog::keepTextsWhole() {
    const QLayout &content = *layout();
    const int height = content.hasHeightForWidth() ? content.totalMinimumHeightForWidth(width())
                                                   : content.totalMinimumSize().height();
    setMinimumSize(content.totalMinimumSize().width(), height);
}

} // namespace kvex::qt
