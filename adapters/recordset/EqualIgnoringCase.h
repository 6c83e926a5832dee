// Whether two texts are equal when case is ignored: names of columns and keys, searched texts.
#pragma once

#include <cstdint>
#include <string_view>

namespace kvex::recordset {

/// As the comparison of the foldings, without making them where ASCII decides.
[[nodiscard]] bool equalIgnoringCase(std::u16string_view left, std::u16string_view right);

/// A number that is never 0: the same for texts that are equal so, and seldom for others of up to
/// 64 units. A longer text's says only how long it is.
[[nodiscard]] std::uint16_t fingerprintIgnoringCase(std::u16string_view text);

} // namespace kvex::recordset
