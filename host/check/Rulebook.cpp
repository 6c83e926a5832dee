#include "host/check/Rulebook.h"

#include "host/check/AppliedRules.h"
#include "host/rules/StoredIds.h"
#include "host/suite/Databases.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <unordered_set>

namespace kvex::host {
namespace {

std::vector<std::u16string> idsIn(Connection &connection, std::u16string_view query) {
    const std::unique_ptr<Recordset> rows = createRecordset();
    rows->open(query, connection);
    std::vector<std::u16string> ids;
    for (; !rows->eof(); rows->moveNext()) {
        ids.push_back(textOf(*rows, u"ID"));
    }
    return ids;
}

Reference referenceOf(const AccountRow &account) {
    const std::u16string mode = upperCase(account.bindMode);
    return mode == u"RECEIVER"      ? Reference::receiver
           : mode == u"TRANSMITTER" ? Reference::transmitter
           : mode == u"TRANSCEIVER" ? Reference::transceiver
                                    : Reference::otherAccount;
}

Reference referenceOf(const NamedRow & /*user*/) {
    return Reference::user;
}

template <class Row>
std::map<std::int32_t, Reference> references(const std::vector<Row> &rows,
                                             const std::vector<std::u16string> &deleted) {
    std::map<std::int32_t, Reference> result;
    for (const std::u16string &id : deleted) {
        if (const auto number = idOf(id)) {
            result[*number] = Reference::deleted;
        }
    }
    for (const Row &row : rows) {
        if (const auto number = idOf(row.id)) {
            result[*number] = referenceOf(row);
        }
    }
    return result;
}

Reference referenceIn(const std::map<std::int32_t, Reference> &references, std::int32_t id) {
    const auto found = references.find(id);
    return found == references.end() ? Reference::none : found->second;
}

std::vector<std::optional<std::size_t>> sameNamesAmong(const std::vector<CheckedRule> &rules,
                                                       const RuleStrings &strings) {
    std::vector<std::optional<std::size_t>> same;
    std::unordered_map<std::u16string, std::size_t> firsts;
    for (const CheckedRule &rule : rules) {
        const auto [first, isNew] =
            firsts.try_emplace(strings.keysOf(rule.row.name).stored, rule.place);
        same.push_back(isNew || rule.isIncomplete ? std::nullopt : std::optional(first->second));
    }
    return same;
}

std::vector<std::optional<std::size_t>> takersAmong(const std::vector<CheckedRule> &rules) {
    std::vector<std::optional<std::size_t>> takers;
    AppliedRules applied;
    for (const CheckedRule &rule : rules) {
        takers.push_back(applied.takerOf(rule.row, rule.read));
        applied.add(rule.place, rule);
    }
    return takers;
}

} // namespace

StoredRows readStoredRows(Connection &connection) {
    return {readRules(connection),
            idsIn(connection, u"SELECT ID FROM SMS_RULES WHERE DELETED = 0 AND (NAME IS NULL OR "
                              u"ACTIVE IS NULL)"),
            readUsers(connection),
            readAccounts(connection),
            idsIn(connection, u"SELECT ID FROM SMS_USERS WHERE DELETED <> 0"),
            idsIn(connection, u"SELECT ID FROM SMS_ACCOUNT WHERE DELETED <> 0")};
}

Rulebook::Rulebook(StoredRows rows, const RuleStrings &strings, std::u16string now)
    : strings_(&strings), now_(std::move(now)), users_(references(rows.users, rows.deletedUsers)),
      accounts_(references(rows.accounts, rows.deletedAccounts)) {
    const std::unordered_set<std::u16string> incomplete(rows.incompleteRules.begin(),
                                                        rows.incompleteRules.end());
    for (StoredRule &row : rows.rules) {
        RuleRead read = strings.read(row.queryParam, row.actionParam);
        RuleWritten written = strings.write(read.values);
        const bool isIncomplete = incomplete.contains(row.id);
        rules_.push_back(
            {{std::move(row), std::move(read), std::move(written)}, rules_.size(), isIncomplete});
    }
    sameNames_ = sameNamesAmong(rules_, strings);
    takers_ = takersAmong(rules_);
}

Reference Rulebook::userOf(std::int32_t id) const {
    return referenceIn(users_, id);
}

Reference Rulebook::accountOf(std::int32_t id) const {
    return referenceIn(accounts_, id);
}

} // namespace kvex::host
