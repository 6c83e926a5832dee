#include "host/transfer/RuleImport.h"

#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Transaction.h"

namespace kvex::host {
namespace {

Value valueOf(const ColumnText &text) {
    return text ? Value(*text) : Value(Null{});
}

void findRow(Recordset &table, const RuleRow &row) {
    table.moveFirst();
    table.find(u"ID = " + row.id);
}

void setContent(Recordset &table, const RuleContent &content) {
    table.setField(u"NAME", valueOf(content.name));
    table.setField(u"QueryParam", valueOf(content.queryParam));
    table.setField(u"ActionParam", valueOf(content.actionParam));
    table.setField(u"ACTIVE", std::int64_t{content.isActive ? 1 : 0});
}

void write(Recordset &table, const ImportPlan &plan, const RuleDocument &document,
           const std::vector<RuleRow> &rows, const std::function<void()> &stepped) {
    for (const std::size_t row : plan.removed) {
        findRow(table, rows[row]);
        table.deleteCurrent();
    }
    for (std::size_t place = 0; place < plan.order.size(); ++place) {
        const auto &[row, rule] = plan.order[place];
        if (row) {
            findRow(table, rows[*row]);
        } else {
            table.addNew();
        }
        if (rule && !(row && rows[*row].content == document.rules[*rule].content)) {
            setContent(table, document.rules[*rule].content);
        }
        table.setField(u"PRIORITY", static_cast<std::int64_t>(place + 1));
        table.update();
        stepped();
    }
}

/// The commit of an import whose connection breaks leaves all of it or nothing.
void commit(Transaction &transaction) {
    try {
        transaction.commit();
    } catch (const Error &error) {
        if (error.number() != noConnection) {
            throw;
        }
        throw error.explained(HelpContext::none,
                              u"Either the whole import is stored, or nothing of it.");
    }
}

} // namespace

void applyImport(Connection &connection, const ImportPlan &plan, const RuleDocument &document,
                 const RuleTables &before, const std::function<void()> &stepped) {
    Transaction transaction(connection);
    if (readRuleTables(connection) != before) {
        throw Error(rowChangedByAnother,
                    u"Another user changed the rules, users or accounts meanwhile. Nothing was "
                    u"imported.",
                    u"KVEXMessageRules", HelpContext::changedByAnother);
    }
    write(*openRuleTable(connection, LockType::optimistic), plan, document, before.rules, stepped);
    commit(transaction);
}

} // namespace kvex::host
