// A list of rows, and the user's actions on it.
#pragma once

#include "adapters/controls/ListRows.h"
#include "adapters/controls/ListSearch.h"
#include "adapters/headless/HeadlessControl.h"

namespace kvex::headless {

class HeadlessListView final : public HeadlessControl<controls::ListRows> {
public:
    HeadlessListView(HeadlessWindow *window, const ControlDesign &design)
        : HeadlessControl(window, design, design.multiSelect) {}

    /// Clicks the area without rows, which deselects all rows.
    void clickBesideRows();
    /// The row must exist.
    void clickRow(int row);
    void doubleClickRow(int row);
    /// The list must have check boxes.
    void tickRow(int row);
    bool press(Key key) override;
    bool type(std::u16string_view character) override;
    void enteredByTab() override;
    void focusLost() override { search_.end(); }

private:
    void pick(int row);
    void walkTo(int row);

    /// Any other action of the user ends the search. There is no time limit.
    controls::ListSearch search_{*this};
};

} // namespace kvex::headless
