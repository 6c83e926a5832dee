// Small files read and written as a whole.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kvex {

/// None when `file` is no regular file or cannot be read.
[[nodiscard]] std::optional<std::string> readWholeFile(const std::filesystem::path &file);

/// Puts `text` in the place of what `file` held, at once, readable to everyone. A
/// std::system_error when that cannot be done; `file` is as it was then.
void writeWholeFile(const std::filesystem::path &file, std::string_view text);

} // namespace kvex
