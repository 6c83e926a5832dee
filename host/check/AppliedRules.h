// The enabled rules of a database, to find those that never run.
#pragma once

#include "host/check/ReadRule.h"
#include "host/check/Takers.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace kvex::host {

class AppliedRules {
public:
    /// Call it in ascending priority. A rule that is off, or whose priority is no number, does not
    /// count. `place` is any number of the caller's for the rule.
    void add(std::size_t place, const ReadRule &rule);

    /// For each place below `count`: the place of an earlier rule that takes all messages of the
    /// rule there, or nothing.
    [[nodiscard]] std::vector<std::optional<std::size_t>> takers(std::size_t count) const;

private:
    Vocabulary vocabulary_;
    std::vector<AppliedRule> rules_;
    std::vector<std::size_t> places_;
};

} // namespace kvex::host
