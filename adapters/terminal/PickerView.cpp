#include "adapters/terminal/PickerView.h"

#include "platform/Error.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace kvex::terminal {
namespace {

/// "[x] ".
constexpr int tickColumns = 4;

/// The numbers in a text; none if one is too long for a part.
std::vector<int> numbersIn(std::u16string_view text) {
    constexpr int beyondParts = 10000;
    std::vector<int> numbers;
    bool isOpen = false;
    for (const char16_t unit : text) {
        const bool isDigit = unit >= u'0' && unit <= u'9';
        if (isDigit) {
            numbers.resize(numbers.size() + (isOpen ? 0 : 1));
            numbers.back() = std::min(numbers.back() * 10 + (unit - u'0'), beyondParts);
        }
        isOpen = isDigit;
    }
    return numbers;
}

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
    Point to{at.column + tickColumns, at.row};
    canvas.put(to, text, style);
    if (hasValue) {
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

/// The numbers stand in the order in which the picker shows them. What is no value has no effect.
bool PickerView::paste(std::u16string_view text) {
    const std::vector<int> numbers = numbersIn(text);
    if (numbers.size() != 3) {
        return true;
    }
    try {
        if (element().design().kind == ControlKind::datePicker) {
            picker_.pickDate(numbers[2], numbers[1], numbers[0]);
        } else {
            picker_.pickTime(numbers[0], numbers[1], numbers[2]);
        }
    } catch (const Error &) { // NOLINT(bugprone-empty-catch): the picker keeps its value.
    }
    return true;
}

} // namespace kvex::terminal
