#include "host/rules/RuleRows.h"

#include "host/suite/Databases.h"

#include <memory>
#include <string_view>

namespace kvex::host {
namespace {

std::u16string rulesQuery(Strings strings) {
    const std::u16string columns = strings == Strings::read ? u", QueryParam, ActionParam" : u"";
    return u"SELECT ID, NAME, ACTIVE, PRIORITY" + columns +
           u" FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY, ID";
}

StoredRule ruleOf(const Recordset &row, Strings strings) {
    const auto text = [&](std::u16string_view column) {
        return strings == Strings::read ? textOf(row, column) : std::u16string();
    };
    return {textOf(row, u"ID"),       textOf(row, u"NAME"), textOf(row, u"ACTIVE") == u"1",
            textOf(row, u"PRIORITY"), text(u"QueryParam"),  text(u"ActionParam")};
}

template <class Row, class ReadRow>
std::vector<Row> rowsIn(Recordset &rows, const ReadRow &readRow) {
    std::vector<Row> list;
    for (; !rows.eof(); rows.moveNext()) {
        list.push_back(readRow(rows));
    }
    return list;
}

template <class Row, class ReadRow>
std::vector<Row> readRows(Connection &connection, std::u16string_view query,
                          const ReadRow &readRow) {
    const std::unique_ptr<Recordset> rows = createRecordset();
    rows->open(query, connection);
    return rowsIn<Row>(*rows, readRow);
}

} // namespace

std::vector<StoredRule> readRules(Connection &connection, Strings strings) {
    return readRows<StoredRule>(connection, rulesQuery(strings),
                                [&](const Recordset &row) { return ruleOf(row, strings); });
}

std::unique_ptr<Recordset> openRulesToWrite(Connection &connection) {
    std::unique_ptr<Recordset> rows = createRecordset();
    rows->open(rulesQuery(Strings::read), connection, CursorType::staticCopy, LockType::optimistic);
    return rows;
}

std::vector<StoredRule> rulesIn(Recordset &rows) {
    return rowsIn<StoredRule>(rows,
                              [](const Recordset &row) { return ruleOf(row, Strings::read); });
}

std::vector<NamedRow> readUsers(Connection &connection) {
    return readRows<NamedRow>(connection,
                              u"SELECT ID, NAME FROM SMS_USERS WHERE DELETED = 0 ORDER BY ID",
                              [](const Recordset &row) {
                                  return NamedRow{textOf(row, u"ID"), textOf(row, u"NAME")};
                              });
}

std::vector<AccountRow> readAccounts(Connection &connection) {
    return readRows<AccountRow>(
        connection, u"SELECT ID, NAME, BIND_MODE FROM SMS_ACCOUNT WHERE DELETED = 0 ORDER BY ID",
        [](const Recordset &row) {
            return AccountRow{{textOf(row, u"ID"), textOf(row, u"NAME")},
                              textOf(row, u"BIND_MODE")};
        });
}

} // namespace kvex::host
