// Finds the rules that never run, because an earlier rule takes all of their messages.
#pragma once

#include "host/check/Containment.h"

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

namespace kvex::host {

/// The rules that take messages from later ones. Such a rule lets no other rule follow, or it
/// applies to all messages and deletes them. Rules with the same priority may run in any order, so
/// none of them is earlier.
class Takers {
public:
    /// Call it in ascending priority, with conditions that are certain. `place` is any number of
    /// the caller's for the rule.
    void add(std::size_t place, std::int64_t priority, Conditions conditions);
    [[nodiscard]] bool isEmpty() const { return takers_.empty(); }

    /// The place of an earlier rule that takes all messages of every rule with this priority.
    [[nodiscard]] std::optional<std::size_t> takerOfAll(std::int64_t priority) const;
    /// The place of an earlier rule that takes all messages with these conditions. The time grows
    /// with the number of rules that share an entry, not with that of all rules.
    [[nodiscard]] std::optional<std::size_t> takerOf(std::int64_t priority,
                                                     const Conditions &conditions) const;

private:
    struct Taker {
        std::size_t place;
        std::int64_t priority;
        Conditions conditions;
    };
    using Indexes = std::vector<std::size_t>;

    [[nodiscard]] std::vector<const Indexes *> candidates(const Conditions &conditions) const;
    [[nodiscard]] const Indexes &under(ListPart part, const ListCondition &list,
                                       std::uint32_t entry) const;

    std::vector<Taker> takers_;
    std::optional<std::size_t> takerOfAll_;
    /// The other takers, each under entries of which a rule that it contains must have one.
    std::unordered_map<std::uint64_t, Indexes> byEntry_;
    Indexes withoutEntry_;
};

} // namespace kvex::host
