// Plays the user of the Qt toolkit: waits for windows and message boxes to be shown, and lets a
// script act in each. One at a time; it must outlive the windows.
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

    /// Makes the application that the toolkit will use.
    QtPlay();

    /// The next window to be shown is the one named `window`, "" for whichever, and `script`
    /// plays in it. Calls queue up, in the order in which the windows will be shown. A window that
    /// nobody waits for, or another than the awaited one, is a problem and is closed by its frame
    /// at once; so is one that a script leaves open.
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
    /// Whether the window came to be the active one, and what has its focus to be focused.
    bool activate(QWidget &window);

    std::deque<Awaited> scripts_;
    std::deque<std::optional<std::int32_t>> answers_;
    std::vector<MessageBox> messageBoxes_;
    std::vector<std::string> problems_;
};

} // namespace kvex::test
