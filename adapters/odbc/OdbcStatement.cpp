#include "adapters/odbc/OdbcStatement.h"

#include "adapters/odbc/OdbcConnection.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace kvex::odbc {
namespace {

/// In UTF-16 units: every driver accepts this length for a short text.
constexpr std::size_t shortText = 4000;
/// The editor runs fewer different statements: ticks, the order, each kind of save, and the query
/// after a save.
constexpr std::size_t mostPrepared = 8;

bool hasNulCharacter(const ValueView &value) {
    const auto *text = std::get_if<std::u16string_view>(&value.held());
    return text && text->find(u'\0') != std::u16string_view::npos;
}

} // namespace

OdbcStatement::OdbcStatement(const OdbcConnection &connection, std::u16string_view text)
    : connection_(connection), text_(text), statement_(connection.handle(), SQL_HANDLE_DBC) {}

void OdbcStatement::prepare() const {
    if (trimmed(text_).empty()) {
        throw Error(error_number::badArgument, u"There is no statement to run: the text is empty.");
    }
    check(SQLPrepareW(handle(), wide(text_.c_str()), static_cast<SQLINTEGER>(text_.size())));
}

void OdbcStatement::bind(const std::vector<ValueView> &values) {
    parameters_.clear();
    SQLUSMALLINT position = 0;
    for (const ValueView &value : values) {
        Parameter &held = parameters_.emplace_back();
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
            // No database can hold an unpaired surrogate, so this replaces it.
            held.text = fromUtf8(toUtf8(*text));
            held.length = static_cast<SQLLEN>(held.text.size() * sizeof(char16_t));
            type = held.text.size() > shortText ? SQL_WLONGVARCHAR : SQL_WVARCHAR;
            size = std::max<SQLULEN>(1, held.text.size());
            data = held.text.data();
        }
        check(SQLBindParameter(handle(), ++position, SQL_PARAM_INPUT, from, type, size, 0, data,
                               std::max<SQLLEN>(0, held.length), &held.length));
    }
}

void OdbcStatement::execute(const std::vector<ValueView> &parameters) {
    if (!connection_.server().keepsNulCharacters &&
        std::ranges::any_of(parameters, &hasNulCharacter)) {
        throw errorWith(refusal::badValue, HelpContext::badValue,
                        u"The database cannot hold a text with a NUL character.");
    }
    bind(parameters);
    checkRun(SQLExecute(handle()));
}

void OdbcStatement::checkRun(SQLRETURN result) const {
    // A driver reports that a statement met no row.
    if (result != SQL_NO_DATA) {
        check(result);
    }
}

void OdbcStatement::executeDirectly() const {
    checkRun(SQLExecDirectW(handle(), wide(text_.c_str()), static_cast<SQLINTEGER>(text_.size())));
}

void OdbcStatement::close() const {
    check(SQLFreeStmt(handle(), SQL_CLOSE));
}

SQLUSMALLINT OdbcStatement::columnCount() const {
    SQLSMALLINT count = 0;
    check(SQLNumResultCols(handle(), &count));
    return static_cast<SQLUSMALLINT>(count);
}

SQLLEN OdbcStatement::columnNumber(SQLUSMALLINT column, SQLUSMALLINT field) const {
    SQLLEN number = 0;
    check(SQLColAttributeW(handle(), column, field, nullptr, 0, nullptr, &number));
    return number;
}

std::u16string OdbcStatement::columnText(SQLUSMALLINT column, SQLUSMALLINT field) const {
    std::array<SQLWCHAR, 512> text{};
    SQLSMALLINT length = 0;
    const SQLRETURN result =
        SQLColAttributeW(handle(), column, field, text.data(), sizeof text, &length, nullptr);
    if (!SQL_SUCCEEDED(result)) {
        return {};
    }
    return {text.begin(), std::ranges::find(text, SQLWCHAR{0})};
}

std::vector<std::u16string> OdbcStatement::columnNames() const {
    std::vector<std::u16string> names;
    const SQLUSMALLINT count = columnCount();
    for (SQLUSMALLINT column = 1; column <= count; ++column) {
        names.push_back(columnText(column, SQL_DESC_LABEL));
    }
    return names;
}

bool OdbcStatement::fetch() const {
    const SQLRETURN result = SQLFetch(handle());
    if (result == SQL_NO_DATA) {
        return false;
    }
    check(result);
    return true;
}

std::int64_t OdbcStatement::rowCount() const {
    SQLLEN count = 0;
    check(SQLRowCount(handle(), &count));
    return count;
}

PreparedStatements::~PreparedStatements() {
    // Freeing a statement by itself costs a round trip.
    for (OdbcStatement &statement : statements_) {
        statement.leaveToConnection();
    }
}

OdbcStatement &PreparedStatements::executed(Purpose purpose,
                                            const recordset::Statement &statement) {
    const auto kept = std::ranges::find(statements_, statement.text, &OdbcStatement::text);
    if (kept == statements_.end()) {
        return executedNew(purpose, statement);
    }
    statements_.splice(statements_.begin(), statements_, kept);
    try {
        kept->execute(statement.parameters);
        return *kept;
    } catch (const Error &) {
        statements_.pop_front();
        if (purpose == Purpose::writing) {
            throw;
        }
    }
    // A server may refuse a prepared query after the type of one of its columns has changed.
    return executedNew(purpose, statement);
}

OdbcStatement &PreparedStatements::executedNew(Purpose purpose,
                                               const recordset::Statement &statement) {
    OdbcStatement &added = statements_.emplace_front(connection_, statement.text);
    try {
        added.prepare();
        if (purpose == Purpose::reading && added.columnCount() == 0) {
            throw Error(error_number::badArgument, u"The statement returns no rows.");
        }
        added.execute(statement.parameters);
    } catch (...) {
        statements_.pop_front();
        throw;
    }
    if (statements_.size() > mostPrepared) {
        statements_.pop_back();
    }
    return added;
}

} // namespace kvex::odbc
