#include "adapters/qt/QtControl.h"

#include "adapters/qt/Dialog.h"
#include "adapters/qt/QText.h"
#include "adapters/qt/QtToolkit.h"
#include "platform/Error.h"

#include <QApplication>

namespace kvex::qt {

Element::Element(const ControlDesign &design, const std::u16string &window, QWidget &widget)
    : name_(design.name), enabled_(true), visible_(design.visible), widget_(widget),
      where_(window + u"." + design.name), disabledHint_(toQt(design.disabledHint)) {
    widget_.setObjectName(toQt(name_));
    widget_.hide();
    if (!design.enabled) {
        applyEnabled(false);
    }
}

void Element::setPlaced() {
    placed_ = true;
    applyVisible(visible_);
}

void Element::setSpokenName(const QString &name) {
    widget_.setAccessibleName(name);
}

void Element::applyEnabled(bool enabled) {
    enabled_ = enabled;
    if (!enabled) {
        passFocusOn();
    }
    widget_.setEnabled(enabled);
    widget_.setToolTip(enabled ? QString() : disabledHint_);
}

void Element::applyVisible(bool visible) {
    visible_ = visible;
    if (!visible) {
        passFocusOn();
    }
    widget_.setVisible(visible && placed_);
    visibleSet();
}

void Element::giveFocus() {
    if (!enabled_ || !visible_) {
        throw Error(error_number::invalidCall);
    }
    focusTarget().setFocus(Qt::OtherFocusReason);
}

void Element::showRefusal(const Error &error) {
    if (error.concernsUser()) {
        const QWidget *window = QApplication::activeWindow();
        const std::u16string title =
            window != nullptr ? fromQt(window->windowTitle()) : std::u16string();
        QtToolkit().showMessageBox(title, error.description(), message_box::exclamation);
    }
}

/// Returns the focus to the control that had it before, or else to the next tab stop.
void Element::passFocusOn() {
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
