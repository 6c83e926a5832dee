// Proves that one rule's conditions hold for every message for which another's hold.
//
// docs/checks.md says what a condition means here and why each step is a proof. Where the reading
// leaves a doubt, nothing is proved.
#pragma once

#include "host/rules/Rule.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kvex::host {

/// What a list asks for. Words that are a command are another part than words that a text contains.
enum class ListPart : std::uint8_t { people, accounts, words, command };
inline constexpr std::size_t listPartCount = 4;

/// A list as statements about the message: "the sender is X", or the opposite when negated. `all`
/// asks for each statement, else one is enough. Not any of them is the same as all negated ones,
/// so "is not" turns `all` around.
struct ListCondition {
    bool negated = false;
    /// Only when the rule has at least two entries.
    bool all = false;
    /// Ids of accounts; numbers of a Vocabulary in the other parts. Sorted, each once; never empty.
    std::vector<std::uint32_t> entries;
};

/// Gives each entry of a part a number. Equal texts have the same one.
class Vocabulary {
public:
    [[nodiscard]] std::uint32_t numberOf(ListPart part, const std::u16string &entry);
    /// Nothing when numberOf was not called for this entry.
    [[nodiscard]] std::optional<std::uint32_t> known(ListPart part,
                                                     const std::u16string &entry) const;

private:
    std::array<std::unordered_map<std::u16string, std::uint32_t>, listPartCount> numbers_;
};

/// A rule's conditions. Conditions whose meaning is in doubt are left out, so the rule applies to
/// these messages or to fewer.
struct Conditions {
    bool allMessages = false;
    bool noServiceMessages = false;
    std::array<std::optional<ListCondition>, listPartCount> lists;
    /// Two whole moments "yyyymmdd hh:mm:ss"; "" without a date.
    std::u16string start;
    std::u16string end;
    /// True when no condition was left out and there is at least one.
    bool areCertain = false;
};

/// For the outer side of `contains`.
[[nodiscard]] Conditions outerConditions(const RuleValues &rule, Vocabulary &vocabulary);
/// For the inner side, compared with outer conditions that were made with the vocabulary before.
/// Most entries of most rules stand in none of those. They prove nothing, so they are left out.
[[nodiscard]] Conditions innerConditions(const RuleValues &rule, const Vocabulary &vocabulary);

/// True when every message of `inner` is proved to be one of `outer`.
[[nodiscard]] bool contains(const Conditions &outer, const Conditions &inner);

} // namespace kvex::host
