// The text that a terminal's user pastes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kvex::terminal {

/// Gathers the bytes up to the mark that ends a paste. Bytes after the first `longest` are dropped.
class PastedText {
public:
    static constexpr std::size_t longest = std::size_t{16} << 20;

    /// Returns how many bytes belong to the paste: all of them, or those up to the mark.
    std::size_t take(std::string_view bytes);
    /// True after the mark.
    [[nodiscard]] bool isComplete() const noexcept { return matched_ == end.size(); }
    [[nodiscard]] bool endsWithEscape() const noexcept { return matched_ == 1; }
    /// Lines end with LF. There are no other control characters except Tab.
    [[nodiscard]] std::u16string text() const;

private:
    static constexpr std::string_view end = "\x1b[201~";

    void append(std::string_view bytes);

    std::string bytes_;
    /// How much of the mark stands at the end of what was taken.
    std::size_t matched_ = 0;
};

} // namespace kvex::terminal
