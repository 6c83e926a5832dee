// A rule that the editor can write is described whole; the description of any stored rule is well
// formed.
//
// The first byte chooses: a rule that the dialogs make, or any two strings that are loaded.
#include "fuzz/InputRule.h"
#include "fuzz/Property.h"
#include "fuzz/RuleSession.h"
#include "platform/Error.h"
#include "platform/LineBreaks.h"
#include "platform/Text.h"
#include "rules/RuleDescription.h"

#include <algorithm>
#include <initializer_list>

namespace kvex::fuzz {
namespace {

std::size_t breaksIn(const std::u16string &text) {
    const std::u16string lines = withCrLf(text);
    return static_cast<std::size_t>(std::ranges::count(lines, u'\n'));
}

bool isId(const std::u16string &text) {
    try {
        static_cast<void>(toInt32(text));
        return true;
    } catch (const Error &) {
        return false;
    }
}

/// A reply or alert whose account is no number ends the description.
bool canBeWhole(const RuleState &rule) {
    return (rule.strReplyText.empty() || isId(rule.strReplyAccount)) &&
           (rule.strAlertRecipients.empty() || isId(rule.strAlertAccount));
}

/// The line breaks before each part but the first, and those in the texts that are shown.
std::size_t lineBreaksOf(const RuleState &rule) {
    std::size_t breaks = 0;
    const auto addPart = [&](bool isThere, std::initializer_list<std::u16string> texts) {
        breaks += isThere ? 1 : 0;
        for (const std::u16string &text : texts) {
            breaks += isThere ? breaksIn(text) : 0;
        }
    };
    addPart(rule.blnAllMessages, {});
    if (!rule.blnAllMessages) {
        addPart(rule.strIgnoreIfService == u"YES", {});
        addPart(!rule.strPeople.empty(), {rule.strPeople});
        addPart(!rule.varAccounts.empty(), {});
        addPart(!rule.strWords.empty(), {rule.strWords});
        addPart(!rule.strDateTime.empty(), {});
    }
    addPart(!rule.strDistribution.empty(), {});
    addPart(!rule.strReplyText.empty(), {rule.strReplyText});
    addPart(!rule.strAlertRecipients.empty(), {rule.strAlertText, rule.strAlertRecipients});
    addPart(rule.varDelete == u"YES", {});
    addPart(rule.strIgnoreFurtherRules == u"YES", {});
    return breaks;
}

void requireWellFormed(const std::vector<TextRun> &runs) {
    require(!runs.empty(), "a description begins");
    const std::u16string &first = runs.front().text;
    require(first.starts_with(u"Apply this Rule") || first.starts_with(u"This Rule is disabled"),
            "a description begins with the rule's state", first);
    Colour last = ~Colour{};
    for (const TextRun &run : runs) {
        require(!run.text.empty(), "no run is empty");
        require(run.colour == colour::black || run.colour == colour::blue ||
                    run.colour == colour::red,
                "a run has one of three colours", run.text);
        require(run.colour != last, "neighbours differ in colour", run.text);
        require(withCrLf(run.text) == run.text, "lines end in CR LF", run.text);
        last = run.colour;
    }
}

std::size_t lineBreaksIn(const std::vector<TextRun> &runs) {
    std::size_t breaks = 0;
    for (const TextRun &run : runs) {
        breaks += breaksIn(run.text);
    }
    return breaks;
}

void check(Input input) {
    static const bool isOpen = (openRuleSession(), true);
    const bool isEdited = !input.flag();
    const RuleState rule = isEdited ? editedRule(input) : loaded(storedRow(input));

    static_cast<void>(isOpen);
    static_cast<void>(takeLoggedErrors());
    const Description description = describe(rule);
    requireWellFormed(description.runs);
    const bool isWhole = description.error == nullptr;
    require(isWhole == canBeWhole(rule), "only an account that is no number ends a description",
            description.runs.back().text);
    if (isEdited) {
        require(isWhole && takeLoggedErrors() == 0, "what the editor can write is described whole",
                description.runs.back().text);
    }
    // In other rules, even dates may hold line breaks.
    if (isEdited) {
        require(lineBreaksIn(description.runs) == lineBreaksOf(rule), "each part has its line",
                description.runs.back().text);
    }
}

} // namespace
} // namespace kvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kvex::fuzz::check(kvex::fuzz::Input(data, size));
    return 0;
}
