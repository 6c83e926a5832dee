// A list of rows, and the user's actions on it.
#pragma once

#include "adapters/controls/ListRows.h"
#include "adapters/controls/ListSearch.h"
#include "adapters/lightweight/LightControl.h"
#include "adapters/lightweight/RowSelector.h"
#include "adapters/lightweight/VisibleRows.h"

#include <chrono>
#include <optional>

namespace kvex::lightweight {

class LightListView final : public LightControl<controls::ListRows>,
                            private controls::ListRowsListener {
public:
    LightListView(LightWindow *window, const ControlDesign &design);

    /// The row from which keys go on; 0 if there is none. It need not be selected.
    [[nodiscard]] int currentRow() const { return selector_.current(); }
    [[nodiscard]] const VisibleRows &visibleRows() const { return visible_; }
    /// For a greyed current row, also what that means.
    [[nodiscard]] std::u16string status() const override;
    /// The view has room for so many rows. A current row that was visible stays so.
    void setPage(int rows);
    /// The mouse wheel turns.
    void scrollBy(int rows);

    /// Clicks the area without rows, which deselects all rows.
    void clickBesideRows();
    /// The row must exist. The second one is a click with Ctrl, the third one with Shift.
    void clickRow(int row);
    void toggleRow(int row);
    void extendTo(int row);
    void doubleClickRow(int row);
    /// The second click of a double click, after clickRow.
    void clickRowAgain(int row);
    /// The list must have check boxes.
    void tickRow(int row);
    bool press(Key key) override;
    bool type(std::u16string_view cluster) override;
    void enteredByTab() override;
    void focusLost() override { search_.end(); }

private:
    void aboutToInsertRow(int) override {}
    void rowInserted() override { rowsChanged(); }
    void aboutToRemoveRow(int) override {}
    void rowRemoved() override { rowsChanged(); }
    void aboutToReorder() override {}
    void reordered() override { rowsChanged(); }
    void aboutToReset() override {}
    void reset() override;
    void rowChanged(int) override { tellChange(); }
    void columnIconChanged(int) override { tellChange(); }
    void selectionChanged() override { rowsChanged(); }
    void rowSelectedByCode(int row) override { visible_.bringIntoView(row); }

    void rowsChanged();
    void pick(int row);
    void walkTo(int row);
    bool walk(Key key);
    [[nodiscard]] std::optional<int> rowAfter(Key key) const;
    void useCurrentRow();
    void selectAll();
    void endSearchAfterPause();

    /// Any other action of the user ends the search, and so does a pause.
    controls::ListSearch search_{*this};
    std::chrono::steady_clock::time_point searchedAt_;
    RowSelector selector_{*this};
    VisibleRows visible_;
};

} // namespace kvex::lightweight
