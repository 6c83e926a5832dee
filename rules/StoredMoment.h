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

/// "dd/mm/yyyy TIME Hrs.", where TIME is what is stored from the tenth character on. In place of
/// "/" stands the date separator of the locale that the user's environment names; the process's
/// own locale counts for nothing and is not changed. Fails with typeMismatch unless the first eight
/// characters are the digits of a date that exists.
[[nodiscard]] std::u16string shownMoment(std::u16string_view stored);

} // namespace kvex
