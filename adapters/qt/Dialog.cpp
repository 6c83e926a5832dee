#include "adapters/qt/Dialog.h"

#include "adapters/qt/Colours.h"
#include "adapters/qt/Pictures.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QScreen>

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
    setWindowIcon(productIcon());
    setPalette(readableWhenDisabled(QGuiApplication::palette()));
    // Closing this window must not end the host program.
    setAttribute(Qt::WA_QuitOnClose, false);
    connect(qApp, &QApplication::focusChanged, this, &Dialog::noteFocus);
}

/// The widgets in the window go after this, and the focus leaves them then.
Dialog::~Dialog() {
    disconnect(qApp, nullptr, this, nullptr);
}

QSize Dialog::roomOnScreen() const {
    // The size of the frame is unknown before the window is shown, so this is an estimate.
    const int line = fontMetrics().height();
    return screen()->availableSize() - QSize(line, 3 * line);
}

std::optional<QSize> Dialog::sizeByUser() const {
    const QSize size = normalGeometry().size();
    return size == firstSize_ ? std::nullopt : std::optional(size);
}

/// Qt outlines the default button, so it must be the one that Enter presses.
void Dialog::noteFocus(QWidget *before, QWidget *now) {
    scrollTo(now);
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
    } else if (event->type() == QEvent::ApplicationPaletteChange) {
        setPalette(readableWhenDisabled(QGuiApplication::palette()));
    }
    return result;
}

void Dialog::resizeEvent(QResizeEvent *event) {
    QDialog::resizeEvent(event);
    keepTextsWhole();
}

void Dialog::showEvent(QShowEvent *event) {
    QDialog::showEvent(event);
    firstSize_ = size();
    scrollTo(focusWidget());
}

/// In a narrower window, wrapped texts need more lines. The window becomes smaller than its content
/// only on a small screen. Then the content scrolls.
void Dialog::keepTextsWhole() {
    const QSize least = layout()->totalMinimumSize();
    const int withinPane = pane_->neededFor(pane_->width()).height();
    const int height = least.height() - pane_->minimumSizeHint().height() + withinPane;
    setMinimumSize(QSize(least.width(), height).boundedTo(roomOnScreen()));
}

/// Scrolls only while no mouse button is down, so that nothing moves under the mouse.
void Dialog::scrollTo(QWidget *focused) {
    if (focused != nullptr && pane_->isAncestorOf(focused) &&
        QGuiApplication::mouseButtons() == Qt::NoButton) {
        pane_->bringIntoView(*focused);
    }
}

} // namespace kvex::qt
