#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/Settings.h"
#include "host/suite/Backup.h"
#include "host/suite/Restore.h"
#include "platform/Text.h"

#include <array>

namespace kvex::host {
namespace {

constexpr Option yesOption{.name = "--yes", .value = "", .help = "restore without asking"};

int runRestore(const Request &request) {
    const std::string &file = request.words.front();
    const Settings settings = settingsFor(request);
    const auto connection = openOrFail(settings);
    if (!request.has(yesOption)) {
        requireConsent("Restore the tables from " + file + "? " + settings.databaseOrigin +
                           " A backup of what they hold now is made first.",
                       "restore");
    }
    std::filesystem::path kept;
    const std::vector<RestoredTable> tables = doOrFail(settings, [&] {
        const Progress progress("Restoring the tables");
        return restore(*connection, file,
                       [&] { kept = keepBackup(*openConnection(settings), "restore"); });
    });
    for (const RestoredTable &table : tables) {
        if (table.added + table.changed + table.removed > 0) {
            printLine(toUtf8(table.name) + ": " + std::to_string(table.added) + " added, " +
                      std::to_string(table.changed) + " changed, " + std::to_string(table.removed) +
                      " removed");
        }
    }
    printLine(kept.empty() ? "unchanged: the tables hold what the backup holds"
                           : "kept: " + kept.string());
    return exit_status::done;
}

constexpr std::array words{Word{.name = "FILE", .completes = Completes::file}};
constexpr std::array options{yesOption, databaseOption};

} // namespace

constexpr Command restoreCommand{
    .name = "restore",
    .words = words,
    .options = options,
    .summary = "bring the tables back to a backup",
    .description = R"(Makes the six tables hold the rows of the backup, with their ids. It writes
only rows that differ, all of them or none, and prints how many. Before that it makes a
backup of what the tables hold, and prints its path.

At a terminal it asks first. Elsewhere it needs --yes.
)",
    .example = R"($ kvexrules contacts remove 1
1 contact removed.
$ kvexrules restore monday.db --yes
SMS_CONTACTS: 0 added, 1 changed, 0 removed
kept: .../kvex/backups/...-before-restore.db
)",
    .run = runRestore,
};

} // namespace kvex::host
