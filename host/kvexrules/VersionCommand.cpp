#include "adapters/odbc/Provider.h"
#include "adapters/sqlite/Provider.h"
#include "adapters/toolkits/LoadedToolkit.h"
#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Commit.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "platform/Text.h"
#include "platform/Unicode.h"

#include <filesystem>

namespace kvex::host {
namespace {

std::string toolkitLines(const std::filesystem::path &folder) {
    std::string lines;
    for (const toolkits::FoundToolkit &found : toolkits::foundToolkits(folder)) {
        lines.append("toolkit ").append(found.name).append(": ");
        lines.append(found.runtime.empty() ? toUtf8(found.problem) : found.runtime).append("\n");
    }
    return lines.empty() ? "toolkit: none\n" : lines;
}

int version(const Request & /*request*/) {
    const std::filesystem::path component = componentFile();
    const bool isThere = std::filesystem::exists(component);
    print("kvexrules " KVEX_VERSION "\ncommit: " KVEX_COMMIT "\n");
    printLine("component: " + (isThere ? component.string() : "none"));
    print(toolkitLines(component.parent_path()));
    print("SQLite: " + sqlite::libraryVersion() + "\n");
    print("ODBC driver manager: " + odbc::driverManagerVersion() + "\n");
    print("Unicode: " + unicodeLibrary() + "\n");
    return exit_status::done;
}

} // namespace

constexpr Command versionCommand{
    .name = "version",
    .words = {},
    .options = {},
    .summary = "print the program's version, and the libraries that it finds",
    .description =
        R"(Prints the version of the program. Then it prints the commit of its sources, the file of
the component, the toolkits, and the libraries with their versions. "kvexrules
--version" means the same.
)",
    .example = R"($ kvexrules version
kvexrules 1.0.0
commit: ...
component: .../libKVEXMessageRules.so
toolkit qt: Qt 6...
toolkit terminal: terminfo 6...
SQLite: 3...
ODBC driver manager: ...
Unicode: utf8proc ...
)",
    .run = version,
};

} // namespace kvex::host
