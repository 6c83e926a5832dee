// Applies the conditions of a rule to a message one by one, as docs/matching.md says what they
// mean. It is written apart from the matcher, so that tests can compare the two.
#pragma once

#include "host/matching/Outcome.h"
#include "platform/Text.h"
#include "platform/Unicode.h"

#include <algorithm>

namespace kvex::test {

inline bool listHolds(const host::RuleList &list, bool all, const auto &holds) {
    const bool result =
        all ? std::ranges::all_of(list.entries, holds) : std::ranges::any_of(list.entries, holds);
    return result != list.negated;
}

inline std::u16string plainNumber(std::u16string number) {
    std::erase(number, u' ');
    return foldCase(number.starts_with(u'+') ? number.substr(1) : number);
}

/// For rules whose lists have entries, whose ids are numbers, and whose dates are two whole
/// moments.
inline bool plainlyApplies(const host::RuleValues &rule, const host::Message &message) {
    if (rule.allMessages) {
        return true;
    }
    const bool ignoresServices = rule.ignoreIfService == u"YES";
    const bool hasCondition = ignoresServices || !rule.people.entries.empty() ||
                              !rule.accounts.entries.empty() || !rule.words.entries.empty() ||
                              !rule.dateTime.empty();
    if (!hasCondition || (ignoresServices && message.isService)) {
        return false;
    }
    const auto isSender = [&](const std::u16string &entry) {
        return !plainNumber(entry).empty() && plainNumber(entry) == plainNumber(message.sender);
    };
    if (!rule.people.entries.empty() && !listHolds(rule.people, rule.people.all, isSender)) {
        return false;
    }
    const auto isAccount = [&](const std::u16string &entry) {
        return toInt32(entry) == message.account;
    };
    if (!rule.accounts.entries.empty() && !listHolds(rule.accounts, rule.accounts.all, isAccount)) {
        return false;
    }
    const std::u16string text = foldCase(message.text);
    const auto isThere = [&](const std::u16string &entry) {
        const std::u16string word = foldCase(trimmed(entry));
        const std::size_t place = text.find(word);
        return !word.empty() && (rule.asCommand ? place == 0 : place != std::u16string::npos);
    };
    if (!rule.words.entries.empty() &&
        !listHolds(rule.words, rule.words.all && !rule.asCommand, isThere)) {
        return false;
    }
    return rule.dateTime.empty() || (rule.dateTime.substr(0, 17) <= message.moment &&
                                     message.moment <= rule.dateTime.substr(18));
}

/// The places of the rules that apply, up to the one that ends the processing.
inline std::vector<std::size_t> plainlyPlayed(const std::vector<host::PlayedRule> &rules,
                                              const host::Message &message) {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < rules.size(); ++place) {
        if (plainlyApplies(rules[place].read.values, message)) {
            places.push_back(place);
            if (rules[place].endsProcessing()) {
                break;
            }
        }
    }
    return places;
}

} // namespace kvex::test
