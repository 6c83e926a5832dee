#include "host/matching/Outcome.h"

namespace kvex::host {

bool PlayedRule::endsProcessing() const {
    return read.values.deleteIt == u"YES" || read.values.ignoreFurtherRules == u"YES";
}

std::u16string filledIn(std::u16string_view text, const Message &message) {
    constexpr std::u16string_view smsMark = u"@@SMS@@";
    constexpr std::u16string_view senderMark = u"@@SENDER@@";
    std::u16string filled;
    while (!text.empty()) {
        if (text.starts_with(smsMark)) {
            filled += message.text;
            text.remove_prefix(smsMark.size());
        } else if (text.starts_with(senderMark)) {
            filled += message.sender;
            text.remove_prefix(senderMark.size());
        } else {
            filled += text.front();
            text.remove_prefix(1);
        }
    }
    return filled;
}

std::vector<Action> actionsOf(const RuleValues &rule, const Message &message) {
    std::vector<Action> actions;
    if (!rule.distribution.empty()) {
        actions.push_back({.kind = Action::Kind::distribute, .recipients = rule.distribution});
    }
    if (!rule.replyText.empty()) {
        actions.push_back({Action::Kind::reply,
                           filledIn(rule.replyText, message),
                           rule.replyAccount,
                           {message.sender}});
    }
    if (!rule.alertRecipients.empty()) {
        actions.push_back({Action::Kind::alert, filledIn(rule.alertText, message),
                           rule.alertAccount, rule.alertRecipients});
    }
    if (rule.deleteIt == u"YES") {
        actions.push_back({.kind = Action::Kind::deleteIt});
    }
    if (rule.ignoreFurtherRules == u"YES") {
        actions.push_back({.kind = Action::Kind::ignoreFurtherRules});
    }
    return actions;
}

} // namespace kvex::host
