// Texts with half a surrogate pair, which UTF-8 cannot hold: as their UTF-16 units in hexadecimal.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

[[nodiscard]] bool hasHalfPair(std::u16string_view text);

/// "dcf1 0078".
[[nodiscard]] std::string unitsInHexadecimal(std::u16string_view text);

/// The text of units that have four hexadecimal digits and one blank between them. Nothing for any
/// other text.
[[nodiscard]] std::optional<std::u16string> textOfUnits(std::string_view hexadecimal);

} // namespace kvex::host
