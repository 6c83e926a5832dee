// The rules, users and accounts of a database, as they are stored.
#pragma once

#include "host/rules/Rule.h"
#include "platform/Database.h"

#include <memory>
#include <string>
#include <vector>

namespace kvex::host {

/// Whether the two strings of the rules are read. They are most of a rule; without them they are
/// "". With `ifOneSaysYes` those of all rules are read when YES stands in the actions of one.
enum class Strings { read, leaveOut, ifOneSaysYes };

/// The live rules in priority order; rules with the same priority are in the order of their ids.
/// Fails as the record set's open does, and so do the functions below.
[[nodiscard]] std::vector<StoredRule> readRules(Connection &connection,
                                                Strings strings = Strings::read);

/// The record set behind readRules. The caller changes the rules through it.
[[nodiscard]] std::unique_ptr<Recordset> openRulesToWrite(Connection &connection);
/// Every rule of that record set; its end is then the current record.
[[nodiscard]] std::vector<StoredRule> rulesIn(Recordset &rows);

/// Both values are as they are stored; Null reads as "".
struct NamedRow {
    /// Decimal.
    std::u16string id;
    std::u16string name;
    friend bool operator==(const NamedRow &, const NamedRow &) = default;
};

/// The live users and accounts in the order of their ids.
[[nodiscard]] std::vector<NamedRow> readUsers(Connection &connection);

struct AccountRow : NamedRow {
    /// RECEIVER, TRANSMITTER or TRANSCEIVER, in any case; Null reads as "".
    std::u16string bindMode;
    friend bool operator==(const AccountRow &, const AccountRow &) = default;
};
[[nodiscard]] std::vector<AccountRow> readAccounts(Connection &connection);

} // namespace kvex::host
