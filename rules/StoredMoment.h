// A date range as a rule stores it: two moments "yyyymmdd hh:mm:ss", joined by ",".
#pragma once

#include <string>
#include <string_view>

namespace kvex {

/// Views into the range.
struct StoredRange {
    std::u16string_view start;
    std::u16string_view end;
};

/// What stands before and after the first ",". Fails with typeMismatch when there is none.
[[nodiscard]] StoredRange storedRange(std::u16string_view range);

/// "dd/mm/yyyy TIME Hrs.", with the locale's date separator in place of "/" and TIME as stored,
/// from the tenth character on. Fails with typeMismatch unless the first eight characters are
/// the digits of a date that exists.
[[nodiscard]] std::u16string shownMoment(std::u16string_view stored);

} // namespace kvex
