#include "rules/RuleDescription.h"

#include "component/session/ErrorTrap.h"
#include "platform/LineBreaks.h"
#include "platform/Text.h"
#include "rules/DescriptionLists.h"
#include "rules/Lookups.h"

#include <utility>

namespace kvex {
namespace {

class DescriptionWriter {
public:
    DescriptionWriter(const RuleState &rule, std::vector<TextRun> &runs)
        : rule_(rule), runs_(runs) {
        constexpr std::size_t usualCount = 24;
        runs_.reserve(usualCount);
    }

    void writeRule();

private:
    void writeConditions();
    void writeActions();

    void write(std::u16string text, Colour shade = colour::black) {
        text = withCrLf(std::move(text));
        if (!runs_.empty() && runs_.back().colour == shade) {
            runs_.back().text += text;
        } else if (!text.empty()) {
            runs_.push_back({std::move(text), shade});
        }
    }
    void writeQuoted(const std::u16string &value) { write(u"'" + value + u"'", colour::blue); }

    const RuleState &rule_;
    std::vector<TextRun> &runs_;
};

std::u16string notIf(std::int16_t negated) {
    return negated == 1 ? u"not " : u"";
}

std::u16string accountOf(const std::u16string &id) {
    return GetAccountName(toInt32(id));
}

void DescriptionWriter::writeConditions() {
    if (rule_.blnAllMessages) {
        write(u"\r\nFor ALL Messages");
        return;
    }
    auto lead = [more = false]() mutable -> std::u16string {
        return std::exchange(more, true) ? u"\r\nand the message" : u"\r\nIf the message";
    };
    if (rule_.strIgnoreIfService == u"YES") {
        write(lead() + u" is not a Service message ");
    }
    if (!rule_.strPeople.empty()) {
        write(lead() + u" is " + notIf(rule_.intPeopleNot) + u"from ");
        write(BuildPeopleList(rule_), colour::blue);
    }
    if (!rule_.varAccounts.empty()) {
        write(lead() + u" is " + notIf(rule_.intAccountNot) + u"received through ");
        write(BuildAccountList(rule_), colour::blue);
    }
    if (!rule_.strWords.empty()) {
        write(lead() + u" " + (rule_.intWordsNot == 1 ? u"does not contain " : u"contains ") +
              u"the words ");
        write(rule_.intAsCommand == 1 ? u" (as SMS Command) " : u"", colour::red);
        write(BuildWordList(rule_), colour::blue);
    }
    if (!rule_.strDateTime.empty()) {
        write(lead() + u" is received between ");
        write(BuildDateTimeList(rule_), colour::blue);
    }
}

void DescriptionWriter::writeActions() {
    auto lead = [more = false]() mutable -> std::u16string {
        return std::exchange(more, true) ? u"\r\nand" : u"\r\nThen";
    };
    if (!rule_.strDistribution.empty()) {
        write(lead() + u" distribute the message to ");
        write(BuildDistributionList(rule_), colour::blue);
    }
    if (!rule_.strReplyText.empty()) {
        write(lead() + u" send Reply ");
        writeQuoted(rule_.strReplyText);
        write(u" to the Sender through Account ");
        writeQuoted(accountOf(rule_.strReplyAccount));
    }
    if (!rule_.strAlertRecipients.empty()) {
        write(lead() + u" send Alert ");
        writeQuoted(rule_.strAlertText);
        write(u" through the Account ");
        writeQuoted(accountOf(rule_.strAlertAccount));
        write(u" to ");
        write(BuildAlertList(rule_), colour::blue);
    }
    if (rule_.varDelete == u"YES") {
        write(lead() + u" Delete it");
    }
    if (rule_.strIgnoreFurtherRules == u"YES") {
        write(lead() + u" do not process any more Rules");
    }
}

void DescriptionWriter::writeRule() {
    write(rule_.intRuleActive == 1 ? u"Apply this Rule after the message arrives"
                                   : u"This Rule is disabled");
    writeConditions();
    writeActions();
}

/// Describes this thread's rule and passes the runs to `show`, even when an error ended them early.
template <class Show> void buildDescription(Show &&show) {
    trapErrors(u"BuildRuleDescription", u"General", [&] {
        Description description = describe(ruleState());
        show(std::move(description.runs));
        if (description.error) {
            std::rethrow_exception(description.error);
        }
    });
}

} // namespace

Description describe(const RuleState &rule) {
    Description description;
    try {
        DescriptionWriter(rule, description.runs).writeRule();
    } catch (...) {
        description.error = std::current_exception();
    }
    return description;
}

void BuildRuleDescription(RichTextBox &target) {
    buildDescription([&](const std::vector<TextRun> &runs) { target.setRuns(runs); });
}

std::vector<TextRun> BuildRuleDescription() {
    std::vector<TextRun> result;
    buildDescription([&](std::vector<TextRun> runs) { result = std::move(runs); });
    return result;
}

} // namespace kvex
