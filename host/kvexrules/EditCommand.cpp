#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleList.h"
#include "host/kvexrules/Settings.h"
#include "host/suite/SuiteConfiguration.h"
#include "platform/HostSuite.h"
#include "platform/Text.h"

#include <cstdlib>

namespace kvex::host {
namespace {

/// What ShowRules gives when nothing was shown.
constexpr LONG notShown = 0;

void requireDisplay() {
    // The last is the windows' own choice of a display, which needs none of the others.
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char *value = std::getenv(variable);
        if (value != nullptr && *value != '\0') {
            return;
        }
    }
    throw Failure("There is no display for the rule editor (neither $DISPLAY nor $WAYLAND_DISPLAY "
                  "is set). Start it from a desktop session or over ssh -X; at a terminal, "
                  "kvexrules list and kvexrules show print the rules.");
}

/// The rule's id in decimal, "" for a new rule.
std::string ruleOf(const Request &request) {
    return request.has(Option::rule) ? ruleId(request.value(Option::rule)) : std::string();
}

/// Makes the host suite with windows the component's.
ComPointer<ISuiteConfiguration> configureHostSuite(const Settings &settings) {
    ComPointer<ISuiteConfiguration> suite;
    for (const CLSID &served : {CLSID_Utility, CLSID_ManageContacts, CLSID_SuiteConfiguration}) {
        loadServer(hostSuiteFile(), served);
    }
    HRESULT result = createInstance(CLSID_SuiteConfiguration, suite);
    if (SUCCEEDED(result)) {
        result = suite->Configure(Bstr(fromUtf8(settings.database)).get(), nullptr,
                                  Bstr(fromUtf8(settings.log.string())).get());
    }
    require(result, "The host suite cannot start",
            "Install kvexrules again, with all its libraries.");
    return suite;
}

/// What went wrong last and where that is logged.
std::string lastError(ISuiteConfiguration &suite) {
    Bstr file;
    Bstr description;
    if (suite.GetLastError(file.put(), description.put()) != S_OK) {
        return "no reason was given";
    }
    return toUtf8(description.view()) +
           (file.view().empty() ? "" : " The log is " + toUtf8(file.view()) + ".");
}

LONG showRules(const std::string &user, const std::string &rule) {
    LONG result = notShown;
    static_cast<void>(
        createRuleUI()->ShowRules(Bstr(fromUtf8(user)).get(), Bstr(fromUtf8(rule)).get(), &result));
    return result;
}

} // namespace

int editCommand(const Request &request) {
    requireDisplay();
    const std::string rule = ruleOf(request);
    const Settings settings = settingsFor(request);
    requireWritableLog(settings);
    const ComPointer<ISuiteConfiguration> suite = configureHostSuite(settings);
    const LONG result = showRules(settings.user, rule);
    if (result == notShown) {
        complain("The rules could not be opened. " + lastError(*suite) + " " +
                 settings.databaseOrigin);
    }
    print("result: " + std::to_string(result) + "\n");
    return result == notShown ? exit_status::unusable : exit_status::done;
}

} // namespace kvex::host
