// Text is UTF-16 everywhere; a "blank" is U+0020 alone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvex {

/// Ill-formed input becomes U+FFFD, one for each code unit that cannot be read.
[[nodiscard]] std::u16string fromUtf8(std::string_view text);
/// The same, written to `target`, which has room for as many units as `text` has bytes. Gives the
/// place behind it.
char16_t *fromUtf8(std::string_view text, char16_t *target) noexcept;
[[nodiscard]] std::string toUtf8(std::u16string_view text);

/// `text` without the blanks at both ends. The view is into `text`.
[[nodiscard]] std::u16string_view trimmed(std::u16string_view text) noexcept;

/// As text.find(unit, from), for texts that are long to where it stands.
[[nodiscard]] std::size_t findUnit(std::u16string_view text, char16_t unit,
                                   std::size_t from = 0) noexcept;

/// The items between the separators, empty ones included; at least one. Views into `text`.
[[nodiscard]] std::vector<std::u16string_view> split(std::u16string_view text, char16_t separator);

/// `text` without its last character where that is a ";". The view is into `text`.
[[nodiscard]] std::u16string_view withoutTrailingSeparator(std::u16string_view text) noexcept;

/// A number in decimal.
[[nodiscard]] std::u16string toText(std::int64_t number);
[[nodiscard]] std::u16string toText(double number);

/// Whether `text` is a decimal number: surrounding blanks, a sign, ASCII digits with an optional
/// fraction, an optional exponent; and whether a double can hold it.
[[nodiscard]] bool isNumeric(std::u16string_view text);

/// The value of a decimal number; raises overflow where a double cannot hold it, typeMismatch for
/// any other text.
[[nodiscard]] double toDouble(std::u16string_view text);

/// toDouble, rounded half to even; raises overflow outside the type's range.
[[nodiscard]] std::int64_t toInt64(std::u16string_view text);
[[nodiscard]] std::int32_t toInt32(std::u16string_view text);
[[nodiscard]] std::int16_t toInt16(std::u16string_view text);

/// `number` rounded half to even; raises overflow outside the type's range.
[[nodiscard]] std::int64_t toInt64(double number);
[[nodiscard]] std::int32_t toInt32(double number);
[[nodiscard]] std::int16_t toInt16(double number);

} // namespace kvex
