// Messages made of parts that others wrote.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kvex::host {

/// `text` with a full stop, unless it has a mark at its end; "" stays.
[[nodiscard]] std::string asSentence(std::string_view text);

/// What went wrong, as sentences: `reason`, and the log's file unless it is empty.
[[nodiscard]] std::string reasonAndLog(std::string_view reason, const std::filesystem::path &log);

} // namespace kvex::host
