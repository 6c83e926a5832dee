// A record set on a driver without a database.
#pragma once

#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/ClientRecordset.h"
#include "platform/Error.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kvex::test {

/// What the driver answers, and what was sent to it.
struct Script {
    std::vector<recordset::Column> columns{};
    /// The result of every query.
    std::vector<std::vector<Value>> rows{};
    /// The columns that describe gives. Without a value, it gives those of the query.
    std::optional<std::vector<recordset::Column>> described{};
    /// How many rows each call of execute changes.
    std::int64_t met = 1;
    /// The key that insert returns.
    std::vector<Value> key{};
    recordset::ColumnTypes types{};
    /// The tables that exist: the columns of each, by the table's name.
    std::map<std::u16string, std::vector<std::u16string>, std::less<>> tables{};
    /// Runs when a transaction begins.
    std::function<void()> begun = [] {};
    /// The error that every call raises.
    std::optional<Error> refusal{};

    /// "STATEMENT [PARAMETER, PARAMETER]"; "INSERT TABLE COLUMN, COLUMN GIVING KEY [...]".
    std::vector<std::u16string> sent{};
};

class ScriptedSession {
public:
    explicit ScriptedSession(Script first);

    [[nodiscard]] Script &script() { return *script_; }
    [[nodiscard]] recordset::ClientConnection &connection() { return connection_; }
    [[nodiscard]] std::unique_ptr<Recordset> records(LockType lock = LockType::optimistic);

private:
    std::shared_ptr<Script> script_;
    recordset::ClientConnection connection_;
};

/// Null as "Null", a text in apostrophes.
[[nodiscard]] std::u16string shown(const ValueView &value);
/// "STATEMENT [PARAMETER, PARAMETER]".
[[nodiscard]] std::u16string shown(const recordset::Statement &statement);

/// The columns ID, A and B of the table T, whose key is ID.
[[nodiscard]] std::vector<recordset::Column> columnsOfT();

} // namespace kvex::test
