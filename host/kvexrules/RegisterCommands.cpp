#include "host/kvexrules/Commands.h"
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

} // namespace

int registerCommand(const Request & /*request*/) {
    return change(CoRegisterServer, "registered: ");
}

int unregisterCommand(const Request & /*request*/) {
    return change(CoUnregisterServer, "unregistered: ");
}

} // namespace kvex::host
