// A list of rows, and what a user does to one.
#pragma once

#include "adapters/controls/ListRows.h"
#include "adapters/controls/ListSearch.h"
#include "adapters/headless/HeadlessControl.h"

namespace kvex::headless {

class HeadlessListView final : public HeadlessControl<controls::ListRows> {
public:
    HeadlessListView(HeadlessWindow *window, const ControlDesign &design)
        : HeadlessControl(window, design, design.multiSelect) {}

    /// On the area without rows, which deselects all.
    void clickBesideRows();
    /// `row` is one of the rows.
    void clickRow(int row);
    void doubleClickRow(int row);
    /// The list has check boxes.
    void tickRow(int row);
    bool press(Key key) override;
    bool type(std::u16string_view character) override;
    void enteredByTab() override;
    void focusLost() override { search_.end(); }

private:
    void pick(int row);
    void walkTo(int row);

    /// No clock ends it: what the user does else does.
    controls::ListSearch search_{*this};
};

} // namespace kvex::headless
