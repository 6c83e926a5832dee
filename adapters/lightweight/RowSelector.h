// How a user selects rows of a list: one, several, or a range.
#pragma once

#include "adapters/controls/ListRows.h"

namespace kvex::lightweight {

/// No step costs more for a longer list, apart from the rows that it selects or deselects.
class RowSelector {
public:
    /// `rows` must outlive it.
    explicit RowSelector(controls::ListRows &rows) : rows_(rows) {}

    /// The row from which keys go on; 0 while no row is selected. It is the row that was selected
    /// last, unless the user left it without selecting another one.
    [[nodiscard]] int current() const;

    /// Selects this row alone.
    void select(int row);
    /// Goes to the row and selects nothing. At least one row must be selected.
    void goTo(int row);
    /// Selects the row besides the others, or deselects it. Then it is where a range begins.
    void toggle(int row);
    /// Selects from where the range began to this row, and nothing else.
    void extendTo(int row);
    void selectAll();

    /// Call it when rows or their selection have changed. Changes by this object do not count.
    void forget();

private:
    controls::ListRows &rows_;
    /// The current row if it is not the one that was selected last; 0 otherwise.
    int current_ = 0;
    /// Where the range began; 0 at the current row.
    int anchor_ = 0;
    /// The range is exactly what is selected.
    bool isRange_ = false;
    bool isActing_ = false;
};

} // namespace kvex::lightweight
