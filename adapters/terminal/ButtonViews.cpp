#include "adapters/terminal/ButtonViews.h"

#include "adapters/lightweight/LightButtons.h"
#include "adapters/terminal/StaticViews.h"
#include "adapters/terminal/WrappedText.h"

#include <algorithm>

namespace kvex::terminal {
namespace {

/// The mark before a caption: "[x] ".
constexpr int markColumns = 4;
/// The brackets of a button, each with a blank.
constexpr int bracketColumns = 4;

const char16_t *markOf(const lightweight::Element &element) {
    if (const auto *option = dynamic_cast<const OptionButton *>(&element)) {
        return option->selected() ? u"(*)" : u"( )";
    }
    const auto *check = dynamic_cast<const CheckBox *>(&element);
    return check != nullptr && check->value() == 1 ? u"[x]" : u"[ ]";
}

} // namespace

Extent ButtonView::columns() const {
    const int columns =
        shownColumns(controls::parseCaption(element().accessCaption()).shown, characters()) +
        bracketColumns;
    return {columns, columns};
}

void ButtonView::paint(Canvas &canvas, const Rect &at, const Look &look) {
    const controls::Caption caption = controls::parseCaption(element().accessCaption());
    const bool enabled = element().isEnabled();
    const Style style{.dim = !enabled, .reverse = look.hasFocus};
    canvas.fill(at, style);
    if (enabled) {
        canvas.put({at.column, at.row}, look.byEnter ? u"<" : u"[", style);
        canvas.put({at.column + at.columns - 1, at.row}, look.byEnter ? u">" : u"]", style);
    }
    const int spare = at.columns - shownColumns(caption.shown, characters());
    const Point text{at.column + std::max(spare / 2, 1), at.row};
    Canvas inside = canvas.within({at.column + 1, at.row, at.columns - 2, 1});
    putCaption(inside, text, caption, 0, caption.shown.size(), style);
    if (look.hasFocus) {
        canvas.setCursor(text);
    }
}

Extent TickView::columns() const {
    const std::u16string shown = controls::parseCaption(element().accessCaption()).shown;
    return {markColumns + longestWord(shown, characters()),
            markColumns + shownColumns(shown, characters())};
}

Extent TickView::rows(int columns, Economy) const {
    const auto lines = wrapped(controls::parseCaption(element().accessCaption()).shown,
                               columns - markColumns, characters());
    return {static_cast<int>(lines.size()), static_cast<int>(lines.size())};
}

void TickView::paint(Canvas &canvas, const Rect &at, const Look &look) {
    const controls::Caption caption = controls::parseCaption(element().accessCaption());
    const Style style{.dim = !element().isEnabled()};
    Style focused = style;
    focused.reverse = look.hasFocus;
    canvas.put({at.column, at.row}, markOf(element()), focused);
    int row = at.row;
    for (const WrappedLine &line : wrapped(caption.shown, at.columns - markColumns, characters())) {
        putCaption(canvas, {at.column + markColumns, row++}, caption, line.from, line.to, style);
    }
    if (look.hasFocus) {
        canvas.setCursor({at.column + 1, at.row});
    }
}

} // namespace kvex::terminal
