#include "adapters/odbc/ServerKind.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "platform/Text.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <utility>

namespace kvex::odbc {
namespace {

std::u16string number(int value) {
    return toText(std::int64_t{value});
}

/// Shorter than the client's timeout, so that a lock ends the statement and not the connection.
int lockTimeout(const Timeouts &timeouts) {
    return std::max(1, timeouts.call * 2 / 3);
}

std::vector<DriverOption> postgresOptions(const Timeouts &timeouts) {
    // A server whose client is silent in a transaction ends it. Otherwise a network that fails
    // would leave the transaction's locks for hours. So it is for MariaDB below.
    // While it waits for an answer, the client probes a silent server after `idle` seconds. It
    // gives up after two probes without a reply.
    const int interval = std::max(1, timeouts.call / 3);
    const int idle = std::max(1, timeouts.call - 2 * interval);
    // The system counts from the first retransmission, half a second after it sent the data.
    const int unacknowledged = timeouts.call * 1000 - 500;
    std::u16string library =
        u"connect_timeout=" + number(timeouts.login) + u" tcp_user_timeout=" +
        number(unacknowledged) + u" keepalives_idle=" + number(idle) + u" keepalives_interval=" +
        number(interval) + u" keepalives_count=2 options='-c lock_timeout=" +
        number(lockTimeout(timeouts)) + u"s -c idle_in_transaction_session_timeout=" +
        number(timeouts.call) + u"s'";
    return {
        // Line breaks stay as they are.
        {.key = u"LFConversion", .value = u"0"},
        // Truth values arrive as the numbers 0 and 1.
        {.key = u"BoolsAsChar", .value = u"0"},
        {.key = u"TrueIsMinus1", .value = u"0"},
        {.key = u"UseDeclareFetch", .value = u"0"},
        // The server prepares the statements.
        {.key = u"UseServerSidePrepare", .value = u"1"},
        // No savepoint before each statement of a transaction, which would double its round trips.
        // After an error the transaction can only be rolled back.
        {.key = u"Protocol", .value = u"7.4-0"},
        // Only character types count as long texts, so that every long text can be read as UTF-8.
        {.key = u"UnknownsAsLongVarchar", .value = u"0", .usersValue = UsersValue::isReplaced},
        // libpq uses the last value of an option that is given twice: the user's.
        {.key = u"pqopt", .value = std::move(library), .usersValue = UsersValue::followsOurs},
    };
}

std::vector<DriverOption> mySqlOptions(std::u16string_view readTimeout,
                                       std::u16string_view writeTimeout, const Timeouts &timeouts) {
    const std::u16string seconds = number(std::max(2, timeouts.call));
    return {
        {.key = u"CHARSET", .value = u"utf8mb4"},
        // An UPDATE counts the rows that it finds, also those that it leaves unchanged.
        {.key = u"OPTION", .value = u"2", .otherKey = u"OPTIONS"},
        {.key = readTimeout, .value = seconds},
        {.key = writeTimeout, .value = seconds},
        // The server refuses a text that is too long instead of cutting it.
        {.key = u"INITSTMT",
         .value = u"SET SESSION sql_mode=CONCAT(@@sql_mode,',STRICT_ALL_TABLES'),"
                  u"innodb_lock_wait_timeout=" +
                  number(lockTimeout(timeouts))},
    };
}

std::vector<DriverOption> mySqlOptions(const Timeouts &timeouts) {
    return mySqlOptions(u"READTIMEOUT", u"WRITETIMEOUT", timeouts);
}

std::vector<DriverOption> mariaDbOptions(const Timeouts &timeouts) {
    std::vector<DriverOption> options = mySqlOptions(u"READ_TIMEOUT", u"WRITE_TIMEOUT", timeouts);
    // Older servers read this as a comment.
    options.back().value +=
        u"/*M!100300 ,idle_write_transaction_timeout=" + number(timeouts.call) + u"*/";
    options.push_back({.key = u"CONN_TIMEOUT", .value = number(timeouts.login)});
    return options;
}

std::vector<DriverOption> sqliteOptions(const Timeouts &timeouts) {
    return {
        {.key = u"Timeout", .value = number(timeouts.call) + u"000"},
        {.key = u"NoCreat", .value = u"1"},
        {.key = u"FKSupport", .value = u"1"},
        {.key = u"SyncPragma", .value = u"FULL"},
        {.key = u"BigInt", .value = u"1"},
    };
}

std::vector<DriverOption> noOptions(const Timeouts & /*timeouts*/) {
    return {};
}

constexpr ServerKind postgres{
    .name = u"PostgreSQL",
    .driverNames = {u"postgres", u"psqlodbc"},
    .takesServerList = true,
    .options = &postgresOptions,
    .newKey = NewKey::returning,
    // CONCAT keeps the blanks of a padded text, as reading does.
    .beforeColumn = u"CONCAT(",
    .afterColumn = u") COLLATE \"C\" = ",
    .utf8Driver = u"psqlodbcw.so",
    // A short text can have a type that the driver does not return as bytes. Without a UTF-8
    // locale, the driver converts even bytes to the locale's characters.
    .utf8Texts = Utf8Texts::longOnes,
    .utf8InUtf8Locales = true,
    .tableQuery = u"SELECT CAST(to_regclass('{table}') AS TEXT)",
    .columnTypes = {.key = u"INTEGER GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY",
                    .name = u"VARCHAR(255)",
                    .text = u"TEXT",
                    .integer = u"INTEGER",
                    .behindTable = u""},
    .repeatableReadIsSnapshot = true,
    .lock = u"LOCK TABLE {table} IN EXCLUSIVE MODE",
    // The next number comes from the sequence itself, so that no number is given twice. A column
    // without a sequence gives Null everywhere.
    .numbering = u"SELECT setval(s, GREATEST(nextval(s), (SELECT COALESCE(MAX({column}), 0) + 1 "
                 u"FROM {table})), false) FROM (SELECT CAST(pg_get_serial_sequence('{table}', "
                 u"LOWER('{column}')) AS regclass) AS s) AS numbered",
};

constexpr ServerKind mariaDb{
    .name = u"MariaDB",
    .driverNames = {u"maria", u"maodbc"},
    .takesServerList = true,
    .options = &mariaDbOptions,
    .newKey = NewKey::returning,
    .lastNumber = u"LAST_INSERT_ID()",
    .emptyRow = u"() VALUES ()",
    // A comparison of bytes ignores the collation, which may treat different texts as equal.
    .beforeColumn = u"BINARY CONVERT(",
    .afterColumn = u" USING utf8mb4) = ",
    .parameter = u"BINARY CONVERT(? USING utf8mb4)",
    .utf8Driver = u"libmaodbc.so",
    // When the adapter reads wide characters, the driver loses the end of a text with surrogates
    // that is slightly too long, and reports nothing.
    .utf8Texts = Utf8Texts::all,
    .columnTypes = {.key = u"INTEGER NOT NULL AUTO_INCREMENT PRIMARY KEY",
                    .name = u"VARCHAR(255)",
                    .text = u"MEDIUMTEXT",
                    .integer = u"INTEGER",
                    .behindTable = u"CHARACTER SET utf8mb4"},
    .repeatableReadIsSnapshot = true,
    // This locks the rows and the gaps between them.
    .lock = u"SELECT ID FROM {table} FOR UPDATE",
};

constexpr ServerKind mySql = [] {
    ServerKind kind = mariaDb;
    kind.name = u"MySQL";
    kind.driverNames = {u"mysql", u"myodbc"};
    kind.options = &mySqlOptions;
    kind.newKey = NewKey::lastNumber;
    return kind;
}();

constexpr ServerKind sqlite{
    .name = u"SQLite",
    .driverNames = {u"sqlite"},
    .options = &sqliteOptions,
    .newKey = NewKey::lastNumber,
    .lastNumber = u"last_insert_rowid()",
    .rowNumber = u"ROWID",
    .beforeColumn = u"CAST(",
    .afterColumn = u" AS TEXT) = ",
    .parameter = u"? COLLATE BINARY",
    .saysOrigins = false,
    .columnTypes = {.key = u"INTEGER PRIMARY KEY AUTOINCREMENT",
                    .name = u"VARCHAR(255)",
                    .text = u"TEXT",
                    .integer = u"INTEGER",
                    .behindTable = u""},
};

constexpr ServerKind sqlServer{
    .name = u"Microsoft SQL Server",
    .options = &noOptions,
    .newKey = NewKey::output,
    .beforeColumn = u"CONVERT(VARBINARY(MAX), CONVERT(NVARCHAR(MAX), ",
    .afterColumn = u")) = ",
    .parameter = u"CONVERT(VARBINARY(MAX), CONVERT(NVARCHAR(MAX), ?))",
    .keepsNulCharacters = true,
    .columnTypes = {.key = u"INTEGER IDENTITY PRIMARY KEY",
                    .name = u"NVARCHAR(255)",
                    .text = u"NVARCHAR(MAX)",
                    .integer = u"INTEGER",
                    .behindTable = u""},
};

constexpr ServerKind other{
    .name = u"",
    .options = &noOptions,
    .keepsNulCharacters = true,
    .columnTypes = {.key = u"INTEGER GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY",
                    .name = u"VARCHAR(255)",
                    .text = u"VARCHAR(32000)",
                    .integer = u"INTEGER",
                    .behindTable = u""},
};

constexpr std::array kinds{postgres, mariaDb, mySql, sqlite, sqlServer};

template <class Fits> const ServerKind &kindThat(const Fits &fits) {
    const auto found = std::ranges::find_if(kinds, fits);
    return found == kinds.end() ? other : *found;
}

/// Major and minor.
using Version = std::pair<int, int>;

int leadingNumber(std::u16string_view &text) {
    int number = 0;
    while (!text.empty() && text.front() >= u'0' && text.front() <= u'9' && number < 10000) {
        number = number * 10 + (text.front() - u'0');
        text.remove_prefix(1);
    }
    text.remove_prefix(std::min<std::size_t>(1, text.size()));
    return number;
}

Version versionOf(std::u16string_view text) {
    const int major = leadingNumber(text);
    return {major, leadingNumber(text)};
}

} // namespace

const ServerKind &ServerKind::ofDriver(std::u16string_view driver) {
    const std::u16string name = foldCase(driver);
    return kindThat([&](const ServerKind &kind) {
        return std::ranges::any_of(kind.driverNames, [&](std::u16string_view word) {
            return !word.empty() && name.find(word) != std::u16string::npos;
        });
    });
}

ServerKind ServerKind::of(std::u16string_view name, std::u16string_view version) {
    ServerKind kind = kindThat(
        [&](const ServerKind &known) { return recordset::equalIgnoringCase(name, known.name); });
    // Older servers have no RETURNING.
    if (kind.name == mariaDb.name && versionOf(version) < Version{10, 5}) {
        kind.newKey = NewKey::lastNumber;
    }
    return kind;
}

} // namespace kvex::odbc
