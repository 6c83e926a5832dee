// The lines of vCards, as RFC 6350 section 3 (vCard 4.0), RFC 2426 section 4 (vCard 3.0) and
// version 2.1 write them: folding, groups, parameters, encoded and escaped values.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct UnfoldedLine {
    /// Where it begins, from 1.
    std::size_t number = 0;
    std::string text;
};

/// Reads lines that end in CR LF or LF, joined where they are folded: a line that begins with a
/// blank or a tab continues the one before it. This blank stays in version 2.1 alone. A line of
/// quoted-printable text that ends in "=" continues in the next one, too.
class VCardLines {
public:
    /// The text is the caller's.
    explicit VCardLines(std::string_view text) : text_(text) {}

    /// The next line, false when there is none.
    bool next(UnfoldedLine &line);

private:
    std::string_view takeLine();

    std::string_view text_;
    std::size_t number_ = 0;
    bool keepsBlanks_ = false;
};

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
    /// As it stands there, encoded and escaped.
    std::string value;

    [[nodiscard]] bool has(std::string_view parameter, std::string_view value) const;
};

/// Nothing for a line that is none.
[[nodiscard]] std::optional<VCardLine> parseVCardLine(std::string_view text);

/// The value in UTF-8, decoded where it is quoted-printable; escaped still. Raises
/// std::invalid_argument, without a full stop, when it cannot be decoded.
[[nodiscard]] std::string decodedValue(const VCardLine &line);

/// The parts of a value between the unescaped separators, escaped still.
[[nodiscard]] std::vector<std::string_view> escapedParts(std::string_view value, char separator);

/// The text that stands for: a line break for "\n" and "\N", else the character after "\".
[[nodiscard]] std::string unescaped(std::string_view value);

} // namespace kvex::host
