// Compares texts without regard to case: names of columns and keys, and texts to search for.
#pragma once

#include <cstdint>
#include <string_view>

namespace kvex::recordset {

/// True when the foldings of both texts are equal. It folds only texts beyond ASCII.
[[nodiscard]] bool equalIgnoringCase(std::u16string_view left, std::u16string_view right);

/// A hash that is never 0. Texts that are equal without regard to case have the same one, so a
/// search compares hashes first. For a text of up to 64 units it depends on all units; for a longer
/// text it depends only on the length.
[[nodiscard]] std::uint16_t fingerprintIgnoringCase(std::u16string_view text);

} // namespace kvex::recordset
