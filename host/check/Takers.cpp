#include "host/check/Takers.h"

#include <algorithm>
#include <utility>

namespace kvex::host {
namespace {

std::uint64_t keyOf(ListPart part, const ListCondition &list, std::uint32_t entry) {
    return (std::uint64_t{entry} << 3U) | (static_cast<std::uint64_t>(part) << 1U) |
           (list.negated ? 1U : 0U);
}

} // namespace

void Takers::add(std::size_t place, std::int64_t priority, Conditions conditions) {
    const std::size_t index = takers_.size();
    takers_.push_back({place, priority, std::move(conditions)});
    const Conditions &held = takers_.back().conditions;
    if (held.allMessages) {
        takerOfAll_ = takerOfAll_.value_or(index);
        return;
    }
    for (const ListPart part :
         {ListPart::command, ListPart::words, ListPart::people, ListPart::accounts}) {
        const auto &list = held.lists[static_cast<std::size_t>(part)];
        // "Not through account 1" holds for a rule that only has account 2.
        if (!list || (part == ListPart::accounts && list->negated)) {
            continue;
        }
        if (list->all) {
            // Only a list that has each of these entries contains it. So one of them is enough.
            byEntry_[keyOf(part, *list, list->entries.back())].push_back(index);
        } else {
            for (const std::uint32_t entry : list->entries) {
                byEntry_[keyOf(part, *list, entry)].push_back(index);
            }
        }
        return;
    }
    withoutEntry_.push_back(index);
}

std::optional<std::size_t> Takers::takerOfAll(std::int64_t priority) const {
    if (takerOfAll_ && takers_[*takerOfAll_].priority < priority) {
        return takers_[*takerOfAll_].place;
    }
    return std::nullopt;
}

std::optional<std::size_t> Takers::takerOf(std::int64_t priority,
                                           const Conditions &conditions) const {
    if (const auto taker = takerOfAll(priority)) {
        return taker;
    }
    const auto takes = [&](std::size_t index) {
        return takers_[index].priority < priority &&
               contains(takers_[index].conditions, conditions);
    };
    for (const Indexes *indexes : candidates(conditions)) {
        if (const auto found = std::ranges::find_if(*indexes, takes); found != indexes->end()) {
            return takers_[*found].place;
        }
    }
    return std::nullopt;
}

/// All rules that can contain the conditions are among these.
std::vector<const Takers::Indexes *> Takers::candidates(const Conditions &conditions) const {
    std::vector<const Indexes *> candidates{&withoutEntry_};
    for (const ListPart part :
         {ListPart::people, ListPart::accounts, ListPart::words, ListPart::command}) {
        const auto &list = conditions.lists[static_cast<std::size_t>(part)];
        if (!list) {
            continue;
        }
        std::vector<const Indexes *> ofList;
        for (const std::uint32_t entry : list->entries) {
            ofList.push_back(&under(part, *list, entry));
        }
        if (list->all) {
            candidates.insert(candidates.end(), ofList.begin(), ofList.end());
        } else {
            // Only a list that has each of these entries contains one that asks for any of them.
            candidates.push_back(*std::ranges::min_element(ofList, {}, &Indexes::size));
        }
    }
    return candidates;
}

const Takers::Indexes &Takers::under(ListPart part, const ListCondition &list,
                                     std::uint32_t entry) const {
    static const Indexes none;
    const auto found = byEntry_.find(keyOf(part, list, entry));
    return found == byEntry_.end() ? none : found->second;
}

} // namespace kvex::host
