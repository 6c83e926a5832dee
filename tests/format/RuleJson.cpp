#include "tests/format/RuleJson.h"

#include "platform/Text.h"

#include <iomanip>
#include <sstream>
#include <vector>

namespace kvex::test {
namespace {

using nlohmann::json;

std::u16string unitsOf(const std::string &hexadecimal) {
    std::istringstream source(hexadecimal);
    std::u16string text;
    for (unsigned unit = 0; source >> std::hex >> unit;) {
        text.push_back(static_cast<char16_t>(unit));
    }
    return text;
}

std::string hexadecimalOf(std::u16string_view text) {
    std::ostringstream target;
    target << std::hex << std::setfill('0');
    for (std::size_t at = 0; at < text.size(); ++at) {
        target << (at == 0 ? "" : " ") << std::setw(4) << static_cast<unsigned>(text[at]);
    }
    return target.str();
}

std::u16string listOf(const json &entries) {
    std::vector<std::u16string> texts;
    for (const json &entry : entries) {
        texts.push_back(textOf(entry));
    }
    return joined(texts, u';');
}

json entriesOf(std::u16string_view list) {
    json entries = json::array();
    if (!list.empty()) {
        for (const auto entry : split(list, u';')) {
            entries.push_back(jsonOf(entry));
        }
    }
    return entries;
}

std::int16_t flagOf(const json &flag) {
    return flag.get<bool>() ? 1 : 0;
}

json conditionOf(std::int16_t negated, std::int16_t all, std::u16string_view list) {
    return {{"not", negated == 1}, {"all", all == 1}, {"entries", entriesOf(list)}};
}

} // namespace

std::u16string textOf(const json &text) {
    if (text.is_string()) {
        return fromUtf8(text.get<std::string>());
    }
    if (text.contains("utf16")) {
        return unitsOf(text.at("utf16"));
    }
    std::u16string whole = textOf(text.at("before"));
    const std::u16string repeated = textOf(text.at("repeat"));
    for (int times = text.at("times"); times > 0; --times) {
        whole += repeated;
    }
    return whole + textOf(text.at("after"));
}

RuleState ruleOf(const json &rule) {
    RuleState state;
    state.blnAllMessages = rule.at("allMessages");
    state.strIgnoreIfService = textOf(rule.at("ignoreIfService"));
    const json &people = rule.at("people");
    state.intPeopleNot = flagOf(people.at("not"));
    state.intPeopleAll = flagOf(people.at("all"));
    state.strPeople = listOf(people.at("entries"));
    const json &accounts = rule.at("accounts");
    state.intAccountNot = flagOf(accounts.at("not"));
    state.intAccountAll = flagOf(accounts.at("all"));
    state.varAccounts = listOf(accounts.at("entries"));
    const json &words = rule.at("words");
    state.intWordsNot = flagOf(words.at("not"));
    state.intWordsAll = flagOf(words.at("all"));
    state.intAsCommand = flagOf(words.at("asCommand"));
    state.strWords = listOf(words.at("entries"));
    state.strDateTime = textOf(rule.at("dateTime"));
    state.strDistribution = listOf(rule.at("distribution"));
    state.strReplyText = textOf(rule.at("reply").at("text"));
    state.strReplyAccount = textOf(rule.at("reply").at("account"));
    state.strAlertText = textOf(rule.at("alert").at("text"));
    state.strAlertAccount = textOf(rule.at("alert").at("account"));
    state.strAlertRecipients = listOf(rule.at("alert").at("recipients"));
    state.varDelete = textOf(rule.at("delete"));
    state.strIgnoreFurtherRules = textOf(rule.at("ignoreFurtherRules"));
    return state;
}

json jsonOf(std::u16string_view text) {
    const std::string characters = toUtf8(text);
    if (fromUtf8(characters) == text) {
        return characters;
    }
    return {{"utf16", hexadecimalOf(text)}};
}

json jsonOf(const RuleState &rule) {
    json object;
    object["allMessages"] = rule.blnAllMessages;
    object["ignoreIfService"] = jsonOf(rule.strIgnoreIfService);
    object["people"] = conditionOf(rule.intPeopleNot, rule.intPeopleAll, rule.strPeople);
    object["accounts"] = conditionOf(rule.intAccountNot, rule.intAccountAll, rule.varAccounts);
    object["words"] = conditionOf(rule.intWordsNot, rule.intWordsAll, rule.strWords);
    object["words"]["asCommand"] = rule.intAsCommand == 1;
    object["dateTime"] = jsonOf(rule.strDateTime);
    object["distribution"] = entriesOf(rule.strDistribution);
    object["reply"]["text"] = jsonOf(rule.strReplyText);
    object["reply"]["account"] = jsonOf(rule.strReplyAccount);
    object["alert"]["text"] = jsonOf(rule.strAlertText);
    object["alert"]["account"] = jsonOf(rule.strAlertAccount);
    object["alert"]["recipients"] = entriesOf(rule.strAlertRecipients);
    object["delete"] = jsonOf(rule.varDelete);
    object["ignoreFurtherRules"] = jsonOf(rule.strIgnoreFurtherRules);
    return object;
}

} // namespace kvex::test
