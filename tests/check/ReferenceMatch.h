// Applies a rule's conditions to a message, word for word as docs/checks.md says what they mean.
#pragma once

#include "host/rules/Rule.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>

namespace kvex::test {

/// A message, by what holds for it. Two numbers can be the same sender, so several entries may name
/// it, and "contains" and "begins with" are apart.
struct ReferenceMessage {
    std::set<std::u16string> senders;
    std::u16string account;
    std::set<std::u16string> words;
    std::set<std::u16string> commands;
    std::u16string moment;
    bool isService = false;
};

template <class Holds> bool matches(const host::RuleList &list, const Holds &holds) {
    const bool all = list.all ? std::ranges::all_of(list.entries, holds)
                              : std::ranges::any_of(list.entries, holds);
    return all != list.negated;
}

inline bool matches(const host::RuleValues &rule, const ReferenceMessage &message) {
    if (rule.allMessages) {
        return true;
    }
    if (rule.ignoreIfService == u"YES" && message.isService) {
        return false;
    }
    const auto in = [](const std::set<std::u16string> &set) {
        return [&set](const std::u16string &entry) { return set.contains(entry); };
    };
    const auto isAccount = [&](const std::u16string &id) { return id == message.account; };
    if (!rule.people.entries.empty() && !matches(rule.people, in(message.senders))) {
        return false;
    }
    if (!rule.accounts.entries.empty() && !matches(rule.accounts, isAccount)) {
        return false;
    }
    if (!rule.words.entries.empty() &&
        !matches(rule.words, in(rule.asCommand ? message.commands : message.words))) {
        return false;
    }
    const std::size_t comma = rule.dateTime.find(u',');
    return comma == std::u16string::npos || (rule.dateTime.substr(0, comma) <= message.moment &&
                                             message.moment <= rule.dateTime.substr(comma + 1));
}

} // namespace kvex::test
