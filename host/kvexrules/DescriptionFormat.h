// The formats in which a rule's description is printed.
#pragma once

#include "kvex/Component.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// A piece of a description in one colour, 0x00BBGGRR. Lines are separated by CR LF.
struct DescriptionRun {
    std::u16string text;
    LONG colour;
};
using Description = std::vector<DescriptionRun>;

/// Prints descriptions as one document in UTF-8: `opening`, then the rules with `between` between
/// them, then `closing`.
struct DescriptionFormat {
    std::string_view name;
    std::string_view opening;
    std::string_view between;
    std::string_view closing;
    /// `id` is the rule's id in decimal.
    std::string (*rule)(std::string_view id, const Description &description);
};

/// - text: exactly the description's text; one newline ends each line.
/// - ansi: the same in a terminal's colours; U+FFFD replaces control characters.
/// - html: a page, also well-formed as XML, with one element "pre" for each rule.
[[nodiscard]] std::span<const DescriptionFormat> descriptionFormats();

/// The formats "text" and "ansi" for a terminal: control characters are escaped as visible() does.
[[nodiscard]] const DescriptionFormat &textForTerminals();
[[nodiscard]] const DescriptionFormat &coloursForTerminals();

} // namespace kvex::host
