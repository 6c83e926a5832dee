// Rules of any strings and lines of any bytes: a play ends without a crash. It says of each rule
// whether it applies, and both reports can be made.
//
// The first byte chooses how many rules there are. Each one is a text for QueryParam and one for
// ActionParam. The rest are the lines of a file of messages.
#include "fuzz/ComponentStrings.h"
#include "fuzz/Input.h"
#include "fuzz/Property.h"
#include "host/matching/MessageLines.h"
#include "host/matching/PlayReport.h"
#include "platform/Text.h"

#include <algorithm>
#include <vector>

namespace kvex::fuzz {
namespace {

using host::Matcher;
using host::Message;
using host::PlayedRule;

std::vector<PlayedRule> rulesOf(Input &input) {
    const ComPointer<ComponentStrings> component = makeComObject<ComponentStrings>();
    const host::RuleStrings strings(*component);
    std::vector<PlayedRule> rules(input.below(8));
    for (PlayedRule &rule : rules) {
        rule.row.queryParam = input.text();
        rule.row.actionParam = input.text();
        rule.read = strings.read(rule.row.queryParam, rule.row.actionParam);
    }
    return rules;
}

void requireOutcome(const host::Outcome &outcome, const std::vector<std::size_t> &places,
                    std::size_t rules) {
    std::vector<std::size_t> applying;
    for (std::size_t place = 0; place < outcome.verdicts.size(); ++place) {
        const host::Verdict &verdict = outcome.verdicts[place];
        if (!verdict.refusal) {
            applying.push_back(place);
        } else {
            require(!verdict.refusal->reason.empty() && verdict.actions.empty(),
                    "a rule that does not apply has a reason, and does nothing");
        }
    }
    require(applying == places, "an explanation names the rules that were played");
    require(outcome.verdicts.size() + outcome.notReached.size() == rules,
            "each rule was reached or not");
    const bool ends = !places.empty() && outcome.verdicts.at(places.back()).rule->endsProcessing();
    require(outcome.isEnded == ends, "a rule that applies and ends the processing ends it");
    require(!ends || places.back() + 1 == outcome.verdicts.size(), "no rule is reached after it");
}

void check(Input input) {
    Matcher matcher(rulesOf(input));
    host::Tally tally(matcher);
    std::string_view rest = input.rest();
    for (std::size_t line = 1; !rest.empty(); ++line) {
        const std::string_view text = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(text.size() + 1, rest.size()));
        try {
            const Message message = host::messageFrom(text, u"20240315 12:00:00");
            const std::vector<std::size_t> places = matcher.play(message);
            const host::Outcome outcome = matcher.explain(message);
            requireOutcome(outcome, places, matcher.rules().size());
            require(asText(outcome).find('\x1b') == std::string::npos,
                    "a report does not control a terminal");
            static_cast<void>(asJson(outcome, true));
            tally.play(message, line);
        } catch (const host::BadMessage &error) {
            require(std::string_view(error.what()).size() > 1, "a refusal has a reason");
        }
    }
    static_cast<void>(asText(tally));
    static_cast<void>(asJson(tally));
}

} // namespace
} // namespace kvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kvex::fuzz::check(kvex::fuzz::Input(data, size));
    return 0;
}
