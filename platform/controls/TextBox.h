// One line of text: of what is pasted it takes the first line.
#pragma once

#include "platform/controls/Control.h"

#include <cstdint>
#include <functional>

namespace kvex {

class TextBox : public Control {
public:
    /// The text changed, by the user or by setText (only when it is another text).
    std::function<void()> onChange;
    /// A key that would change the text or work on the clipboard is about to: its character
    /// code (8 backspace, 9 tab, 3 copy, 22 paste, 24 cut, else the character typed). Setting it
    /// to 0 discards the key.
    std::function<void(std::int16_t &keyCode)> onKeyPress;

    [[nodiscard]] virtual std::u16string text() const = 0;
    /// The whole text, however long: the design's maximal length binds what the user types and
    /// pastes, and what assistive technology sets.
    virtual void setText(const std::u16string &text) = 0;
};

} // namespace kvex
