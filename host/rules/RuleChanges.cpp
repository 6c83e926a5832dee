#include "host/rules/RuleChanges.h"

#include "platform/Text.h"

#include <algorithm>
#include <cstdint>

namespace kvex::host {
namespace {

auto placeOf(auto &rules, std::u16string_view id) {
    return std::ranges::find(rules, id, &StoredRule::id);
}

Rules numbered(Rules rules) {
    std::int64_t priority = 0;
    for (StoredRule &rule : rules) {
        rule.priority = toText(++priority);
    }
    return rules;
}

} // namespace

const StoredRule *findRule(const Rules &rules, std::u16string_view id) {
    const auto found = placeOf(rules, id);
    return found == rules.end() ? nullptr : &*found;
}

Rules switched(Rules rules, const RuleIds &ids, bool on) {
    for (StoredRule &rule : rules) {
        rule.isActive = ids.contains(rule.id) ? on : rule.isActive;
    }
    return rules;
}

Rules moved(Rules rules, std::u16string_view id, const Place &place) {
    if (id != place.neighbour) {
        const auto from = placeOf(rules, id);
        StoredRule rule = std::move(*from);
        rules.erase(from);
        const bool isBehind = place.side == Place::Side::behind;
        rules.insert(placeOf(rules, place.neighbour) + (isBehind ? 1 : 0), std::move(rule));
    }
    return numbered(std::move(rules));
}

Rules without(Rules rules, const RuleIds &ids) {
    std::erase_if(rules, [&](const StoredRule &rule) { return ids.contains(rule.id); });
    return numbered(std::move(rules));
}

Rules withCopy(Rules rules, std::u16string_view id, std::u16string_view name) {
    const auto original = placeOf(rules, id);
    StoredRule copy = *original;
    copy.id.clear();
    copy.name = name;
    copy.isActive = false;
    rules.insert(original + 1, std::move(copy));
    return numbered(std::move(rules));
}

Rules renamed(Rules rules, std::u16string_view id, std::u16string_view name) {
    placeOf(rules, id)->name = name;
    return rules;
}

std::optional<std::u16string> refusalOfName(const RuleStrings &strings, const Rules &rules,
                                            const StoredRule &rule, std::u16string_view name,
                                            Naming naming) {
    const bool isSearched = naming == Naming::newRule || name != rule.name;
    const std::optional<std::u16string> typed = strings.keysOf(name).typed;
    const bool isTaken = isSearched && typed && std::ranges::any_of(rules, [&](const auto &other) {
                             return strings.keysOf(other.name).stored == *typed;
                         });
    const RuleValues values = strings.read(rule.queryParam, rule.actionParam).values;
    if (auto refusal = strings.refusal(name, isTaken, values)) {
        return refusal;
    }
    if (isSearched && !typed) {
        return u"A new name cannot have an apostrophe ('), because the rule editor cannot search "
               u"for it.";
    }
    return std::nullopt;
}

} // namespace kvex::host
