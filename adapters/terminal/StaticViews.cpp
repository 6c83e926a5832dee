#include "adapters/terminal/StaticViews.h"

#include "adapters/terminal/WrappedText.h"

#include <algorithm>

namespace kvex::terminal {

void putCaption(Canvas &canvas, Point at, const controls::Caption &caption, std::size_t from,
                std::size_t to, Style style) {
    const std::u16string_view shown = caption.shown;
    const std::size_t key = caption.accessKeyAt;
    if (caption.accessKey == 0 || key < from || key >= to) {
        canvas.put(at, shown.substr(from, to - from), style);
        return;
    }
    Style marked = style;
    marked.underline = true;
    at.column += canvas.put(at, shown.substr(from, key - from), style);
    at.column += canvas.put(at, shown.substr(key, 1), marked);
    canvas.put(at, shown.substr(key + 1, to - key - 1), style);
}

controls::Caption LabelView::caption() const {
    return controls::parseCaption(element().accessCaption());
}

Extent LabelView::columns() const {
    const std::u16string shown = caption().shown;
    return {longestWord(shown, characters()), longestLine(shown, characters())};
}

Extent LabelView::rows(int columns, Economy) const {
    const int rows = static_cast<int>(wrapped(caption().shown, columns, characters()).size());
    return {rows, rows};
}

void LabelView::paint(Canvas &canvas, const Rect &at, const Look &) {
    const controls::Caption text = caption();
    const Style style{.dim = element().design().hint || !element().isEnabled()};
    int row = at.row;
    for (const WrappedLine &line : wrapped(text.shown, at.columns, characters())) {
        putCaption(canvas, {at.column, row++}, text, line.from, line.to, style);
    }
}

Extent FrameView::rows(int, Economy economy) const {
    const int rows = economy < Economy::noFrames ? 1 : 0;
    return {rows, rows};
}

void FrameView::paint(Canvas &canvas, const Rect &at, const Look &look) {
    if (look.economy == Economy::noFrames) {
        return;
    }
    if (at.rows == 1) {
        canvas.lineAcross({at.column, at.row}, at.columns);
    } else if (at.columns == 1) {
        canvas.lineDown({at.column, at.row}, at.rows);
    } else {
        canvas.border(at, controls::parseCaption(element().design().caption).shown);
    }
}

} // namespace kvex::terminal
