// The names that belong to stored ids.
#pragma once

#include <cstdint>
#include <string>

namespace kvex {

/// The name of the user or account with this id, without blanks around it. Returns "" for an
/// unknown id, and when the session opened without users or accounts. Traps its errors, and then
/// returns "", too. Leaves the record set on the found row, or at its end.
[[nodiscard]] std::u16string GetUserName(std::int32_t id);
[[nodiscard]] std::u16string GetAccountName(std::int32_t id);

} // namespace kvex
