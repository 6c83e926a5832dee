// Plays messages through rules. docs/matching.md says what the conditions of a rule mean.
#pragma once

#include "host/matching/ListConditions.h"
#include "host/matching/Moment.h"
#include "host/matching/Outcome.h"
#include "host/matching/WordFinder.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kvex::host {

/// The kinds of conditions that have a list. Words that a text contains and words with which it
/// begins as a command are two kinds.
enum class ListKind : std::uint8_t { people, accounts, words, commands };
inline constexpr std::size_t listKindCount = 4;

/// Keeps what it needs from message to message, so it is for one thread at a time.
class Matcher {
public:
    /// `rules` are the enabled rules in the order in which they are applied.
    explicit Matcher(std::vector<PlayedRule> rules);

    [[nodiscard]] const std::vector<PlayedRule> &rules() const { return rules_; }

    /// The places in rules() of the rules that apply to the message, in their order. The last one
    /// may have ended the processing. They stay until the next call.
    const std::vector<std::size_t> &play(const Message &message);

    /// Plays the message and says why.
    [[nodiscard]] Outcome explain(const Message &message);

private:
    [[nodiscard]] ListConditions &lists(ListKind kind) {
        return lists_[static_cast<std::size_t>(kind)];
    }
    void addConditions(std::size_t place);
    void addWords();
    void holdEntries(const Message &message);
    /// Why the rule does not apply to the message that was played last.
    [[nodiscard]] Refusal refusalOf(std::size_t place, const Message &message) const;

    std::vector<PlayedRule> rules_;
    std::array<ListConditions, listKindCount> lists_;
    std::vector<MomentRange> dates_;
    /// For the rules that apply to no message.
    std::vector<std::optional<Refusal>> never_;
    /// For 64 rules each: those that can apply to any message, and those that can to a service
    /// message.
    std::vector<std::uint64_t> all_;
    std::vector<std::uint64_t> forServices_;

    /// For each word of the finder: its entries as a word and as a command.
    struct FoundWord {
        std::optional<ListConditions::Entry> word;
        std::optional<ListConditions::Entry> command;
    };
    std::vector<FoundWord> found_;
    WordFinder finder_{{}};
    std::vector<std::size_t> matched_;
};

/// The keys of entries: two entries of a kind mean the same when their keys are equal. "" for an
/// entry that never holds.
[[nodiscard]] std::u16string keyOf(ListKind kind, std::u16string_view entry);

} // namespace kvex::host
