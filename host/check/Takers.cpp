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
            // A list that asks for all is only contained by one that has each of its entries.
            const std::size_t count = list->all ? 1 : list->entries.size();
            for (std::size_t i = 0; i < count; ++i) {
                byEntry_[keyOf(part, list->negated, list->entries[i])].push_back(place);
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
        for (std::size_t part = 0; part < listPartCount; ++part) {
            const auto &list = conditions.lists[part];
            // A list that asks for any is only contained by one that has each of its entries.
            const std::size_t count = !list ? 0 : list->all ? list->entries.size() : 1;
            for (std::size_t i = 0; i < count; ++i) {
                const auto found = byEntry_.find(
                    keyOf(static_cast<ListPart>(part), list->negated, list->entries[i]));
                if (found != byEntry_.end() && std::ranges::any_of(found->second, visit)) {
                    return;
                }
            }
        }
    }

private:
    static std::uint64_t keyOf(ListPart part, bool negated, std::uint32_t entry) {
        return (std::uint64_t{entry} << 3U) | (static_cast<std::uint64_t>(part) << 1U) |
               (negated ? 1U : 0U);
    }

    std::unordered_map<std::uint64_t, std::vector<std::size_t>> byEntry_;
    std::vector<std::size_t> withoutEntry_;
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
