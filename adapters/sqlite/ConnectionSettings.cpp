#include "adapters/sqlite/ConnectionSettings.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <algorithm>

namespace kvex::sqlite {
namespace {

constexpr int defaultBusyTimeout = 5000;

int busyTimeout(const recordset::ConnectionString &text) {
    constexpr std::u16string_view key = u"Busy Timeout";
    if (!text.has(key)) {
        return defaultBusyTimeout;
    }
    const std::u16string_view value = text.value(key);
    const bool whole =
        !value.empty() && value.size() <= 9 &&
        std::ranges::all_of(value, [](char16_t unit) { return unit >= u'0' && unit <= u'9'; });
    if (!whole) {
        throw Error(error_number::badArgument,
                    u"The connection string's Busy Timeout must be a whole number of "
                    u"milliseconds.");
    }
    return toInt32(value);
}

} // namespace

bool namesSqlite(const recordset::ConnectionString &text) {
    return text.isPath() || recordset::equalIgnoringCase(text.value(u"Provider"), u"SQLite");
}

Database openDatabase(const recordset::ConnectionString &text, Database::Missing missing) {
    const std::u16string_view name = text.value(u"Data Source");
    if (name.empty()) {
        throw Error(error_number::badArgument,
                    u"The connection string names no database file: add Data Source=PATH.");
    }
    return Database(name, busyTimeout(text), missing);
}

} // namespace kvex::sqlite
