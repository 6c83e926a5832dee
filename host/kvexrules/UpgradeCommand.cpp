#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/Settings.h"
#include "host/suite/Backup.h"
#include "host/suite/SchemaUpgrade.h"

#include <array>

namespace kvex::host {
namespace {

/// Why the tables were not upgraded.
std::string refusalOf(const SchemaState &state) {
    switch (state.age) {
    case SchemaAge::current:
        return "The tables have version " + std::to_string(state.version) +
               " already, the newest that this program knows. Nothing was changed.";
    case SchemaAge::madeByOthers:
        return "Another program made these tables, so they have no version. kvexrules works with "
               "them as they are. Nothing was changed.";
    default:
        return "The database lacks one of the server's tables, so nothing was changed. Make it "
               "with kvexrules init.";
    }
}

int runUpgrade(const Request &request) {
    const Settings settings = settingsFor(request);
    const auto connection = openOrFail(settings);
    std::filesystem::path backup;
    const SchemaState before = doOrFail(settings, [&] {
        connection->database().lock()->requireWritable();
        return upgradeSchema(*connection->driver().lock(),
                             [&] { backup = keepBackup(*openConnection(settings), "upgrade"); });
    });
    if (before.age != SchemaAge::older) {
        throw Failure(refusalOf(before), exit_status::refused);
    }
    printLine("upgraded: version " + std::to_string(before.version) + " to " +
              std::to_string(schemaSteps().back().version));
    printLine("backup: " + backup.string());
    return exit_status::done;
}

constexpr std::array options{databaseOption};

} // namespace

constexpr Command upgradeCommand{
    .name = "upgrade",
    .words = {},
    .options = options,
    .summary = "bring older tables to this program's version",
    .description =
        R"(Changes tables that an older version of this program made. Before that it makes a
backup, and prints its path. All steps are one transaction, except on MariaDB, which
commits each change of a table at once. "kvexrules init" says what an upgrade would do.
Tables of another program stay as they are.
)",
    .example = R"($ kvexrules upgrade
kvexrules: The tables have version 1 already, ...
)",
    .run = runUpgrade,
};

} // namespace kvex::host
