// What a kind of database brings to the conformance suite of the record sets.
#pragma once

#include "adapters/recordset/Driver.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace kvex::test {

/// What a kind of database may do otherwise. The suite then tests what is written here.
enum class Deviation {
    /// A text with a NUL character is refused, and stays pending.
    refusesNulCharacters,
};

/// A database of its own with the server's tables, all empty; it goes with the object.
class DatabaseFixture {
public:
    virtual ~DatabaseFixture() = default;

    [[nodiscard]] virtual recordset::Provider provider() const = 0;
    [[nodiscard]] virtual std::u16string connectionString() const = 0;
    /// Another user's way to it: through another server, where there are several.
    [[nodiscard]] virtual std::u16string otherConnectionString() const {
        return connectionString();
    }
    /// Runs a statement as another program would, without the record sets.
    virtual void run(std::u16string_view statement) = 0;
    /// The first value of a query's first row as text, "NULL" for Null, "NONE" without a row.
    [[nodiscard]] virtual std::u16string valueOf(std::u16string_view query) = 0;
    /// With the reason for each.
    [[nodiscard]] virtual std::map<Deviation, std::string> deviations() const { return {}; }
};

struct DatabaseKind {
    std::string name;
    std::unique_ptr<DatabaseFixture> (*make)();
};

} // namespace kvex::test
