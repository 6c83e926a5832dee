// Ids as the tables hold them.
#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace kvex::host {

/// The number that the component makes of a stored id. Nothing when the text is no number, or none
/// of 32 bits.
[[nodiscard]] std::optional<std::int32_t> idOf(std::u16string_view text);

/// An id for a document: a number when it is one in decimal, else the text.
[[nodiscard]] nlohmann::ordered_json idJson(std::u16string_view text);

} // namespace kvex::host
