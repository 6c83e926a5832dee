// Reads the lines of vCards: folding, groups, parameters, encoded and escaped values.
// RFC 6350 section 3 defines version 4.0, RFC 2426 section 4 version 3.0. It reads version 2.1,
// too.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::host {

struct UnfoldedLine {
    /// The line of the text where it begins, from 1.
    std::size_t number = 0;
    std::string text;
};

/// Reads lines that end in CR LF or LF, and joins folded ones. A line that begins with a blank or a
/// tab continues the line before it. Only version 2.1 keeps that blank. A line of quoted-printable
/// text that ends in "=" continues in the next line.
class VCardLines {
public:
    /// `text` must outlive the reader.
    explicit VCardLines(std::string_view text) : text_(text) {}

    /// Reads the next line. Returns false when there is none.
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
        /// A value without a name, as in "TEL;CELL", belongs to TYPE.
        std::string value;
    };
    /// One for each value of a parameter. One pair of quotation marks can hold several values.
    std::vector<Parameter> parameters;
    /// As the line has it, encoded and escaped.
    std::string value;

    [[nodiscard]] bool has(std::string_view parameter, std::string_view value) const;
};

/// Returns nothing for text that is not a line of a vCard.
[[nodiscard]] std::optional<VCardLine> parseVCardLine(std::string_view text);

/// The line's value in UTF-8, still escaped. Decodes quoted-printable text. Raises
/// std::invalid_argument, without a full stop, when it cannot decode the value.
[[nodiscard]] std::string decodedValue(const VCardLine &line);

/// The parts of a value between unescaped separators. The parts are still escaped.
[[nodiscard]] std::vector<std::string_view> escapedParts(std::string_view value, char separator);

/// Replaces "\n" and "\N" by a line break, and every other escape by the character after "\".
[[nodiscard]] std::string unescaped(std::string_view value);

} // namespace kvex::host
