// Decodes the text of files that other programs wrote.
#pragma once

#include <string>
#include <string_view>

namespace kvex::host {

struct DecodedText {
    /// In UTF-8, without a byte order mark. Where it could not be decoded, it has bytes that are
    /// not UTF-8, in the same line.
    std::string text;
    /// True when the encoding is a guess: Windows-1252.
    bool isGuess = false;
};

/// Decodes a file. The first of these that fits is its encoding:
/// - UTF-16, with a byte order mark, or with enough zeros at every second byte.
/// - UTF-8.
/// - Windows-1252, if no character outside of ASCII is well-formed UTF-8.
///
/// Raises std::invalid_argument, with a sentence for the user, when the bytes are not text.
[[nodiscard]] DecodedText decodeText(std::string_view bytes);

/// Converts `bytes` from the character set `name` to UTF-8. If `name` is "", the set is UTF-8, or
/// else Windows-1252. Raises std::invalid_argument, without a full stop, when the set is unknown or
/// when the bytes are not valid in it.
[[nodiscard]] std::string decodeAs(std::string_view name, std::string_view bytes);

[[nodiscard]] bool isUtf8(std::string_view text);

} // namespace kvex::host
