// Looks at the tags in a rule's stored strings, beside what the component reads from them.
#pragma once

#include "host/check/ReadRule.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// A tag as the component names it, for example PEOPLE.
struct Tag {
    std::u16string_view name;
    bool isInActions;
    /// Two modifiers stand before its entries.
    bool hasModifiers;

    [[nodiscard]] std::u16string opening() const;
    [[nodiscard]] std::u16string closing() const;
    /// "QueryParam" or "ActionParam".
    [[nodiscard]] std::u16string_view column() const;
    /// The string of the rule in which the tag may stand.
    [[nodiscard]] const std::u16string &stored(const ReadRule &rule) const;
};

inline constexpr std::u16string_view allMessagesTag = u"<ALLMESSAGES>";

/// Every tag that has a closing one, in the order in which they are read.
[[nodiscard]] std::span<const Tag> tags();

/// The opening tags that stand more than once in their string. Only the first of each is read.
[[nodiscard]] std::vector<const Tag *> repeatedTags(const ReadRule &rule);

/// Two modifiers that were read, with what stands in their place.
struct Misread {
    const Tag *tag;
    std::u16string_view stored;
    std::u16string_view read;
};
/// The lists that do not begin with the modifiers that the component reads there.
[[nodiscard]] std::vector<Misread> misreadModifiers(const ReadRule &rule);

/// True when the conditions were read as they stand: whole, each tag once, with its modifiers and a
/// value.
[[nodiscard]] bool hasSoundConditions(const ReadRule &rule);

} // namespace kvex::host
