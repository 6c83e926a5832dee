// Finds ids in a rule that do not lead to a user or to an account that can do what it is for.
#pragma once

#include "host/check/Finding.h"

namespace kvex::host {

[[nodiscard]] Remarks findNoId(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findUnknownUser(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findUnknownAccount(const Rulebook &book, const CheckedRule &rule);
[[nodiscard]] Remarks findWrongBindMode(const Rulebook &book, const CheckedRule &rule);

} // namespace kvex::host
