#include "fuzz/InputRule.h"

#include "platform/LineBreaks.h"
#include "platform/Text.h"

#include <algorithm>
#include <chrono>

namespace kvex::fuzz {
namespace {

std::int16_t flag(Input &input) {
    return input.flag() ? 1 : 0;
}

std::u16string yesOrNo(Input &input) {
    return input.flag() ? u"YES" : u"NO";
}

/// What a dialog's list makes of its entries: their texts without blanks around them.
template <class Entry> std::u16string list(Input &input, Entry &&entry) {
    std::u16string joined;
    for (std::size_t count = input.below(4); count > 0; --count) {
        joined.append(trimmed(entry())).append(u";");
    }
    return std::u16string(withoutTrailingSeparator(joined));
}

std::u16string id(Input &input) {
    return toText(std::int64_t{input.byte()});
}

std::u16string ids(Input &input) {
    return list(input, [&] { return id(input); });
}

std::u16string texts(Input &input) {
    return list(input, [&] { return input.text(); });
}

std::u16string twoDigits(std::size_t number) {
    return (number < 10 ? u"0" : u"") + toText(static_cast<std::int64_t>(number));
}

std::u16string moment(Input &input) {
    const int year = 1900 + static_cast<int>(input.byte()) * 4 + static_cast<int>(input.below(4));
    const auto month = static_cast<unsigned>(1 + input.below(12));
    const std::chrono::year_month_day_last last{
        std::chrono::year(year), std::chrono::month_day_last(std::chrono::month(month))};
    const std::size_t day = 1 + input.below(static_cast<unsigned>(last.day()));
    std::u16string text = toText(std::int64_t{year}) + twoDigits(month) + twoDigits(day) + u" ";
    if (input.flag()) {
        text += twoDigits(input.below(24)) + u":" + twoDigits(input.below(60)) + u":" +
                twoDigits(input.below(60));
    }
    return text;
}

bool isBlank(std::u16string_view text) {
    return trimmed(text).empty();
}

} // namespace

RuleState editedRule(Input &input) {
    RuleState rule;
    rule.intRuleActive = flag(input);
    rule.blnAllMessages = input.below(8) == 7;
    rule.strIgnoreIfService = yesOrNo(input);
    rule.strPeople = texts(input);
    rule.intPeopleNot = flag(input);
    rule.intPeopleAll = flag(input);
    rule.varAccounts = ids(input);
    rule.intAccountNot = flag(input);
    rule.intAccountAll = flag(input);
    rule.strWords = texts(input);
    rule.intWordsNot = flag(input);
    rule.intWordsAll = flag(input);
    rule.intAsCommand = flag(input);
    if (input.flag()) {
        rule.strDateTime = moment(input) + u"," + moment(input);
    }

    rule.strDistribution = ids(input);
    if (std::u16string text = withCrLf(input.text()); !isBlank(text)) {
        rule.strReplyText = std::move(text);
        rule.strReplyAccount = id(input);
    }
    if (std::u16string text = withCrLf(input.text()); !isBlank(text)) {
        rule.strAlertText = std::move(text);
        rule.strAlertAccount = id(input);
        rule.strAlertRecipients = texts(input);
    }
    rule.varDelete = yesOrNo(input);
    rule.strIgnoreFurtherRules = yesOrNo(input);
    return rule;
}

StoredRule storedRow(Input &input) {
    const std::string_view bytes = input.rest();
    const std::size_t end = std::min(bytes.find('\0'), bytes.size());
    return {fromUtf8(bytes.substr(0, end)),
            fromUtf8(bytes.substr(std::min(end + 1, bytes.size())))};
}

} // namespace kvex::fuzz
