#include "host/check/Moments.h"

#include <algorithm>

namespace kvex::host {

std::optional<StoredRange> wholeRange(std::u16string_view text) {
    if (text.find(u',') == std::u16string_view::npos) {
        return std::nullopt;
    }
    const StoredRange range = storedRange(text);
    if (!isWholeMoment(range.start) || !isWholeMoment(range.end)) {
        return std::nullopt;
    }
    return range;
}

} // namespace kvex::host
