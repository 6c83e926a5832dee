// The formats in which a rule's description is printed.
#pragma once

#include "platform/Component.h"

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

/// How descriptions become a document in UTF-8: `opening`, the rules with `between` between two
/// of them, `closing`.
struct DescriptionFormat {
    std::string_view name;
    std::string_view opening;
    std::string_view between;
    std::string_view closing;
    /// `id` is the rule's, decimal.
    std::string (*rule)(std::string_view id, const Description &description);
};

/// - text: exactly the description's text, each line ended by one newline.
/// - ansi: the same with the colours of a terminal; control characters in it show as U+FFFD.
/// - html: a page that is well-formed XML, too, with one element "pre" for each rule.
[[nodiscard]] std::span<const DescriptionFormat> descriptionFormats();

/// The format text as a terminal may get it: control characters are written out, as visible()
/// does.
[[nodiscard]] const DescriptionFormat &textForTerminals();

} // namespace kvex::host
