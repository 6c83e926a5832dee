// Finds rules that are read whole but can do nothing, do harm, or cost more than they seem to.
#pragma once

#include "host/check/Finding.h"

namespace kvex::host {

[[nodiscard]] Remarks findMalformedDate(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findReversedDates(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findPastDates(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findSameName(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findNeverRuns(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findReplyToAll(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findAlertToSender(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findSeveralMessages(const Rulebook &book, const CheckedRule &rule);

} // namespace kvex::host
