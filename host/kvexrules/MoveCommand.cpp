#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleChange.h"

#include <algorithm>
#include <array>

namespace kvex::host {
namespace {

constexpr Option beforeOption{
    .name = "--before", .value = "ID", .help = "the rule that then comes next"};
constexpr Option behindOption{
    .name = "--after", .value = "ID", .help = "the rule that then comes just before"};
constexpr Option firstOption{.name = "--first", .value = "", .help = "to the first place"};
constexpr Option lastOption{.name = "--last", .value = "", .help = "to the last place"};
constexpr std::array options{beforeOption, behindOption, firstOption,
                             lastOption,   dryRunOption, databaseOption};

void requireOnePlace(const Request &request) {
    const auto given =
        std::ranges::count_if(std::array{beforeOption, behindOption, firstOption, lastOption},
                              [&](const Option &option) { return request.has(option); });
    if (given != 1) {
        throw Failure("Say where the rule goes, with one of --before ID, --after ID, --first and "
                      "--last. See: kvexrules help move");
    }
}

/// The database has the rule to move, so it has a first and a last one.
Place placeFor(const Request &request, const RuleChange &change) {
    using enum Place::Side;
    if (request.has(beforeOption)) {
        return {before, change.rule(request.value(beforeOption)).id};
    }
    if (request.has(behindOption)) {
        return {behind, change.rule(request.value(behindOption)).id};
    }
    return request.has(firstOption) ? Place{before, change.rules().front().id}
                                    : Place{behind, change.rules().back().id};
}

std::string positionOf(const StoredRule &rule, const Rules &rules) {
    return std::to_string(findRule(rules, rule.id) - rules.data() + 1);
}

int move(const Request &request) {
    requireOnePlace(request);
    RuleChange change(request);
    const StoredRule &rule = change.rule(request.words.front());
    Rules wanted = moved(change.rules(), rule.id, placeFor(request, change));
    const std::string from = positionOf(rule, change.rules());
    const std::string to = positionOf(rule, wanted);
    change.store(wanted);
    change.tell(
        std::array{ruleInWords(rule) + (from == to ? " was already at " + to + "."
                                                   : " moved from " + from + " to " + to + ".")});
    return exit_status::done;
}

constexpr std::array words{Word{.name = "ID"}};

} // namespace

constexpr Command moveCommand{
    .name = "move",
    .words = words,
    .options = options,
    .summary = "change the place of a rule in the order",
    .description = R"(Moves the rule with this id. The server applies the rules in their order. The
rules keep the priorities 1, 2, 3 and so on, as after OK in the rules window.
)",
    .example = R"($ kvexrules move 6 --before 2
Rule 6 "No services" moved from 6 to 2.
$ kvexrules move 6 --after 5
Rule 6 "No services" moved from 2 to 6.
)",
    .run = move,
};

} // namespace kvex::host
