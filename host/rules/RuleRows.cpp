#include "host/rules/RuleRows.h"

#include "host/suite/Databases.h"

#include <memory>
#include <string_view>

namespace kvex::host {
namespace {

template <class Row, class ReadRow>
std::vector<Row> readRows(Connection &connection, std::u16string_view query,
                          const ReadRow &readRow) {
    const std::unique_ptr<Recordset> rows = createRecordset();
    rows->open(query, connection);
    std::vector<Row> list;
    for (; !rows->eof(); rows->moveNext()) {
        list.push_back(readRow(*rows));
    }
    return list;
}

} // namespace

std::vector<StoredRule> readRules(Connection &connection, Strings strings) {
    const bool withStrings = strings == Strings::read;
    const std::u16string columns = withStrings ? u", QueryParam, ActionParam" : u"";
    return readRows<StoredRule>(
        connection,
        u"SELECT ID, NAME, ACTIVE, PRIORITY" + columns +
            u" FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY, ID",
        [&](const Recordset &row) {
            const auto text = [&](std::u16string_view column) {
                return withStrings ? textOf(row, column) : std::u16string();
            };
            return StoredRule{
                textOf(row, u"ID"),       textOf(row, u"NAME"), textOf(row, u"ACTIVE") == u"1",
                textOf(row, u"PRIORITY"), text(u"QueryParam"),  text(u"ActionParam")};
        });
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
