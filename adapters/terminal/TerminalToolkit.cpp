#include "adapters/terminal/TerminalToolkit.h"

#include "adapters/controls/DesignCheck.h"
#include "adapters/terminal/MessageBoxDesign.h"
#include "adapters/terminal/TerminalWindow.h"
#include "platform/controls/Buttons.h"

namespace kvex::terminal {

Desktop &TerminalToolkit::desktop() {
    const std::lock_guard lock(mutex_);
    return lockedDesktop();
}

Desktop &TerminalToolkit::lockedDesktop() {
    requireThread();
    if (desktop_ == nullptr) {
        desktop_ = std::make_unique<Desktop>(device_, kind_, clipboard_);
    }
    return *desktop_;
}

void TerminalToolkit::requireThread() {
    if (owner_ && !owner_->isCurrent() && desktop_ != nullptr && desktop_->hasWindows()) {
        throw Error(error_number::invalidCall, u"No window can be shown from " +
                                                   OwnerThread().text() +
                                                   u". The terminal belongs to the windows of " +
                                                   owner_->text() + u". Call from there.");
    }
    if (!owner_ || !owner_->isCurrent()) {
        owner_.emplace();
    }
}

std::unique_ptr<Window> TerminalToolkit::createWindow(const WindowDesign &design) {
    const std::lock_guard lock(mutex_);
    Desktop &shownOn = lockedDesktop();
    controls::checkDesign(design);
    return std::make_unique<TerminalWindow>(shownOn, design, Shape::window,
                                            [this](const Error &error) { showRefusal(error); });
}

std::int32_t TerminalToolkit::showMessageBox(const std::u16string &title,
                                             const std::u16string &text, std::int32_t style) {
    const auto made = [&] {
        const std::lock_guard lock(mutex_);
        return std::make_unique<TerminalWindow>(
            lockedDesktop(), messageBoxDesign(title, text, style), Shape::box, nullptr);
    }();
    TerminalWindow &box = *made;
    // The frame answers as Esc does.
    std::int32_t answer = style == message_box::yesNo ? message_box::no : message_box::ok;
    const auto closesWith = [&](const char16_t *button, std::int32_t result) {
        if (box.element(button) != nullptr) {
            box.get<CommandButton>(button).onClick = [&box, &answer, result] {
                answer = result;
                box.close();
            };
        }
    };
    closesWith(okButton, message_box::ok);
    closesWith(yesButton, message_box::yes);
    closesWith(noButton, message_box::no);
    box.showModal();
    return answer;
}

/// A handler's error that the user must learn of, as a change that was not stored.
void TerminalToolkit::showRefusal(const Error &error) {
    if (error.concernsUser()) {
        const TerminalWindow *window = desktop().active();
        showMessageBox(window != nullptr ? window->caption() : std::u16string(),
                       error.description(), message_box::exclamation);
    }
}

} // namespace kvex::terminal
