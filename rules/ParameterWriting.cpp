#include "platform/Text.h"
#include "rules/ParameterStrings.h"
#include "rules/ParameterTags.h"

namespace kvex {
namespace {

void append(std::u16string &target, const ParameterTag &tag, std::u16string_view content) {
    target.append(tag.opening).append(content).append(tag.closing);
}

std::u16string_view yesOrNo(std::u16string_view value) {
    return value == u"YES" ? value : u"NO";
}

std::u16string modifiers(std::int16_t negated, std::int16_t all) {
    std::u16string result(negated == 1 ? modifier::negated : modifier::affirmed);
    return result.append(all == 1 ? modifier::all : modifier::any);
}

} // namespace

std::u16string buildQueryParam(const RuleState &rule) {
    if (rule.blnAllMessages) {
        return std::u16string(parameter_tag::allMessages);
    }
    std::u16string result;
    append(result, parameter_tag::ignoreIfService, yesOrNo(rule.strIgnoreIfService));
    const auto appendList = [&](const ParameterTag &tag, std::u16string head,
                                std::u16string_view list) {
        if (const auto content = trimmed(list); !content.empty()) {
            append(result, tag, head.append(content));
        }
    };
    appendList(parameter_tag::people, modifiers(rule.intPeopleNot, rule.intPeopleAll),
               rule.strPeople);
    appendList(parameter_tag::account, modifiers(rule.intAccountNot, rule.intAccountAll),
               rule.varAccounts);
    auto wordHead = modifiers(rule.intWordsNot, rule.intWordsAll);
    if (rule.intAsCommand == 1) {
        wordHead.append(modifier::asCommand);
    }
    appendList(parameter_tag::word, wordHead, rule.strWords);
    appendList(parameter_tag::dateTime, {}, rule.strDateTime);
    return result;
}

std::u16string buildActionParam(const RuleState &rule) {
    std::u16string result;
    // Writes the tag when `decider` holds more than blanks.
    const auto appendIf = [&](std::u16string_view decider, const ParameterTag &tag,
                              std::u16string_view content) {
        if (!trimmed(decider).empty()) {
            append(result, tag, content);
        }
    };
    const auto joined = [](std::initializer_list<std::u16string_view> parts) {
        std::u16string content;
        for (const auto part : parts) {
            content.append(trimmed(part)).push_back(u';');
        }
        content.pop_back();
        return content;
    };
    appendIf(rule.strDistribution, parameter_tag::distribute, trimmed(rule.strDistribution));
    appendIf(rule.strReplyText, parameter_tag::reply,
             joined({rule.strReplyText, rule.strReplyAccount}));
    appendIf(rule.strAlertRecipients, parameter_tag::alert,
             joined({rule.strAlertText, rule.strAlertAccount, rule.strAlertRecipients}));
    appendIf(rule.varDelete, parameter_tag::deleteIt, yesOrNo(rule.varDelete));
    appendIf(rule.strIgnoreFurtherRules, parameter_tag::ignoreFurtherRules,
             yesOrNo(rule.strIgnoreFurtherRules));
    return result;
}

} // namespace kvex
