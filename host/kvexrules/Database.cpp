#include "host/kvexrules/Database.h"

#include "adapters/recordset/SchemaVersion.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/SampleData.h"
#include "host/suite/Advice.h"
#include "host/suite/Databases.h"
#include "host/suite/Schema.h"
#include "host/suite/SchemaUpgrade.h"
#include "host/suite/ShownText.h"
#include "host/suite/UserFolders.h"
#include "platform/Text.h"

#include <filesystem>
#include <sys/stat.h>

namespace kvex::host {
namespace {

using recordset::ClientConnection;

[[noreturn]] void refuse(const Settings &settings, const std::string &why) {
    throw Failure(why + " Name another with --database. " + settings.databaseOrigin,
                  exit_status::refused);
}

void createFolder(const std::filesystem::path &folder) {
    if (const std::error_code failure = makeOwnFolder(folder)) {
        throw Failure("The folder " + folder.string() +
                      " for your own database cannot be created (" + failure.message() +
                      "). Make it, or name a database with --database.");
    }
}

/// Creates a missing SQLite file. A database on a server must exist.
std::unique_ptr<ClientConnection> openToFill(const Settings &settings, bool isFile) {
    try {
        return openOrMakeDatabase(fromUtf8(settings.database));
    } catch (const Error &error) {
        if (isFile || !error.fromDatabase()) {
            throw;
        }
        throw Failure(toldAtTerminal(error) +
                      " kvexrules init needs a database that exists, and a user who may create "
                      "tables in it. Ask the server's administrator for both. " +
                      settings.databaseOrigin);
    }
}

void requireOwnFile(ClientConnection &connection, const Settings &settings) {
    const std::unique_ptr<Recordset> others = createRecordset();
    others->open(u"SELECT 1 FROM sqlite_schema WHERE name NOT LIKE 'sqlite!_%' ESCAPE '!' AND "
                 u"NOT EXISTS (SELECT 1 FROM sqlite_schema WHERE name = 'SMS_RULES' COLLATE "
                 u"NOCASE)",
                 connection);
    if (!others->eof()) {
        refuse(settings,
               "The database holds the tables of another program, so nothing was changed.");
    }
}

/// While it lives, new files are for their owner alone. SQLite makes files beside the database,
/// too.
class FilesForTheirOwner {
public:
    FilesForTheirOwner() : before_(umask(S_IRWXG | S_IRWXO)) {}
    ~FilesForTheirOwner() { umask(before_); }
    FilesForTheirOwner(const FilesForTheirOwner &) = delete;
    FilesForTheirOwner &operator=(const FilesForTheirOwner &) = delete;

private:
    mode_t before_;
};

/// " kvexrules upgrade makes a backup, then changes the tables: ..."; "" for tables that it leaves.
std::string upgradeOffer(const SchemaState &state) {
    if (state.age != SchemaAge::older) {
        return {};
    }
    std::string offer = " They have version " + std::to_string(state.version) +
                        ", and this program knows a newer one. kvexrules upgrade would make a "
                        "backup, then upgrade them.";
    for (const std::u16string &step : plannedSteps(state)) {
        offer += " " + toUtf8(step);
    }
    return offer;
}

/// Creates what is missing. Returns false when nothing is.
bool createTables(ClientConnection &connection, const Settings &settings) {
    try {
        recordset::Driver &driver = *connection.driver().lock();
        if (const auto version = recordset::schemaVersion(driver);
            version && *version < recordset::knownSchemaVersion) {
            refuse(settings, "The database has its tables already, so nothing was changed." +
                                 upgradeOffer(schemaState(driver)));
        }
        return createSchema(connection);
    } catch (const Error &error) {
        failFor(settings, error, exit_status::refused);
    }
}

bool addSample(ClientConnection &connection, const Settings &settings) {
    try {
        return addSampleData(connection);
    } catch (const Error &error) {
        failFor(settings, error, exit_status::refused);
    }
}

} // namespace

std::unique_ptr<recordset::ClientConnection> openConnection(const Settings &settings) {
    return openDatabase(fromUtf8(settings.database));
}

std::unique_ptr<recordset::ClientConnection> openToRead(const Settings &settings) {
    auto connection = openConnection(settings);
    if (const std::u16string &reason = connection->readOnlyReason(); !reason.empty()) {
        complain(toUtf8(reason));
    }
    return connection;
}

void failFor(const Settings &settings, const Error &error, int status) {
    throw Failure(toldAtTerminal(error) + " " + settings.databaseOrigin, status);
}

std::unique_ptr<recordset::ClientConnection> openOrFail(const Settings &settings) {
    try {
        return openConnection(settings);
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

void failRefused(const Settings &settings, const Error &error) {
    if (error.concernsUser()) {
        failFor(settings, error, exit_status::refused);
    }
    throw Failure(toldAtTerminal(error), exit_status::refused);
}

std::string makeDatabase(const Settings &settings, Content content) {
    const FilesForTheirOwner mode;
    if (settings.isOwnDatabase) {
        createFolder(std::filesystem::path(settings.database).parent_path());
    }
    try {
        const recordset::ConnectionString text(fromUtf8(settings.database));
        const bool isFile = sqlite::namesSqlite(text);
        const std::unique_ptr<ClientConnection> connection = openToFill(settings, isFile);
        if (isFile) {
            requireOwnFile(*connection, settings);
        }
        const bool made = createTables(*connection, settings);
        if (content == Content::empty && !made) {
            refuse(settings, "The database has its tables already, so nothing was changed." +
                                 upgradeOffer(schemaState(*connection->driver().lock())));
        }
        if (content == Content::sample && !addSample(*connection, settings)) {
            refuse(settings, "The database holds data already, so nothing was added.");
        }
        return toUtf8(isFile ? std::u16string(text.value(u"Data Source"))
                             : withoutPasswords(fromUtf8(settings.database)));
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

std::optional<std::string> missingFile(const Settings &settings) {
    try {
        const recordset::ConnectionString text(fromUtf8(settings.database));
        const std::string path = toUtf8(text.value(u"Data Source"));
        std::error_code ignored;
        const bool isMissing =
            sqlite::namesSqlite(text) && !path.empty() && path != ":memory:" &&
            !path.starts_with("file:") &&
            std::filesystem::status(path, ignored).type() == std::filesystem::file_type::not_found;
        return isMissing ? std::optional(path) : std::nullopt;
    } catch (const Error &) {
        // Opening the database reports what is wrong with the name.
        return std::nullopt;
    }
}

void offerDatabase(const Settings &settings, const Question &ask) {
    const std::optional<std::string> file = missingFile(settings);
    if (!file) {
        return;
    }
    const std::optional<bool> answer = ask("The database file " + *file + " does not exist. " +
                                           settings.databaseOrigin + " Make it, without rules?");
    if (answer == false) {
        throw Failure("The database file " + *file + " does not exist, and was not made. " +
                      toUtf8(adviceFor(HelpContext::noFile, Place::terminal)));
    }
    if (answer == true) {
        static_cast<void>(makeDatabase(settings, Content::empty));
    }
}

} // namespace kvex::host
