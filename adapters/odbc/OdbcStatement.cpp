#include "adapters/odbc/OdbcStatement.h"

#include "platform/Text.h"

#include <string>

namespace kvex::odbc {
namespace {

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

void OdbcStatement::execute(const std::vector<ValueView> &parameters) {
    for (const ValueView &value : parameters) {
        if (!connection_.server().keepsNulCharacters && hasNulCharacter(value)) {
            throw errorWith(refusal::badValue,
                            u"The database cannot hold a text with a NUL character, so nothing "
                            u"was stored: remove the character and try again.");
        }
    }
    parameters_.bind(statement_, parameters);
    const SQLRETURN result = SQLExecute(handle());
    if (result != SQL_NO_DATA) {
        check(result);
    }
}

void OdbcStatement::executeDirectly() const {
    check(SQLExecDirectW(handle(), wide(text_.c_str()), static_cast<SQLINTEGER>(text_.size())));
}

void OdbcStatement::close() const {
    check(SQLFreeStmt(handle(), SQL_CLOSE));
}

SQLUSMALLINT OdbcStatement::columnCount() const {
    SQLSMALLINT count = 0;
    check(SQLNumResultCols(handle(), &count));
    return static_cast<SQLUSMALLINT>(count);
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

} // namespace kvex::odbc
