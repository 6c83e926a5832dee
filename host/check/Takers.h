// Finds the rules that never run, because an earlier rule takes all of their messages.
#pragma once

#include "host/check/Containment.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace kvex::host {

/// An enabled rule, with what decides about the rules after it.
struct AppliedRule {
    std::int64_t priority;
    Conditions conditions;
    /// Lets no other rule follow.
    bool stops;
    bool deletes;
    /// Nothing is said about a rule whose conditions could not be read to their end.
    bool isRead;
};

/// `rules` stand in ascending priority. For each one: the place of an earlier rule that takes all
/// of its messages, or nothing. Such a rule contains its conditions and stops, or it applies to all
/// messages and deletes them. Rules with the same priority may run in any order, so none of them is
/// earlier.
///
/// The time grows with the number of rules that share an entry, not with that of all rules.
[[nodiscard]] std::vector<std::optional<std::size_t>> takersOf(std::span<const AppliedRule> rules);

} // namespace kvex::host
