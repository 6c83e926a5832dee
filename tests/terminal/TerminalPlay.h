// Plays the user of the terminal's toolkit, by bytes alone: waits for windows and message boxes,
// and runs a script in each.
#pragma once

#include "adapters/terminal/TerminalToolkit.h"
#include "tests/terminal/Emulator.h"
#include "tests/terminal/FakeDevice.h"
#include "tests/terminal/TerminalUser.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kvex::test {

/// It must outlive the windows of its toolkit.
class TerminalPlay {
public:
    using Script = std::function<void(TerminalUser &)>;
    struct MessageBox {
        std::u16string title;
        std::u16string text;
        std::int32_t style;
    };

    explicit TerminalPlay(terminal::Size size = {80, 24},
                          terminal::TerminalKind kind = {"xterm-256color",
                                                         terminal::Characters::unicode, true});

    [[nodiscard]] terminal::TerminalToolkit &toolkit() { return toolkit_; }
    [[nodiscard]] FakeDevice &device() { return device_; }

    /// Expects `window` as the next window to be shown, and runs `script` in it. "" stands for any
    /// window. Calls queue up in the order in which the windows will be shown. An unexpected window
    /// is a problem, as is one that its script leaves open. Either is closed by its frame.
    void whenShown(std::u16string window, Script script);
    /// The answer to the next message box; calls queue up. Without one the answer is `ok` for an
    /// OK box and `no` for a question.
    void answerNext(std::int32_t result) { answers_.push_back(result); }
    void answerNextByEscape() { answers_.push_back(std::nullopt); }
    /// Called while a message box is on the screen, before it is answered.
    std::function<void(terminal::TerminalWindow &box)> onMessageBox;

    [[nodiscard]] const std::vector<MessageBox> &messageBoxes() const { return messageBoxes_; }
    [[nodiscard]] const std::vector<std::string> &problems() const { return problems_; }
    void complain(std::string problem) { problems_.push_back(std::move(problem)); }
    [[nodiscard]] std::size_t pendingScripts() const { return scripts_.size(); }

    /// The user's input, from the first byte to its last effect.
    void input(const std::string &bytes);
    /// The user's terminal is gone, and so are all its windows.
    void hangUp();
    /// Gives every control its place for its present state.
    void look();
    /// What the terminal shows.
    [[nodiscard]] const Emulator &screen();

private:
    /// Everything that the user did has happened.
    struct Idle {};
    struct Awaited {
        std::u16string window;
        Script script;
    };

    void wait();
    void play(terminal::TerminalWindow &window);
    void answer(terminal::TerminalWindow &box);

    FakeDevice device_;
    Emulator emulator_;
    terminal::TerminalToolkit toolkit_;
    /// The windows whose scripts run; the last one is active.
    std::vector<const terminal::TerminalWindow *> played_;
    std::deque<Awaited> scripts_;
    std::deque<std::optional<std::int32_t>> answers_;
    std::vector<MessageBox> messageBoxes_;
    std::vector<std::string> problems_;
    bool isHungUp_ = false;
};

} // namespace kvex::test
