#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/NewDatabase.h"
#include "host/kvexrules/Settings.h"

namespace kvex::host {

int initCommand(const Request &request) {
    const Content content = request.has(Option::sample) ? Content::sample : Content::empty;
    print("ready: " + makeDatabase(settingsFor(request), content) + "\n");
    return exit_status::done;
}

} // namespace kvex::host
