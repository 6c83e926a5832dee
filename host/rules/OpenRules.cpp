#include "host/rules/OpenRules.h"

#include "host/suite/Databases.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Transaction.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace kvex::host {
namespace {

Value storedActive(const StoredRule &rule) {
    return std::int64_t{rule.isActive ? 1 : 0};
}

Value storedPriority(const StoredRule &rule) {
    return toInt64(rule.priority);
}

/// Compares with what was read, because the row itself may hold Null or another value that reads
/// the same.
void change(Recordset &row, const StoredRule &read, const StoredRule &wanted) {
    if (wanted.name != read.name) {
        row.setField(u"NAME", wanted.name);
    }
    if (wanted.isActive != read.isActive) {
        row.setField(u"ACTIVE", storedActive(wanted));
    }
    if (wanted.priority != read.priority) {
        row.setField(u"PRIORITY", storedPriority(wanted));
    }
    if (wanted.queryParam != read.queryParam) {
        row.setField(u"QueryParam", wanted.queryParam);
    }
    if (wanted.actionParam != read.actionParam) {
        row.setField(u"ActionParam", wanted.actionParam);
    }
    row.update();
}

void add(Recordset &rows, StoredRule &rule) {
    rows.addNew();
    rows.setField(u"NAME", rule.name);
    rows.setField(u"ACTIVE", storedActive(rule));
    rows.setField(u"PRIORITY", storedPriority(rule));
    rows.setField(u"QueryParam", rule.queryParam);
    rows.setField(u"ActionParam", rule.actionParam);
    rows.update();
    rule.id = textOf(rows, u"ID");
}

} // namespace

OpenRules::OpenRules(Connection &connection)
    : connection_(connection), rows_(openRulesToWrite(connection)), rules_(rulesIn(*rows_)) {}

void OpenRules::store(std::vector<StoredRule> &wanted, const std::function<void()> &stepped) {
    std::optional<Transaction> transaction;
    bool isCommit = false;
    try {
        transaction.emplace(connection_);
        writeRows(wanted, stepped);
        isCommit = true;
        transaction->commit();
    } catch (...) {
        const Error error = Error::current();
        transaction.reset();
        throw error.explained(HelpContext::none, error.number() == noConnection && isCommit
                                                     ? u"Either the whole change is stored, or "
                                                       u"nothing of it."
                                                     : u"Nothing was changed.");
    }
}

/// Every program writes the rows in the order of the rules, so no two of them wait for each other.
void OpenRules::writeRows(std::vector<StoredRule> &wanted, const std::function<void()> &stepped) {
    std::unordered_map<std::u16string_view, const StoredRule *> wantedById;
    for (const StoredRule &rule : wanted) {
        wantedById.emplace(rule.id, &rule);
    }
    rows_->moveFirst();
    for (const StoredRule &read : rules_) {
        const auto found = wantedById.find(read.id);
        if (found == wantedById.end()) {
            rows_->deleteCurrent();
        } else {
            change(*rows_, read, *found->second);
        }
        rows_->moveNext();
        stepped();
    }
    for (StoredRule &rule : wanted) {
        if (rule.id.empty()) {
            add(*rows_, rule);
        }
    }
}

} // namespace kvex::host
