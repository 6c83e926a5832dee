#include "adapters/toolkits/LoadedToolkit.h"
#include "host/kvexrules/CommandLine.h"
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

#include <algorithm>
#include <array>
#include <cstdlib>

namespace kvex::host {
namespace {

/// The result of ShowRules when it showed nothing.
constexpr LONG notShown = 0;

constexpr Option ruleOption{.name = "--rule", .value = "ID", .help = "the rule to open"};

/// The names of all toolkits.
constexpr auto toolkitNames = [] {
    std::array<std::string_view, toolkits::knownToolkits.size()> names;
    std::ranges::transform(toolkits::knownToolkits, names.begin(), &toolkits::KnownToolkit::name);
    return names;
}();

constexpr Option toolkitOption{
    .name = "--toolkit",
    .value = "",
    .help = "where to show the windows: on a display, or in this terminal",
    .choices = toolkitNames,
};

/// Chooses once, by the variable that the component and the host suite read. So they take the same
/// toolkit. Call it before the program has other threads.
void chooseToolkit(const Request &request, const Settings &settings) {
    constexpr const char *variable = "KVEX_TOOLKIT";
    if (request.has(toolkitOption)) {
        setenv(variable, request.value(toolkitOption).c_str(), 1);
    }
    try {
        const std::string chosen(toolkits::chosenToolkit(hostSuiteFile().parent_path()));
        setenv(variable, chosen.c_str(), 1);
    } catch (const Error &error) {
        throw Failure(toUtf8(error.description()) + " Without windows, " +
                      (missingFile(settings)
                           ? "kvexrules init makes the database, which does not exist yet."
                           : "kvexrules list and kvexrules show print the rules."));
    }
}

/// The rule's id in decimal, "" for a new rule.
std::string ruleOf(const Request &request) {
    return request.has(ruleOption) ? ruleId(request.value(ruleOption)) : std::string();
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

int edit(const Request &request) {
    const std::string rule = ruleOf(request);
    const Settings settings = settingsFor(request);
    chooseToolkit(request, settings);
    offerDatabase(settings, askAtTerminal);
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
constexpr std::array options{ruleOption, toolkitOption, databaseOption, userOption, logOption};

constexpr std::array statuses{
    ExitStatus{exit_status::done, "the windows were shown"},
    ExitStatus{exit_status::unusable, "the rules could not be opened; the log says why"},
};

} // namespace

constexpr Command editCommand{
    .name = "edit",
    .words = {},
    .options = options,
    .summary = "open the rule editor",
    .description = R"(Opens the rule editor, on a new rule unless --rule names one. If an SQLite
file is missing, the command offers to make it.

The windows open on the display, or else in the terminal. --toolkit decides otherwise, and so
does $KVEX_TOOLKIT.

The last line that it prints is the result:
  result: 99   the user may have edited something
  result: 1    no edit was noted, but rules may have been removed
  result: 0    the rules could not be opened

A program that keeps the rules in memory must read them again after 99 and after 1.
)",
    .example = R"($ kvexrules edit --rule 3
result: 1
)",
    .run = edit,
    .statuses = statuses,
};

} // namespace kvex::host
