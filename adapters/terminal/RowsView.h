// A list of rows in columns. It reads only the rows that are visible.
#pragma once

#include "adapters/lightweight/LightListView.h"
#include "adapters/terminal/ControlView.h"

#include <string_view>
#include <vector>

namespace kvex::terminal {

class RowsView final : public ControlView {
public:
    RowsView(lightweight::LightListView &list, Ability ability, std::vector<Picture> pictures)
        : ControlView(list, ability), list_(list), pictures_(std::move(pictures)) {}

    [[nodiscard]] Extent columns() const override;
    [[nodiscard]] Extent rows(int columns, Economy economy) const override;
    [[nodiscard]] bool growsAcross() const override { return true; }
    [[nodiscard]] bool growsDown() const override { return true; }

    void paint(Canvas &canvas, const Rect &at, const Look &look) override;
    void click(Point at, bool twice) override;
    bool scroll(int rows) override;
    /// Left and Right move texts that are wider than their columns.
    bool press(lightweight::Key key) override;

private:
    /// A visible column: its number, and where it stands in the list.
    struct Slot {
        int column;
        int from;
        int columns;
    };

    [[nodiscard]] int headerRows() const;
    [[nodiscard]] std::vector<Slot> slots(int columns) const;
    [[nodiscard]] std::u16string_view prefixOf(int row) const;
    [[nodiscard]] std::u16string_view pictureOf(int icon) const;
    void paintHeader(Canvas &canvas, const Rect &at, const std::vector<Slot> &slots) const;
    void paintRow(Canvas &canvas, const Rect &at, const std::vector<Slot> &slots, int row,
                  bool hasFocus) const;
    void paintEmptyText(Canvas &canvas, const Rect &at) const;
    void showPartAt(int place);
    [[nodiscard]] bool isCutOnTheRight() const;

    lightweight::LightListView &list_;
    std::vector<Picture> pictures_;
    /// The rows below the header, as painted last.
    Rect shown_{};
    /// How many columns of a text that is wide enough are out of view on the left.
    int shift_ = 0;
};

} // namespace kvex::terminal
