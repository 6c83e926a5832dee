#include "adapters/qt/ControlWidget.h"

#include "adapters/qt/Dialog.h"
#include "adapters/qt/MessageBox.h"
#include "adapters/qt/QText.h"
#include "platform/Error.h"
#include "platform/controls/Toolkit.h"

#include <QApplication>

namespace kvex::qt {

ControlWidget::ControlWidget(const ControlDesign &design, const std::u16string &window,
                             QWidget &widget)
    : name_(design.name), enabled_(true), visible_(design.visible), widget_(widget),
      where_(window + u"." + design.name), disabledHint_(toQt(design.disabledHint)) {
    widget_.setObjectName(toQt(name_));
    widget_.hide();
    if (!design.enabled) {
        applyEnabled(false);
    }
}

void ControlWidget::setPlaced() {
    placed_ = true;
    applyVisible(visible_);
}

void ControlWidget::setSpokenName(const QString &name) {
    widget_.setAccessibleName(name);
}

void ControlWidget::applyEnabled(bool enabled) {
    enabled_ = enabled;
    if (!enabled) {
        passFocusOn();
    }
    widget_.setEnabled(enabled);
    widget_.setToolTip(enabled ? QString() : disabledHint_);
}

void ControlWidget::applyVisible(bool visible) {
    visible_ = visible;
    if (!visible) {
        passFocusOn();
    }
    widget_.setVisible(visible && placed_);
}

void ControlWidget::giveFocus() {
    if (!enabled_ || !visible_) {
        throw Error(error_number::invalidCall);
    }
    focusTarget().setFocus(Qt::OtherFocusReason);
}

void ControlWidget::showRefusal(const Error &error) {
    if (error.fromDatabase()) {
        const QWidget *window = QApplication::activeWindow();
        showMessageBox(window != nullptr ? fromQt(window->windowTitle()) : std::u16string(),
                       error.description(), message_box::exclamation);
    }
}

/// Back to where it came from, else to the next control that Tab reaches.
void ControlWidget::passFocusOn() {
    const QWidget *const window = widget_.window();
    QWidget *const focused = window->focusWidget();
    const auto isWithin = [this](const QWidget *widget) {
        return widget == &widget_ || widget_.isAncestorOf(widget);
    };
    if (focused == nullptr || !isWithin(focused)) {
        return;
    }
    const auto isUsable = [&](const QWidget *widget) {
        return !isWithin(widget) && widget->isEnabled() && widget->isVisibleTo(window);
    };
    const auto *dialog = dynamic_cast<const Dialog *>(window);
    if (QWidget *previous = dialog != nullptr ? dialog->previousFocus() : nullptr;
        previous != nullptr && isUsable(previous)) {
        previous->setFocus(Qt::OtherFocusReason);
        return;
    }
    for (QWidget *next = focused->nextInFocusChain(); next != focused;
         next = next->nextInFocusChain()) {
        const bool takesTab =
            (next->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && next->focusProxy() == nullptr;
        if (takesTab && isUsable(next)) {
            next->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

} // namespace kvex::qt
