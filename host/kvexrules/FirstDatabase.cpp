#include "host/kvexrules/FirstDatabase.h"

#include "adapters/sqlite/SqliteConnection.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/NewDatabase.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <filesystem>

namespace kvex::host {

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
        // Whoever opens it says what is wrong with its name.
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
        throw Failure("The database file " + *file +
                      " does not exist, and was not made. Make it with kvexrules init, or name "
                      "another with --database.");
    }
    if (answer == true) {
        static_cast<void>(makeDatabase(settings, Content::empty));
    }
}

} // namespace kvex::host
