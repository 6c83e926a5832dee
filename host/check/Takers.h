// Finds the rules that never run, because an earlier rule takes all of their messages.
#pragma once

#include "host/check/Containment.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace kvex::host {

/// An enabled rule, as far as it matters for the rules after it.
struct AppliedRule {
    std::int64_t priority;
    Conditions conditions;
    /// Lets no other rule follow.
    bool stops;
    bool deletes;
    /// Nothing is said about a rule whose conditions could not be read to their end.
    bool isRead;
};

/// For each rule, in ascending priority: the place of an earlier rule that takes all of its
/// messages, as it applies to all of them and stops, or applies to all messages and deletes. Rules
/// with the same priority may run in any order, so none of them is earlier.
///
/// The time grows with the number of rules that share an entry, not with that of all rules.
[[nodiscard]] std::vector<std::optional<std::size_t>> takersOf(std::span<const AppliedRule> rules);

} // namespace kvex::host
