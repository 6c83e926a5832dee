#include "host/kvexrules/TextColumns.h"

#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <cstddef>

namespace kvex::host {

void TextColumns::add(std::initializer_list<std::u16string> texts) {
    std::vector<std::u16string> &line = lines_.emplace_back();
    line.reserve(texts.size());
    for (const std::u16string &text : texts) {
        line.push_back(visible(text));
    }
}

std::string TextColumns::text() const {
    std::vector<std::size_t> widths(columns_.size());
    for (const auto &line : lines_) {
        for (std::size_t column = 0; column < line.size(); ++column) {
            widths[column] = std::max(widths[column], line[column].size());
        }
    }
    std::u16string text;
    for (const auto &line : lines_) {
        for (std::size_t column = 0; column + 1 < line.size(); ++column) {
            const std::u16string blanks(widths[column] - line[column].size(), u' ');
            const bool isRight = columns_[column] == Align::right;
            text += isRight ? blanks + line[column] : line[column] + blanks;
            text += u"  ";
        }
        text += line.back() + u"\n";
    }
    return toUtf8(text);
}

} // namespace kvex::host
