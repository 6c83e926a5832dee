// A moment as a date range stores it: "yyyymmdd hh:mm:ss".
#pragma once

#include <string>
#include <string_view>

namespace kvex {

/// "dd/mm/yyyy TIME Hrs.", with the locale's date separator in place of "/" and TIME as stored,
/// from the tenth character on. Fails with typeMismatch unless the first eight characters are
/// the digits of a date that exists.
[[nodiscard]] std::u16string shownMoment(std::u16string_view stored);

} // namespace kvex
