// Line breaks of texts of many lines.
#pragma once

#include <string>
#include <string_view>

namespace kvex::controls {

/// `text` with every line break, a lone CR or LF included, as CR LF.
[[nodiscard]] std::u16string withCrLf(std::u16string_view text);
/// The same behind what `target` holds.
void appendWithCrLf(std::u16string &target, std::u16string_view text);

} // namespace kvex::controls
