// Names of stored ids.
#pragma once

#include <cstdint>
#include <string>

namespace kvex {

/// The name of the user or account with this id, without surrounding blanks; "" for an id that
/// none has, when there were none as the session opened, and after an error, which is trapped.
/// The shared record set is left on the row that was found, or at its end.
[[nodiscard]] std::u16string GetUserName(std::int32_t id);
[[nodiscard]] std::u16string GetAccountName(std::int32_t id);

} // namespace kvex
