// The interface between the tests that run on every database and a kind of database.
#pragma once

#include "adapters/recordset/Driver.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::test {

/// A database for one test, with the server's tables and no rows.
class DatabaseFixture {
public:
    /// How a kind of database may differ from the others. The suites test the difference.
    enum class Deviation {
        /// The database refuses a text with a NUL character; the change stays pending.
        refusesNulCharacters,
    };

    virtual ~DatabaseFixture() = default;

    [[nodiscard]] virtual recordset::Provider provider() const = 0;
    [[nodiscard]] virtual std::u16string connectionString() const = 0;
    /// The connection string of a second user. In a cluster it names another node.
    [[nodiscard]] virtual std::u16string otherConnectionString() const {
        return connectionString();
    }
    /// Runs a statement as another program does, without the record sets.
    virtual void run(std::u16string_view statement) = 0;
    /// The rows of a query, with "|" between columns and "NULL" for Null.
    [[nodiscard]] virtual std::vector<std::u16string> rows(std::u16string_view query) = 0;
    /// The first row of a query; "NONE" when there is none.
    [[nodiscard]] std::u16string valueOf(std::u16string_view query) {
        const std::vector<std::u16string> found = rows(query);
        return found.empty() ? u"NONE" : found.front();
    }

    /// Makes the database refuse every INSERT or UPDATE of a rule, as `event` says, from now on. A
    /// `condition` on OLD, the stored row, limits this to the rows that meet it.
    virtual void refuse(std::u16string_view event, std::u16string_view condition) = 0;
    /// Ends every refusal.
    virtual void permit() = 0;

    /// Each deviation with its reason.
    [[nodiscard]] virtual std::map<Deviation, std::string> deviations() const { return {}; }
};

struct DatabaseKind {
    std::string name;
    std::unique_ptr<DatabaseFixture> (*make)();
};

/// Names the tests after the kind of database.
inline const auto kindName = [](const auto &kind) { return kind.param.name; };

} // namespace kvex::test
