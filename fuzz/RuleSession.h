// A session with users and accounts for the lookups of a description, without a platform.
#pragma once

#include <cstddef>

namespace kvex::fuzz {

/// Fills this thread's session; its accounts and users have the ids 1 to 3. Other ids have no name.
void openRuleSession();

/// How many errors the session's traps have logged since the last call.
[[nodiscard]] std::size_t takeLoggedErrors();

} // namespace kvex::fuzz
