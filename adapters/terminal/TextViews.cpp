#include "adapters/terminal/TextViews.h"

#include "platform/Unicode.h"

#include <algorithm>

namespace kvex::terminal {
namespace {

constexpr int leastTextColumns = 10;
constexpr int usualTextColumns = 20;
constexpr int usualLines = 5;
constexpr int leastLines = 2;
/// The brackets or bars on both sides.
constexpr int sides = 2;

using Range = lightweight::TextInput::Range;

/// Puts the units from `from` to `to`, those of the selection in reverse. Returns the columns.
int putSelected(Canvas &canvas, Point at, std::u16string_view text, std::size_t from,
                std::size_t to, Range selection, const Style &style) {
    const std::size_t start = std::clamp(selection.from, from, to);
    const std::size_t end = std::clamp(selection.from + selection.length, start, to);
    Style selected = style;
    selected.reverse = true;
    int columns = canvas.put(at, text.substr(from, start - from), style);
    columns += canvas.put({at.column + columns, at.row}, text.substr(start, end - start), selected);
    columns += canvas.put({at.column + columns, at.row}, text.substr(end, to - end), style);
    return columns;
}

} // namespace

Extent TextBoxView::columns() const {
    const int wished =
        element().design().columns > 0 ? element().design().columns : usualTextColumns;
    return {std::min(wished, leastTextColumns) + sides, wished + sides};
}

/// Moves the text so that the caret, or the cell after the text, is in view.
void TextBoxView::followCaret(int columns) {
    const std::u16string_view text = box_.content();
    const std::size_t caret = box_.caret();
    first_ = std::min(first_, caret);
    const auto width = [&] {
        return shownColumns(text.substr(first_, caret - first_), characters());
    };
    while (first_ < caret && width() >= columns) {
        first_ = clusterEnd(text, first_);
    }
    // Cells stay empty only when the whole text is in view: it may be shorter now, or the box
    // wider.
    while (first_ > 0) {
        const std::size_t before = clusterStart(text, first_);
        if (shownColumns(text.substr(before), characters()) >= columns) {
            return;
        }
        first_ = before;
    }
}

void TextBoxView::paint(Canvas &canvas, const Rect &at, const Look &look) {
    inside_ = {at.column + 1, at.row, std::max(at.columns - sides, 0), 1};
    followCaret(inside_.columns);
    const Style style{.dim = !element().isEnabled() || element().design().readOnly};
    canvas.fill(at);
    canvas.put({at.column, at.row}, u"[", style);
    canvas.put({at.column + at.columns - 1, at.row}, u"]", style);
    const std::u16string_view text = box_.content();
    Canvas content = canvas.within(inside_);
    const Point start{inside_.column, inside_.row};
    putSelected(content, start, text, first_, text.size(), box_.selection(), style);
    if (look.hasFocus) {
        const auto before = text.substr(first_, box_.caret() - first_);
        content.setCursor({start.column + shownColumns(before, characters()), start.row});
    }
}

void TextBoxView::click(Point at, bool twice) {
    if (twice) {
        box_.press(lightweight::Key::selectAll);
        return;
    }
    const std::u16string_view text = box_.content();
    box_.setCaret(unitAt(text, {first_, text.size()}, at.column - inside_.column, characters()));
}

RichTextView::RichTextView(lightweight::LightRichTextBox &box, Ability ability)
    : ControlView(box, ability), box_(box) {
    box.setLineFinder([this](std::size_t at) { return lineWith(at); });
}

Extent RichTextView::columns() const {
    const int wished =
        element().design().columns > 0 ? element().design().columns : usualTextColumns;
    return {std::min(wished, leastTextColumns) + sides, wished + sides};
}

Extent RichTextView::rows(int, Economy economy) const {
    const int lines = element().design().lines > 0 ? element().design().lines : usualLines;
    const int frame = economy < Economy::noListFrames ? 2 : 0;
    return {std::min(leastLines, lines) + frame, lines + frame};
}

void RichTextView::wrap() {
    const int width = std::max(shown_.columns, 1);
    if (text_ != box_.content() || width_ != width) {
        text_ = box_.content();
        width_ = width;
        lines_ = wrapped(text_, width, characters());
    }
}

lightweight::TextLine RichTextView::lineWith(std::size_t at) {
    wrap();
    const std::size_t number = lineOf(lines_, at);
    const WrappedLine &line = lines_[number];
    if (number + 1 == lines_.size()) {
        return {line.from, line.to, lightweight::noLine};
    }
    const std::size_t next = lines_[number + 1].from;
    // That is the line's break, or else its last character.
    return {line.from, lightweight::clusterBefore(text_, next), next};
}

void RichTextView::followCaret() {
    const std::size_t rows = static_cast<std::size_t>(std::max(shown_.rows, 1));
    if (const std::size_t caret = box_.caret(); caret != followed_) {
        followed_ = caret;
        const std::size_t line = lineOf(lines_, caret);
        topLine_ = std::clamp(topLine_, line + 1 > rows ? line + 1 - rows : 0, line);
    }
    topLine_ = std::min(topLine_, lines_.size() > rows ? lines_.size() - rows : 0);
}

void RichTextView::paint(Canvas &canvas, const Rect &at, const Look &look) {
    const int frame = look.economy < Economy::noListFrames ? 1 : 0;
    shown_ = {at.column + 1, at.row + frame, std::max(at.columns - sides, 0),
              std::max(at.rows - 2 * frame, 0)};
    wrap();
    box_.setPage(std::max(shown_.rows, 1));
    followCaret();

    if (frame > 0) {
        canvas.border(at);
    } else {
        canvas.lineDown({at.column, at.row}, at.rows);
    }
    canvas.scrollBar({at.column + at.columns - 1, shown_.row}, shown_.rows,
                     static_cast<int>(topLine_), shown_.rows, static_cast<int>(lines_.size()));
    Canvas content = canvas.within(shown_);
    const auto runs = box_.runs();
    for (int row = 0; row < shown_.rows; ++row) {
        const std::size_t line = topLine_ + static_cast<std::size_t>(row);
        if (line < lines_.size()) {
            paintLine(content, {shown_.column, shown_.row + row}, lines_[line], runs);
        }
    }
    if (look.hasFocus) {
        const std::size_t line = lineOf(lines_, box_.caret());
        const std::size_t from = lines_[line].from;
        const int column = shownColumns(
            std::u16string_view(text_).substr(from, box_.caret() - from), characters());
        content.setCursor({shown_.column + std::min(column, shown_.columns - 1),
                           shown_.row + static_cast<int>(line) - static_cast<int>(topLine_)});
    }
}

Style RichTextView::styleOf(Colour colour) const {
    Style style{.dim = !element().isEnabled()};
    if (colour != colour::black) {
        style.bold = true;
        style.underline = !ability().colours && colour == colour::red;
        style.colour = colour;
    }
    return style;
}

void RichTextView::paintLine(Canvas &canvas, Point at, const WrappedLine &line,
                             const std::vector<TextRun> &runs) const {
    std::size_t from = 0;
    for (const TextRun &run : runs) {
        const std::size_t to = from + run.text.size();
        const std::size_t start = std::max(from, line.from);
        const std::size_t end = std::min(to, line.to);
        if (start < end) {
            at.column +=
                putSelected(canvas, at, text_, start, end, box_.selection(), styleOf(run.colour));
        }
        from = to;
    }
}

void RichTextView::click(Point at, bool) {
    const int row = std::clamp(at.row - shown_.row, 0, std::max(shown_.rows - 1, 0));
    const std::size_t line = std::min(topLine_ + static_cast<std::size_t>(row), lines_.size() - 1);
    box_.setCaret(unitAt(text_, lines_[line], at.column - shown_.column, characters()));
}

bool RichTextView::scroll(int rows) {
    const auto all = static_cast<int>(lines_.size());
    const int before = static_cast<int>(topLine_);
    topLine_ = static_cast<std::size_t>(
        std::clamp(before + rows, 0, std::max(all - std::max(shown_.rows, 1), 0)));
    return static_cast<int>(topLine_) != before;
}

} // namespace kvex::terminal
