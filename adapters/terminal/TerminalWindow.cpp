#include "adapters/terminal/TerminalWindow.h"

#include "adapters/controls/Keys.h"
#include "adapters/terminal/WrappedText.h"

#include <algorithm>

namespace kvex::terminal {
namespace {

/// A terminal lower than this shows neither a title nor a status.
constexpr int leastRowsForLines = 5;
/// A terminal narrower than this has no blank column on the left.
constexpr int leastColumnsForMargin = 60;
constexpr int widestBox = 64;
constexpr std::u16string_view closeText = u"[x]";
/// F1 also shows a status that is too long for its line.
constexpr std::u16string_view helpText = u"F1: help";

std::vector<Picture> picturesOf(const WindowDesign &window, const ControlDesign &list) {
    const auto found = std::ranges::find(window.controls, list.imageList, &ControlDesign::name);
    return found == window.controls.end() ? std::vector<Picture>() : found->pictures;
}

} // namespace

TerminalWindow::TerminalWindow(Desktop &desktop, const WindowDesign &design, Shape shape,
                               Observer observer)
    : LightWindow(design), desktop_(desktop), shape_(shape), observer_(std::move(observer)),
      layout_(design.layout, [this](std::u16string_view name) { return viewOf(element(name)); }) {
    for (const auto &element : elements()) {
        if (element->design().kind != ControlKind::imageList) {
            views_.emplace(element.get(), terminal::viewOf(*element, desktop_.ability(),
                                                           picturesOf(design, element->design())));
        }
    }
    desktop_.windowMade();
}

TerminalWindow::~TerminalWindow() {
    if (!isDone_) {
        desktop_.windowDone();
    }
}

void TerminalWindow::run() {
    desktop_.run(*this);
    isDone_ = true;
    desktop_.windowDone();
}

ControlView *TerminalWindow::viewOf(const lightweight::Element *element) const {
    const auto found = views_.find(element);
    return found == views_.end() ? nullptr : found->second.get();
}

/// The window with its border, or with its title.
Rect TerminalWindow::outerRect(Size size) const {
    const int statusRows = size.rows >= leastRowsForLines ? 1 : 0;
    const Rect all{0, 0, size.columns, size.rows - statusRows};
    if (shape_ == Shape::window) {
        return all;
    }
    constexpr int around = 4;
    const int least = shownColumns(caption(), desktop_.ability().characters) +
                      static_cast<int>(closeText.size()) + around;
    const Size content = layout_.naturalSize(std::min(widestBox, all.columns - around));
    const int columns = std::min(std::max(content.columns + around, least + around), all.columns);
    const int rows = std::min(content.rows + 2, all.rows);
    return {(all.columns - columns) / 2, (all.rows - rows) / 2, columns, rows};
}

Rect TerminalWindow::innerRect(const Rect &outer) const {
    if (shape_ == Shape::box) {
        return {outer.column + 2, outer.row + 1, outer.columns - 4, outer.rows - 2};
    }
    const int left = outer.columns >= leastColumnsForMargin ? 1 : 0;
    const int title = outer.rows + 1 >= leastRowsForLines ? 1 : 0;
    return {outer.column + left, outer.row + title, outer.columns - left - 1, outer.rows - title};
}

void TerminalWindow::paint(CellGrid &grid, bool isActive) {
    const Rect outer = outerRect(grid.size());
    Canvas canvas(grid, outer);
    // Nothing is below a window that fills the terminal.
    if (!fillsTerminal()) {
        canvas.fill(outer);
    }
    paintAround(canvas, outer);
    arrange(innerRect(outer));
    keepFocusInView();
    for (const Placed &placed : arrangement_.placed) {
        auto *view = static_cast<ControlView *>(placed.control);
        const bool hasFocus = isActive && focus() == &view->element();
        Canvas visible = canvas.within(placed.inPane ? arrangement_.pane : outer);
        view->paint(visible, onScreen(placed),
                    {hasFocus, buttonOfEnter() == &view->element(), arrangement_.economy});
    }
    const Rect &pane = arrangement_.pane;
    if (arrangement_.contentRows > pane.rows) {
        canvas.scrollBar({pane.column + pane.columns, pane.row}, pane.rows, paneTop_, pane.rows,
                         arrangement_.contentRows);
    }
    if (isActive) {
        paintStatus(grid);
    }
}

/// Lays out anew only when a size can have changed: most keys change none.
void TerminalWindow::arrange(const Rect &room) {
    std::u16string sizes;
    const auto add = [&sizes](int size) { sizes += static_cast<char16_t>(size); };
    for (const auto &[element, view] : views_) {
        const std::u16string_view caption = element->accessCaption();
        add(view->isShown() ? 1 : 0);
        if (caption.empty()) {
            add(view->columns().natural);
            add(view->rows(room.columns, Economy::none).natural);
        } else {
            add(static_cast<int>(caption.size()));
            sizes += caption;
        }
    }
    if (room != arrangedRoom_ || sizes != arrangedSizes_) {
        arrangement_ = layout_.arrange(room);
        arrangedRoom_ = room;
        arrangedSizes_ = std::move(sizes);
    }
}

void TerminalWindow::paintAround(Canvas &canvas, const Rect &outer) {
    const Style style{.bold = true, .reverse = shape_ == Shape::window};
    closeMark_ = {};
    if (shape_ == Shape::box) {
        canvas.border(outer, caption());
    } else if (outer.rows + 1 >= leastRowsForLines) {
        canvas.fill({outer.column, outer.row, outer.columns, 1}, style);
        canvas.put({outer.column + 1, outer.row}, caption(), style);
    } else {
        return;
    }
    if (desktop_.hasMouse()) {
        const int columns = static_cast<int>(closeText.size());
        closeMark_ = {outer.column + outer.columns - columns - 1, outer.row, columns, 1};
        canvas.put({closeMark_.column, closeMark_.row}, closeText, style);
    }
}

void TerminalWindow::paintStatus(CellGrid &grid) const {
    if (grid.size().rows < leastRowsForLines) {
        return;
    }
    const Rect line{0, grid.size().rows - 1, grid.size().columns, 1};
    Canvas canvas(grid, line);
    canvas.fill(line);
    // A box offers no further help.
    const std::u16string_view help = shape_ == Shape::window ? helpText : std::u16string_view();
    const int room = line.columns - 2 - static_cast<int>(help.size());
    canvas.put({1, line.row}, statusLine(room - 2));
    canvas.put({1 + room, line.row}, help, {.dim = true});
}

Rect TerminalWindow::onScreen(const Placed &placed) const {
    Rect at = placed.at;
    if (placed.inPane) {
        at.column += arrangement_.pane.column;
        at.row += arrangement_.pane.row - paneTop_;
    }
    return at;
}

Rect TerminalWindow::visiblePart(const Placed &placed) const {
    const Rect at = onScreen(placed);
    return placed.inPane ? intersection(at, arrangement_.pane) : at;
}

const Placed *TerminalWindow::placed(std::u16string_view control) const {
    const ControlView *view = viewOf(element(control));
    const auto found = std::ranges::find(arrangement_.placed, view, &Placed::control);
    return view == nullptr || found == arrangement_.placed.end() ? nullptr : &*found;
}

std::optional<Rect> TerminalWindow::seenAt(std::u16string_view control) const {
    const Placed *found = placed(control);
    const Rect seen = found != nullptr ? visiblePart(*found) : Rect();
    return seen.columns > 0 && seen.rows > 0 ? std::optional(seen) : std::nullopt;
}

int TerminalWindow::heightOf(std::u16string_view control) const {
    const Placed *found = placed(control);
    return found != nullptr ? found->at.rows : 0;
}

/// Scrolls the pane to the focus and, where there is room, to the labels around it: no key leads to
/// them.
void TerminalWindow::keepFocusInView() {
    const int rows = arrangement_.pane.rows;
    const auto isFocus = [this](const Placed &placed) {
        return placed.inPane && placed.control == viewOf(focus());
    };
    const auto found = std::ranges::find_if(arrangement_.placed, isFocus);
    if (followsFocus_ && focus() != nullptr && found != arrangement_.placed.end()) {
        const int from = found->at.row;
        const int to = from + found->at.rows;
        int before = 0;
        int after = arrangement_.contentRows;
        for (const Placed &placed : arrangement_.placed) {
            const auto *view = static_cast<const ControlView *>(placed.control);
            if (placed.inPane && view->element().isUsable() && view->element().takesFocus()) {
                const int end = placed.at.row + placed.at.rows;
                before = end <= from ? std::max(before, end) : before;
                after = placed.at.row >= to ? std::min(after, placed.at.row) : after;
            }
        }
        const auto show = [&](int first, int end) {
            paneTop_ = std::min(std::max(paneTop_, end - rows), first);
        };
        show(from, after);
        show(before, to);
        show(from, to);
    }
    paneTop_ = std::clamp(paneTop_, 0, std::max(arrangement_.contentRows - rows, 0));
}

bool TerminalWindow::scrollPane(int rows) {
    const int last = std::max(arrangement_.contentRows - arrangement_.pane.rows, 0);
    const int before = std::exchange(paneTop_, std::clamp(paneTop_ + rows, 0, last));
    followsFocus_ = false;
    return before != paneTop_;
}

} // namespace kvex::terminal
