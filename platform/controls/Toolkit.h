// Creates windows and message boxes.
#pragma once

#include "platform/Clipboard.h"
#include "platform/controls/Window.h"
#include "platform/controls/WindowDesign.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kvex {

/// Styles and results of a message box.
namespace message_box {
inline constexpr std::int32_t yesNo = 4;
inline constexpr std::int32_t exclamation = 48;
inline constexpr std::int32_t ok = 1;
inline constexpr std::int32_t yes = 6;
inline constexpr std::int32_t no = 7;
} // namespace message_box

class Toolkit {
public:
    virtual ~Toolkit() = default;

    /// Builds the window without showing it. The design is not needed afterwards. Fails with
    /// cannotCreateObject if there is no display or another thread owns the windows. Fails with
    /// invalidCall if the design contradicts itself. Examples are a visible control without a
    /// place, a name used twice, and a buddy that does not exist.
    [[nodiscard]] virtual std::unique_ptr<Window> createWindow(const WindowDesign &design) = 0;
    /// Shows `text` over the active window and waits for the answer: `ok` for style 48, `yes` or
    /// `no` for style 4. Esc and the frame mean `no`. Fails with cannotCreateObject like
    /// createWindow.
    virtual std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                                        std::int32_t style) = 0;
    [[nodiscard]] virtual Clipboard &clipboard() = 0;
};

} // namespace kvex
