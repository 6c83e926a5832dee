// What the server's tables hold at one moment.
#pragma once

#include "tests/databases/SqliteFixture.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace kvex::torture {

/// A value as text; "NULL" for Null.
struct StoredRule {
    std::u16string name, query, action, priority, active, deleted;

    friend bool operator==(const StoredRule &, const StoredRule &) = default;
};

struct Tables {
    /// By ID.
    std::map<std::int64_t, StoredRule> rules;
    /// The rows of all tables but SMS_RULES.
    std::vector<std::u16string> others;

    friend bool operator==(const Tables &, const Tables &) = default;
};

[[nodiscard]] Tables readTables(test::OtherProgram &program);

/// Names the difference between two states of the tables, for a report. "" when there is none.
[[nodiscard]] std::string difference(const Tables &before, const Tables &after);

} // namespace kvex::torture
