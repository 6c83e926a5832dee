#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Settings.h"

#include <array>

namespace kvex::host {
namespace {

constexpr Option sampleOption{
    .name = "--sample", .value = "", .help = "add sample users, accounts and rules"};

int init(const Request &request) {
    const Content content = request.has(sampleOption) ? Content::sample : Content::empty;
    printLine("ready: " + makeDatabase(settingsFor(request), content));
    return exit_status::done;
}

constexpr std::array options{sampleOption, databaseOption};

} // namespace

constexpr Command initCommand{
    .name = "init",
    .words = {},
    .options = options,
    .summary = "make the tables of a database",
    .description = R"(Makes the tables that the database lacks. A missing SQLite file is made, too.
With --sample, tables without rows get sample data.

Nothing changes in a database that has all its tables, or that belongs to another
program.
)",
    .example = R"($ kvexrules init --database office.db
ready: office.db
)",
    .run = init,
};

} // namespace kvex::host
