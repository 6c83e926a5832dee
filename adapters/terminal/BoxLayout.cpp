#include "adapters/terminal/BoxLayout.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace kvex::terminal {
namespace {

constexpr int columnsBetween = 1;

bool hasScrolling(const Layout &layout) {
    return layout.scrolls || std::ranges::any_of(layout.pieces, hasScrolling);
}

/// One piece of a box along the box's direction.
struct Part {
    Extent extent;
    int stretch;
    bool grows;
};

int leastOf(const std::vector<Part> &parts) {
    return std::accumulate(parts.begin(), parts.end(), 0,
                           [](int sum, const Part &part) { return sum + part.extent.least; });
}

/// Adds `room` to the sizes in proportion to the weights, down to the last cell.
void spread(int room, const std::vector<int> &weights, std::vector<int> &sizes) {
    int weightLeft = std::accumulate(weights.begin(), weights.end(), 0);
    for (std::size_t at = 0; at < sizes.size() && weightLeft > 0; ++at) {
        const int share = room * weights[at] / weightLeft;
        sizes[at] += share;
        room -= share;
        weightLeft -= weights[at];
    }
}

/// The sizes of the parts in this room. Each part gets its least size even if the room is smaller.
std::vector<int> sizesOf(const std::vector<Part> &parts, int room) {
    std::vector<int> sizes;
    std::vector<int> wishes;
    std::vector<int> stretches;
    std::vector<int> growing;
    for (const Part &part : parts) {
        sizes.push_back(part.extent.least);
        wishes.push_back(std::max(part.extent.natural - part.extent.least, 0));
        stretches.push_back(part.stretch);
        growing.push_back(part.grows ? 1 : 0);
    }
    const int spare = std::max(room - leastOf(parts), 0);
    const int wished = std::accumulate(wishes.begin(), wishes.end(), 0);
    spread(std::min(spare, wished), wishes, sizes);
    const bool isStretched =
        std::ranges::any_of(stretches, [](int stretch) { return stretch > 0; });
    spread(std::max(spare - wished, 0), isStretched ? stretches : growing, sizes);
    return sizes;
}

/// Arranges a layout for one economy.
class Arranger {
public:
    Arranger(const BoxLayout::Find &find, Economy economy) : find_(find) {
        result_.economy = economy;
    }

    [[nodiscard]] Extent columnsOf(const Layout &layout) const;
    [[nodiscard]] Extent rowsOf(const Layout &layout, int columns) const;
    void place(const Layout &layout, const Rect &at);
    [[nodiscard]] Arrangement result() && { return std::move(result_); }

private:
    /// What a surrounding frame takes on each side.
    [[nodiscard]] int frameColumns() const { return hasFrames() ? 2 : 0; }
    [[nodiscard]] int frameRows() const { return hasFrames() ? 1 : 0; }
    [[nodiscard]] bool hasFrames() const { return result_.economy < Economy::noFrames; }

    [[nodiscard]] bool isShown(const Layout &layout) const;
    [[nodiscard]] bool grows(const Layout &layout, bool (Placeable::*way)() const) const;
    [[nodiscard]] bool startsSection(const Layout &layout) const;
    [[nodiscard]] std::vector<const Layout *> shownPieces(const Layout &box) const;
    [[nodiscard]] std::vector<Part> across(const std::vector<const Layout *> &pieces) const;
    [[nodiscard]] std::vector<Part> down(const std::vector<const Layout *> &pieces,
                                         int columns) const;
    /// The widths of a row's pieces, or none if they must stand below each other.
    [[nodiscard]] std::vector<int> widthsOf(const std::vector<const Layout *> &pieces,
                                            int columns) const;
    [[nodiscard]] bool hasGap(const Layout &box, const Layout &before, const Layout &after) const;
    [[nodiscard]] int gapsIn(const Layout &box) const;

    void placeControl(const Layout &layout, const Rect &at);
    void placeAcross(const Layout &box, const std::vector<int> &widths, const Rect &at);
    void placeDown(const Layout &box, const Rect &at);
    void placePane(const Layout &box, const Rect &at);

    const BoxLayout::Find &find_;
    Arrangement result_;
    bool inPane_ = false;
};

bool Arranger::isShown(const Layout &layout) const {
    if (layout.kind == Layout::Kind::control) {
        const Placeable *control = find_(layout.control);
        return control != nullptr && control->isShown();
    }
    return std::ranges::any_of(layout.pieces,
                               [this](const Layout &piece) { return isShown(piece); });
}

bool Arranger::grows(const Layout &layout, bool (Placeable::*way)() const) const {
    if (layout.kind == Layout::Kind::control && layout.pieces.empty()) {
        return (find_(layout.control)->*way)();
    }
    return std::ranges::any_of(
        layout.pieces, [&](const Layout &piece) { return isShown(piece) && grows(piece, way); });
}

bool Arranger::startsSection(const Layout &layout) const {
    if (layout.kind == Layout::Kind::control) {
        return find_(layout.control)->startsSection();
    }
    const auto first =
        std::ranges::find_if(layout.pieces, [this](const Layout &piece) { return isShown(piece); });
    return layout.kind == Layout::Kind::row && first != layout.pieces.end() &&
           startsSection(*first);
}

std::vector<const Layout *> Arranger::shownPieces(const Layout &box) const {
    std::vector<const Layout *> shown;
    for (const Layout &piece : box.pieces) {
        if (piece.kind == Layout::Kind::spring || isShown(piece)) {
            shown.push_back(&piece);
        }
    }
    return shown;
}

std::vector<Part> Arranger::across(const std::vector<const Layout *> &pieces) const {
    std::vector<Part> parts;
    parts.reserve(pieces.size());
    for (const Layout *piece : pieces) {
        parts.push_back(
            {columnsOf(*piece), piece->stretch, grows(*piece, &Placeable::growsAcross)});
    }
    for (std::size_t at = 1; at < parts.size(); ++at) {
        const bool isGap = pieces[at]->kind != Layout::Kind::spring;
        parts[at].extent.least += isGap ? columnsBetween : 0;
        parts[at].extent.natural += isGap ? columnsBetween : 0;
    }
    return parts;
}

std::vector<Part> Arranger::down(const std::vector<const Layout *> &pieces, int columns) const {
    std::vector<Part> parts;
    parts.reserve(pieces.size());
    for (const Layout *piece : pieces) {
        parts.push_back(
            {rowsOf(*piece, columns), piece->stretch, grows(*piece, &Placeable::growsDown)});
        if (piece->scrolls) {
            parts.back().extent.least = 0;
        }
    }
    return parts;
}

std::vector<int> Arranger::widthsOf(const std::vector<const Layout *> &pieces, int columns) const {
    const std::vector<Part> parts = across(pieces);
    return leastOf(parts) <= columns ? sizesOf(parts, columns) : std::vector<int>();
}

/// A heading of several labels stays together.
bool Arranger::hasGap(const Layout &box, const Layout &before, const Layout &after) const {
    return result_.economy == Economy::none && box.scrolls && startsSection(after) &&
           !startsSection(before);
}

int Arranger::gapsIn(const Layout &box) const {
    const auto pieces = shownPieces(box);
    int gaps = 0;
    for (std::size_t at = 1; at < pieces.size(); ++at) {
        gaps += hasGap(box, *pieces[at - 1], *pieces[at]) ? 1 : 0;
    }
    return gaps;
}

/// A spring asks for none, and so does a box without pieces.
Extent Arranger::columnsOf(const Layout &layout) const {
    if (layout.kind == Layout::Kind::control && layout.pieces.empty()) {
        return find_(layout.control)->columns();
    }
    Extent extent;
    if (layout.kind == Layout::Kind::row) {
        for (const Part &part : across(shownPieces(layout))) {
            extent.least = std::max(extent.least, part.extent.least);
            extent.natural += part.extent.natural;
        }
        return extent;
    }
    for (const Layout *piece : shownPieces(layout)) {
        const Extent inner = columnsOf(*piece);
        extent.least = std::max(extent.least, inner.least);
        extent.natural = std::max(extent.natural, inner.natural);
    }
    const int frame = layout.kind == Layout::Kind::control ? 2 * frameColumns() : 0;
    return {extent.least + frame, extent.natural + frame};
}

Extent Arranger::rowsOf(const Layout &layout, int columns) const {
    const auto pieces = shownPieces(layout);
    Extent extent;
    if (layout.kind == Layout::Kind::control && layout.pieces.empty()) {
        return find_(layout.control)->rows(columns, result_.economy);
    }
    if (layout.kind == Layout::Kind::row) {
        if (const auto widths = widthsOf(pieces, columns); !widths.empty()) {
            for (std::size_t at = 0; at < pieces.size(); ++at) {
                const int gap = at > 0 ? columnsBetween : 0;
                const Extent piece = rowsOf(*pieces[at], widths[at] - gap);
                extent.least = std::max(extent.least, piece.least);
                extent.natural = std::max(extent.natural, piece.natural);
            }
            return extent;
        }
    }
    const bool isFrame = layout.kind == Layout::Kind::control;
    for (const Part &part : down(pieces, columns - (isFrame ? 2 * frameColumns() : 0))) {
        extent.least += part.extent.least;
        extent.natural += part.extent.natural;
    }
    const int more = gapsIn(layout) + (isFrame ? 2 * frameRows() : 0);
    return {extent.least + more, extent.natural + more};
}

void Arranger::place(const Layout &layout, const Rect &at) {
    switch (layout.kind) {
    case Layout::Kind::control:
        placeControl(layout, at);
        break;
    case Layout::Kind::row:
        if (const auto widths = widthsOf(shownPieces(layout), at.columns); !widths.empty()) {
            placeAcross(layout, widths, at);
            break;
        }
        [[fallthrough]];
    case Layout::Kind::column:
        if (layout.scrolls) {
            placePane(layout, at);
        } else {
            placeDown(layout, at);
        }
        break;
    case Layout::Kind::spring:
        break;
    }
}

void Arranger::placeControl(const Layout &layout, const Rect &at) {
    Placeable *control = find_(layout.control);
    if (!layout.pieces.empty()) {
        result_.placed.push_back({control, at, inPane_});
        placeDown(layout, {at.column + frameColumns(), at.row + frameRows(),
                           at.columns - 2 * frameColumns(), at.rows - 2 * frameRows()});
        return;
    }
    Rect own = at;
    if (!control->growsDown()) {
        own.rows = std::min(own.rows, control->rows(own.columns, result_.economy).natural);
    }
    result_.placed.push_back({control, own, inPane_});
}

void Arranger::placeAcross(const Layout &box, const std::vector<int> &widths, const Rect &at) {
    const auto pieces = shownPieces(box);
    int column = at.column;
    for (std::size_t piece = 0; piece < pieces.size(); ++piece) {
        const int gap = piece > 0 ? columnsBetween : 0;
        place(*pieces[piece], {column + gap, at.row, widths[piece] - gap, at.rows});
        column += widths[piece];
    }
}

void Arranger::placeDown(const Layout &box, const Rect &at) {
    const auto pieces = shownPieces(box);
    const auto heights = sizesOf(down(pieces, at.columns), at.rows - gapsIn(box));
    int row = at.row;
    for (std::size_t piece = 0; piece < pieces.size(); ++piece) {
        row += piece > 0 && hasGap(box, *pieces[piece - 1], *pieces[piece]) ? 1 : 0;
        place(*pieces[piece], {at.column, row, at.columns, heights[piece]});
        row += heights[piece];
    }
}

void Arranger::placePane(const Layout &box, const Rect &at) {
    result_.pane = at;
    result_.contentRows = std::max(at.rows, rowsOf(box, at.columns).least);
    inPane_ = true;
    placeDown(box, {0, 0, at.columns, result_.contentRows});
    inPane_ = false;
}

} // namespace

BoxLayout::BoxLayout(Layout layout, Find find)
    : layout_(hasScrolling(layout) ? std::move(layout) : scrolling({std::move(layout)})),
      find_(std::move(find)) {}

Arrangement BoxLayout::arrange(const Rect &room) const {
    constexpr std::array steps{Economy::none, Economy::noGaps, Economy::noListFrames,
                               Economy::noFrames};
    const auto fits = [&](Economy economy) {
        return Arranger(find_, economy).rowsOf(layout_, room.columns).natural <= room.rows;
    };
    const auto found = std::ranges::find_if(steps, fits);
    Arranger arranger(find_, found == steps.end() ? steps.back() : *found);
    arranger.place(layout_, room);
    return std::move(arranger).result();
}

Size BoxLayout::naturalSize(int mostColumns) const {
    const Arranger arranger(find_, Economy::none);
    const int columns = std::min(arranger.columnsOf(layout_).natural, mostColumns);
    return {columns, arranger.rowsOf(layout_, columns).natural};
}

} // namespace kvex::terminal
