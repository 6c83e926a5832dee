#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleList.h"
#include "host/kvexrules/Settings.h"

namespace kvex::host {

int listCommand(const Request &request) {
    print(listText(rulesOf(settingsFor(request))));
    return exit_status::done;
}

} // namespace kvex::host
