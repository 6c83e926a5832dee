#include "fuzz/ReadBack.h"

#include "fuzz/Property.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "rules/ParameterStrings.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kvex::fuzz {
namespace {

using Text = std::u16string_view;

bool isBlank(Text text) {
    return trimmed(text).empty();
}

bool contains(Text text, Text part) {
    return text.find(part) != Text::npos;
}

struct StoredValue {
    ParameterTag tag;
    bool isThere;
    std::u16string typed;
};

/// In the order in which they are stored.
std::vector<StoredValue> conditionsOf(const RuleState &rule) {
    return {
        {parameter_tag::ignoreIfService, true, {}},
        {parameter_tag::people, !isBlank(rule.strPeople), rule.strPeople},
        {parameter_tag::account, !isBlank(rule.varAccounts), rule.varAccounts},
        {parameter_tag::word, !isBlank(rule.strWords), rule.strWords},
        {parameter_tag::dateTime, !isBlank(rule.strDateTime), rule.strDateTime},
    };
}

std::vector<StoredValue> actionsOf(const RuleState &rule) {
    return {
        {parameter_tag::distribute, !isBlank(rule.strDistribution), rule.strDistribution},
        {parameter_tag::reply, !isBlank(rule.strReplyText),
         rule.strReplyText + u";" + rule.strReplyAccount},
        {parameter_tag::alert, !isBlank(rule.strAlertRecipients),
         rule.strAlertText + u";" + rule.strAlertAccount + u";" + rule.strAlertRecipients},
        {parameter_tag::deleteIt, !isBlank(rule.varDelete), {}},
        {parameter_tag::ignoreFurtherRules, !isBlank(rule.strIgnoreFurtherRules), {}},
    };
}

bool anyTagCounts(const std::vector<StoredValue> &values) {
    for (auto holder = values.begin(); holder != values.end(); ++holder) {
        for (auto tagged = values.begin(); holder->isThere && tagged != values.end(); ++tagged) {
            const bool isOwn = tagged == holder;
            const bool isLater = tagged > holder;
            const bool opens = contains(holder->typed, tagged->tag.opening);
            const bool closes = contains(holder->typed, tagged->tag.closing);
            if ((opens && (isLater || !tagged->isThere)) ||
                (closes && (isOwn || (isLater && tagged->isThere)))) {
                return true;
            }
        }
    }
    return false;
}

bool isForAllMessages(const RuleState &rule) {
    const auto says = [](const StoredValue &value) {
        return value.isThere && contains(value.typed, parameter_tag::allMessages);
    };
    return rule.blnAllMessages || std::ranges::any_of(conditionsOf(rule), says);
}

std::u16string readList(const std::u16string &list) {
    return std::u16string(withoutTrailingSeparator(trimmed(list)));
}

std::u16string readYesOrNo(const std::u16string &value) {
    return value == u"YES" ? u"YES" : u"NO";
}

/// Reads a list with its two flags. Without entries, nothing of it is stored.
void readCondition(const RuleState &rule, RuleState &read, std::u16string RuleState::*list,
                   std::int16_t RuleState::*negated, std::int16_t RuleState::*all) {
    if (!isBlank(rule.*list)) {
        read.*list = readList(rule.*list);
        read.*negated = rule.*negated == 1 ? 1 : 0;
        read.*all = rule.*all == 1 ? 1 : 0;
    }
}

void readWords(const RuleState &rule, RuleState &read) {
    readCondition(rule, read, &RuleState::strWords, &RuleState::intWordsNot,
                  &RuleState::intWordsAll);
    if (isBlank(rule.strWords) || rule.intAsCommand == 1) {
        read.intAsCommand = isBlank(rule.strWords) ? 0 : 1;
        return;
    }
    const std::u16string beginning = read.strWords.substr(0, modifier::asCommand.size());
    if (contains(beginning, modifier::all)) {
        read.intWordsAll = 1;
    }
    if (contains(beginning, modifier::negated)) {
        read.intWordsNot = 1;
    }
    if (beginning == modifier::asCommand) {
        read.intAsCommand = 1;
        read.strWords.erase(0, beginning.size());
    }
}

/// The parts of a text up to its first ";", and from there to the next one. The rest is the last of
/// the `count` parts.
std::vector<std::u16string> partsOf(Text text, std::size_t count) {
    std::vector<std::u16string> parts;
    while (parts.size() + 1 < count) {
        const std::size_t end = std::min(text.find(u';'), text.size());
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    parts.emplace_back(withoutTrailingSeparator(text));
    return parts;
}

std::u16string joined(std::initializer_list<Text> parts) {
    std::u16string text;
    for (const Text part : parts) {
        text.append(text.empty() && part.data() == parts.begin()->data() ? u"" : u";");
        text.append(trimmed(part));
    }
    return text;
}

} // namespace

bool hasTagThatCounts(const RuleState &rule) {
    return (!isForAllMessages(rule) && anyTagCounts(conditionsOf(rule))) ||
           anyTagCounts(actionsOf(rule));
}

RuleState whatIsReadBack(const RuleState &rule) {
    RuleState read;
    read.blnAllMessages = isForAllMessages(rule);
    if (!read.blnAllMessages) {
        read.strIgnoreIfService = readYesOrNo(rule.strIgnoreIfService);
        readCondition(rule, read, &RuleState::strPeople, &RuleState::intPeopleNot,
                      &RuleState::intPeopleAll);
        readCondition(rule, read, &RuleState::varAccounts, &RuleState::intAccountNot,
                      &RuleState::intAccountAll);
        readWords(rule, read);
        read.strDateTime = readList(rule.strDateTime);
    }
    read.strDistribution = readList(rule.strDistribution);
    if (!isBlank(rule.strReplyText)) {
        const auto parts = partsOf(joined({rule.strReplyText, rule.strReplyAccount}), 2);
        read.strReplyText = parts[0];
        read.strReplyAccount = parts[1];
    }
    if (!isBlank(rule.strAlertRecipients)) {
        const auto parts =
            partsOf(joined({rule.strAlertText, rule.strAlertAccount, rule.strAlertRecipients}), 3);
        read.strAlertText = parts[0];
        read.strAlertAccount = parts[1];
        read.strAlertRecipients = parts[2];
    }
    read.varDelete = readYesOrNo(rule.varDelete);
    read.strIgnoreFurtherRules = readYesOrNo(rule.strIgnoreFurtherRules);
    return read;
}

StoredRule stored(const RuleState &rule) {
    return {buildQueryParam(rule), buildActionParam(rule)};
}

RuleState loaded(const StoredRule &stored) {
    RuleState rule;
    try {
        readQueryParam(stored.queryParam, rule);
        readActionParam(stored.actionParam, rule);
    } catch (const Error &error) {
        require(
            error.number() == error_number::invalidCall || error.number() == error_number::overflow,
            "a rule that cannot be read whole is an invalid call or too long", error.description());
    }
    return rule;
}

void requireSameRule(const RuleState &is, const RuleState &expected, std::string_view property) {
    struct NamedText {
        const char *name;
        std::u16string RuleState::*text;
    };
    constexpr std::array texts{
        NamedText{"strIgnoreIfService", &RuleState::strIgnoreIfService},
        NamedText{"strPeople", &RuleState::strPeople},
        NamedText{"varAccounts", &RuleState::varAccounts},
        NamedText{"strWords", &RuleState::strWords},
        NamedText{"strDateTime", &RuleState::strDateTime},
        NamedText{"strDistribution", &RuleState::strDistribution},
        NamedText{"strReplyText", &RuleState::strReplyText},
        NamedText{"strReplyAccount", &RuleState::strReplyAccount},
        NamedText{"strAlertText", &RuleState::strAlertText},
        NamedText{"strAlertAccount", &RuleState::strAlertAccount},
        NamedText{"strAlertRecipients", &RuleState::strAlertRecipients},
        NamedText{"varDelete", &RuleState::varDelete},
        NamedText{"strIgnoreFurtherRules", &RuleState::strIgnoreFurtherRules},
    };
    for (const NamedText &member : texts) {
        requireEqual(is.*member.text, expected.*member.text,
                     std::string(property) + " (" + member.name + ")");
    }
    const auto flagsOf = [](const RuleState &rule) {
        std::u16string flags =
            u"all messages, people not/all, accounts not/all, words not/all, command:";
        for (const int flag :
             {int{rule.blnAllMessages}, int{rule.intPeopleNot}, int{rule.intPeopleAll},
              int{rule.intAccountNot}, int{rule.intAccountAll}, int{rule.intWordsNot},
              int{rule.intWordsAll}, int{rule.intAsCommand}}) {
            flags += u" " + toText(std::int64_t{flag});
        }
        return flags;
    };
    requireEqual(flagsOf(is), flagsOf(expected), property);
}

} // namespace kvex::fuzz
