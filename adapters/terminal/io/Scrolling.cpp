#include "adapters/terminal/io/Scrolling.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace kvex::terminal {
namespace {

/// A line that leaves the screen at its top would go to the lines that the user can scroll back to.
constexpr int firstRow = 1;
/// An arrow key moves a list by one line, a wheel by up to three.
constexpr int mostLines = 3;
/// Scrolling takes fewer bytes than these cells.
constexpr int leastSaved = 30;
/// When fewer lines have changed, they are written without a search.
constexpr int leastChangedRows = 3;

struct Saving {
    int cells = 0;
    Scrolling scrolling;
};

class Screens {
public:
    Screens(std::span<const Cell> shown, std::span<const Cell> wanted, Size size)
        : shown_(shown), wanted_(wanted), size_(size) {
        for (int row = 0; row < size.rows; ++row) {
            differing_.push_back(differences(lineOf(shown_, row), lineOf(wanted_, row)));
        }
    }

    [[nodiscard]] int changedRows() const {
        return static_cast<int>(
            std::ranges::count_if(differing_, [](int many) { return many > 0; }));
    }

    /// What the best scrolling by so many lines saves.
    [[nodiscard]] Saving bestOf(int lines) const {
        Saving best;
        const int above = std::max(lines, 0);
        const int below = std::max(-lines, 0);
        int saved = 0;
        int first = firstRow + below;
        for (int row = first; row < size_.rows - above; ++row) {
            if (saved <= 0) {
                saved = 0;
                first = row;
            }
            saved +=
                differingAt(row) - differences(lineOf(shown_, row + lines), lineOf(wanted_, row));
            if (saved > best.cells) {
                best = {saved, {first - below, row + above, lines}};
            }
        }
        const auto &[top, bottom, by] = best.scrolling;
        const int blankRow = by > 0 ? bottom - by + 1 : top;
        for (int row = blankRow; row < blankRow + std::abs(by); ++row) {
            best.cells += differingAt(row) - notBlank(lineOf(wanted_, row));
        }
        return best;
    }

private:
    [[nodiscard]] std::span<const Cell> lineOf(std::span<const Cell> screen, int row) const {
        const auto columns = static_cast<std::size_t>(size_.columns);
        return screen.subspan(static_cast<std::size_t>(row) * columns, columns);
    }
    [[nodiscard]] static int differences(std::span<const Cell> some, std::span<const Cell> others) {
        if (sameCells(some, others)) {
            return 0;
        }
        int count = 0;
        for (std::size_t at = 0; at < some.size(); ++at) {
            count += some[at] == others[at] ? 0 : 1;
        }
        return count;
    }
    [[nodiscard]] static int notBlank(std::span<const Cell> line) {
        return static_cast<int>(
            std::ranges::count_if(line, [](const Cell &cell) { return cell != Cell(); }));
    }
    [[nodiscard]] int differingAt(int row) const {
        return differing_[static_cast<std::size_t>(row)];
    }

    std::span<const Cell> shown_;
    std::span<const Cell> wanted_;
    Size size_;
    /// The cells of each row that differ.
    std::vector<int> differing_;
};

} // namespace

std::optional<Scrolling> scrollingBetween(std::span<const Cell> shown, std::span<const Cell> wanted,
                                          Size size) {
    const Screens screens(shown, wanted, size);
    if (screens.changedRows() < leastChangedRows) {
        return std::nullopt;
    }
    Saving best{leastSaved, {}};
    for (int lines = 1; lines <= mostLines; ++lines) {
        for (const int direction : {1, -1}) {
            const Saving other = screens.bestOf(direction * lines);
            best = other.cells > best.cells ? other : best;
        }
    }
    return best.scrolling.lines == 0 ? std::nullopt : std::optional(best.scrolling);
}

} // namespace kvex::terminal
