#include "adapters/odbc/DriverOptions.h"

#include "platform/Text.h"
#include "platform/Unicode.h"

#include <odbcinst.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace kvex::odbc {
namespace {

using recordset::ConnectionString;

/// What the data source's section of the system's or user's file says.
std::u16string ofDataSource(const ConnectionString &text, const char *key) {
    const std::string source = toUtf8(text.value(text.has(u"DSN") ? u"DSN" : u"Data Source"));
    std::array<char, 1024> value{};
    if (source.empty() ||
        SQLGetPrivateProfileString(source.c_str(), key, "", value.data(),
                                   static_cast<int>(value.size()), "odbc.ini") <= 0) {
        return {};
    }
    return fromUtf8(value.data());
}

std::u16string driverName(const ConnectionString &text) {
    return foldCase(text.has(u"Driver") ? text.value(u"Driver") : ofDataSource(text, "Driver"));
}

/// Collects what the string leaves open.
class Options {
public:
    explicit Options(const ConnectionString &text) : text_(text) {}

    void add(std::u16string_view key, std::u16string_view value) {
        if (!text_.has(key)) {
            options_.push_back({key, std::u16string(value)});
        }
    }
    void replace(std::u16string_view key, std::u16string value) {
        options_.push_back({key, std::move(value)});
    }
    [[nodiscard]] std::vector<DriverOption> take() { return std::move(options_); }

private:
    const ConnectionString &text_;
    std::vector<DriverOption> options_;
};

std::u16string number(int value) {
    return toText(std::int64_t{value});
}

/// A server waits for a lock less long than its client waits for the server.
int lockTimeout(int timeout) {
    return std::max(1, timeout * 2 / 3);
}

void addPostgres(Options &options, const ConnectionString &text, int timeout) {
    // Line breaks as they are, truth values as numbers, statements prepared by the server.
    options.add(u"LFConversion", u"0");
    options.add(u"BoolsAsChar", u"0");
    options.add(u"TrueIsMinus1", u"0");
    options.add(u"UseDeclareFetch", u"0");
    options.add(u"UseServerSidePrepare", u"1");
    // What is a long text is one of characters, and so can be had as UTF-8 (ServerKind.h).
    options.replace(u"UnknownsAsLongVarchar", u"0");
    // Of an option given twice the later counts: the user's own.
    const std::u16string own =
        text.has(u"pqopt") ? std::u16string(text.value(u"pqopt")) : ofDataSource(text, "pqopt");
    const std::u16string seconds = number(timeout);
    std::u16string library =
        u"connect_timeout=" + seconds + u" tcp_user_timeout=" + seconds + u"000 keepalives_idle=" +
        seconds + u" keepalives_interval=5 keepalives_count=2 options='-c lock_timeout=" +
        number(lockTimeout(timeout)) + u"s'";
    options.replace(u"pqopt", own.empty() ? library : library + u' ' + own);
}

void addMariaDb(Options &options, const ConnectionString &text, int timeout, bool isMariaDb) {
    options.add(u"CHARSET", u"utf8mb4");
    // The rows that a statement found, changed in fact or not, are counted.
    if (!text.has(u"OPTIONS")) {
        options.add(u"OPTION", u"2");
    }
    const std::u16string seconds = number(std::max(2, timeout));
    if (isMariaDb) {
        options.add(u"CONN_TIMEOUT", number(timeout));
    }
    options.add(isMariaDb ? u"READ_TIMEOUT" : u"READTIMEOUT", seconds);
    options.add(isMariaDb ? u"WRITE_TIMEOUT" : u"WRITETIMEOUT", seconds);
    // What does not fit is refused and not cut.
    options.add(u"INITSTMT", u"SET SESSION sql_mode=CONCAT(@@sql_mode,',STRICT_ALL_TABLES')"
                             u",innodb_lock_wait_timeout=" +
                                 number(lockTimeout(timeout)));
}

void addSqlite(Options &options, int timeout) {
    options.add(u"Timeout", number(timeout) + u"000");
    options.add(u"NoCreat", u"1");
    options.add(u"FKSupport", u"1");
    options.add(u"SyncPragma", u"FULL");
    options.add(u"BigInt", u"1");
}

} // namespace

std::vector<DriverOption> driverOptions(const ConnectionString &text, int timeout) {
    const std::u16string driver = driverName(text);
    const auto is = [&](std::u16string_view part) {
        return driver.find(part) != std::u16string::npos;
    };
    Options options(text);
    if (is(u"postgres") || is(u"psqlodbc")) {
        addPostgres(options, text, timeout);
    } else if (is(u"maria") || is(u"maodbc")) {
        addMariaDb(options, text, timeout, true);
    } else if (is(u"mysql") || is(u"myodbc")) {
        addMariaDb(options, text, timeout, false);
    } else if (is(u"sqlite")) {
        addSqlite(options, timeout);
    }
    return options.take();
}

} // namespace kvex::odbc
