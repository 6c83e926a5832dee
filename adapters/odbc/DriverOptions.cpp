#include "adapters/odbc/DriverOptions.h"

#include "adapters/odbc/DriverName.h"
#include "platform/Text.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace kvex::odbc {
namespace {

using recordset::ConnectionString;

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

void addPostgres(Options &options, const ConnectionString &text, const Timeouts &timeouts) {
    // Line breaks as they are, truth values as numbers, statements prepared by the server.
    options.add(u"LFConversion", u"0");
    options.add(u"BoolsAsChar", u"0");
    options.add(u"TrueIsMinus1", u"0");
    options.add(u"UseDeclareFetch", u"0");
    options.add(u"UseServerSidePrepare", u"1");
    // What is a long text is one of characters, and so can be had as UTF-8 (ServerKind.h).
    options.replace(u"UnknownsAsLongVarchar", u"0");
    // Of an option given twice the later counts: the user's own.
    const std::u16string own = setting(text, u"pqopt");
    // What was sent and not acknowledged counts from when it is first repeated, half a second
    // later. While an answer is waited for, the second question whether the server's computer is
    // there that gets no answer is the last.
    const int timeout = timeouts.call;
    const int interval = std::max(1, timeout / 3);
    const int idle = std::max(1, timeout - 2 * interval);
    std::u16string library = u"connect_timeout=" + number(timeouts.login) + u" tcp_user_timeout=" +
                             number(timeout * 1000 - 500) + u" keepalives_idle=" + number(idle) +
                             u" keepalives_interval=" + number(interval) +
                             u" keepalives_count=2 options='-c lock_timeout=" +
                             number(lockTimeout(timeout)) + u"s'";
    options.replace(u"pqopt", own.empty() ? library : library + u' ' + own);
}

void addMariaDb(Options &options, const ConnectionString &text, const Timeouts &timeouts,
                bool isMariaDb) {
    const int timeout = timeouts.call;
    options.add(u"CHARSET", u"utf8mb4");
    // The rows that a statement found, changed in fact or not, are counted.
    if (!text.has(u"OPTIONS")) {
        options.add(u"OPTION", u"2");
    }
    const std::u16string seconds = number(std::max(2, timeout));
    if (isMariaDb) {
        options.add(u"CONN_TIMEOUT", number(timeouts.login));
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

std::vector<DriverOption> driverOptions(const ConnectionString &text, const Timeouts &timeouts) {
    Options options(text);
    switch (const DriverFamily family = driverFamily(text)) {
    case DriverFamily::postgres:
        addPostgres(options, text, timeouts);
        break;
    case DriverFamily::mariaDb:
    case DriverFamily::mySql:
        addMariaDb(options, text, timeouts, family == DriverFamily::mariaDb);
        break;
    case DriverFamily::sqlite:
        addSqlite(options, timeouts.call);
        break;
    case DriverFamily::other:
        break;
    }
    return options.take();
}

} // namespace kvex::odbc
