// The conditions of one kind that have a list, such as the numbers of senders, of all rules.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kvex::host {

/// Rules are known by their places. Equal entries have equal keys.
///
/// For each message, first tell which entries hold. Only the rules that have these entries cost
/// time; a rule without a condition of this kind has one that always holds.
class ListConditions {
public:
    using Entry = std::uint32_t;

    explicit ListConditions(std::size_t rules);

    /// Gives a rule its condition: any entry of the list holds, or all of them do; `negated` turns
    /// that around. An entry whose key is "" never holds.
    void add(std::size_t rule, bool negated, bool all, std::vector<std::u16string> keys);

    /// All keys except "", in the order of their entries.
    [[nodiscard]] const std::vector<std::u16string> &keys() const { return keys_; }
    [[nodiscard]] std::optional<Entry> find(const std::u16string &key) const;

    /// Forgets the message: afterwards no entry holds.
    void clear();
    /// Says that an entry holds for the message. Saying it again changes nothing.
    void hold(Entry entry);
    [[nodiscard]] bool isHeld(const std::u16string &key) const;

    /// Whether the conditions of 64 rules hold: the bit n of block b is that of rule 64 b + n.
    [[nodiscard]] std::uint64_t block(std::size_t number) const { return holding_[number]; }

private:
    void flip(std::size_t rule) { holding_[rule / 64] ^= std::uint64_t{1} << (rule % 64); }
    Entry entryOf(const std::u16string &key);

    std::unordered_map<std::u16string, Entry> entries_;
    std::vector<std::u16string> keys_;
    std::vector<std::vector<std::uint32_t>> rulesOf_;
    /// How many entries a rule's condition needs before it turns around, and how many hold.
    std::vector<std::uint32_t> needed_;
    std::vector<std::uint32_t> held_;
    std::vector<std::uint64_t> holding_;
    std::vector<bool> isHeld_;
    std::vector<Entry> heldEntries_;
};

} // namespace kvex::host
