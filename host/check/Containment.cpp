#include "host/check/Containment.h"

#include "host/check/Moments.h"
#include "host/rules/StoredIds.h"

#include <algorithm>
#include <functional>

namespace kvex::host {
namespace {

/// Gives the number of an entry, or nothing for an entry that no other list has.
using Numbering =
    std::function<std::optional<std::uint32_t>(ListPart part, const std::u16string &entry)>;

std::optional<ListCondition> listConditionOf(const RuleList &list, ListPart part,
                                             const Numbering &numberOf) {
    ListCondition condition;
    bool isOneUnknown = false;
    for (const std::u16string &entry : list.entries) {
        if (const auto number = numberOf(part, entry)) {
            condition.entries.push_back(*number);
            continue;
        }
        // An account that is no id puts the list in doubt. Only a list with each of these entries
        // contains one that asks for any of them.
        if (part == ListPart::accounts || list.all == list.negated) {
            return std::nullopt;
        }
        isOneUnknown = true;
    }
    if (condition.entries.empty()) {
        return std::nullopt;
    }
    std::ranges::sort(condition.entries);
    condition.entries.erase(std::unique(condition.entries.begin(), condition.entries.end()),
                            condition.entries.end());
    const bool areSeveral = condition.entries.size() > 1 || isOneUnknown;
    condition.negated = list.negated;
    condition.all = areSeveral && list.all != list.negated;
    // The editor makes "any" of a command's "all". Which of the two the server reads is in doubt.
    if (part == ListPart::command && list.all && areSeveral) {
        return std::nullopt;
    }
    return condition;
}

std::optional<std::uint32_t> numberOfId(const std::u16string &entry) {
    const auto id = idOf(entry);
    return id ? std::optional(static_cast<std::uint32_t>(*id)) : std::nullopt;
}

/// Both are sorted.
bool intersect(const std::vector<std::uint32_t> &one, const std::vector<std::uint32_t> &other) {
    return std::ranges::any_of(
        one, [&](std::uint32_t entry) { return std::ranges::binary_search(other, entry); });
}

bool implies(const ListCondition &inner, const ListCondition &outer, ListPart part) {
    if (inner.negated != outer.negated) {
        // A message comes through one account. So one of these is none of those. Two numbers can
        // be the same sender, and a text can have two words: nothing else follows.
        return part == ListPart::accounts && !inner.negated && !inner.all &&
               (outer.all || outer.entries.size() == 1) && !intersect(inner.entries, outer.entries);
    }
    if (outer.all) {
        return inner.all && std::ranges::includes(inner.entries, outer.entries);
    }
    return inner.all ? intersect(inner.entries, outer.entries)
                     : std::ranges::includes(outer.entries, inner.entries);
}

Conditions conditionsOf(const RuleValues &rule, const Numbering &numberOf) {
    Conditions conditions;
    conditions.allMessages = rule.allMessages;
    if (rule.allMessages) {
        conditions.areCertain = true;
        return conditions;
    }
    conditions.noServiceMessages = rule.ignoreIfService == u"YES";
    conditions.areCertain = conditions.noServiceMessages || rule.ignoreIfService == u"NO";
    bool isLimited = conditions.noServiceMessages;
    const auto take = [&](ListPart part, const RuleList &list) {
        if (list == RuleList{}) {
            return;
        }
        auto &condition = conditions.lists[static_cast<std::size_t>(part)];
        condition = listConditionOf(list, part, numberOf);
        conditions.areCertain = conditions.areCertain && condition.has_value();
        isLimited = true;
    };
    take(ListPart::people, rule.people);
    take(ListPart::accounts, rule.accounts);
    take(rule.asCommand ? ListPart::command : ListPart::words, rule.words);
    if (!rule.dateTime.empty()) {
        isLimited = true;
        if (const auto range = wholeRange(rule.dateTime)) {
            conditions.start = range->start;
            conditions.end = range->end;
        } else {
            conditions.areCertain = false;
        }
    }
    conditions.areCertain = conditions.areCertain && isLimited;
    return conditions;
}

} // namespace

std::uint32_t Vocabulary::numberOf(ListPart part, const std::u16string &entry) {
    auto &numbers = numbers_[static_cast<std::size_t>(part)];
    return numbers.try_emplace(entry, static_cast<std::uint32_t>(numbers.size())).first->second;
}

std::optional<std::uint32_t> Vocabulary::known(ListPart part, const std::u16string &entry) const {
    const auto &numbers = numbers_[static_cast<std::size_t>(part)];
    const auto found = numbers.find(entry);
    return found == numbers.end() ? std::nullopt : std::optional(found->second);
}

Conditions outerConditions(const RuleValues &rule, Vocabulary &vocabulary) {
    return conditionsOf(rule, [&](ListPart part, const std::u16string &entry) {
        return part == ListPart::accounts ? numberOfId(entry) : vocabulary.numberOf(part, entry);
    });
}

Conditions innerConditions(const RuleValues &rule, const Vocabulary &vocabulary) {
    return conditionsOf(rule, [&](ListPart part, const std::u16string &entry) {
        return part == ListPart::accounts ? numberOfId(entry) : vocabulary.known(part, entry);
    });
}

bool contains(const Conditions &outer, const Conditions &inner) {
    if (!outer.areCertain) {
        return false;
    }
    if (outer.noServiceMessages && !inner.noServiceMessages) {
        return false;
    }
    if (!outer.start.empty() &&
        (inner.start.empty() || inner.start < outer.start || outer.end < inner.end)) {
        return false;
    }
    for (std::size_t part = 0; part < listPartCount; ++part) {
        const auto &wanted = outer.lists[part];
        const auto &given = inner.lists[part];
        if (wanted && (!given || !implies(*given, *wanted, static_cast<ListPart>(part)))) {
            return false;
        }
    }
    return true;
}

} // namespace kvex::host
