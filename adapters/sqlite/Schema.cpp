#include "adapters/sqlite/Schema.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "adapters/sqlite/ConnectionSettings.h"
#include "adapters/sqlite/SqliteError.h"
#include "adapters/sqlite/SqliteStatement.h"
#include "platform/Error.h"

#include <sqlite3.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kvex::sqlite {
namespace {

struct TableColumn {
    std::u16string_view name;
    std::u16string_view type;
};

struct Table {
    std::u16string_view name;
    std::vector<TableColumn> columns;
};

// AUTOINCREMENT: the id of a removed row is not given again.
constexpr TableColumn id{u"ID", u"INTEGER PRIMARY KEY AUTOINCREMENT"};
constexpr TableColumn deleted{u"DELETED", u"INTEGER DEFAULT 0"};

std::vector<Table> tables() {
    return {
        {u"SMS_RULES",
         {id,
          {u"Name", u"TEXT"},
          {u"QueryParam", u"TEXT"},
          {u"ActionParam", u"TEXT"},
          {u"PRIORITY", u"INTEGER DEFAULT 0"},
          {u"ACTIVE", u"INTEGER DEFAULT 1"},
          deleted}},
        {u"SMS_USERS", {id, {u"NAME", u"TEXT"}, deleted}},
        {u"SMS_ACCOUNT", {id, {u"NAME", u"TEXT"}, {u"BIND_MODE", u"TEXT"}, deleted}},
        {u"SMS_SERVICE", {id, {u"NAME", u"TEXT"}, deleted, {u"DISABLED", u"INTEGER DEFAULT 0"}}},
        {u"SMS_SERVICECOMMANDS", {id, {u"SERVICE_ID", u"INTEGER"}, {u"NAME", u"TEXT"}}},
        {u"SMS_CONTACTS",
         {id, {u"USER_ID", u"INTEGER"}, {u"NAME", u"TEXT"}, {u"MOBILE", u"TEXT"}, deleted}},
    };
}

std::u16string creation(const Table &table) {
    std::u16string text;
    for (const TableColumn &column : table.columns) {
        text.append(text.empty() ? u"" : u", ")
            .append(column.name)
            .append(u" ")
            .append(column.type);
    }
    return u"CREATE TABLE " + std::u16string(table.name) + u" (" + text + u")";
}

std::vector<std::u16string> columnsOf(const Database &database, std::u16string_view table) {
    SqliteStatement names(database, u"SELECT name FROM pragma_table_info(?)");
    names.bind({ValueView(table)});
    std::vector<std::u16string> columns;
    while (names.step()) {
        columns.push_back(names.text(0));
    }
    return columns;
}

void requireColumns(const Table &table, const std::vector<std::u16string> &present) {
    for (const TableColumn &column : table.columns) {
        const bool found = std::ranges::any_of(present, [&](const std::u16string &name) {
            return recordset::equalIgnoringCase(name, column.name);
        });
        if (!found) {
            throw errorWith(SQLITE_SCHEMA,
                            u"The database's table " + std::u16string(table.name) +
                                u" has no column " + std::u16string(column.name) +
                                u", so it is another program's: nothing was changed, name "
                                u"another database.");
        }
    }
}

} // namespace

bool createSchema(std::u16string_view connectionString) {
    const recordset::ConnectionString text(connectionString);
    if (!namesSqlite(text)) {
        throw Error(error_number::badArgument,
                    u"The tables can be created in an SQLite database only: name it by its path.");
    }
    const Database database = openDatabase(text, Database::Missing::create);
    bool made = false;
    // What is not committed is undone when the database closes.
    database.execute("BEGIN");
    for (const Table &table : tables()) {
        const std::vector<std::u16string> present = columnsOf(database, table.name);
        if (present.empty()) {
            SqliteStatement(database, creation(table)).step();
            made = true;
        } else {
            requireColumns(table, present);
        }
    }
    database.execute("COMMIT");
    database.writeAhead();
    return made;
}

} // namespace kvex::sqlite
