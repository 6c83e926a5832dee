// Keeps passwords of connection strings out of what people read.
#pragma once

#include <string>
#include <string_view>

namespace kvex::host {

/// `text` with the value of every "Pwd=" and "Password=" replaced by "***": up to the next ";",
/// or the whole of a value in braces or quotation marks. Names count without regard to case.
[[nodiscard]] std::u16string withoutPasswords(std::u16string_view text);

} // namespace kvex::host
