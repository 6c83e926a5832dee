// A few short texts in one block of memory. Separate strings would take far more.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace kvex::controls {

/// Texts are numbered from 0.
class PackedTexts {
public:
    /// "" if the text was never set. Valid until a text is set.
    [[nodiscard]] std::u16string_view operator[](std::size_t number) const {
        const std::size_t start = startOf(number);
        return std::u16string_view(units_).substr(start, startOf(number + 1) - start);
    }

    void set(std::size_t number, std::u16string_view text) {
        const std::size_t oldTable = 2 * count();
        const std::size_t newTable = 2 * std::max(count(), number + 1);
        const std::size_t start = startOf(number);
        const std::size_t end = startOf(number + 1);

        std::u16string units;
        units.reserve(newTable - oldTable + units_.size() - (end - start) + text.size());
        units.resize(newTable);
        for (std::size_t entry = 0; 2 * entry < newTable; ++entry) {
            std::size_t newStart = startOf(entry) - oldTable + newTable;
            if (entry > number) {
                newStart += text.size() - (end - start);
            }
            units[2 * entry] = static_cast<char16_t>(newStart);
            units[2 * entry + 1] = static_cast<char16_t>(newStart >> halfBits);
        }
        units.append(units_, oldTable, start - oldTable).append(text).append(units_, end);
        units_ = std::move(units);
    }

private:
    static constexpr unsigned halfBits = 16;

    [[nodiscard]] std::size_t count() const { return units_.empty() ? 0 : tableEntry(0) / 2; }
    [[nodiscard]] std::size_t tableEntry(std::size_t number) const {
        return units_[2 * number] | std::size_t{units_[2 * number + 1]} << halfBits;
    }
    /// The end of all texts for a number that has no text yet.
    [[nodiscard]] std::size_t startOf(std::size_t number) const {
        return number < count() ? tableEntry(number) : units_.size();
    }

    /// First a table of where each text starts: two units each, the lower half first. Then the
    /// texts.
    std::u16string units_;
};

} // namespace kvex::controls
