#include "adapters/odbc/DriverName.h"

#include "platform/Text.h"
#include "platform/Unicode.h"

#include <odbcinst.h>

#include <array>
#include <utility>

namespace kvex::odbc {

DriverFamily driverFamily(const recordset::ConnectionString &text) {
    constexpr std::array families = std::to_array<std::pair<std::u16string_view, DriverFamily>>(
        {{u"postgres", DriverFamily::postgres},
         {u"psqlodbc", DriverFamily::postgres},
         {u"maria", DriverFamily::mariaDb},
         {u"maodbc", DriverFamily::mariaDb},
         {u"mysql", DriverFamily::mySql},
         {u"myodbc", DriverFamily::mySql},
         {u"sqlite", DriverFamily::sqlite}});
    const std::u16string driver = foldCase(setting(text, u"Driver"));
    for (const auto &[part, family] : families) {
        if (driver.find(part) != std::u16string::npos) {
            return family;
        }
    }
    return DriverFamily::other;
}

std::u16string setting(const recordset::ConnectionString &text, std::u16string_view key) {
    if (text.has(key)) {
        return std::u16string(text.value(key));
    }
    const std::string source = toUtf8(text.value(text.has(u"DSN") ? u"DSN" : u"Data Source"));
    std::array<char, 1024> value{};
    if (source.empty() ||
        SQLGetPrivateProfileString(source.c_str(), toUtf8(key).c_str(), "", value.data(),
                                   static_cast<int>(value.size()), "odbc.ini") <= 0) {
        return {};
    }
    return fromUtf8(value.data());
}

} // namespace kvex::odbc
