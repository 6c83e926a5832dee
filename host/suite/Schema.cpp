#include "host/suite/Schema.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "adapters/recordset/SchemaVersion.h"
#include "platform/Error.h"
#include "platform/Transaction.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {
namespace {

using recordset::ColumnTypes;

constexpr TableColumn id{u"ID", &ColumnTypes::key, u""};
constexpr TableColumn name{u"NAME", &ColumnTypes::name, u""};
constexpr TableColumn deleted{u"DELETED", &ColumnTypes::integer, u"0"};

void requireColumns(const Table &table, const std::vector<std::u16string> &present) {
    for (const TableColumn &column : table.columns) {
        const bool found = std::ranges::any_of(present, [&](const std::u16string &other) {
            return recordset::equalIgnoringCase(other, column.name);
        });
        if (!found) {
            throw Error(error_number::itemNotFound,
                        u"The database's table " + std::u16string(table.name) + u" has no column " +
                            std::u16string(column.name) +
                            u", so it is another program's: nothing was changed, name "
                            u"another database.");
        }
    }
}

std::vector<Table> missingTables(recordset::Driver &driver) {
    std::vector<Table> missing = serverTables();
    std::erase_if(missing, [&](const Table &table) {
        const std::vector<std::u16string> present = driver.columnsOf(table.name);
        if (!present.empty()) {
            requireColumns(table, present);
        }
        return !present.empty();
    });
    return missing;
}

/// True when a server that stores each table at once has lost a creation of the tables midway.
bool wasInterrupted(recordset::Driver &driver) {
    return !recordset::schemaVersion(driver) && !driver.columnsOf(recordset::schemaTable).empty();
}

} // namespace

const std::vector<Table> &serverTables() {
    static const std::vector<Table> tables{
        {u"SMS_RULES",
         {id,
          {u"Name", &ColumnTypes::name, u""},
          {u"QueryParam", &ColumnTypes::text, u""},
          {u"ActionParam", &ColumnTypes::text, u""},
          {u"PRIORITY", &ColumnTypes::integer, u"0"},
          {u"ACTIVE", &ColumnTypes::integer, u"1"},
          deleted}},
        {u"SMS_USERS", {id, name, deleted}},
        {u"SMS_ACCOUNT", {id, name, {u"BIND_MODE", &ColumnTypes::name, u""}, deleted}},
        {u"SMS_SERVICE", {id, name, deleted, {u"DISABLED", &ColumnTypes::integer, u"0"}}},
        {u"SMS_SERVICECOMMANDS", {id, {u"SERVICE_ID", &ColumnTypes::integer, u""}, name}},
        {u"SMS_CONTACTS",
         {id,
          {u"USER_ID", &ColumnTypes::integer, u""},
          name,
          {u"MOBILE", &ColumnTypes::name, u""},
          deleted}},
    };
    return tables;
}

std::u16string creation(const Table &table, const ColumnTypes &types) {
    std::u16string text = u"CREATE TABLE ";
    text.append(table.name);
    std::u16string_view separator = u" (";
    for (const TableColumn &column : table.columns) {
        text.append(separator).append(column.name);
        if (column.type != nullptr) {
            text.append(u" ").append(types.*column.type);
        }
        if (!column.defaultValue.empty()) {
            text.append(u" DEFAULT ").append(column.defaultValue);
        }
        separator = u", ";
    }
    text.append(u")");
    if (!types.behindTable.empty()) {
        text.append(u" ").append(types.behindTable);
    }
    return text;
}

bool createSchema(recordset::ClientConnection &connection) {
    connection.database().lock()->requireWritable();
    const std::shared_ptr<recordset::Driver> driver = connection.driver().lock();
    if (missingTables(*driver).empty()) {
        return false;
    }
    Transaction transaction(connection);
    // Another program may have created them before the transaction began.
    const std::vector<Table> missing = missingTables(*driver);
    const bool getsVersion = missing.size() == serverTables().size() || wasInterrupted(*driver);
    if (getsVersion) {
        makeVersionTable(*driver);
    }
    for (const Table &table : missing) {
        driver->execute({creation(table, driver->columnTypes()), {}});
    }
    if (getsVersion) {
        addVersion(*driver, recordset::knownSchemaVersion);
    }
    transaction.commit();
    return !missing.empty();
}

void makeVersionTable(recordset::Driver &driver) {
    if (driver.columnsOf(recordset::schemaTable).empty()) {
        driver.execute({creation({recordset::schemaTable,
                                  {id, {recordset::versionColumn, &ColumnTypes::integer, u""}}},
                                 driver.columnTypes()),
                        {}});
    }
}

void addVersion(recordset::Driver &driver, std::int64_t version) {
    driver.execute(
        {u"INSERT INTO SMS_SCHEMA (VERSION) VALUES (?)", {ValueView(ValueView::Held(version))}});
}

} // namespace kvex::host
