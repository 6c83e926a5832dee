// Line breaks of multi-line texts.
#pragma once

#include <string>
#include <string_view>

namespace kvex::controls {

/// `text` with CR LF for every line break. A lone CR or LF is a line break too.
[[nodiscard]] std::u16string withCrLf(std::u16string_view text);
/// Appends it to `target`.
void appendWithCrLf(std::u16string &target, std::u16string_view text);

} // namespace kvex::controls
