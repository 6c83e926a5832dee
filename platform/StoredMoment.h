// A date range as a rule stores it: two moments "yyyymmdd hh:mm:ss", joined by ",".
#pragma once

#include <string>
#include <string_view>

namespace kvex {

/// Both are views of the stored range.
struct StoredRange {
    std::u16string_view start;
    std::u16string_view end;
};

/// Splits the range at its first ",". Fails with typeMismatch when there is none.
[[nodiscard]] StoredRange storedRange(std::u16string_view range);

/// True for a whole moment: the digits of an existing date, a blank, and a time from 00:00:00 to
/// 23:59:59. Such moments stand in time as their texts stand in order.
[[nodiscard]] bool isWholeMoment(std::u16string_view stored);

/// Returns "dd/mm/yyyy TIME Hrs."; TIME is the stored text from the tenth character on. The date
/// separator is that of the locale in the user's environment. It ignores the locale of the process
/// and leaves it unchanged. Fails with typeMismatch unless the first eight characters are the
/// digits of an existing date.
[[nodiscard]] std::u16string shownMoment(std::u16string_view stored);

} // namespace kvex
