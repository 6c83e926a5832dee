#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/Settings.h"
#include "host/suite/Backup.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <array>

namespace kvex::host {
namespace {

constexpr Option replaceOption{
    .name = "--replace", .value = "", .help = "replace an existing file"};

int runBackup(const Request &request) {
    const std::string &file = request.words.front();
    const Settings settings = settingsFor(request);
    const auto connection = openOrFail(settings);
    doOrFail(settings, [&] {
        const Progress progress("Copying the tables");
        backUp(*connection, file,
               request.has(replaceOption) ? Existing::replace : Existing::refuse);
    });
    printLine("saved: " + toUtf8(visible(fromUtf8(file))));
    return exit_status::done;
}

constexpr std::array words{Word{.name = "FILE", .completes = Completes::file}};
constexpr std::array options{replaceOption, databaseOption};

} // namespace

constexpr Command backupCommand{
    .name = "backup",
    .words = words,
    .options = options,
    .summary = "copy the tables into a new SQLite file",
    .description = R"(Copies the state of one moment into a new file, while others read and
write. The file is an SQLite database, which every command reads with --database. Of a
database on a server it has the six tables. Of an SQLite file it has everything.

Only you can read the file. An existing file is replaced only with --replace.
)",
    .example = R"($ kvexrules backup monday.db
saved: monday.db
)",
    .run = runBackup,
};

} // namespace kvex::host
