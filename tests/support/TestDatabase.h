// A database with the server's tables, which a test reads and writes beside the component.
#pragma once

#include "tests/databases/SqliteFixture.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::test {

/// A statement that fails ends the test program with the database's message, since the component
/// would trap an exception as its own. Texts are UTF-8.
class TestDatabase {
public:
    explicit TestDatabase(const DatabaseKind &kind = sqliteMemory());

    [[nodiscard]] recordset::Provider provider() const { return fixture_->provider(); }
    [[nodiscard]] std::u16string connectionString() const { return fixture_->connectionString(); }

    void execute(std::string_view sql);
    /// The rows of a query, columns joined by "|", Null as "NULL".
    [[nodiscard]] std::vector<std::string> rows(std::string_view sql);
    /// The first row of a query; "NONE" when there is none.
    [[nodiscard]] std::string value(std::string_view sql);

    /// Adds a rule with these columns and gives its id.
    std::int64_t addRule(std::string_view name, std::string_view queryParam = "<ALLMESSAGES>",
                         std::string_view actionParam = deleteNothing, int priority = 0,
                         int active = 1);
    void addUser(int id, std::string_view name);
    void addAccount(int id, std::string_view name, std::string_view bindMode = "TRANSCEIVER");

    /// From now on the database refuses new rules, or changes of rules. With `ofRules`, it refuses
    /// only changes of rules of that name. `permit` ends every refusal.
    void refuseNewRules();
    void refuseChanges(std::string_view ofRules = {});
    void permit();

    static constexpr std::string_view deleteNothing =
        "<DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>";

private:
    std::unique_ptr<DatabaseFixture> fixture_;
};

} // namespace kvex::test
