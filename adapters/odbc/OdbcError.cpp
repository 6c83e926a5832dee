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

enum class Meaning {
    cannotConnect,
    connectionLost,
    noDriver,
    noDataSource,
    wrongUser,
    forbidden,
    noTable,
    badStatement,
    constraint,
    tooLong,
    badValue,
    locked,
    lockedOrCutOff,
    noAnswer,
    diskFull,
    damaged,
    outOfMemory,
    failed,
};

struct Native {
    std::u16string_view state;
    std::int32_t code;
    Meaning meaning;
};

/// Native codes that tell more than the state. SQLite's driver reports codes below 100; MariaDB and
/// MySQL, client and server, report codes above 1000.
constexpr std::array natives = std::to_array<Native>({
    {u"HY000", 1, Meaning::badStatement},
    {u"HY000", 5, Meaning::locked},
    {u"HY000", 6, Meaning::locked},
    {u"HY000", 8, Meaning::forbidden},
    {u"HY000", 11, Meaning::damaged},
    {u"HY000", 13, Meaning::diskFull},
    {u"HY000", 14, Meaning::cannotConnect},
    {u"HY000", 18, Meaning::tooLong},
    {u"HY000", 19, Meaning::constraint},
    {u"HY000", 26, Meaning::cannotConnect},
    {u"42000", 1044, Meaning::forbidden},
    {u"42000", 1049, Meaning::cannotConnect},
    {u"42000", 1142, Meaning::forbidden},
    {u"42000", 1143, Meaning::forbidden},
    {u"HY000", 1021, Meaning::diskFull},
    {u"HY000", 1114, Meaning::diskFull},
    {u"HY000", 1205, Meaning::lockedOrCutOff},
    {u"HY000", 1213, Meaning::locked},
    {u"HY000", 1290, Meaning::forbidden},
    {u"HY000", 1364, Meaning::constraint},
    {u"HY000", 1366, Meaning::badValue},
    {u"HY000", 1406, Meaning::tooLong},
    {u"HY000", 1792, Meaning::forbidden},
    {u"HY000", 1969, Meaning::noAnswer},
    {u"HY000", 2002, Meaning::cannotConnect},
    {u"HY000", 2003, Meaning::cannotConnect},
    {u"HY000", 2005, Meaning::cannotConnect},
    {u"HY000", 2006, Meaning::connectionLost},
    {u"HY000", 2013, Meaning::connectionLost},
    {u"HY000", 2026, Meaning::cannotConnect},
    {u"HY000", 5013, Meaning::connectionLost},
    {u"HY000", 5014, Meaning::connectionLost},
});

/// Beginnings of states; the first that fits decides.
constexpr std::array states = std::to_array<std::pair<std::u16string_view, Meaning>>({
    {u"08001", Meaning::cannotConnect}, {u"08004", Meaning::cannotConnect},
    {u"3D000", Meaning::cannotConnect}, {u"08", Meaning::connectionLost},
    {u"57P", Meaning::connectionLost},  {u"28", Meaning::wrongUser},
    {u"IM002", Meaning::noDataSource},  {u"IM", Meaning::noDriver},
    {u"01000", Meaning::noDriver},      {u"42501", Meaning::forbidden},
    {u"25006", Meaning::forbidden},     {u"42S02", Meaning::noTable},
    {u"42P01", Meaning::noTable},       {u"42", Meaning::badStatement},
    {u"07", Meaning::badStatement},     {u"21", Meaning::badStatement},
    {u"23", Meaning::constraint},       {u"44", Meaning::constraint},
    {u"45", Meaning::constraint},       {u"P0001", Meaning::constraint},
    {u"22001", Meaning::tooLong},       {u"22", Meaning::badValue},
    {u"40", Meaning::locked},           {u"55P03", Meaning::locked},
    {u"57014", Meaning::noAnswer},      {u"HYT", Meaning::noAnswer},
    {u"53100", Meaning::diskFull},      {u"XX001", Meaning::damaged},
    {u"XX002", Meaning::damaged},       {u"HY001", Meaning::outOfMemory},
    {u"HY013", Meaning::outOfMemory},
});

bool contains(std::u16string_view text, std::u16string_view part) {
    return text.find(part) != std::u16string_view::npos;
}

Meaning meaningOf(const Diagnostic &diagnostic) {
    if (contains(diagnostic.text, u"no such table")) {
        return Meaning::noTable;
    }
    // PostgreSQL's client library reports a broken connection by these words, without a code.
    if (contains(diagnostic.text, u"server closed the connection") ||
        contains(diagnostic.text, u"no connection to the server") ||
        contains(diagnostic.text, u"could not receive data from server") ||
        contains(diagnostic.text, u"could not send data to server") ||
        contains(diagnostic.text, u"SSL SYSCALL error") ||
        contains(diagnostic.text, u"SSL connection has been closed")) {
        return Meaning::connectionLost;
    }
    if (contains(diagnostic.text, u"password authentication failed")) {
        return Meaning::wrongUser;
    }
    const auto native = std::ranges::find_if(natives, [&](const Native &known) {
        return known.code == diagnostic.native &&
               (known.state == diagnostic.state || known.code > 1000);
    });
    if (native != natives.end()) {
        return native->meaning;
    }
    const auto state = std::ranges::find_if(
        states, [&](const auto &known) { return diagnostic.state.starts_with(known.first); });
    return state == states.end() ? Meaning::failed : state->second;
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

struct Refusal {
    std::int32_t number;
    /// The parts of the description around the driver's own words.
    std::u16string_view before;
    std::u16string_view after;
};

Refusal refusalOf(Meaning meaning) {
    switch (meaning) {
    case Meaning::cannotConnect:
        return {refusal::noConnection, u"The database cannot be reached (",
                u"): check the server, port and database in the connection string and that the "
                u"server runs, then try again."};
    case Meaning::connectionLost:
        return {refusal::noConnection, u"The connection to the database is lost (",
                u"): open the rules, or run the command, again and repeat the change."};
    case Meaning::noDriver:
        return {refusal::noConnection, u"The database's ODBC driver cannot be used (",
                u"): install it, and give the connection string its name from odbcinst -q -d."};
    case Meaning::noDataSource:
        return {refusal::noConnection, u"There is no ODBC data source or driver with this name (",
                u"): use one that odbcinst -q -s or odbcinst -q -d lists."};
    case Meaning::wrongUser:
        return {refusal::wrongUser, u"The database refuses this user or password (",
                u"): correct UID and PWD in the connection string."};
    case Meaning::forbidden:
        return {refusal::forbidden, u"The database does not permit this (",
                u"), so nothing was stored: ask its administrator for the right to write."};
    case Meaning::noTable:
        return {refusal::noTable, u"The database lacks a table (",
                u"): name the server's database, or create the tables with kvexrules init."};
    case Meaning::badStatement:
        return {refusal::badStatement, u"The database cannot do this (",
                u"): check that its tables are those of the server."};
    case Meaning::constraint:
        return {refusal::constraint, u"The database refuses these values (",
                u"): change them and try again."};
    case Meaning::tooLong:
        return {refusal::tooLong, u"A text is too long for the database (", u"): shorten it."};
    case Meaning::badValue:
        return {refusal::badValue, u"The database cannot take a value (",
                u"): change it and try again."};
    case Meaning::locked:
        return {refusal::timeout, u"The record is locked by another program (",
                u"): wait until it has finished, then try again."};
    case Meaning::lockedOrCutOff:
        // A cluster's node reports the same code in both cases.
        return {refusal::timeout,
                u"The record is locked by another program, or the server is cut off from its "
                u"cluster (",
                u"): try again. If that does not help, open the rules, or run the command, again "
                u"and repeat the change."};
    case Meaning::noAnswer:
        return {refusal::timeout, u"The database did not answer in time (",
                u"): try again, or allow more time with Connect Timeout=SECONDS."};
    case Meaning::diskFull:
        return {refusal::failed, u"The database's disk is full (",
                u"), so nothing was stored: free some space there and try again."};
    case Meaning::damaged:
        return {refusal::failed, u"The database is damaged (", u"): restore it from a backup."};
    case Meaning::outOfMemory:
    case Meaning::failed:
        break;
    }
    return {refusal::failed, u"The database failed (",
            u"): open the rules, or run the command, again and repeat the change."};
}

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
    const Meaning meaning = meaningOf(diagnostic);
    if (meaning == Meaning::outOfMemory) {
        return Error(error_number::outOfMemory);
    }
    const Refusal refused = refusalOf(meaning);
    return errorWith(refused.number, std::u16string(refused.before) + cleaned(diagnostic.text) +
                                         std::u16string(refused.after));
}

Error errorWith(std::int32_t number, std::u16string description) {
    return Error(number, std::move(description), u"ODBC");
}

} // namespace kvex::odbc
