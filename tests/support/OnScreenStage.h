// A real toolkit with a user for each of its windows.
#pragma once

#include "platform/controls/Toolkit.h"
#include "tests/support/OnScreenUser.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kvex::test {

using OnScreen = std::function<void(OnScreenUser &)>;

class OnScreenStage {
public:
    struct MessageBox {
        std::u16string title;
        std::u16string text;
    };

    virtual ~OnScreenStage() = default;

    [[nodiscard]] virtual Toolkit &toolkit() = 0;
    /// Expects `window` as the next window to be shown, and runs `script` in it. "" stands for any
    /// window. Calls queue up in the order in which the windows will be shown.
    virtual void whenShown(std::u16string window, OnScreen script) = 0;
    [[nodiscard]] virtual std::vector<MessageBox> messageBoxes() const = 0;
    /// What no person could have done, and windows that were unexpected or stayed open.
    [[nodiscard]] virtual std::vector<std::string> problems() const = 0;
    [[nodiscard]] virtual std::size_t pendingScripts() const = 0;
    /// The clipboard's text as another program sets it.
    virtual void setClipboardText(const std::u16string &text) = 0;
};

using MakeStage = std::unique_ptr<OnScreenStage> (*)();

} // namespace kvex::test
