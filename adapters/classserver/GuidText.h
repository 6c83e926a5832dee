// The written form of a class or interface id: "{2E9C6A10-5D43-4B7B-8A60-1F0D7C35B201}".
#pragma once

#include "kvex/Component.h"

#include <optional>
#include <string>
#include <string_view>

namespace kvex {

/// In upper case.
[[nodiscard]] std::string guidText(const GUID &guid);
/// Reads upper and lower case, with the braces. Nothing for any other text.
[[nodiscard]] std::optional<GUID> guidFromText(std::string_view text) noexcept;

} // namespace kvex
