// Functions for text. Text is UTF-16 everywhere; a "blank" is U+0020 only.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvex {

/// fromUtf8 and toUtf8 write U+FFFD for each code unit that cannot be read.
[[nodiscard]] std::u16string fromUtf8(std::string_view text);
/// Writes the UTF-16 units to `target` and returns the position after the last one. `target` must
/// have room for as many units as `text` has bytes.
char16_t *fromUtf8(std::string_view text, char16_t *target) noexcept;
[[nodiscard]] std::string toUtf8(std::u16string_view text);

/// A view of `text` without the blanks at both ends.
[[nodiscard]] std::u16string_view trimmed(std::u16string_view text) noexcept;

/// The same as text.find(unit, from), but faster when the unit stands far after `from`.
[[nodiscard]] std::size_t findUnit(std::u16string_view text, char16_t unit,
                                   std::size_t from = 0) noexcept;

/// Views of the items between the separators, including empty ones. There is always at least one.
[[nodiscard]] std::vector<std::u16string_view> split(std::u16string_view text, char16_t separator);

/// The items with the separator between them.
[[nodiscard]] std::u16string joined(const std::vector<std::u16string> &items, char16_t separator);

/// A view of `text` without one ";" at its end.
[[nodiscard]] std::u16string_view withoutTrailingSeparator(std::u16string_view text) noexcept;

/// The number in decimal.
[[nodiscard]] std::u16string toText(std::int64_t number);
[[nodiscard]] std::u16string toText(double number);

/// True when `text` is a decimal number and a double can hold it. The number may have blanks around
/// it, a sign, a fraction and an exponent. Its digits are ASCII.
[[nodiscard]] bool isNumeric(std::u16string_view text);

/// The value of a decimal number. Fails with overflow when a double cannot hold it, and with
/// typeMismatch for any other text.
[[nodiscard]] double toDouble(std::u16string_view text);

/// The value that toDouble gives, rounded half to even. Fails as toDouble does, and with overflow
/// outside the type's range.
[[nodiscard]] std::int64_t toInt64(std::u16string_view text);
[[nodiscard]] std::int32_t toInt32(std::u16string_view text);
[[nodiscard]] std::int16_t toInt16(std::u16string_view text);

/// `number` rounded half to even. Fails with overflow outside the type's range.
[[nodiscard]] std::int64_t toInt64(double number);
[[nodiscard]] std::int32_t toInt32(double number);
[[nodiscard]] std::int16_t toInt16(double number);

} // namespace kvex
