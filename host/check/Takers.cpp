#include "host/check/Takers.h"

#include <algorithm>
#include <unordered_map>

namespace kvex::host {
namespace {

/// The earlier rules that stop, each under entries of which a rule that it contains must have one.
class Stoppers {
public:
    void add(std::size_t place, const Conditions &conditions) {
        for (const ListPart part :
             {ListPart::command, ListPart::words, ListPart::people, ListPart::accounts}) {
            const auto &list = conditions.lists[static_cast<std::size_t>(part)];
            // "Not through account 1" holds for a rule that only has account 2.
            if (!list || (part == ListPart::accounts && list->negated)) {
                continue;
            }
            if (list->all) {
                // Only a list that has each of these entries contains it. So one of them is enough.
                byEntry_[keyOf(part, *list, list->entries.back())].push_back(place);
            } else {
                for (const std::uint32_t entry : list->entries) {
                    byEntry_[keyOf(part, *list, entry)].push_back(place);
                }
            }
            return;
        }
        withoutEntry_.push_back(place);
    }

    /// Calls `visit` for each rule that can contain the conditions, until it returns true.
    template <class Visit> void visitCandidates(const Conditions &conditions, Visit visit) const {
        if (std::ranges::any_of(withoutEntry_, visit)) {
            return;
        }
        for (std::size_t i = 0; i < listPartCount; ++i) {
            const auto &list = conditions.lists[i];
            if (list && visitList(static_cast<ListPart>(i), *list, visit)) {
                return;
            }
        }
    }

private:
    using Places = std::vector<std::size_t>;

    template <class Visit>
    bool visitList(ListPart part, const ListCondition &list, Visit visit) const {
        const Places *fewest = nullptr;
        for (const std::uint32_t entry : list.entries) {
            const Places &places = under(part, list, entry);
            if (list.all && std::ranges::any_of(places, visit)) {
                return true;
            }
            if (fewest == nullptr || places.size() < fewest->size()) {
                fewest = &places;
            }
        }
        // Only a list that has each of these entries contains one that asks for any of them.
        return !list.all && std::ranges::any_of(*fewest, visit);
    }

    [[nodiscard]] const Places &under(ListPart part, const ListCondition &list,
                                      std::uint32_t entry) const {
        static const Places none;
        const auto found = byEntry_.find(keyOf(part, list, entry));
        return found == byEntry_.end() ? none : found->second;
    }

    static std::uint64_t keyOf(ListPart part, const ListCondition &list, std::uint32_t entry) {
        return (std::uint64_t{entry} << 3U) | (static_cast<std::uint64_t>(part) << 1U) |
               (list.negated ? 1U : 0U);
    }

    std::unordered_map<std::uint64_t, Places> byEntry_;
    Places withoutEntry_;
};

} // namespace

std::vector<std::optional<std::size_t>> takersOf(std::span<const AppliedRule> rules) {
    std::vector<std::optional<std::size_t>> takers(rules.size());
    Stoppers stoppers;
    std::optional<std::size_t> takerOfAll;
    for (std::size_t place = 0; place < rules.size(); ++place) {
        const AppliedRule &rule = rules[place];
        const auto isEarlier = [&](std::size_t other) {
            return rules[other].priority < rule.priority;
        };
        if (takerOfAll && isEarlier(*takerOfAll)) {
            takers[place] = takerOfAll;
            continue;
        }
        if (rule.isRead) {
            stoppers.visitCandidates(rule.conditions, [&](std::size_t other) {
                if (isEarlier(other) && contains(rules[other].conditions, rule.conditions)) {
                    takers[place] = other;
                }
                return takers[place].has_value();
            });
        }
        if (!rule.isRead || !rule.conditions.areCertain) {
            continue;
        }
        if (rule.conditions.allMessages && (rule.stops || rule.deletes)) {
            takerOfAll = takerOfAll.value_or(place);
        } else if (rule.stops) {
            stoppers.add(place, rule.conditions);
        }
    }
    return takers;
}

} // namespace kvex::host
