#include "adapters/odbc/OdbcError.h"

#include "platform/Text.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace kvex::odbc {
namespace {

struct Native {
    std::u16string_view state;
    std::int32_t code;
    HelpContext context;
};

/// Native codes that tell more than the state. SQLite's driver reports codes below 100; MariaDB and
/// MySQL, client and server, report codes above 1000.
constexpr std::array natives = std::to_array<Native>({
    {u"HY000", 1, HelpContext::badStatement},
    {u"HY000", 5, HelpContext::locked},
    {u"HY000", 6, HelpContext::locked},
    {u"HY000", 8, HelpContext::forbidden},
    {u"HY000", 10, HelpContext::inputOutput},
    {u"HY000", 11, HelpContext::damaged},
    {u"HY000", 13, HelpContext::diskFull},
    {u"HY000", 14, HelpContext::cannotConnect},
    {u"HY000", 18, HelpContext::tooLong},
    {u"HY000", 19, HelpContext::constraint},
    {u"HY000", 26, HelpContext::notADatabase},
    {u"42000", 1044, HelpContext::forbidden},
    {u"42000", 1049, HelpContext::cannotConnect},
    {u"42000", 1142, HelpContext::forbidden},
    {u"42000", 1143, HelpContext::forbidden},
    {u"HY000", 1021, HelpContext::diskFull},
    {u"HY000", 1114, HelpContext::diskFull},
    {u"HY000", 1205, HelpContext::lockedOrCutOff},
    {u"HY000", 1213, HelpContext::locked},
    {u"HY000", 1290, HelpContext::forbidden},
    {u"HY000", 1364, HelpContext::constraint},
    {u"HY000", 1366, HelpContext::badValue},
    {u"HY000", 1406, HelpContext::tooLong},
    {u"HY000", 1792, HelpContext::forbidden},
    {u"HY000", 1969, HelpContext::noAnswer},
    {u"HY000", 2002, HelpContext::cannotConnect},
    {u"HY000", 2003, HelpContext::cannotConnect},
    {u"HY000", 2005, HelpContext::cannotConnect},
    {u"HY000", 2006, HelpContext::connectionLost},
    {u"HY000", 2013, HelpContext::connectionLost},
    {u"HY000", 2026, HelpContext::cannotConnect},
    {u"HY000", 5013, HelpContext::connectionLost},
    {u"HY000", 5014, HelpContext::connectionLost},
});

/// Beginnings of states; the first that fits decides.
constexpr std::array states = std::to_array<std::pair<std::u16string_view, HelpContext>>({
    {u"08001", HelpContext::cannotConnect}, {u"08004", HelpContext::cannotConnect},
    {u"3D000", HelpContext::cannotConnect}, {u"08", HelpContext::connectionLost},
    {u"57P", HelpContext::connectionLost},  {u"28", HelpContext::wrongUser},
    {u"IM002", HelpContext::noDataSource},  {u"IM", HelpContext::noDriver},
    {u"01000", HelpContext::noDriver},      {u"42501", HelpContext::forbidden},
    {u"25006", HelpContext::forbidden},     {u"42S02", HelpContext::noTable},
    {u"42P01", HelpContext::noTable},       {u"42", HelpContext::badStatement},
    {u"07", HelpContext::badStatement},     {u"21", HelpContext::badStatement},
    {u"23", HelpContext::constraint},       {u"44", HelpContext::constraint},
    {u"45", HelpContext::constraint},       {u"P0001", HelpContext::constraint},
    {u"22001", HelpContext::tooLong},       {u"22", HelpContext::badValue},
    {u"40", HelpContext::locked},           {u"55P03", HelpContext::locked},
    {u"57014", HelpContext::noAnswer},      {u"HYT", HelpContext::noAnswer},
    {u"53100", HelpContext::diskFull},      {u"XX001", HelpContext::damaged},
    {u"XX002", HelpContext::damaged},
});

bool contains(std::u16string_view text, std::u16string_view part) {
    return text.find(part) != std::u16string_view::npos;
}

HelpContext contextOf(const Diagnostic &diagnostic) {
    if (contains(diagnostic.text, u"no such table")) {
        return HelpContext::noTable;
    }
    // PostgreSQL's client library reports a broken connection by these words, without a code.
    if (contains(diagnostic.text, u"server closed the connection") ||
        contains(diagnostic.text, u"no connection to the server") ||
        contains(diagnostic.text, u"could not receive data from server") ||
        contains(diagnostic.text, u"could not send data to server") ||
        contains(diagnostic.text, u"SSL SYSCALL error") ||
        contains(diagnostic.text, u"SSL connection has been closed")) {
        return HelpContext::connectionLost;
    }
    if (contains(diagnostic.text, u"password authentication failed")) {
        return HelpContext::wrongUser;
    }
    const auto native = std::ranges::find_if(natives, [&](const Native &known) {
        return known.code == diagnostic.native &&
               (known.state == diagnostic.state || known.code > 1000);
    });
    if (native != natives.end()) {
        return native->context;
    }
    const auto state = std::ranges::find_if(
        states, [&](const auto &known) { return diagnostic.state.starts_with(known.first); });
    return state == states.end() ? HelpContext::failed : state->second;
}

/// The first line of a report, without the names in brackets that drivers put before it.
std::u16string cleaned(std::u16string_view text) {
    while (text.starts_with(u'[')) {
        const std::size_t end = text.find(u']');
        if (end == std::u16string_view::npos) {
            break;
        }
        text = trimmed(text.substr(end + 1));
    }
    text = text.substr(0, text.find_first_of(u"\r\n"));
    for (const std::u16string_view prefix : {u"ERROR:", u"FATAL:"}) {
        if (text.starts_with(prefix)) {
            text = trimmed(text.substr(prefix.size()));
        }
    }
    while (!text.empty() && contains(u" ;.", text.substr(text.size() - 1))) {
        text.remove_suffix(1);
    }
    return std::u16string(text);
}

bool saysOutOfMemory(const Diagnostic &diagnostic) {
    return diagnostic.state == u"HY001" || diagnostic.state == u"HY013";
}

struct Refusal {
    HelpContext context;
    std::int32_t number;
    /// What happened. The driver's own words follow it.
    std::u16string_view what;
};

constexpr std::array refusals = std::to_array<Refusal>({
    {HelpContext::cannotConnect, refusal::noConnection, u"The database cannot be reached"},
    {HelpContext::notADatabase, refusal::noConnection, u"The file is no database"},
    {HelpContext::connectionLost, refusal::noConnection, u"The connection to the database is lost"},
    {HelpContext::noDriver, refusal::noConnection, u"The database's ODBC driver cannot be used"},
    {HelpContext::noDataSource, refusal::noConnection,
     u"There is no ODBC data source or driver with this name"},
    {HelpContext::wrongUser, refusal::wrongUser, u"The database refuses this user or password"},
    {HelpContext::forbidden, refusal::forbidden, u"The database does not permit this"},
    {HelpContext::noTable, refusal::noTable, u"The database lacks a table"},
    {HelpContext::badStatement, refusal::badStatement, u"The database cannot do this"},
    {HelpContext::constraint, refusal::constraint, u"The database refuses these values"},
    {HelpContext::tooLong, refusal::tooLong, u"A text is too long for the database"},
    {HelpContext::badValue, refusal::badValue, u"The database cannot take a value"},
    {HelpContext::locked, refusal::timeout, u"The record is locked by another program"},
    // A cluster's node reports the same code in both cases.
    {HelpContext::lockedOrCutOff, refusal::timeout,
     u"The record is locked by another program, or the server is cut off from its cluster"},
    {HelpContext::noAnswer, refusal::timeout, u"The database did not answer in time"},
    {HelpContext::diskFull, refusal::failed, u"The database's disk is full"},
    {HelpContext::inputOutput, refusal::failed, u"The database's disk cannot be read or written"},
    {HelpContext::damaged, refusal::failed, u"The database is damaged"},
    {HelpContext::failed, refusal::failed, u"The database failed"},
});

} // namespace

Diagnostic diagnosticOf(std::int16_t handleType, void *handle) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 2048> text{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result =
        SQLGetDiagRecW(handleType, handle, 1, state.data(), &native, text.data(),
                       static_cast<SQLSMALLINT>(text.size()), &length);
    if (!SQL_SUCCEEDED(result)) {
        return {u"HY000", 0, u"the driver gives no reason"};
    }
    const auto held = std::ranges::find(text, SQLWCHAR{0});
    return {std::u16string(state.begin(), state.begin() + 5), native,
            std::u16string(text.begin(), held)};
}

Error errorOf(const Diagnostic &diagnostic) {
    if (saysOutOfMemory(diagnostic)) {
        return Error(error_number::outOfMemory);
    }
    const Refusal &refused = *std::ranges::find(refusals, contextOf(diagnostic), &Refusal::context);
    return errorWith(refused.number, refused.context,
                     std::u16string(refused.what) + u" (" + cleaned(diagnostic.text) + u").");
}

Error errorWith(std::int32_t number, HelpContext context, std::u16string description) {
    return Error(number, std::move(description), u"ODBC", context);
}

} // namespace kvex::odbc
