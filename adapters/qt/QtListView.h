// A list view: the rows that every toolkit shares, shown by a tree view without branches.
#pragma once

#include "adapters/controls/ListRows.h"
#include "adapters/controls/ListSearch.h"
#include "adapters/qt/ControlWidget.h"
#include "adapters/qt/ListModel.h"
#include "adapters/qt/ListTree.h"

#include <vector>

namespace kvex::qt {

class QtListView final : public WidgetControl<controls::ListRows, ListTree>,
                         private controls::ListRowsListener {
public:
    /// `pictures`: of the image list that the design names.
    QtListView(const ControlDesign &design, const std::u16string &window, QWidget &parent,
               const std::vector<Picture> &pictures);
    ~QtListView() override { setListener(nullptr); }

private:
    void aboutToInsertRow(int row) override;
    void rowInserted() override;
    void aboutToRemoveRow(int row) override;
    void rowRemoved() override;
    void aboutToReorder() override;
    void reordered() override;
    void aboutToReset() override;
    void reset() override;
    void rowChanged(int row) override;
    void columnIconChanged(int column) override { model_.columnIconChanged(column); }
    void selectionChanged() override { showSelection(); }
    void rowSelectedByCode(int row) override;

    void settle();
    void showSelection();
    void takeSelection(const QItemSelection &selected, const QItemSelection &deselected);
    void tellPicked();
    void tick(int row, bool checked);
    void divideWidth();

    ListModel model_;
    controls::ListSearch search_{*this};
    /// Rows come before the view is shown: it learns of them all at once, when it is to show them.
    bool filling_ = false;
    /// The view's selection is made to follow the rows', not the other way round.
    bool showing_ = false;
    /// The rows' selection is made to follow the view's.
    bool taking_ = false;
};

} // namespace kvex::qt
