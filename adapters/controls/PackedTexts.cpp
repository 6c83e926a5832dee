#include "adapters/controls/PackedTexts.h"

#include <algorithm>
#include <utility>

namespace kvex::controls {

void PackedTexts::set(std::size_t number, std::u16string_view text) {
    const std::size_t texts = 2 * count();
    const std::size_t newTexts = 2 * std::max(count(), number + 1);
    const std::size_t start = startOf(number);
    const std::size_t end = startOf(number + 1);

    std::u16string units;
    units.reserve(newTexts - texts + units_.size() - (end - start) + text.size());
    units.resize(newTexts);
    for (std::size_t of = 0; 2 * of < newTexts; ++of) {
        std::size_t newStart = startOf(of) - texts + newTexts;
        if (of > number) {
            newStart += text.size() - (end - start);
        }
        units[2 * of] = static_cast<char16_t>(newStart);
        units[2 * of + 1] = static_cast<char16_t>(newStart >> halfBits);
    }
    units.append(units_, texts, start - texts).append(text).append(units_, end);
    units_ = std::move(units);
}

} // namespace kvex::controls
