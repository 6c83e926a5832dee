// Line breaks in texts of many lines.
#pragma once

#include <string>
#include <string_view>

namespace kvex {

/// `text` with every line break as CR LF; a lone CR or LF counts as a line break.
[[nodiscard]] std::u16string withCrLf(std::u16string text);
/// Appends the same to `target`.
void appendWithCrLf(std::u16string &target, std::u16string_view text);

} // namespace kvex
