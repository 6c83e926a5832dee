#include "rules/RuleDescription.h"

#include "component/ErrorTrap.h"
#include "platform/Text.h"
#include "rules/DescriptionLists.h"
#include "rules/Lookups.h"
#include "rules/RuleState.h"

#include <utility>
#include <vector>

namespace kvex {
namespace {

class DescriptionWriter {
public:
    DescriptionWriter() {
        constexpr std::size_t usualCount = 24;
        runs_.reserve(usualCount);
    }

    void write(std::u16string text, Colour shade = colour::black) {
        runs_.push_back({std::move(text), shade});
    }
    void writeQuoted(const std::u16string &value) { write(u"'" + value + u"'", colour::blue); }

    void writeRule(const RuleState &rule);

    [[nodiscard]] const std::vector<TextRun> &runs() const { return runs_; }

private:
    void writeConditions(const RuleState &rule);
    void writeActions(const RuleState &rule);

    std::vector<TextRun> runs_;
};

std::u16string notIf(std::int16_t negated) {
    return negated == 1 ? u"not " : u"";
}

std::u16string accountOf(const std::u16string &id) {
    return GetAccountName(toInt32(id));
}

void DescriptionWriter::writeConditions(const RuleState &rule) {
    if (rule.blnAllMessages) {
        write(u"\r\nFor ALL Messages");
        return;
    }
    auto lead = [more = false]() mutable -> std::u16string {
        return std::exchange(more, true) ? u"\r\nand the message" : u"\r\nIf the message";
    };
    if (rule.strIgnoreIfService == u"YES") {
        write(lead() + u" is not a Service message ");
    }
    if (!rule.strPeople.empty()) {
        write(lead() + u" is " + notIf(rule.intPeopleNot) + u"from ");
        write(BuildPeopleList(), colour::blue);
    }
    if (!rule.varAccounts.empty()) {
        write(lead() + u" is " + notIf(rule.intAccountNot) + u"received through ");
        write(BuildAccountList(), colour::blue);
    }
    if (!rule.strWords.empty()) {
        write(lead() + u" " + (rule.intWordsNot == 1 ? u"does not contain " : u"contains ") +
              u"the words ");
        write(rule.intAsCommand == 1 ? u" (as SMS Command) " : u"", colour::red);
        write(BuildWordList(), colour::blue);
    }
    if (!rule.strDateTime.empty()) {
        write(lead() + u" is received between ");
        write(BuildDateTimeList(), colour::blue);
    }
}

void DescriptionWriter::writeActions(const RuleState &rule) {
    auto lead = [more = false]() mutable -> std::u16string {
        return std::exchange(more, true) ? u"\r\nand" : u"\r\nThen";
    };
    if (!rule.strDistribution.empty()) {
        write(lead() + u" distribute the message to ");
        write(BuildDistributionList(), colour::blue);
    }
    if (!rule.strReplyText.empty()) {
        write(lead() + u" send Reply ");
        writeQuoted(rule.strReplyText);
        write(u" to the Sender through Account ");
        writeQuoted(accountOf(rule.strReplyAccount));
    }
    if (!rule.strAlertRecipients.empty()) {
        write(lead() + u" send Alert ");
        writeQuoted(rule.strAlertText);
        write(u" through the Account ");
        writeQuoted(accountOf(rule.strAlertAccount));
        write(u" to ");
        write(BuildAlertList(), colour::blue);
    }
    if (rule.varDelete == u"YES") {
        write(lead() + u" Delete it");
    }
    if (rule.strIgnoreFurtherRules == u"YES") {
        write(lead() + u" do not process any more Rules");
    }
}

void DescriptionWriter::writeRule(const RuleState &rule) {
    write(rule.intRuleActive == 1 ? u"Apply this Rule after the message arrives"
                                  : u"This Rule is disabled");
    writeConditions(rule);
    writeActions(rule);
}

} // namespace

void BuildRuleDescription(RichTextBox &target) {
    trapErrors(u"BuildRuleDescription", u"General", [&] {
        DescriptionWriter writer;
        try {
            writer.writeRule(ruleState());
        } catch (...) {
            // As far as it went.
            target.setRuns(writer.runs());
            throw;
        }
        target.setRuns(writer.runs());
    });
}

} // namespace kvex
