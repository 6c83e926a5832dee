#include "adapters/sqlite/SqliteStatement.h"

#include "platform/Text.h"

#include <sqlite3.h>

#include <string>

namespace kvex::sqlite {
namespace {

struct Binder {
    sqlite3_stmt *statement;
    int position;

    int operator()(Null /*null*/) const { return sqlite3_bind_null(statement, position); }
    int operator()(std::int64_t number) const {
        return sqlite3_bind_int64(statement, position, number);
    }
    int operator()(double number) const { return sqlite3_bind_double(statement, position, number); }
    int operator()(std::u16string_view text) const {
        const std::string utf8 = toUtf8(text);
        return sqlite3_bind_text64(statement, position, utf8.data(), utf8.size(), SQLITE_TRANSIENT,
                                   SQLITE_UTF8);
    }
};

} // namespace

void SqliteStatement::Finalizer::operator()(sqlite3_stmt *handle) const noexcept {
    sqlite3_finalize(handle);
}

SqliteStatement::SqliteStatement(const SqliteConnection &connection, std::u16string_view text)
    : connection_(connection) {
    const std::string utf8 = toUtf8(text);
    sqlite3_stmt *prepared = nullptr;
    const int code = sqlite3_prepare_v2(connection.handle(), utf8.c_str(), -1, &prepared, nullptr);
    handle_.reset(prepared);
    if (code != SQLITE_OK) {
        throw connection.lastError();
    }
    if (!prepared) {
        throw Error(error_number::badArgument, u"There is no statement to run: the text is empty.");
    }
}

void SqliteStatement::bind(const std::vector<ValueView> &parameters) {
    int position = 0;
    for (const ValueView &parameter : parameters) {
        if (std::visit(Binder{handle(), ++position}, parameter.held()) != SQLITE_OK) {
            throw connection_.lastError();
        }
    }
}

bool SqliteStatement::step() {
    switch (sqlite3_step(handle())) {
    case SQLITE_ROW:
        return true;
    case SQLITE_DONE:
        return false;
    default:
        throw connection_.lastError();
    }
}

void SqliteStatement::reset() noexcept {
    sqlite3_reset(handle());
}

std::u16string SqliteStatement::text(int column) const {
    const auto *utf8 = reinterpret_cast<const char *>(sqlite3_column_text(handle(), column));
    return utf8 ? fromUtf8(utf8) : std::u16string();
}

} // namespace kvex::sqlite
