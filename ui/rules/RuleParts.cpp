#include "ui/rules/RuleParts.h"

#include "ui/actions/frmRuleAlert.h"
#include "ui/actions/frmRuleDistribute.h"
#include "ui/actions/frmRuleReply.h"
#include "ui/conditions/frmRuleAccount.h"
#include "ui/conditions/frmRuleDate.h"
#include "ui/conditions/frmRulePeople.h"
#include "ui/conditions/frmRuleWords.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace kvex {
namespace {

using Text = std::u16string RuleState::*;

template <Text text> bool holds(const RuleState &rule) {
    return !(rule.*text).empty();
}
template <Text text> bool isYes(const RuleState &rule) {
    return rule.*text == u"YES";
}
template <Text... texts> void clearIfUnticked(RuleState &rule, bool ticked) {
    if (!ticked) {
        ((rule.*texts).clear(), ...);
    }
}
template <Text text> void setYesOrNo(RuleState &rule, bool ticked) {
    rule.*text = ticked ? u"YES" : u"NO";
}

/// Makes a new dialog each time.
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

using Id = RulePartId;

constexpr std::array conditions{
    RulePart{Id::ignoreIfService, u"Ignore this Rule for Service messages", isYes<ignoreIfService>,
             setYesOrNo<ignoreIfService>},
    RulePart{Id::people,
             u"Where the message is From specified people",
             holds<people>,
             clearIfUnticked<people>,
             {u"people", holds<people>,
              u"Insufficient information. Please select the People for this rule.",
              show<frmRulePeople>}},
    RulePart{Id::accounts,
             u"Where the message is received through specified Accounts",
             holds<accounts>,
             clearIfUnticked<accounts>,
             {u"accounts", holds<accounts>,
              u"Insufficient information. Please select the Accounts for this rule.",
              show<frmRuleAccount>}},
    RulePart{Id::words,
             u"Where the message content contains specified Words",
             holds<words>,
             clearIfUnticked<words>,
             {u"words", holds<words>,
              u"Insufficient information. Please select the Words for this rule.",
              show<frmRuleWords>}},
    RulePart{Id::dateTime,
             u"Where the message is received within specified Date/Time",
             holds<dateTime>,
             clearIfUnticked<dateTime>,
             {u"date/time", holds<dateTime>,
              u"Insufficient information. Please select the Date/Time for this rule.",
              show<frmRuleDate>}},
    RulePart{Id::allMessages, u"For All Messages",
             [](const RuleState &rule) { return rule.blnAllMessages; },
             [](RuleState &rule, bool ticked) { rule.blnAllMessages = ticked; }},
};

constexpr std::array actions{
    RulePart{Id::distribute,
             u"Distribute to specific users",
             holds<distribution>,
             clearIfUnticked<distribution>,
             {u"distribute", holds<distribution>,
              u"Insufficient information. Please configure the Distribution List for this rule.",
              show<frmRuleDistribute>}},
    RulePart{Id::reply,
             u"Send an Automatic Reply",
             holds<replyText>,
             clearIfUnticked<replyText, replyAccount>,
             {u"reply", holds<replyText>,
              u"Insufficient information. Please configure the Reply text for this rule.",
              show<frmRuleReply>}},
    RulePart{Id::alert,
             u"Send an Alert to specified people",
             holds<alertRecipients>,
             clearIfUnticked<alertRecipients, alertText, alertAccount>,
             {u"alert",
              [](const RuleState &rule) {
                  return holds<alertText>(rule) && holds<alertRecipients>(rule);
              },
              u"Insufficient information. Please configure the Alerts for this rule.",
              show<frmRuleAlert>}},
    RulePart{Id::deleteIt, u"Delete it", isYes<deleteIt>, setYesOrNo<deleteIt>},
    RulePart{Id::ignoreFurtherRules, u"Do not process any more Rules", isYes<ignoreFurther>,
             setYesOrNo<ignoreFurther>},
};

/// The part's index in `parts`, or their count when it is not among them.
constexpr std::size_t placeOf(RulePartId id, std::span<const RulePart> parts) {
    return static_cast<std::size_t>(std::ranges::find(parts, id, &RulePart::id) - parts.begin());
}

constexpr bool everyIdHasOneRow() {
    for (int id = 0; id < static_cast<int>(Id::count); ++id) {
        const auto isIt = [&](const RulePart &part) { return part.id == static_cast<Id>(id); };
        if (std::ranges::count_if(conditions, isIt) + std::ranges::count_if(actions, isIt) != 1) {
            return false;
        }
    }
    return true;
}
static_assert(everyIdHasOneRow());

} // namespace

std::span<const RulePart> ruleConditions() {
    return conditions;
}
std::span<const RulePart> ruleActions() {
    return actions;
}

int rowOf(RulePartId id) {
    const std::size_t condition = placeOf(id, conditions);
    const std::size_t place = condition < conditions.size() ? condition : placeOf(id, actions);
    return static_cast<int>(place) + 1;
}

const RulePart &rulePart(RulePartId id) {
    const std::size_t condition = placeOf(id, conditions);
    return condition < conditions.size() ? conditions[condition] : actions[placeOf(id, actions)];
}

std::u16string editableValues(std::span<const RulePart> parts) {
    std::vector<std::u16string_view> values;
    for (const RulePart &part : parts) {
        if (part.hasDialog()) {
            values.emplace_back(part.dialog.values);
        }
    }
    std::u16string text;
    for (std::size_t at = 0; at < values.size(); ++at) {
        if (at > 0) {
            text.append(at + 1 < values.size() ? u", " : u" or ");
        }
        text.append(values[at]);
    }
    return text;
}

} // namespace kvex
