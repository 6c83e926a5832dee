// A toolkit without a screen. Windows, controls, focus, access keys and modality behave as on a
// screen; a script plays the user. For tests and for work at a terminal.
#pragma once

#include "platform/controls/Toolkit.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::headless {

class HeadlessWindow;
class User;

/// Clipboard whose text the test sets.
class HeadlessClipboard final : public Clipboard {
public:
    void setText(std::u16string text) { text_ = std::move(text); }
    void clear() { text_.clear(); }
    [[nodiscard]] bool hasText() const override { return !text_.empty(); }
    [[nodiscard]] std::u16string text() const override { return text_; }

private:
    std::u16string text_;
};

class HeadlessToolkit final : public Toolkit {
public:
    /// What the user does in a window, from its first moment on. When the script ends with the
    /// window open, that is a problem and the window is closed by its frame.
    using Script = std::function<void(User &)>;
    struct MessageBox {
        std::u16string title;
        std::u16string text;
        std::int32_t style;
    };

    /// The next window to be shown is the one named `window`, and `script` plays in it. Calls
    /// queue up, in the order in which the windows will be shown. A window that nobody waits for,
    /// or another than the awaited one, is a problem and is closed by its frame at once.
    void whenShown(std::u16string window, Script script);
    /// The answer to the next message box; calls queue up. Without one the answer is `ok` for an
    /// OK box and `no` for a question.
    void answerNext(std::int32_t result);

    [[nodiscard]] const std::vector<MessageBox> &messageBoxes() const { return messageBoxes_; }
    /// What went wrong with the play itself: unexpected windows, windows left open, actions that
    /// no user could take (a click on a disabled button, typing without a focus). Empty after a
    /// good test, together with pendingScripts() == 0.
    [[nodiscard]] const std::vector<std::string> &problems() const { return problems_; }
    [[nodiscard]] std::size_t pendingScripts() const { return scripts_.size(); }
    /// Errors that left a handler, as written to the diagnostic stream.
    [[nodiscard]] const std::vector<Error> &unhandledErrors() const { return unhandledErrors_; }

    [[nodiscard]] std::unique_ptr<Window> createWindow(const WindowDesign &design) override;
    std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                                std::int32_t style) override;
    [[nodiscard]] HeadlessClipboard &clipboard() override { return clipboard_; }

private:
    friend class HeadlessWindow;
    friend class User;
    struct Awaited {
        std::u16string window;
        Script script;
    };

    /// The life of a shown window: what awaits it plays, then it is closed.
    void play(HeadlessWindow &window);
    void playScript(HeadlessWindow &window, const Script &script);
    void addProblem(std::u16string_view window, std::u16string_view text);

    std::deque<Awaited> scripts_;
    std::deque<std::int32_t> answers_;
    std::vector<MessageBox> messageBoxes_;
    std::vector<std::string> problems_;
    std::vector<Error> unhandledErrors_;
    /// The last one is the active one.
    std::vector<HeadlessWindow *> shown_;
    HeadlessClipboard clipboard_;
};

} // namespace kvex::headless
