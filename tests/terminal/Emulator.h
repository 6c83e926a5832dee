// What a terminal shows after the bytes that a program has written.
#pragma once

#include "adapters/terminal/io/Geometry.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::test {

/// Understands what Screen writes for xterm, screen, tmux, linux and vt100, and fails on all else.
class Emulator {
public:
    /// The columns that this terminal takes for a character: terminals disagree.
    using Opinion = std::function<int(char32_t character)>;

    struct Cell {
        std::u16string text = u" ";
        /// The numbers of the attributes and of the colour, as "1;7", in the order they were set.
        std::string attributes;
    };

    explicit Emulator(terminal::Size size);
    Emulator(terminal::Size size, Opinion opinion);

    void take(std::string_view bytes);

    [[nodiscard]] const Cell &at(int column, int row) const;
    /// The text of a line without the blanks at its end.
    [[nodiscard]] std::u16string line(int row) const;
    [[nodiscard]] terminal::Point cursor() const { return cursor_; }
    [[nodiscard]] bool showsCursor() const { return showsCursor_; }
    /// How often the whole screen has scrolled: a window never does that.
    [[nodiscard]] int scrolled() const { return scrolled_; }

private:
    std::size_t takeSequence(std::string_view bytes, std::size_t at);
    void control(std::string_view parameters, char final);
    void setAttributes(std::string_view parameters);
    void print(char32_t character);
    void lineFeed();
    void scroll(int lines);
    Cell &cell(int column, int row);

    terminal::Size size_;
    Opinion opinion_;
    std::vector<Cell> cells_;
    terminal::Point cursor_;
    /// The first and the last row of the region that scrolls.
    int top_ = 0;
    int bottom_;
    /// The cursor stands after the last column: the next character wraps.
    bool isWrapPending_ = false;
    bool wraps_ = true;
    bool showsCursor_ = true;
    std::string attributes_;
    int scrolled_ = 0;
    std::string partial_;
};

} // namespace kvex::test
