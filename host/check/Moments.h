// A date range whose two moments are whole.
#pragma once

#include "platform/StoredMoment.h"

#include <optional>

namespace kvex::host {

/// The two moments, when both are whole (isWholeMoment). Nothing for any other text.
[[nodiscard]] std::optional<StoredRange> wholeRange(std::u16string_view text);

} // namespace kvex::host
