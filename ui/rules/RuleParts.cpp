#include "ui/rules/RuleParts.h"

#include "ui/actions/frmRuleAlert.h"
#include "ui/actions/frmRuleDistribute.h"
#include "ui/actions/frmRuleReply.h"
#include "ui/conditions/frmRuleAccount.h"
#include "ui/conditions/frmRuleDate.h"
#include "ui/conditions/frmRulePeople.h"
#include "ui/conditions/frmRuleWords.h"

#include <array>

namespace kvex {
namespace {

using Text = std::u16string RuleState::*;

template <Text text> bool holds(const RuleState &rule) {
    return !(rule.*text).empty();
}
template <Text text> bool isYes(const RuleState &rule) {
    return rule.*text == u"YES";
}
template <Text... texts> void empty(RuleState &rule) {
    ((rule.*texts).clear(), ...);
}
template <Text text> void setNo(RuleState &rule) {
    rule.*text = u"NO";
}

/// A fresh dialog on every opening.
template <class Dialog> void show() {
    Dialog().Show();
}

constexpr auto ignoreIfService = &RuleState::strIgnoreIfService;
constexpr auto people = &RuleState::strPeople;
constexpr auto accounts = &RuleState::varAccounts;
constexpr auto words = &RuleState::strWords;
constexpr auto dateTime = &RuleState::strDateTime;
constexpr auto distribution = &RuleState::strDistribution;
constexpr auto replyText = &RuleState::strReplyText;
constexpr auto replyAccount = &RuleState::strReplyAccount;
constexpr auto alertText = &RuleState::strAlertText;
constexpr auto alertAccount = &RuleState::strAlertAccount;
constexpr auto alertRecipients = &RuleState::strAlertRecipients;
constexpr auto deleteIt = &RuleState::varDelete;
constexpr auto ignoreFurther = &RuleState::strIgnoreFurtherRules;

constexpr std::array conditions{
    RulePart{u"Ignore this Rule for Service messages", isYes<ignoreIfService>,
             setNo<ignoreIfService>},
    RulePart{u"Where the message is From specified people", holds<people>, empty<people>,
             holds<people>, u"Insufficient information. Please select the People for this rule.",
             show<frmRulePeople>},
    RulePart{u"Where the message is received through specified Accounts", holds<accounts>,
             empty<accounts>, holds<accounts>,
             u"Insufficient information. Please select the Accounts for this rule.",
             show<frmRuleAccount>},
    RulePart{u"Where the message content contains specified Words", holds<words>, empty<words>,
             holds<words>, u"Insufficient information. Please select the Words for this rule.",
             show<frmRuleWords>},
    RulePart{u"Where the message is received within specified Date/Time", holds<dateTime>,
             empty<dateTime>, holds<dateTime>,
             u"Insufficient information. Please select the Date/Time for this rule.",
             show<frmRuleDate>},
    RulePart{u"For All Messages", [](const RuleState &rule) { return rule.blnAllMessages; },
             [](RuleState &rule) { rule.blnAllMessages = false; }},
};

constexpr std::array actions{
    RulePart{u"Distribute to specific users", holds<distribution>, empty<distribution>,
             holds<distribution>,
             u"Insufficient information. Please configure the Distribution List for this rule.",
             show<frmRuleDistribute>},
    RulePart{u"Send an Automatic Reply", holds<replyText>, empty<replyText, replyAccount>,
             holds<replyText>,
             u"Insufficient information. Please configure the Reply text for this rule.",
             show<frmRuleReply>},
    RulePart{u"Send an Alert to specified people", holds<alertRecipients>,
             empty<alertRecipients, alertText, alertAccount>,
             [](const RuleState &rule) {
                 return holds<alertText>(rule) && holds<alertRecipients>(rule);
             },
             u"Insufficient information. Please configure the Alerts for this rule.",
             show<frmRuleAlert>},
    RulePart{u"Delete it", isYes<deleteIt>, setNo<deleteIt>},
    RulePart{u"Do not process any more Rules", isYes<ignoreFurther>, setNo<ignoreFurther>},
};

} // namespace

std::span<const RulePart> ruleConditions() {
    return conditions;
}
std::span<const RulePart> ruleActions() {
    return actions;
}

} // namespace kvex
