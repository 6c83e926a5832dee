#include "tests/databases/SqliteFixture.h"

#include "adapters/sqlite/Provider.h"
#include "platform/Text.h"
#include "tests/databases/SqliteSchema.h"

#include <sqlite3.h>

#include <stdexcept>
#include <utility>

namespace kvex::test {
namespace {

struct StatementEnd {
    void operator()(sqlite3_stmt *statement) const noexcept { sqlite3_finalize(statement); }
};

std::u16string rowOf(sqlite3_stmt *statement) {
    std::u16string row;
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        row.append(column > 0 ? u"|" : u"");
        if (const void *text = sqlite3_column_text16(statement, column)) {
            row.append(static_cast<const char16_t *>(text),
                       static_cast<std::size_t>(sqlite3_column_bytes16(statement, column)) /
                           sizeof(char16_t));
        } else {
            row.append(u"NULL");
        }
    }
    return row;
}

std::unique_ptr<DatabaseFixture> makeFile() {
    return std::make_unique<SqliteFixture>();
}

std::unique_ptr<DatabaseFixture> makeMemory() {
    static int number = 0;
    return std::make_unique<SqliteFixture>("file:kvex-test-" + std::to_string(++number) +
                                           "?mode=memory&cache=shared");
}

} // namespace

OtherProgram::OtherProgram(const std::string &name) {
    sqlite3 *opened = nullptr;
    const int code =
        sqlite3_open_v2(name.c_str(), &opened,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI, nullptr);
    handle_.reset(opened);
    if (code != SQLITE_OK) {
        throw std::runtime_error("cannot open " + name);
    }
}

void OtherProgram::Closer::operator()(sqlite3 *handle) const noexcept {
    sqlite3_close(handle);
}

void OtherProgram::run(std::u16string_view statement) {
    char *message = nullptr;
    if (sqlite3_exec(handle_.get(), toUtf8(statement).c_str(), nullptr, nullptr, &message) !=
        SQLITE_OK) {
        const std::string text = message;
        sqlite3_free(message);
        throw std::runtime_error(text);
    }
}

std::vector<std::u16string> OtherProgram::rows(std::u16string_view query) {
    sqlite3_stmt *prepared = nullptr;
    int code = sqlite3_prepare_v2(handle_.get(), toUtf8(query).c_str(), -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, StatementEnd> statement(prepared);
    std::vector<std::u16string> found;
    while (code == SQLITE_OK || code == SQLITE_ROW) {
        code = sqlite3_step(prepared);
        if (code == SQLITE_ROW) {
            found.push_back(rowOf(prepared));
        }
    }
    if (code != SQLITE_DONE) {
        throw std::runtime_error(sqlite3_errmsg(handle_.get()));
    }
    return found;
}

std::u16string OtherProgram::valueOf(std::u16string_view query) {
    const std::vector<std::u16string> found = rows(query);
    return found.empty() ? u"NONE" : found.front();
}

SqliteFixture::SqliteFixture()
    : folder_(std::make_unique<TemporaryFolder>()), name_(folder_->path() / "rules.db"),
      other_(name_) {
    createSqliteSchema(fromUtf8(name_));
}

SqliteFixture::SqliteFixture(const std::string &uri) : name_(uri), other_(name_) {
    createSqliteSchema(fromUtf8(name_));
}

std::u16string SqliteFixture::connectionString() const {
    return fromUtf8(name_);
}

recordset::Provider SqliteFixture::provider() const {
    return sqlite::provider();
}

void SqliteFixture::refuse(std::u16string_view event, std::u16string_view condition) {
    std::u16string trigger = u"CREATE TRIGGER refuse BEFORE ";
    trigger.append(event).append(u" ON SMS_RULES ");
    if (!condition.empty()) {
        trigger.append(u"WHEN ").append(condition);
    }
    run(trigger.append(u" BEGIN SELECT RAISE(ABORT, 'refused'); END"));
}

void SqliteFixture::permit() {
    run(u"DROP TRIGGER refuse");
}

DatabaseKind sqliteFile() {
    return {"SqliteFile", &makeFile};
}

DatabaseKind sqliteMemory() {
    return {"SqliteMemory", &makeMemory};
}

} // namespace kvex::test
