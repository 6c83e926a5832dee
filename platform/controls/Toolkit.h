// Where windows come from.
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

    /// Builds the window, not yet shown. The design is not kept. Fails with cannotCreateObject
    /// where no window can be shown (no display, or another thread owns the windows), and with
    /// invalidCall for a design that contradicts itself (a visible control without a place, a
    /// name used twice, a buddy that does not exist).
    [[nodiscard]] virtual std::unique_ptr<Window> createWindow(const WindowDesign &design) = 0;
    /// Shows `text` over the active window until it is answered: `ok` for style 48, `yes` or
    /// `no` for style 4 (Esc and the frame answer `no`). Fails as createWindow does.
    virtual std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                                        std::int32_t style) = 0;
    [[nodiscard]] virtual Clipboard &clipboard() = 0;
};

} // namespace kvex
