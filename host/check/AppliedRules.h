// The enabled rules of a database, to find those that never run.
#pragma once

#include "host/check/ReadRule.h"
#include "host/check/Takers.h"

#include <cstddef>
#include <optional>

namespace kvex::host {

/// True when the rule lets no other rule follow, or applies to all messages and deletes them.
[[nodiscard]] bool takesMessages(const RuleValues &rule);

/// A rule that is off, or whose priority is no number, takes no messages, and none are taken from
/// it.
class AppliedRules {
public:
    /// Adds the rule if it takes messages for certain. Call it in ascending priority. `place` is
    /// any number of the caller's for the rule.
    void add(std::size_t place, const ReadRule &rule);
    /// True while no rule takes messages.
    [[nodiscard]] bool isEmpty() const { return takers_.isEmpty(); }

    /// The place of an earlier rule that takes all messages of the rule, whatever its strings are.
    [[nodiscard]] std::optional<std::size_t> takerOfAll(const StoredRule &row) const;
    /// The place of an earlier rule that takes all messages of the rule.
    [[nodiscard]] std::optional<std::size_t> takerOf(const StoredRule &row,
                                                     const RuleRead &read) const;

private:
    Vocabulary vocabulary_;
    Takers takers_;
};

} // namespace kvex::host
