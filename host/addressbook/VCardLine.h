// The lines of vCards, as RFC 6350 section 3 (vCard 4.0) and RFC 2426 section 4 (vCard 3.0)
// write them: folding, groups, parameters, escaped values.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

/// A line unfolded: the text without the line breaks before a blank or a tab, and this blank.
struct UnfoldedLine {
    /// Where it begins, from 1.
    std::size_t number;
    std::string text;
};

/// Lines end in CR LF or LF.
[[nodiscard]] std::vector<UnfoldedLine> unfoldedLines(std::string_view text);

/// "GROUP.NAME;PARAMETER=VALUE:VALUE".
struct VCardLine {
    /// Both in lower case.
    std::string name;
    struct Parameter {
        std::string name;
        /// "TEL;CELL", without the parameter's name, is one of TYPE.
        std::string value;
    };
    /// One for each value of a parameter, also of those in one pair of quotation marks.
    std::vector<Parameter> parameters;
    /// As it stands there, escaped.
    std::string value;

    [[nodiscard]] bool has(std::string_view parameter, std::string_view value) const;
};

/// Nothing for a line that is none.
[[nodiscard]] std::optional<VCardLine> parseVCardLine(std::string_view text);

/// The parts of a value between the unescaped separators, escaped still.
[[nodiscard]] std::vector<std::string_view> escapedParts(std::string_view value, char separator);

/// The text that stands for: a line break for "\n" and "\N", else the character after "\".
[[nodiscard]] std::string unescaped(std::string_view value);

} // namespace kvex::host
