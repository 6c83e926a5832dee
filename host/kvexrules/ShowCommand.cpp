#include "host/kvexrules/CommandLine.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/DescriptionFormat.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleList.h"
#include "host/kvexrules/RuleReader.h"
#include "host/kvexrules/Settings.h"
#include "host/suite/SuiteState.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace kvex::host {
namespace {

constexpr std::array<std::string_view, 3> formats{"text", "ansi", "html"};
constexpr Option formatOption{.name = "--format",
                              .value = "",
                              .help = "the format (default: text, with colours on a terminal)",
                              .choices = formats};
constexpr Option allOption{.name = "--all", .value = "", .help = "show all rules"};

const DescriptionFormat &formatOf(const Request &request) {
    if (!request.has(formatOption) && printsColours()) {
        return coloursForTerminals();
    }
    const std::string name = request.has(formatOption) ? request.value(formatOption) : "text";
    if (name == "text" && printsToTerminal()) {
        return textForTerminals();
    }
    return *std::ranges::find(descriptionFormats(), name, &DescriptionFormat::name);
}

std::vector<std::string> idsAskedFor(const Request &request) {
    if (request.has(allOption) != request.words.empty()) {
        throw Failure("Name the ids of the rules to show, or --all, but not "
                      "both. The ids are the numbers that kvexrules list shows.");
    }
    std::vector<std::string> ids;
    std::ranges::transform(request.words, std::back_inserter(ids), ruleId);
    return ids;
}

/// True when loading the rule failed. Otherwise the rule was loaded, and describing it failed.
bool isAboutLoading(const LoggedError &error) {
    return error.text.find(u"Sub: LoadRuleFromDB,") != std::u16string::npos;
}

/// Prints the rule's two texts as they are stored. Says what OK in the editor would make of them.
void tellWhatIsStored(const std::string &id, const Settings &settings) {
    complain(
        suiteState().firstError && isAboutLoading(*suiteState().firstError)
            ? "OK in the editor would replace both texts by what was read before the error "
              "and what you enter there. The other conditions and actions would be lost. "
              "Correct the row in the database. Its texts are now:"
            : "OK in the editor would write both texts again, and keep the parts that cannot be "
              "described. Choose those parts again there, or correct the row in the database. "
              "Its texts are now:");
    try {
        const StoredTexts texts = storedTexts(id, settings);
        complainExactly("QueryParam: " + texts.queryParam);
        complainExactly("ActionParam: " + texts.actionParam);
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

/// Returns false when there is no such rule, or when a part of it cannot be read. A message has
/// then told the user.
bool describe(const RuleReader &reader, const std::string &id, const Settings &settings,
              Description &description) {
    switch (reader.describe(id, description)) {
    case Described::whole:
        return true;
    case Described::noRule:
        complain("There is no rule " + id + ". To list the rules: kvexrules list");
        return false;
    case Described::inPart:
        break;
    }
    complain("Not all of rule " + id + " could be read. " + RuleReader::lastError());
    tellWhatIsStored(id, settings);
    return false;
}

int show(const Request &request) {
    const DescriptionFormat &format = formatOf(request);
    std::vector<std::string> ids = idsAskedFor(request);
    const Settings settings = settingsFor(request);
    requireWritableLog(settings);
    const std::vector<StoredRule> rules = rulesOf(settings);
    if (request.has(allOption)) {
        std::ranges::transform(rules, std::back_inserter(ids),
                               [](const StoredRule &rule) { return toUtf8(rule.id); });
    }
    const RuleReader reader(settings);
    int status = exit_status::done;
    std::string_view between;
    print(format.opening);
    for (const std::string &id : ids) {
        Description description;
        if (!describe(reader, id, settings, description)) {
            status = exit_status::refused;
        }
        if (!description.empty()) {
            print(std::string(between) + format.rule(id, description));
            between = format.between;
        }
    }
    print(format.closing);
    return status;
}
constexpr std::array words{Word{.name = "ID", .isOptional = true, .repeats = true}};
constexpr std::array options{allOption, formatOption, databaseOption, logOption};

} // namespace

constexpr Command showCommand{
    .name = "show",
    .words = words,
    .options = options,
    .summary = "say in words what rules do",
    .description = R"(Prints what rules do, in the words of the rule editor. Name the ids that
"kvexrules list" shows, or --all. An empty line separates two rules.

The format "ansi" has the colours of the editor, also in a pipe, and "html" is a page.
When a rule cannot be read completely, the command prints what it could read, and the
texts that are stored.
)",
    .example = R"($ kvexrules show 7
Apply this Rule after the message arrives
For ALL Messages
Then distribute the message to SYSTEM
)",
    .run = show,
};

} // namespace kvex::host
