// What opening a session asks the database.
#pragma once

#include <array>
#include <string_view>

namespace kvex::bench {

inline constexpr std::array<std::string_view, 5> sessionQueries{
    "SELECT * FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY",
    "SELECT * FROM SMS_USERS WHERE DELETED = 0", "SELECT * FROM SMS_ACCOUNT WHERE DELETED = 0",
    "SELECT * FROM SMS_SERVICE WHERE DELETED = 0 AND DISABLED = 0",
    "SELECT * FROM SMS_SERVICECOMMANDS WHERE SERVICE_ID IN (SELECT ID FROM SMS_SERVICE WHERE "
    "DELETED = 0 AND DISABLED = 0)"};

} // namespace kvex::bench
