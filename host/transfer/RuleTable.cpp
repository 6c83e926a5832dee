#include "host/transfer/RuleTable.h"

#include "host/suite/Databases.h"

namespace kvex::host {
namespace {

ColumnText columnOf(const Recordset &row, std::u16string_view column) {
    const ValueView value = row.field(column);
    return value.isNull() ? std::nullopt : std::optional(value.text());
}

} // namespace

RuleRead readContent(const RuleContent &content, const RuleStrings &strings) {
    return strings.read(content.queryParam.value_or(u""), content.actionParam.value_or(u""));
}

std::unique_ptr<Recordset> openRuleTable(Connection &connection, LockType lock) {
    std::unique_ptr<Recordset> table = createRecordset();
    table->open(u"SELECT ID, NAME, QueryParam, ActionParam, PRIORITY, ACTIVE FROM SMS_RULES "
                u"WHERE DELETED = 0 ORDER BY PRIORITY, ID",
                connection, CursorType::dynamic, lock);
    return table;
}

std::vector<RuleRow> rowsOf(Recordset &table) {
    std::vector<RuleRow> rows;
    for (; !table.eof(); table.moveNext()) {
        rows.push_back(
            {textOf(table, u"ID"), textOf(table, u"PRIORITY"),
             RuleContent{columnOf(table, u"NAME"), textOf(table, u"ACTIVE") == u"1",
                         columnOf(table, u"QueryParam"), columnOf(table, u"ActionParam")}});
    }
    return rows;
}

RuleTables readRuleTables(Connection &connection) {
    return {rowsOf(*openRuleTable(connection, LockType::readOnly)), readUsers(connection),
            readAccounts(connection)};
}

} // namespace kvex::host
