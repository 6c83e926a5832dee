// Plays the user of the Qt toolkit: waits for windows and message boxes, and runs a script in each.
// There is one at a time, and it must outlive the windows.
#pragma once

#include "tests/support/QtUser.h"

#include <QObject>

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QMessageBox;

namespace kvex::test {

class QtPlay final : public QObject {
public:
    using Script = std::function<void(QtUser &)>;
    struct MessageBox {
        std::u16string title;
        std::u16string text;
        std::int32_t style;
    };

    /// Creates the application that the toolkit will use.
    QtPlay();

    /// Expects `window` as the next window to be shown, and runs `script` in it. "" stands for any
    /// window. Calls queue up in the order in which the windows will be shown. An unexpected window
    /// is a problem, as is one that its script leaves open. Either is closed by its frame.
    void whenShown(std::u16string window, Script script);
    /// The answer to the next message box; calls queue up. Without one the answer is `ok` for an
    /// OK box and `no` for a question.
    void answerNext(std::int32_t result) { answers_.push_back(result); }
    void answerNextByEscape() { answers_.push_back(std::nullopt); }

    [[nodiscard]] const std::vector<MessageBox> &messageBoxes() const { return messageBoxes_; }
    [[nodiscard]] const std::vector<std::string> &problems() const { return problems_; }
    [[nodiscard]] std::size_t pendingScripts() const { return scripts_.size(); }

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    struct Awaited {
        std::u16string window;
        Script script;
    };

    void play(qt::Dialog &dialog);
    void answer(QMessageBox &box);
    /// Whether the window became active, and its focus widget, if it has one, got the focus.
    bool activate(QWidget &window);

    std::deque<Awaited> scripts_;
    std::deque<std::optional<std::int32_t>> answers_;
    std::vector<MessageBox> messageBoxes_;
    std::vector<std::string> problems_;
};

} // namespace kvex::test
