#include "bench/terminal/HandPainter.h"

#include "platform/Text.h"
#include "tests/terminal/Emulator.h"

namespace kvex::bench {
namespace {

std::string placed(terminal::Point at) {
    return "\x1b[" + std::to_string(at.row + 1) + ";" + std::to_string(at.column + 1) + "H";
}

} // namespace

HandPainter::HandPainter(std::string_view bytes) {
    constexpr terminal::Size size{80, 24};
    test::Emulator screen(size);
    screen.take(bytes);
    cursor_ = screen.cursor();
    for (int row = 0; row < size.rows; ++row) {
        for (int column = 0; column < size.columns; ++column) {
            const auto &cell = screen.at(column, row);
            if (column == 0 || cell.attributes != parts_.back().attributes) {
                parts_.push_back({{column, row}, cell.attributes, {}});
            }
            parts_.back().text += cell.text;
        }
    }
}

std::string HandPainter::painted() const {
    std::string bytes;
    for (const Part &part : parts_) {
        bytes += placed(part.at);
        bytes += part.attributes.empty() ? "" : "\x1b[" + part.attributes + "m";
        bytes += toUtf8(part.text);
        bytes += part.attributes.empty() ? "" : "\x1b[m";
    }
    return bytes + placed(cursor_);
}

} // namespace kvex::bench
