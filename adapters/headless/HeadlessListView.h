// A list of rows, and what a user does to one.
#pragma once

#include "adapters/controls/ListRows.h"
#include "adapters/headless/HeadlessControl.h"

namespace kvex::headless {

class HeadlessListView final : public HeadlessControl<controls::ListRows> {
public:
    HeadlessListView(HeadlessWindow *window, const ControlDesign &design)
        : HeadlessControl(window, design, design.multiSelect) {}

    /// Takes the selection from every row.
    void clickBesideRows();
    /// `row` is one of the rows.
    void clickRow(int row);
    void doubleClickRow(int row);
    /// The list has check boxes.
    void tickRow(int row);
    bool press(Key key) override;

private:
    void moveTo(int row);
};

} // namespace kvex::headless
