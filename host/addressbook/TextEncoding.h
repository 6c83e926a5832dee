// Text of files that other programs wrote, in the encodings that they use.
#pragma once

#include <string>
#include <string_view>

namespace kvex::host {

struct DecodedText {
    /// In UTF-8, without a byte order mark. What cannot be read stays in it as bytes that are no
    /// UTF-8, in its own line.
    std::string text;
    /// Whether it was taken for Windows-1252, which is a guess.
    bool isGuess = false;
};

/// UTF-16 with a byte order mark, or without one where every second byte of enough is 0; else
/// UTF-8; else Windows-1252 when no character but ASCII is well-formed UTF-8. Raises
/// std::invalid_argument with a sentence for the user when the bytes are no text.
[[nodiscard]] DecodedText decodeText(std::string_view bytes);

/// `bytes` of the character set `name`, in UTF-8. Without a name: UTF-8, else Windows-1252. Raises
/// std::invalid_argument, without a full stop, for a set that nobody knows and for bytes that are
/// none of its characters.
[[nodiscard]] std::string decodeAs(std::string_view name, std::string_view bytes);

[[nodiscard]] bool isUtf8(std::string_view text);

} // namespace kvex::host
