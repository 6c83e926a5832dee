#include "adapters/sqlite/Provider.h"

#include "adapters/sqlite/ConnectionSettings.h"
#include "adapters/sqlite/SqliteDriver.h"

namespace kvex::sqlite {

recordset::Provider provider() {
    return {u"Provider=SQLite;Data Source=PATH, or as the PATH alone", &namesSqlite,
            [](const recordset::ConnectionString &text) -> std::unique_ptr<recordset::Driver> {
                return std::make_unique<SqliteDriver>(
                    openDatabase(text, Database::Missing::refuse));
            }};
}

} // namespace kvex::sqlite
