#include "adapters/odbc/Parameters.h"

#include "platform/Text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace kvex::odbc {
namespace {

/// What every driver takes for a short text.
constexpr std::size_t shortText = 4000;

} // namespace

void Parameters::bind(const Handle<SQL_HANDLE_STMT> &statement,
                      const std::vector<ValueView> &values) {
    held_.clear();
    SQLUSMALLINT position = 0;
    for (const ValueView &value : values) {
        Held &held = held_.emplace_back();
        SQLSMALLINT from = SQL_C_WCHAR;
        SQLSMALLINT type = SQL_WVARCHAR;
        SQLULEN size = 1;
        SQLPOINTER data = held.text.data();
        if (const auto *integer = std::get_if<std::int64_t>(&value.held())) {
            held.integer = *integer;
            held.length = sizeof held.integer;
            from = SQL_C_SBIGINT;
            type = SQL_BIGINT;
            size = 19;
            data = &held.integer;
        } else if (const auto *number = std::get_if<double>(&value.held())) {
            held.number = *number;
            held.length = sizeof held.number;
            from = SQL_C_DOUBLE;
            type = SQL_DOUBLE;
            size = 15;
            data = &held.number;
        } else if (const auto *text = std::get_if<std::u16string_view>(&value.held())) {
            // No database keeps an unpaired surrogate.
            held.text = fromUtf8(toUtf8(*text));
            held.length = static_cast<SQLLEN>(held.text.size() * sizeof(char16_t));
            type = held.text.size() > shortText ? SQL_WLONGVARCHAR : SQL_WVARCHAR;
            size = std::max<SQLULEN>(1, held.text.size());
            data = held.text.data();
        }
        statement.check(SQLBindParameter(statement.get(), ++position, SQL_PARAM_INPUT, from, type,
                                         size, 0, data, std::max<SQLLEN>(0, held.length),
                                         &held.length));
    }
}

} // namespace kvex::odbc
