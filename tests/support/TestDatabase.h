// A database in memory with the server's schema, and a second way into it beside the component.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace kvex::test {

class TestDatabase {
public:
    /// Of its own name; lives as long as this.
    TestDatabase();
    ~TestDatabase();
    TestDatabase(const TestDatabase &) = delete;
    TestDatabase &operator=(const TestDatabase &) = delete;

    [[nodiscard]] std::u16string connectionString() const;

    /// Runs statements; a failure ends the test program with the database's words.
    void execute(std::string_view sql);
    /// The rows of a query, columns joined by "|", Null as "NULL".
    [[nodiscard]] std::vector<std::string> rows(std::string_view sql);
    /// The first column of the first row.
    [[nodiscard]] std::string value(std::string_view sql);

    /// A rule with these columns; its id.
    std::int64_t addRule(std::string_view name, std::string_view queryParam = "<ALLMESSAGES>",
                         std::string_view actionParam = deleteNothing, int priority = 0,
                         int active = 1);
    void addUser(int id, std::string_view name);
    void addAccount(int id, std::string_view name, std::string_view bindMode = "TRANSCEIVER");

    static constexpr std::string_view deleteNothing =
        "<DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>";

private:
    std::string uri_;
    sqlite3 *handle_ = nullptr;
};

} // namespace kvex::test
