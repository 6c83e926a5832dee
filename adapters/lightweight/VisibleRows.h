// Which rows of a list its view shows.
#pragma once

#include "platform/controls/ListView.h"

#include <algorithm>

namespace kvex::lightweight {

class VisibleRows {
public:
    /// `rows` must outlive it. `size` is how many rows the view shows.
    VisibleRows(const ListView &rows, int size) : rows_(rows), size_(size) {}

    [[nodiscard]] int size() const { return size_; }
    void setSize(int size) { size_ = std::max(size, 1); }

    /// The first row that the view shows; 1 for an empty list.
    [[nodiscard]] int first() const {
        return std::clamp(first_, 1, std::max(rows_.rowCount() - size_ + 1, 1));
    }
    [[nodiscard]] bool contains(int row) const { return row >= first() && row < first() + size_; }
    /// Scrolls no further than needed.
    void bringIntoView(int row) { first_ = std::clamp(first(), row - size_ + 1, std::max(row, 1)); }
    void scrollBy(int rows) {
        first_ = first() + rows;
        first_ = first();
    }
    void scrollToTop() { first_ = 1; }

private:
    const ListView &rows_;
    int size_;
    int first_ = 1;
};

} // namespace kvex::lightweight
