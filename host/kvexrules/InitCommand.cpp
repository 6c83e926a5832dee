#include "adapters/recordset/Schema.h"
#include "adapters/sqlite/ConnectionSettings.h"
#include "adapters/sqlite/SqliteStatement.h"
#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/SampleData.h"
#include "host/kvexrules/Settings.h"
#include "host/suite/Databases.h"
#include "platform/Text.h"

#include <filesystem>

namespace kvex::host {
namespace {

[[noreturn]] void refuse(const Settings &settings, const std::string &why) {
    throw Failure(why + " Name another with --database. " + settings.databaseOrigin,
                  exit_status::refused);
}

bool hasRows(const sqlite::Database &database, std::u16string_view query) {
    return sqlite::SqliteStatement(database, query).step();
}

void requireOwnTables(const sqlite::Database &database, const Settings &settings) {
    if (hasRows(database,
                u"SELECT 1 FROM sqlite_schema WHERE name NOT LIKE 'sqlite!_%' ESCAPE '!' AND "
                u"NOT EXISTS (SELECT 1 FROM sqlite_schema WHERE name = 'SMS_RULES' COLLATE "
                u"NOCASE)")) {
        refuse(settings,
               "The database holds the tables of another program, so nothing was changed.");
    }
}

bool createTables(const std::u16string &name, const Settings &settings) {
    try {
        return recordset::createSchema(*openOrMakeDatabase(name));
    } catch (const Error &error) {
        failFor(settings, error, exit_status::refused);
    }
}

/// All or nothing.
void addSampleData(const sqlite::Database &database, const Settings &settings) {
    database.execute("BEGIN IMMEDIATE");
    if (hasRows(database, u"SELECT 1 FROM SMS_RULES UNION ALL SELECT 1 FROM SMS_USERS "
                          u"UNION ALL SELECT 1 FROM SMS_ACCOUNT "
                          u"UNION ALL SELECT 1 FROM SMS_SERVICE "
                          u"UNION ALL SELECT 1 FROM SMS_SERVICECOMMANDS "
                          u"UNION ALL SELECT 1 FROM SMS_CONTACTS")) {
        refuse(settings, "The database holds data already, so nothing was added.");
    }
    database.execute(sampleData());
    database.execute("COMMIT");
}

void createFolder(const std::filesystem::path &folder) {
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    if (failure) {
        throw Failure("The folder " + folder.string() +
                      " for your own database cannot be created (" + failure.message() +
                      "). Make it, or name a database with --database.");
    }
}

} // namespace

int initCommand(const Request &request) {
    const Settings settings = settingsFor(request);
    if (settings.isOwnDatabase) {
        createFolder(std::filesystem::path(settings.database).parent_path());
    }
    try {
        const recordset::ConnectionString text(fromUtf8(settings.database));
        if (!sqlite::namesSqlite(text)) {
            throw Failure("Tables are created in SQLite databases only. Name one by its file's "
                          "path. " +
                          settings.databaseOrigin);
        }
        const sqlite::Database database =
            sqlite::openDatabase(text, sqlite::Database::Missing::create);
        requireOwnTables(database, settings);
        const bool made = createTables(fromUtf8(settings.database), settings);
        if (request.has(Option::sample)) {
            addSampleData(database, settings);
        } else if (!made) {
            refuse(settings, "The database has its tables already, so nothing was changed.");
        }
        print("ready: " + toUtf8(text.value(u"Data Source")) + "\n");
        return exit_status::done;
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

} // namespace kvex::host
