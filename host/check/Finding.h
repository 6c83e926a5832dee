// The kinds of findings of a check: what can be wrong with a rule, and how to find it.
#pragma once

#include "host/check/Rulebook.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

enum class Severity {
    /// What is stored is wrong: a part of it is lost, contradicts itself, or names something that
    /// does not exist.
    error,
    /// The rule is stored well. But it can do nothing, can do harm, or is easily mistaken.
    warning,
    /// Nothing is wrong. Something costs more, or is stored in another way, than it seems.
    note,
};
/// In the order of Severity.
inline constexpr std::array<std::string_view, 3> severityNames{"error", "warning", "note"};
[[nodiscard]] constexpr std::string_view nameOf(Severity severity) {
    return severityNames[static_cast<std::size_t>(severity)];
}

/// What one finding says about a rule, in whole sentences.
struct Remark {
    std::u16string reason;
    /// What to do.
    std::u16string advice;
    /// Another rule that takes part, by its place in Rulebook::rules().
    std::optional<std::size_t> other = std::nullopt;
};
using Remarks = std::vector<Remark>;

struct FindingKind {
    /// Programs know the kind by this word, so it never changes.
    std::string_view code;
    Severity severity;
    /// A sentence on rules that have it.
    std::string_view summary;
    /// Everything of this kind that is certain about the rule.
    Remarks (*find)(const Rulebook &book, const CheckedRule &rule);
};

/// All kinds, in the order in which a report lists them.
[[nodiscard]] std::span<const FindingKind> findingKinds();

} // namespace kvex::host
