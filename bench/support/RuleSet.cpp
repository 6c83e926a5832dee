#include "bench/support/RuleSet.h"

#include "platform/Text.h"
#include "rules/ParameterStrings.h"
#include "rules/RuleState.h"

#include <cmath>
#include <string_view>

namespace kvex::bench {
namespace {

constexpr double mostNumbers = 200;

constexpr std::u16string_view topics[]{u"Outage",   u"Billing",  u"Delivery", u"Weather",
                                       u"Payments", u"Visitors", u"Störung",  u"शिकायत",
                                       u"Meters",   u"Night",    u"Sales",    u"Alarm"};
constexpr std::u16string_view places[]{u"north",  u"south", u"harbour", u"depot 7", u"head office",
                                       u"Zürich", u"दिल्ली", u"line 12", u"station", u"field staff"};
constexpr std::u16string_view vocabulary[]{u"STOP",     u"HELP",   u"BALANCE", u"urgent",
                                           u"offer",    u"free",   u"outage",  u"मदद",
                                           u"callback", u"pump 3", u"fire",    u"Störung"};
constexpr std::u16string_view replies[]{
    u"Thank you, your message was received. We call back during office hours.", u"Received.",
    u"आपका संदेश मिला। We call back in the morning.",
    u"Your request has been handed to the technician on duty, who will call you within two hours "
    u"of your message. In an emergency dial the number on your meter."};

std::u16string text(std::size_t number) {
    return toText(static_cast<std::int64_t>(number));
}

} // namespace

RuleRow RuleSet::next() {
    ++given_;
    RuleState rule;
    rule.blnAllMessages = happens(5);
    rule.strIgnoreIfService = happens(30) ? u"YES" : u"NO";
    if (happens(70)) {
        rule.strPeople = numbers();
        rule.intPeopleNot = happens(20) ? 1 : 0;
    }
    if (happens(30)) {
        rule.varAccounts = ids(accountCount, 4);
    }
    if (happens(40)) {
        rule.strWords = words();
        rule.intWordsAll = happens(30) ? 1 : 0;
        rule.intAsCommand = happens(25) ? 1 : 0;
    }
    if (happens(20)) {
        rule.strDateTime = u"20240301 09:00:00,20240331 18:30:00";
    }
    if (happens(50)) {
        rule.strDistribution = ids(userCount, 6);
    }
    if (happens(30)) {
        rule.strReplyText = replies[below(std::size(replies))];
        rule.strReplyAccount = text(1 + below(accountCount));
    }
    if (happens(30)) {
        rule.strAlertText = replies[below(std::size(replies))];
        rule.strAlertAccount = text(1 + below(accountCount));
        rule.strAlertRecipients = numbers();
    }
    rule.varDelete = happens(20) ? u"YES" : u"NO";
    rule.strIgnoreFurtherRules = happens(30) ? u"YES" : u"NO";
    return {name(), buildQueryParam(rule), buildActionParam(rule), given_,
            static_cast<std::int16_t>(happens(90) ? 1 : 0)};
}

std::u16string RuleSet::number() {
    std::u16string digits = u"98";
    while (digits.size() < 10) {
        digits.push_back(static_cast<char16_t>(u'0' + below(10)));
    }
    return digits;
}

/// The logarithm of the count is evenly distributed, so short lists are more frequent.
std::u16string RuleSet::numbers() {
    const double share = static_cast<double>(below(1001)) / 1000;
    std::u16string list = number();
    for (auto more = std::lround(std::pow(mostNumbers, share)) - 1; more > 0; --more) {
        list.append(u";").append(number());
    }
    return list;
}

std::u16string RuleSet::ids(int count, std::size_t longest) {
    std::u16string list = text(1 + below(static_cast<std::size_t>(count)));
    for (std::size_t more = below(longest); more > 0; --more) {
        list.append(u";").append(text(1 + below(static_cast<std::size_t>(count))));
    }
    return list;
}

std::u16string RuleSet::words() {
    std::u16string list(vocabulary[below(std::size(vocabulary))]);
    for (std::size_t more = below(5); more > 0; --more) {
        list.append(u";").append(vocabulary[below(std::size(vocabulary))]);
    }
    return list;
}

std::u16string RuleSet::name() {
    std::u16string words(topics[below(std::size(topics))]);
    words.append(u" ").append(places[below(std::size(places))]);
    return words + u" " + toText(std::int64_t{given_});
}

std::vector<RuleRow> ruleRows(std::size_t count) {
    RuleSet rules;
    std::vector<RuleRow> rows;
    rows.reserve(count);
    while (rows.size() < count) {
        rows.push_back(rules.next());
    }
    return rows;
}

} // namespace kvex::bench
