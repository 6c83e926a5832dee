#include "tests/recordset/SqliteFixture.h"

#include "adapters/sqlite/Provider.h"
#include "platform/Text.h"
#include "tests/support/SqliteSchema.h"

#include <sqlite3.h>

#include <stdexcept>
#include <utility>

namespace kvex::test {
namespace {

class SqliteFixture final : public DatabaseFixture {
public:
    SqliteFixture(std::unique_ptr<TemporaryFolder> folder, const std::string &name)
        : folder_(std::move(folder)), connectionString_(fromUtf8(name)), other_(name) {
        createSqliteSchema(connectionString_);
    }

    [[nodiscard]] recordset::Provider provider() const override { return sqlite::provider(); }
    [[nodiscard]] std::u16string connectionString() const override { return connectionString_; }
    void run(std::u16string_view statement) override { other_.run(statement); }
    [[nodiscard]] std::u16string valueOf(std::u16string_view query) override {
        return other_.valueOf(query);
    }

private:
    std::unique_ptr<TemporaryFolder> folder_;
    std::u16string connectionString_;
    OtherProgram other_;
};

std::unique_ptr<DatabaseFixture> makeFile() {
    auto folder = std::make_unique<TemporaryFolder>();
    const std::string name = folder->path() / "rules.db";
    return std::make_unique<SqliteFixture>(std::move(folder), name);
}

std::unique_ptr<DatabaseFixture> makeMemory() {
    static int number = 0;
    return std::make_unique<SqliteFixture>(nullptr, "file:conformance" + std::to_string(++number) +
                                                        "?mode=memory&cache=shared");
}

struct StatementEnd {
    void operator()(sqlite3_stmt *statement) const noexcept { sqlite3_finalize(statement); }
};

} // namespace

TemporaryFolder::TemporaryFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "kvex-XXXXXX";
    if (!mkdtemp(pattern.data())) {
        throw std::runtime_error("no temporary folder " + pattern);
    }
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

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

std::u16string OtherProgram::valueOf(std::u16string_view query) {
    sqlite3_stmt *prepared = nullptr;
    const int code =
        sqlite3_prepare_v2(handle_.get(), toUtf8(query).c_str(), -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, StatementEnd> statement(prepared);
    if (code != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(handle_.get()));
    }
    switch (sqlite3_step(prepared)) {
    case SQLITE_DONE:
        return u"NONE";
    case SQLITE_ROW:
        break;
    default:
        throw std::runtime_error(sqlite3_errmsg(handle_.get()));
    }
    const void *text = sqlite3_column_text16(prepared, 0);
    if (!text) {
        return u"NULL";
    }
    return {static_cast<const char16_t *>(text),
            static_cast<std::size_t>(sqlite3_column_bytes16(prepared, 0)) / sizeof(char16_t)};
}

DatabaseKind sqliteFile() {
    return {"SqliteFile", &makeFile};
}

DatabaseKind sqliteMemory() {
    return {"SqliteMemory", &makeMemory};
}

} // namespace kvex::test
