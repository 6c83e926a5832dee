// The rows of SMS_RULES for an export or import, with Null as it is stored.
#pragma once

#include "host/rules/Rule.h"
#include "host/rules/RuleRows.h"
#include "platform/Database.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kvex::host {

/// A text of the database. Nothing stands for Null.
using ColumnText = std::optional<std::u16string>;

/// What a rule is, apart from its id and its place among the others.
struct RuleContent {
    ColumnText name;
    bool isActive = false;
    ColumnText queryParam;
    ColumnText actionParam;
    friend bool operator==(const RuleContent &, const RuleContent &) = default;
};

struct RuleRow {
    /// Decimal.
    std::u16string id;
    /// Null reads as "".
    std::u16string priority;
    RuleContent content;
    friend bool operator==(const RuleRow &, const RuleRow &) = default;
};

/// Both strings, Null as "".
[[nodiscard]] RuleRead readContent(const RuleContent &content, const RuleStrings &strings);

/// The live rules in the order of readRules. Fails as Recordset::open does.
[[nodiscard]] std::unique_ptr<Recordset> openRuleTable(Connection &connection, LockType lock);

/// Every row of an open table. Afterwards the set is at its end.
[[nodiscard]] std::vector<RuleRow> rowsOf(Recordset &table);

/// The rules, and whatever they may refer to.
struct RuleTables {
    std::vector<RuleRow> rules;
    std::vector<NamedRow> users;
    std::vector<AccountRow> accounts;
    friend bool operator==(const RuleTables &, const RuleTables &) = default;
};
/// Fails as Recordset::open does.
[[nodiscard]] RuleTables readRuleTables(Connection &connection);

} // namespace kvex::host
