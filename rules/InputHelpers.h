// Helpers for typed text: the key filter of number boxes, and padding.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kvex {

/// Whether a number box accepts the key. It accepts digits, backspace (8), tab (9), copy (3) and
/// cut (24), and "." unless `integerOnly`. It accepts paste (22) when the clipboard holds a number
/// of 0 or more. Any notation of a number counts, even with `integerOnly`.
[[nodiscard]] bool IsNumericKey(std::int16_t keyCode, bool integerOnly);

/// Pads `text` on its left with `fill` until it has `width` characters. Fails with invalidCall when
/// `text` is longer; it never cuts the text.
[[nodiscard]] std::u16string PadLeft(std::u16string_view text, std::int32_t width, char16_t fill);

} // namespace kvex
