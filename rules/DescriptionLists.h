// The lists of this thread's rule as readable text.
//
// Each traps its errors and then gives what it had joined so far. An id that is no number ends the
// list of accounts or users. A date that does not exist gives "", and so does a list of people,
// words or recipients for which there is no memory.
#pragma once

#include <string>

namespace kvex {

/// Joined with " and " when all must hold, else " or ".
[[nodiscard]] std::u16string BuildPeopleList();
[[nodiscard]] std::u16string BuildAccountList();
[[nodiscard]] std::u16string BuildWordList();
/// Joined with " and ".
[[nodiscard]] std::u16string BuildDistributionList();
[[nodiscard]] std::u16string BuildAlertList();
/// "dd/mm/yyyy hh:mm:ss Hrs. to dd/mm/yyyy hh:mm:ss Hrs.", with the user's date separator.
[[nodiscard]] std::u16string BuildDateTimeList();

} // namespace kvex
