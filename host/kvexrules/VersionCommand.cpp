#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"

namespace kvex::host {
namespace {

int version(const Request & /*request*/) {
    print("kvexrules " KVEX_VERSION "\n");
    return exit_status::done;
}

} // namespace

constexpr Command versionCommand{
    .name = "version",
    .words = {},
    .options = {},
    .summary = "print the program's version",
    .description = R"(Prints the version of the program. "kvexrules --version" means the same.
)",
    .example = R"($ kvexrules version
kvexrules 1.0.0
)",
    .run = version,
};

} // namespace kvex::host
