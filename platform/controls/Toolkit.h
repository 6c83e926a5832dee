// Creates windows and message boxes.
#pragma once

#include "kvex/MessageBox.h"
#include "platform/Clipboard.h"
#include "platform/controls/Window.h"
#include "platform/controls/WindowDesign.h"

#include <cstdint>
#include <memory>
#include <string>

namespace kvex {

class Toolkit {
public:
    virtual ~Toolkit() = default;

    /// Builds the window without showing it. The design is not needed afterwards. Fails with
    /// cannotCreateObject if there is no display, and with invalidCall if another thread owns the
    /// windows. Also fails with invalidCall if the design contradicts itself. Examples are a
    /// visible control without a place, a name used twice, and a buddy that does not exist.
    [[nodiscard]] virtual std::unique_ptr<Window> createWindow(const WindowDesign &design) = 0;
    /// Shows `text` over the active window and waits for the answer: `ok` for style 48, `yes` or
    /// `no` for style 4. Esc and the frame mean `no`. Fails without a display and on another
    /// thread, like createWindow.
    virtual std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                                        std::int32_t style) = 0;
    [[nodiscard]] virtual Clipboard &clipboard() = 0;
};

} // namespace kvex
