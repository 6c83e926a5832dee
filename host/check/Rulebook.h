// All rules of a database as a check sees them, with what their ids refer to.
#pragma once

#include "host/check/ReadRule.h"
#include "host/rules/RuleRows.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// The rows that a check needs, as they are stored.
struct StoredRows {
    /// In the order in which the server applies them.
    std::vector<StoredRule> rules;
    /// The ids of rules whose Name or ACTIVE is Null.
    std::vector<std::u16string> incompleteRules;
    std::vector<NamedRow> users;
    std::vector<AccountRow> accounts;
    /// Ids of rows that are marked as deleted.
    std::vector<std::u16string> deletedUsers;
    std::vector<std::u16string> deletedAccounts;
};

/// Fails as the record set's open does.
[[nodiscard]] StoredRows readStoredRows(Connection &connection);

struct CheckedRule : ReadRule {
    /// In Rulebook::rules().
    std::size_t place;
    /// True when Name or ACTIVE is Null.
    bool isIncomplete;
};

/// What a stored id refers to.
enum class Reference { none, deleted, user, receiver, transmitter, transceiver, otherAccount };

class Rulebook {
public:
    /// `now` is the local time as a rule stores it: "yyyymmdd hh:mm:ss". `strings` must outlive the
    /// book.
    Rulebook(StoredRows rows, const RuleStrings &strings, std::u16string now);

    [[nodiscard]] const std::vector<CheckedRule> &rules() const { return rules_; }
    [[nodiscard]] const RuleStrings &strings() const { return *strings_; }
    [[nodiscard]] const std::u16string &now() const { return now_; }

    [[nodiscard]] Reference userOf(std::int32_t id) const;
    [[nodiscard]] Reference accountOf(std::int32_t id) const;
    /// An earlier rule whose name is the same for the editor, by its place in rules().
    [[nodiscard]] std::optional<std::size_t> sameNameAs(const CheckedRule &rule) const {
        return sameNames_[rule.place];
    }
    /// An earlier rule that takes every message of this one, by its place in rules().
    [[nodiscard]] std::optional<std::size_t> takerOf(const CheckedRule &rule) const {
        return takers_[rule.place];
    }

private:
    const RuleStrings *strings_;
    std::u16string now_;
    std::vector<CheckedRule> rules_;
    std::map<std::int32_t, Reference> users_;
    std::map<std::int32_t, Reference> accounts_;
    std::vector<std::optional<std::size_t>> sameNames_;
    std::vector<std::optional<std::size_t>> takers_;
};

} // namespace kvex::host
