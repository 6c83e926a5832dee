// A list view: the rows that all toolkits share, in a tree view without branches.
#pragma once

#include "adapters/controls/ListRows.h"
#include "adapters/controls/ListSearch.h"
#include "adapters/qt/ListModel.h"
#include "adapters/qt/ListTree.h"
#include "adapters/qt/QtControl.h"

#include <vector>

namespace kvex::qt {

class QtListView final : public QtControl<controls::ListRows, ListTree>,
                         private controls::ListRowsListener {
public:
    /// `pictures` is the image list that the design names.
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
    void divideWidth();

    ListModel model_;
    controls::ListSearch search_{*this};
    /// True while rows are added before the view is shown. settle() then reports all of them to the
    /// view at once.
    bool filling_ = false;
    /// The view's selection is being set from the rows' selection.
    bool showing_ = false;
    /// The rows' selection is being set from the view's selection.
    bool taking_ = false;
};

} // namespace kvex::qt
