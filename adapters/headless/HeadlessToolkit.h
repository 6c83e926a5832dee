// A toolkit without a screen, for tests and for work at a terminal. Windows, controls, focus,
// access keys and modality behave as on a screen. A script plays the user.
#pragma once

#include "adapters/lightweight/LightClipboard.h"
#include "platform/controls/Toolkit.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::headless {

class HeadlessWindow;
class User;

class HeadlessToolkit final : public Toolkit {
public:
    /// What the user does in a window once it is shown. A window that is still open when its script
    /// ends is a problem. The toolkit then closes it by its frame.
    using Script = std::function<void(User &)>;
    struct MessageBox {
        std::u16string title;
        std::u16string text;
        std::int32_t style;
    };

    /// Expects the window named `window` next and plays `script` in it. Calls queue up in the order
    /// in which the windows appear. Any other window is a problem, and the toolkit closes it by its
    /// frame at once.
    void whenShown(std::u16string window, Script script);
    /// Plays `script` in each window for which no call of whenShown waits. No window is unexpected
    /// then.
    void whenAnyShown(Script script);
    /// The answer to the next message box. Calls queue up. Without an answer, the result is `ok`
    /// for an OK box and `no` for a question.
    void answerNext(std::int32_t result);

    [[nodiscard]] const std::vector<MessageBox> &messageBoxes() const { return messageBoxes_; }
    /// What went wrong with the scripts: unexpected windows, windows left open, and actions that no
    /// user could take. A click on a disabled button is such an action, and typing without a focus.
    /// After a good test the list is empty and pendingScripts() is 0.
    [[nodiscard]] const std::vector<std::string> &problems() const { return problems_; }
    [[nodiscard]] std::size_t pendingScripts() const { return scripts_.size(); }
    /// The errors that left a handler. The diagnostic stream has them too.
    [[nodiscard]] const std::vector<Error> &unhandledErrors() const { return unhandledErrors_; }

    [[nodiscard]] std::unique_ptr<Window> createWindow(const WindowDesign &design) override;
    std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                                std::int32_t style) override;
    [[nodiscard]] lightweight::LightClipboard &clipboard() override { return clipboard_; }

private:
    friend class HeadlessWindow;
    friend class User;
    struct Awaited {
        std::u16string window;
        Script script;
    };

    class Showing;

    /// Plays the script that waits for the window, then closes the window. So it does when no
    /// memory is left to note a problem, and std::bad_alloc leaves it.
    void play(HeadlessWindow &window);
    void playScript(HeadlessWindow &window, const Script &script);
    void addProblem(std::u16string_view window, std::u16string_view text);

    std::deque<Awaited> scripts_;
    Script anyScript_;
    std::deque<std::int32_t> answers_;
    std::vector<MessageBox> messageBoxes_;
    std::vector<std::string> problems_;
    std::vector<Error> unhandledErrors_;
    /// The last one is active.
    std::vector<HeadlessWindow *> shown_;
    lightweight::LightClipboard clipboard_;
};

} // namespace kvex::headless
