// A few short texts, numbered from 0, in one piece of memory: far less than strings of their own
// would take.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvex::controls {

class PackedTexts {
public:
    /// "" where none was set. Valid until a text is set.
    [[nodiscard]] std::u16string_view operator[](std::size_t number) const {
        const std::size_t start = startOf(number);
        return std::u16string_view(units_).substr(start, startOf(number + 1) - start);
    }
    void set(std::size_t number, std::u16string_view text);

private:
    static constexpr unsigned halfBits = 16;

    [[nodiscard]] std::size_t count() const { return units_.empty() ? 0 : tabled(0) / 2; }
    [[nodiscard]] std::size_t tabled(std::size_t number) const {
        return units_[2 * number] | std::size_t{units_[2 * number + 1]} << halfBits;
    }
    /// Where the texts from this number on start.
    [[nodiscard]] std::size_t startOf(std::size_t number) const {
        return number < count() ? tabled(number) : units_.size();
    }

    /// A table of where each text starts, in two units each, the lower half first; then the texts.
    std::u16string units_;
};

} // namespace kvex::controls
