#include "host/rules/RuleRows.h"

#include "host/suite/Databases.h"

#include <memory>
#include <string_view>

namespace kvex::host {
namespace {

/// REPLACE finds the word in any value, and with its capital letters. LIKE does so only in some
/// databases.
constexpr std::u16string_view whetherOneSaysYes =
    u", (SELECT CASE WHEN EXISTS (SELECT 1 FROM SMS_RULES WHERE DELETED = 0 AND "
    u"REPLACE(ActionParam, 'YES', '') <> ActionParam) THEN 1 ELSE 0 END AS SAYS_YES) AS ONE";

std::u16string rulesQuery(Strings strings) {
    std::u16string columns = u"ID, NAME, ACTIVE, PRIORITY";
    std::u16string tables = u"SMS_RULES";
    if (strings == Strings::read) {
        columns += u", QueryParam, ActionParam";
    } else if (strings == Strings::ifOneSaysYes) {
        columns += u", CASE WHEN SAYS_YES = 1 THEN QueryParam END AS QueryParam"
                   u", CASE WHEN SAYS_YES = 1 THEN ActionParam END AS ActionParam";
        tables += whetherOneSaysYes;
    }
    return u"SELECT " + columns + u" FROM " + tables + u" WHERE DELETED = 0 ORDER BY PRIORITY, ID";
}

StoredRule ruleOf(const Recordset &row, Strings strings) {
    const auto text = [&](std::u16string_view column) {
        return strings == Strings::leaveOut ? std::u16string() : textOf(row, column);
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
