// Text from anywhere made fit for one line of a log, a list or a terminal.
#pragma once

#include <string>
#include <string_view>

namespace kvex::host {

/// `text` with everything that could break a line or deceive a terminal written out: "\\" for a
/// backslash, "\n", "\r", "\t", and "\u{HEX}" for other control characters, line and paragraph
/// separators, marks that override the direction of writing and units that are no character. No
/// two texts give the same.
[[nodiscard]] std::u16string visible(std::u16string_view text);

/// `text` with U+FFFD for each of these characters but the backslash: for reading alone.
[[nodiscard]] std::u16string harmless(std::u16string_view text);

/// The same, but line breaks (LF, CR LF) stay, as LF.
[[nodiscard]] std::u16string harmlessLines(std::u16string_view text);

} // namespace kvex::host
