#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/ListedRules.h"
#include "host/kvexrules/RuleList.h"
#include "host/kvexrules/RuleReader.h"
#include "platform/Text.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace kvex::host {
namespace {

constexpr std::array<std::string_view, 2> formats{"text", "json"};
constexpr Option grepOption{
    .name = "--grep",
    .value = "TEXT",
    .help = "only rules with this text in their name, description or stored texts",
};
constexpr Option formatOption{
    .name = "--format", .value = "", .help = "the format (default: text)", .choices = formats};

/// Null without a component.
std::optional<RuleStrings> componentsStrings() {
    try {
        return createRuleStrings();
    } catch (const Failure &) {
        return std::nullopt;
    }
}

std::vector<ListedRule> listed(std::vector<StoredRule> rules, StopsOf stopsOf) {
    const std::optional<RuleStrings> strings =
        marksNeedStrings(rules) ? componentsStrings() : std::nullopt;
    const std::vector<RuleMarks> marks = marksOf(rules, strings ? &*strings : nullptr, stopsOf);
    std::vector<ListedRule> list;
    list.reserve(rules.size());
    for (StoredRule &rule : rules) {
        list.push_back({list.size() + 1, std::move(rule), marks[list.size()]});
    }
    return list;
}

/// Searches for a text without regard to case.
class RuleSearch {
public:
    RuleSearch(std::string_view text, const Settings &settings)
        : wanted_(foldCase(fromUtf8(text))), reader_(settings) {}

    [[nodiscard]] bool finds(const StoredRule &rule) const {
        return isIn(rule.name) || isIn(rule.queryParam) || isIn(rule.actionParam) ||
               isIn(descriptionOf(rule));
    }

private:
    [[nodiscard]] bool isIn(std::u16string_view text) const {
        return foldCase(text).find(wanted_) != std::u16string::npos;
    }
    /// As far as the rule can be read.
    [[nodiscard]] std::u16string descriptionOf(const StoredRule &rule) const {
        Description description;
        static_cast<void>(reader_.describe(toUtf8(rule.id), description));
        std::u16string text;
        for (const DescriptionRun &run : description) {
            text += run.text;
        }
        return text;
    }

    std::u16string wanted_;
    RuleReader reader_;
};

int list(const Request &request) {
    const Settings settings = settingsFor(request);
    const bool isDocument = request.value(formatOption) == "json";
    // A line of text has one mark, a document has all of them.
    std::vector<ListedRule> rules =
        listed(rulesOf(settings, request.has(grepOption) ? Strings::read : Strings::ifOneSaysYes),
               isDocument ? StopsOf::allRules : StopsOf::reachedRules);
    int status = exit_status::done;
    if (request.has(grepOption)) {
        const RuleSearch search(request.value(grepOption), settings);
        std::erase_if(rules, [&](const ListedRule &one) { return !search.finds(one.rule); });
        status = rules.empty() ? exit_status::refused : exit_status::done;
    }
    print(isDocument ? listJson(rules, printsToTerminal()) : listText(rules));
    return status;
}

constexpr std::array options{grepOption, formatOption, databaseOption};
constexpr std::array statuses{
    ExitStatus{exit_status::done, "the rules are listed"},
    ExitStatus{exit_status::refused, "no rule has the text of --grep"},
    ExitStatus{exit_status::unusable, "the command line was wrong, or the rules could not be read"},
};

} // namespace

constexpr Command listCommand{
    .name = "list",
    .words = {},
    .options = options,
    .summary = "list the rules in the order in which they apply",
    .description = R"(Prints one line for each rule, in the order in which the rules apply. The
columns are the position, "on" or "off", the id, a mark, and the name. These are the
marks:

  never  An earlier rule takes all of its messages; "kvexrules check" names it.
  stops  No other rule follows.
  ?      The rule cannot be read completely, or there is no rule component.
  -      None of these.

Blanks separate the columns; the name is the rest of the line. Characters that could
break the line appear as \n, \t, \\ or \u{HEX}. The format "json" has the same values.

--grep looks for the text in the name, in the words of "kvexrules show", and in the two
texts as they are stored. The case of letters does not matter.
)",
    .example = R"($ kvexrules list | tail -4
4  on   4  -      Strangers
5  off  5  stops  Advertisements
6  on   6  -      No services
7  on   7  -      Everything to the system
$ kvexrules list --grep "meera nair"
1  on   1  stops  Not stopped in March
)",
    .run = list,
    .statuses = statuses,
};

} // namespace kvex::host
