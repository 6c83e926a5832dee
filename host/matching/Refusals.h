// The words for why a rule does not apply to a message.
#pragma once

#include "host/matching/Matcher.h"

#include <optional>

namespace kvex::host {

/// Why the rule can apply to no message. Nothing when it can apply to some.
[[nodiscard]] std::optional<Refusal> refusalOfAll(const PlayedRule &rule);

/// The list of the rule that is of this kind.
[[nodiscard]] const RuleList &listOf(ListKind kind, const RuleValues &rule);

[[nodiscard]] Refusal refusalOfService();
/// `held` are the entries of the list that hold for the message, and `missing` are the others.
[[nodiscard]] Refusal refusalByList(ListKind kind, const RuleList &list, const Entries &held,
                                    const Entries &missing, const Message &message);
[[nodiscard]] Refusal refusalByDates(const Message &message, const MomentRange &range);

} // namespace kvex::host
