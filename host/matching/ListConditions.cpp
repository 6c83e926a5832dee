#include "host/matching/ListConditions.h"

#include <algorithm>

namespace kvex::host {

ListConditions::ListConditions(std::size_t rules)
    : needed_(rules), held_(rules), holding_((rules + 63) / 64, ~std::uint64_t{0}) {}

ListConditions::Entry ListConditions::entryOf(const std::u16string &key) {
    const auto [found, isNew] = entries_.try_emplace(key, static_cast<Entry>(keys_.size()));
    if (isNew) {
        keys_.push_back(key);
        rulesOf_.emplace_back();
        isHeld_.push_back(false);
    }
    return found->second;
}

void ListConditions::add(std::size_t rule, bool negated, bool all,
                         std::vector<std::u16string> keys) {
    std::ranges::sort(keys);
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    for (const std::u16string &key : keys) {
        if (!key.empty()) {
            rulesOf_[entryOf(key)].push_back(static_cast<std::uint32_t>(rule));
        }
    }
    needed_[rule] = all ? static_cast<std::uint32_t>(keys.size()) : 1;
    if (!negated) {
        flip(rule);
    }
}

std::optional<ListConditions::Entry> ListConditions::find(const std::u16string &key) const {
    const auto found = entries_.find(key);
    return found == entries_.end() ? std::nullopt : std::optional(found->second);
}

void ListConditions::clear() {
    for (const Entry entry : heldEntries_) {
        isHeld_[entry] = false;
        for (const std::uint32_t rule : rulesOf_[entry]) {
            if (held_[rule]-- == needed_[rule]) {
                flip(rule);
            }
        }
    }
    heldEntries_.clear();
}

void ListConditions::hold(Entry entry) {
    if (isHeld_[entry]) {
        return;
    }
    isHeld_[entry] = true;
    heldEntries_.push_back(entry);
    for (const std::uint32_t rule : rulesOf_[entry]) {
        if (++held_[rule] == needed_[rule]) {
            flip(rule);
        }
    }
}

bool ListConditions::isHeld(const std::u16string &key) const {
    const auto entry = find(key);
    return entry && isHeld_[*entry];
}

} // namespace kvex::host
