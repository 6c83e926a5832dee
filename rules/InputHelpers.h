// Small helpers of the windows: the key filter of number boxes, and padding.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kvex {

/// Whether a key is accepted in a box for numbers: digits, backspace (8), tab (9), copy (3) and
/// cut (24); "." unless `integerOnly`; paste (22) when the clipboard holds a number of 0 or more,
/// in any notation that counts as numeric, even where `integerOnly`.
[[nodiscard]] bool IsNumericKey(std::int16_t keyCode, bool integerOnly);

/// `text` behind as many `fill` as make `width` characters. Fails with invalidCall when it is
/// longer; nothing is cut.
[[nodiscard]] std::u16string PadLeft(std::u16string_view text, std::int32_t width, char16_t fill);

} // namespace kvex
