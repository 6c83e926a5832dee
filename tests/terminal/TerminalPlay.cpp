#include "tests/terminal/TerminalPlay.h"

#include "adapters/controls/Keys.h"
#include "platform/Text.h"

#include <utility>

namespace kvex::test {

using terminal::TerminalWindow;

TerminalPlay::TerminalPlay(terminal::Size size, terminal::TerminalKind kind)
    : device_(size), emulator_(size), toolkit_(device_, std::move(kind)) {
    device_.onWait = [this] { wait(); };
}

void TerminalPlay::whenShown(std::u16string window, Script script) {
    scripts_.push_back({std::move(window), std::move(script)});
}

void TerminalPlay::input(const std::string &bytes) {
    device_.type(bytes);
    try {
        while (!isHungUp_) {
            toolkit_.desktop().handleNext();
        }
    } catch (const Idle &) {
    }
}

void TerminalPlay::hangUp() {
    device_.hangUp();
    isHungUp_ = true;
    toolkit_.desktop().handleNext();
}

void TerminalPlay::look() {
    static_cast<void>(toolkit_.desktop().picture());
}

const Emulator &TerminalPlay::screen() {
    emulator_.take(device_.taken());
    return emulator_;
}

/// The active window waits for its user. A window within whose script this is called is done with
/// the script's last action.
void TerminalPlay::wait() {
    TerminalWindow *window = toolkit_.desktop().active();
    if (!played_.empty() && played_.back() == window) {
        throw Idle();
    }
    if (window->name() == u"messageBox") {
        answer(*window);
    } else {
        played_.push_back(window);
        play(*window);
        played_.pop_back();
        // The window is closed. This ends its wait and does nothing else.
        device_.type(" ");
    }
}

void TerminalPlay::play(TerminalWindow &window) {
    TerminalUser user(*this, window);
    const std::string name = toUtf8(window.name());
    if (scripts_.empty() ||
        (!scripts_.front().window.empty() && scripts_.front().window != window.name())) {
        complain(name + " was shown unexpectedly");
    } else {
        const Script script = std::move(scripts_.front().script);
        scripts_.pop_front();
        script(user);
        if (user.isOpen()) {
            complain(name + " was left open");
        }
    }
    user.closeByFrame();
}

void TerminalPlay::answer(TerminalWindow &box) {
    const bool asks = box.element(u"cmdYes") != nullptr;
    std::u16string text = controls::parseCaption(box.element(u"lblText")->accessCaption()).shown;
    text.pop_back();
    messageBoxes_.push_back(
        {box.caption(), text, asks ? message_box::yesNo : message_box::exclamation});
    if (onMessageBox) {
        onMessageBox(box);
    }
    std::optional<std::int32_t> wanted = asks ? message_box::no : message_box::ok;
    if (!answers_.empty()) {
        wanted = answers_.front();
        answers_.pop_front();
    }
    if (!wanted) {
        device_.type("\x1b");
    } else if (asks == (*wanted != message_box::ok)) {
        device_.type(*wanted == message_box::yes ? "y" : *wanted == message_box::no ? "n" : "\r");
    } else {
        complain("the message box has no such button: " + toUtf8(text));
        device_.type("\x1b");
    }
}

} // namespace kvex::test
