#include "tests/terminal/Emulator.h"

#include "platform/Text.h"
#include "platform/Unicode.h"
#include "platform/Utf16.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace kvex::test {
namespace {

int usualColumns(char32_t character) {
    std::u16string text;
    appendCharacter(text, character);
    return columnsOf(text);
}

} // namespace

Emulator::Emulator(terminal::Size size) : Emulator(size, usualColumns) {}

Emulator::Emulator(terminal::Size size, Opinion opinion)
    : size_(size), opinion_(std::move(opinion)),
      cells_(static_cast<std::size_t>(size.columns) * static_cast<std::size_t>(size.rows)),
      bottom_(size.rows - 1) {}

Emulator::Cell &Emulator::cell(int column, int row) {
    return cells_.at(static_cast<std::size_t>(row) * static_cast<std::size_t>(size_.columns) +
                     static_cast<std::size_t>(column));
}

const Emulator::Cell &Emulator::at(int column, int row) const {
    return const_cast<Emulator *>(this)->cell(column, row); // NOLINT
}

std::u16string Emulator::line(int row) const {
    std::u16string text;
    for (int column = 0; column < size_.columns; ++column) {
        text += at(column, row).text;
    }
    const std::size_t last = text.find_last_not_of(u' ');
    return text.substr(0, last + 1);
}

void Emulator::take(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const char byte = bytes[at];
        if (byte == '\x1b') {
            at = takeSequence(bytes, at + 1);
        } else if (byte == '\r') {
            cursor_.column = 0;
            isWrapPending_ = false;
            ++at;
        } else if (byte == '\n') {
            lineFeed();
            ++at;
        } else if (byte == '\b') {
            cursor_.column = std::max(0, cursor_.column - 1);
            isWrapPending_ = false;
            ++at;
        } else if (byte == '\a' || byte == '\x0f') {
            ++at;
        } else {
            std::size_t end = at + 1;
            while (end < bytes.size() && (static_cast<unsigned char>(bytes[end]) & 0xC0U) == 0x80) {
                ++end;
            }
            const std::u16string text = fromUtf8(bytes.substr(at, end - at));
            std::size_t unit = 0;
            print(nextCharacter(text, unit));
            at = end;
        }
    }
}

/// `at` is the position after the Esc. Returns the position after the sequence.
std::size_t Emulator::takeSequence(std::string_view bytes, std::size_t at) {
    const char kind = bytes.at(at);
    if (kind == '(' || kind == ')') {
        return at + 2;
    }
    if (kind == '=' || kind == '>') {
        return at + 1;
    }
    if (kind == 'M') {
        if (cursor_.row == top_) {
            scroll(-1);
        } else {
            cursor_.row = std::max(0, cursor_.row - 1);
        }
        return at + 1;
    }
    if (kind != '[') {
        throw std::runtime_error("unknown sequence Esc " + std::string(1, kind));
    }
    const std::size_t begin = at + 1;
    std::size_t end = begin;
    while (bytes.at(end) < '@') {
        ++end;
    }
    control(bytes.substr(begin, end - begin), bytes[end]);
    return end + 1;
}

void Emulator::control(std::string_view parameters, char final) {
    int first = 0;
    int second = 0;
    const std::size_t middle = parameters.find(';');
    if (!parameters.empty() && parameters.front() != '?') {
        first = std::stoi(std::string(parameters.substr(0, middle)));
        if (middle != std::string_view::npos && (final == 'H' || final == 'r')) {
            second = std::stoi(std::string(parameters.substr(middle + 1)));
        }
    }
    const auto blankFrom = [this](int column, int row) {
        for (; row < size_.rows; ++row, column = 0) {
            for (; column < size_.columns; ++column) {
                cell(column, row) = {};
            }
        }
    };
    switch (final) {
    case 'H':
        cursor_ = {std::clamp(second - 1, 0, size_.columns - 1),
                   std::clamp(first - 1, 0, size_.rows - 1)};
        isWrapPending_ = false;
        return;
    case 'G':
        cursor_.column = std::clamp(first - 1, 0, size_.columns - 1);
        isWrapPending_ = false;
        return;
    case 'C':
        cursor_.column = std::min(cursor_.column + std::max(1, first), size_.columns - 1);
        isWrapPending_ = false;
        return;
    case 'J':
        blankFrom(cursor_.column, cursor_.row);
        return;
    case 'K':
        if (!attributes_.empty()) {
            throw std::runtime_error("erased with attributes: some terminals fill with these");
        }
        for (int column = cursor_.column; column < size_.columns; ++column) {
            cell(column, cursor_.row) = {};
        }
        return;
    case 'r':
        top_ = std::max(first, 1) - 1;
        bottom_ = (second == 0 ? size_.rows : std::min(second, size_.rows)) - 1;
        cursor_ = {};
        isWrapPending_ = false;
        return;
    case 'm':
        setAttributes(parameters);
        return;
    case 'h':
    case 'l':
        if (parameters == "?25") {
            showsCursor_ = final == 'h';
        } else if (parameters == "?7") {
            wraps_ = final == 'h';
        }
        return;
    case 't':
    case 'c':
        return;
    default:
        throw std::runtime_error("unknown sequence Esc [ " + std::string(parameters) + final);
    }
}

void Emulator::setAttributes(std::string_view parameters) {
    if (parameters.empty() || parameters == "0") {
        attributes_.clear();
    } else {
        attributes_ += attributes_.empty() ? "" : ";";
        attributes_ += parameters;
    }
}

void Emulator::print(char32_t character) {
    const int columns = opinion_(character);
    if (columns == 0) {
        // It joins what stands to the left.
        int column = isWrapPending_ ? cursor_.column : std::max(0, cursor_.column - 1);
        while (column > 0 && cell(column, cursor_.row).text.empty()) {
            --column;
        }
        appendCharacter(cell(column, cursor_.row).text, character);
        return;
    }
    if (isWrapPending_ && wraps_) {
        cursor_.column = 0;
        lineFeed();
    }
    isWrapPending_ = false;
    cell(cursor_.column, cursor_.row) = {{}, attributes_};
    appendCharacter(cell(cursor_.column, cursor_.row).text, character);
    for (int more = 1; more < columns && cursor_.column + more < size_.columns; ++more) {
        cell(cursor_.column + more, cursor_.row) = {u"", attributes_};
    }
    cursor_.column += columns;
    if (cursor_.column >= size_.columns) {
        cursor_.column = size_.columns - 1;
        isWrapPending_ = true;
    }
}

void Emulator::lineFeed() {
    isWrapPending_ = false;
    if (cursor_.row == bottom_) {
        scroll(1);
    } else {
        cursor_.row = std::min(cursor_.row + 1, size_.rows - 1);
    }
}

/// Scrolls the region, up if `lines` is positive.
void Emulator::scroll(int lines) {
    if (top_ == 0 && bottom_ == size_.rows - 1) {
        ++scrolled_;
    }
    if (!attributes_.empty()) {
        throw std::runtime_error("scrolled with attributes: some terminals fill with these");
    }
    const std::ptrdiff_t columns = size_.columns;
    const auto begin = cells_.begin() + top_ * columns;
    const auto end = cells_.begin() + (bottom_ + 1) * columns;
    const std::ptrdiff_t left = std::abs(lines) * columns;
    if (lines > 0) {
        std::fill(std::shift_left(begin, end, left), end, Cell());
    } else {
        std::fill(begin, std::shift_right(begin, end, left), Cell());
    }
}

} // namespace kvex::test
