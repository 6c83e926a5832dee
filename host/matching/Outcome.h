// What becomes of a message on which the rules are played.
#pragma once

#include "host/matching/Message.h"
#include "host/rules/Rule.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct PlayedRule {
    StoredRule row;
    RuleRead read;

    /// True when no rule follows for a message to which this one applies.
    [[nodiscard]] bool endsProcessing() const;
};

/// Why a rule does not apply.
struct Refusal {
    /// The first condition that failed, as programs know it: "service", "people", "accounts",
    /// "words" or "dates". Conditions of a rule that applies to no message are "unreadable",
    /// "empty" (a list without entries) or "none".
    std::string_view condition;
    /// For people: "the sender is none of 1, 2".
    std::u16string reason;
};

/// One thing that the server would do.
struct Action {
    enum class Kind { distribute, reply, alert, deleteIt, ignoreFurtherRules };

    Kind kind;
    /// The text as it is sent: the placeholders are filled in.
    std::u16string text = {};
    std::u16string account = {};
    /// The ids of users, or the numbers that get the text.
    Entries recipients = {};
};

/// The text with the message's text in place of each "@@SMS@@", and its sender's number in place of
/// each "@@SENDER@@". What is filled in is not searched again.
[[nodiscard]] std::u16string filledIn(std::u16string_view text, const Message &message);

/// What the rule does with a message to which it applies, in the order of a rule's description.
[[nodiscard]] std::vector<Action> actionsOf(const RuleValues &rule, const Message &message);

struct Verdict {
    const PlayedRule *rule;
    /// Nothing when the rule applies.
    std::optional<Refusal> refusal;
    std::vector<Action> actions;
};

struct Outcome {
    /// One for each rule that was reached, in the order in which they were played.
    std::vector<Verdict> verdicts;
    /// True when the last verdict's rule ended the processing.
    bool isEnded = false;
    /// The rules that were not reached.
    std::vector<const PlayedRule *> notReached;
};

} // namespace kvex::host
