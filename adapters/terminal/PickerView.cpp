#include "adapters/terminal/PickerView.h"

#include <algorithm>
#include <string_view>

namespace kvex::terminal {
namespace {

/// "[x] ".
constexpr int tickColumns = 4;

} // namespace

Extent PickerView::columns() const {
    const int columns = tickColumns + static_cast<int>(picker_.editor().length());
    return {columns, columns};
}

void PickerView::paint(Canvas &canvas, const Rect &at, const Look &look) {
    shown_ = at;
    const Style style{.dim = !element().isEnabled()};
    Style marked = style;
    marked.reverse = look.hasFocus;
    const bool hasValue = picker_.hasValue();
    canvas.put({at.column, at.row}, hasValue ? u"[x]" : u"[ ]", hasValue ? style : marked);

    const std::u16string text = picker_.editor().text();
    const auto part = picker_.editor().part();
    const std::size_t end = part.from + part.length;
    Point to{at.column + tickColumns, at.row};
    canvas.put(to, text, style);
    if (hasValue && end <= text.size()) {
        to.column += static_cast<int>(part.from);
        canvas.put(to, std::u16string_view(text).substr(part.from, part.length), marked);
    }
    if (look.hasFocus) {
        canvas.setCursor(hasValue ? to : Point{at.column + 1, at.row});
    }
}

void PickerView::click(Point at, bool) {
    const int place = at.column - shown_.column - tickColumns;
    if (place < -1) {
        picker_.tick(!picker_.hasValue());
    } else if (picker_.hasValue()) {
        picker_.clickAt(static_cast<std::size_t>(std::max(place, 0)));
    }
}

} // namespace kvex::terminal
