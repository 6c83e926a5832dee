// The bytes of a fuzzer as choices and texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kvex::fuzz {

/// Any bytes are an input. After its end every choice is the first one and every text is empty.
class Input {
public:
    Input(const std::uint8_t *data, std::size_t size) : bytes_(data, size) {}

    [[nodiscard]] bool atEnd() const noexcept { return bytes_.empty(); }
    std::uint8_t byte();
    /// A number from 0 to `count` - 1.
    std::size_t below(std::size_t count) { return byte() % count; }
    bool flag() { return below(2) == 1; }
    template <class Choices> auto one(const Choices &choices) {
        return choices[below(std::size(choices))];
    }
    /// A byte with the length, then as many bytes of UTF-8. So a dictionary's words fit in.
    std::u16string text();
    /// All bytes that are left.
    std::string_view rest();

private:
    std::string_view take(std::size_t count);

    std::span<const std::uint8_t> bytes_;
};

} // namespace kvex::fuzz
