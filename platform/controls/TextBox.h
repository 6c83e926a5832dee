// One line of text. It takes only the first line of a pasted text.
#pragma once

#include "platform/controls/Control.h"

#include <cstdint>
#include <functional>

namespace kvex {

class TextBox : public Control {
public:
    /// The user or setText changed the text. Setting an equal text does not count.
    std::function<void()> onChange;
    /// Runs before a key changes the text or uses the clipboard. `keyCode` is the typed character,
    /// or a code: 3 copy, 8 backspace, 9 tab, 22 paste, 24 cut. Setting it to 0 discards the key.
    std::function<void(std::int16_t &keyCode)> onKeyPress;

    [[nodiscard]] virtual std::u16string text() const = 0;
    /// Shows the whole text, even beyond the design's maxLength. That limits only typing, pasting
    /// and assistive technology.
    virtual void setText(const std::u16string &text) = 0;
};

} // namespace kvex
