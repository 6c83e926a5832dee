#include "host/check/Containment.h"

#include "host/check/Moments.h"
#include "host/rules/StoredIds.h"
#include "platform/Text.h"

#include <algorithm>

namespace kvex::host {
namespace {

/// Entries that are ids get one spelling each. Nothing when one of them is no id.
std::optional<Entries> spelled(ListPart part, const Entries &entries) {
    if (part != ListPart::accounts) {
        return entries;
    }
    Entries ids;
    for (const std::u16string &entry : entries) {
        const auto id = idOf(entry);
        if (!id) {
            return std::nullopt;
        }
        ids.push_back(toText(std::int64_t{*id}));
    }
    return ids;
}

std::optional<ListCondition> listConditionOf(const RuleList &list, ListPart part,
                                             Vocabulary &vocabulary) {
    const auto entries = spelled(part, list.entries);
    if (!entries || entries->empty()) {
        return std::nullopt;
    }
    ListCondition condition;
    for (const std::u16string &entry : *entries) {
        condition.entries.push_back(vocabulary.numberOf(part, entry));
    }
    std::ranges::sort(condition.entries);
    condition.entries.erase(std::unique(condition.entries.begin(), condition.entries.end()),
                            condition.entries.end());
    condition.negated = list.negated;
    condition.all = condition.entries.size() > 1 && list.all != list.negated;
    // The editor makes "any" of a command's "all". Which of the two the server reads is in doubt.
    if (part == ListPart::command && list.all && condition.entries.size() > 1) {
        return std::nullopt;
    }
    return condition;
}

bool intersect(const std::vector<std::uint32_t> &one, const std::vector<std::uint32_t> &other) {
    for (auto left = one.begin(), right = other.begin();
         left != one.end() && right != other.end();) {
        if (*left == *right) {
            return true;
        }
        ++(*left < *right ? left : right);
    }
    return false;
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

} // namespace

std::uint32_t Vocabulary::numberOf(ListPart part, const std::u16string &entry) {
    auto &numbers = numbers_[static_cast<std::size_t>(part)];
    return numbers.try_emplace(entry, static_cast<std::uint32_t>(numbers.size())).first->second;
}

Conditions conditionsOf(const RuleValues &rule, Vocabulary &vocabulary) {
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
        condition = listConditionOf(list, part, vocabulary);
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

bool contains(const Conditions &outer, const Conditions &inner) {
    if (!outer.areCertain) {
        return false;
    }
    if (outer.allMessages) {
        return true;
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
