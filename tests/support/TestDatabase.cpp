#include "tests/support/TestDatabase.h"

#include "platform/Text.h"
#include "tests/support/SqliteSchema.h"

#include <sqlite3.h>

#include <atomic>
#include <cstdlib>
#include <iostream>

namespace kvex::test {
namespace {

std::string quoted(std::string_view text) {
    std::string result = "'";
    for (const char c : text) {
        result.append(c == '\'' ? 2 : 1, c);
    }
    return result + "'";
}

[[noreturn]] void giveUp(std::string_view sql, const char *why) {
    std::cerr << "the test's own statement failed: " << sql << ": " << why << '\n';
    std::abort();
}

} // namespace

TestDatabase::TestDatabase() {
    static std::atomic<int> count = 0;
    uri_ = "file:kvex-test-" + std::to_string(++count) + "?mode=memory&cache=shared";
    if (sqlite3_open_v2(uri_.c_str(), &handle_,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI,
                        nullptr) != SQLITE_OK) {
        giveUp(uri_, "cannot be opened");
    }
    createSqliteSchema(fromUtf8(uri_));
}

TestDatabase::~TestDatabase() {
    sqlite3_close(handle_);
}

std::u16string TestDatabase::connectionString() const {
    return u"Provider=SQLite;Data Source=" + fromUtf8(uri_);
}

void TestDatabase::execute(std::string_view sql) {
    char *why = nullptr;
    if (sqlite3_exec(handle_, std::string(sql).c_str(), nullptr, nullptr, &why) != SQLITE_OK) {
        giveUp(sql, why);
    }
}

std::vector<std::string> TestDatabase::rows(std::string_view sql) {
    std::vector<std::string> result;
    char *why = nullptr;
    const auto collect = [](void *target, int columns, char **values, char **) {
        std::string row;
        for (int column = 0; column < columns; ++column) {
            row.append(column > 0 ? "|" : "").append(values[column] ? values[column] : "NULL");
        }
        static_cast<std::vector<std::string> *>(target)->push_back(row);
        return 0;
    };
    if (sqlite3_exec(handle_, std::string(sql).c_str(), collect, &result, &why) != SQLITE_OK) {
        giveUp(sql, why);
    }
    return result;
}

std::string TestDatabase::value(std::string_view sql) {
    const auto found = rows(sql);
    if (found.empty()) {
        giveUp(sql, "gave no row");
    }
    return found.front();
}

std::int64_t TestDatabase::addRule(std::string_view name, std::string_view queryParam,
                                   std::string_view actionParam, int priority, int active) {
    execute("INSERT INTO SMS_RULES (Name, QueryParam, ActionParam, PRIORITY, ACTIVE) VALUES (" +
            quoted(name) + "," + quoted(queryParam) + "," + quoted(actionParam) + "," +
            std::to_string(priority) + "," + std::to_string(active) + ")");
    return sqlite3_last_insert_rowid(handle_);
}

void TestDatabase::addUser(int id, std::string_view name) {
    execute("INSERT INTO SMS_USERS (ID, NAME) VALUES (" + std::to_string(id) + "," + quoted(name) +
            ")");
}

void TestDatabase::addAccount(int id, std::string_view name, std::string_view bindMode) {
    execute("INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE) VALUES (" + std::to_string(id) + "," +
            quoted(name) + "," + quoted(bindMode) + ")");
}

} // namespace kvex::test
