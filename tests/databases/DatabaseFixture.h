// What a kind of database brings to the tests that run on every one.
#pragma once

#include "adapters/recordset/Driver.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::test {

/// Empty tables of the server's for a test of its own.
class DatabaseFixture {
public:
    /// What a kind of database may do otherwise. The suites then test what is written here.
    enum class Deviation {
        /// A text with a NUL character is refused, and stays pending.
        refusesNulCharacters,
    };

    virtual ~DatabaseFixture() = default;

    [[nodiscard]] virtual recordset::Provider provider() const = 0;
    [[nodiscard]] virtual std::u16string connectionString() const = 0;
    /// Another user's way to it: through another server, where there are several.
    [[nodiscard]] virtual std::u16string otherConnectionString() const {
        return connectionString();
    }
    /// Runs a statement as another program would, without the record sets.
    virtual void run(std::u16string_view statement) = 0;
    /// The rows of a query, columns joined by "|", Null as "NULL".
    [[nodiscard]] virtual std::vector<std::u16string> rows(std::u16string_view query) = 0;
    /// The first row, "NONE" without one.
    [[nodiscard]] std::u16string valueOf(std::u16string_view query) {
        const std::vector<std::u16string> found = rows(query);
        return found.empty() ? u"NONE" : found.front();
    }

    /// Rules can be stored no more from now on, by INSERT or by UPDATE as `event` says; where
    /// there is a condition on the stored row, OLD, only those that meet it.
    virtual void refuse(std::u16string_view event, std::u16string_view condition) = 0;
    /// What was refused can be stored again.
    virtual void permit() = 0;

    /// With the reason for each.
    [[nodiscard]] virtual std::map<Deviation, std::string> deviations() const { return {}; }
};

struct DatabaseKind {
    std::string name;
    std::unique_ptr<DatabaseFixture> (*make)();
};

/// Names the tests on each kind.
inline const auto kindName = [](const auto &kind) { return kind.param.name; };

} // namespace kvex::test
