// One entry of the error log.
#pragma once

#include "platform/Error.h"

#include <ctime>
#include <string>
#include <string_view>

namespace kvex::host {

/// The entry in UTF-8 with its newline: the local date and time with its offset from UTC, and
/// `text`; of an error, its number, source and description after them. A tab stands between two
/// of these, and none within: control characters are written out, passwords are left out.
/// `error` may be null.
[[nodiscard]] std::string logLine(std::time_t time, std::u16string_view text, const Error *error);

} // namespace kvex::host
