#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleList.h"
#include "host/kvexrules/Settings.h"
#include "kvex/HostSuite.h"
#include "kvex/SuiteConfiguration.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/controls/Toolkit.h"

#include <cstdlib>

namespace kvex::host {
namespace {

/// The result of ShowRules when it showed nothing.
constexpr LONG notShown = 0;

void requireDisplay(const Settings &settings) {
    // $QT_QPA_PLATFORM can choose a kind of display that needs neither of the other variables.
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char *value = std::getenv(variable);
        if (value != nullptr && *value != '\0') {
            return;
        }
    }
    throw Failure("There is no display for the rule editor (neither $DISPLAY nor $WAYLAND_DISPLAY "
                  "is set). Start it from a desktop session or over ssh -X; at a terminal, " +
                  std::string(missingFile(settings)
                                  ? "kvexrules init makes the database, which does not exist yet."
                                  : "kvexrules list and kvexrules show print the rules."));
}

/// The rule's id in decimal, "" for a new rule.
std::string ruleOf(const Request &request) {
    return request.has(Option::rule) ? ruleId(request.value(Option::rule)) : std::string();
}

/// Makes the component use the host suite with windows.
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

/// Asks with Yes and No in a window of the host suite.
std::optional<bool> askInBox(std::string_view question) {
    ComPointer<IUtility> utility;
    LONG answer = 0;
    if (FAILED(createInstance(CLSID_Utility, utility)) ||
        FAILED(
            utility->ShowMessageBox(Bstr(fromUtf8(question)).get(), message_box::yesNo, &answer))) {
        return std::nullopt;
    }
    return answer == message_box::yes;
}

/// Says what went wrong last and where it is logged. Unless a window failed, it also says where the
/// database's name came from.
std::string lastError(ISuiteConfiguration &suite, const Settings &settings) {
    Bstr file;
    Bstr description;
    LONG number = 0;
    if (suite.GetLastError(file.put(), description.put(), &number) != S_OK) {
        return "No reason was given.";
    }
    const std::string reason = reasonAndLog(toUtf8(description.view()), toUtf8(file.view()));
    return number == error_number::cannotCreateObject ? reason
                                                      : reason + " " + settings.databaseOrigin;
}

LONG showRules(const std::string &user, const std::string &rule) {
    LONG result = notShown;
    static_cast<void>(
        createRuleUI()->ShowRules(Bstr(fromUtf8(user)).get(), Bstr(fromUtf8(rule)).get(), &result));
    return result;
}

} // namespace

int editCommand(const Request &request) {
    const std::string rule = ruleOf(request);
    const Settings settings = settingsFor(request);
    offerDatabase(settings, askAtTerminal);
    requireDisplay(settings);
    requireWritableLog(settings);
    const ComPointer<ISuiteConfiguration> suite = configureHostSuite(settings);
    offerDatabase(settings, askInBox);
    const LONG result = showRules(settings.user, rule);
    if (result == notShown) {
        complain("The rules could not be opened. " + lastError(*suite, settings));
    }
    print("result: " + std::to_string(result) + "\n");
    return result == notShown ? exit_status::unusable : exit_status::done;
}

} // namespace kvex::host
