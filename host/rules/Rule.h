// One stored rule, with the values that its two strings hold.
#pragma once

#include "kvex/ComPointer.h"
#include "kvex/RuleStrings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// What a row of SMS_RULES stores. Null reads as "".
struct StoredRule {
    /// Decimal.
    std::u16string id;
    std::u16string name;
    bool isActive = false;
    /// Decimal.
    std::u16string priority;
    std::u16string queryParam;
    std::u16string actionParam;
};

using Entries = std::vector<std::u16string>;

/// A list of a condition. Entries are as they are stored, even when they should be ids.
struct RuleList {
    bool negated = false;
    bool all = false;
    Entries entries;
    friend bool operator==(const RuleList &, const RuleList &) = default;
};

/// The values in both strings, under the names of kvex/RuleStrings.h. A new object holds those of a
/// new rule.
struct RuleValues {
    bool allMessages = false;
    std::u16string ignoreIfService = u"NO";
    RuleList people;
    RuleList accounts;
    RuleList words;
    bool asCommand = false;
    /// platform/StoredMoment.h splits it.
    std::u16string dateTime;

    Entries distribution;
    std::u16string replyText;
    std::u16string replyAccount;
    std::u16string alertText;
    std::u16string alertAccount;
    Entries alertRecipients;
    std::u16string deleteIt = u"NO";
    std::u16string ignoreFurtherRules = u"NO";
    friend bool operator==(const RuleValues &, const RuleValues &) = default;
};

/// Where the reading of a rule ended early. kvex/RuleStrings.h has the numbers.
struct EarlyEnd {
    std::int32_t number;
    /// Such as "PEOPLE".
    std::u16string tag;
    friend bool operator==(const EarlyEnd &, const EarlyEnd &) = default;
};

struct RuleRead {
    /// What was read before the end.
    RuleValues values;
    std::optional<EarlyEnd> end;
};

struct RuleWritten {
    std::u16string queryParam;
    std::u16string actionParam;
    friend bool operator==(const RuleWritten &, const RuleWritten &) = default;
};

/// What the editor compares to find out whether a name is taken: see IRuleStrings::GetNameKeys.
struct NameKeys {
    /// Nothing when the editor cannot search for the name.
    std::optional<std::u16string> typed;
    std::u16string stored;
};

/// Reads and writes the strings of rules through the component. Create it once, and use it for all
/// rules.
///
/// Every function throws an Error when the component fails: outOfMemory, or internalError with the
/// component's result.
class RuleStrings {
public:
    /// `component` is an object of the class RuleUI. Throws internalError when its component is too
    /// old to have IRuleStrings.
    explicit RuleStrings(IUnknown &component);

    [[nodiscard]] RuleRead read(std::u16string_view queryParam,
                                std::u16string_view actionParam) const;
    [[nodiscard]] RuleWritten write(const RuleValues &rule) const;
    /// The message with which the editor would refuse the rule. Nothing when it would store it.
    [[nodiscard]] std::optional<std::u16string> refusal(std::u16string_view name, bool nameIsTaken,
                                                        const RuleValues &rule) const;
    [[nodiscard]] NameKeys keysOf(std::u16string_view name) const;

private:
    ComPointer<IRuleStrings> strings_;
};

} // namespace kvex::host
