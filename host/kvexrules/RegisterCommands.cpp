#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "host/suite/UserFolders.h"
#include "kvex/ClassServer.h"

namespace kvex::host {
namespace {

int change(HRESULT (*call)(const char *) noexcept, const std::string &done) {
    if (dataFolder().empty()) {
        throw Failure("There is no folder for the registration: neither $XDG_DATA_HOME nor $HOME "
                      "names one. Set one of them to an absolute path.");
    }
    const std::string component = componentFile().string();
    require(call(component.c_str()), "The registration of " + component + " cannot be changed",
            "Check that the file is installed, and that you may write to the folder of your data "
            "($XDG_DATA_HOME, else ~/.local/share).");
    printLine(done + component);
    return exit_status::done;
}

int registerComponent(const Request & /*request*/) {
    return change(CoRegisterServer, "registered: ");
}

int unregisterComponent(const Request & /*request*/) {
    return change(CoUnregisterServer, "unregistered: ");
}

} // namespace

constexpr Command registerCommand{
    .name = "register",
    .words = {},
    .options = {},
    .summary = "register the rule component, so that programs find it",
    .description = R"(Registers the rule component for your own programs, so that they find its
class. The registration is a file in kvex/classes, which is in $XDG_DATA_HOME
(~/.local/share). kvexrules itself needs no registration.
)",
    .example = R"($ kvexrules register
registered: .../libKVEXMessageRules.so
)",
    .run = registerComponent,
};

constexpr Command unregisterCommand{
    .name = "unregister",
    .words = {},
    .options = {},
    .summary = "remove the registration of the rule component",
    .description = R"(Removes what "kvexrules register" has registered.
)",
    .example = R"($ kvexrules unregister
unregistered: .../libKVEXMessageRules.so
)",
    .run = unregisterComponent,
};

} // namespace kvex::host
