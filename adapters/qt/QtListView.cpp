#include "adapters/qt/QtListView.h"

#include "adapters/qt/QText.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScopedValueRollback>

namespace kvex::qt {
namespace {

template <class Action> void forEachRow(const QItemSelection &selection, Action action) {
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            action(row + 1);
        }
    }
}

} // namespace

QtListView::QtListView(const ControlDesign &design, const std::u16string &window, QWidget &parent,
                       const std::vector<Picture> &pictures)
    : QtControl(design, window, *new ListTree(&parent, design.columns, design.lines),
                design.multiSelect),
      model_(*this, design, pictures) {
    ListTree &tree = shown();
    tree.setHeaderHidden(!design.columnHeaders);
    tree.setModel(&model_);
    tree.setEmptyText(toQt(design.emptyText));
    tree.setSearch(search_);
    if (design.startsAtFirstRow) {
        tree.startAtFirstRow();
    }
    // With the rows' selection model, each change of the selection would repaint the header.
    tree.header()->setSelectionModel(new QItemSelectionModel(&model_, tree.header()));
    setListener(this);

    model_.ticked = [&tree](int row) { tree.noteTick(row); };
    tree.beforeAction = [this] {
        shown().setSelectionMode(multiSelect() ? QTreeView::ExtendedSelection
                                               : QTreeView::SingleSelection);
    };
    tree.rowTicked = [this](int row) { run(onItemCheck, row + 1); };
    tree.rowPicked = [this] { tellPicked(); };
    tree.rowDoubleClicked = [this] { run(onDoubleClick); };
    tree.resized = [this] { divideWidth(); };
    tree.aboutToShow = [this] { settle(); };
    QObject::connect(tree.selectionModel(), &QItemSelectionModel::selectionChanged, &tree,
                     [this](const auto &selected, const auto &deselected) {
                         takeSelection(selected, deselected);
                     });
}

void QtListView::aboutToInsertRow(int row) {
    if (filling_) {
        return;
    }
    showing_ = true;
    if (shown().isVisible()) {
        model_.aboutToInsertRow(row);
    } else {
        filling_ = true;
        model_.aboutToReset();
    }
}

void QtListView::rowInserted() {
    if (!filling_) {
        model_.rowInserted();
        showing_ = false;
    }
}

void QtListView::aboutToRemoveRow(int row) {
    settle();
    showing_ = true;
    model_.aboutToRemoveRow(row);
}

void QtListView::rowRemoved() {
    model_.rowRemoved();
    showSelection();
}

void QtListView::aboutToReorder() {
    if (filling_) {
        return;
    }
    showing_ = true;
    shown().selectionModel()->clear();
    model_.aboutToReorder();
}

void QtListView::reordered() {
    if (!filling_) {
        model_.reordered();
        showSelection();
    }
}

void QtListView::aboutToReset() {
    settle();
    showing_ = true;
    model_.aboutToReset();
}

void QtListView::reset() {
    model_.reset();
    divideWidth();
    showSelection();
}

void QtListView::rowChanged(int row) {
    if (!filling_) {
        model_.rowChanged(row);
    }
}

void QtListView::rowSelectedByCode(int row) {
    settle();
    if (!taking_) {
        shown().scrollTo(model_.index(row - 1, 0));
    }
}

/// Reports to the view the rows that were added before it was shown.
void QtListView::settle() {
    if (filling_) {
        filling_ = false;
        model_.reset();
        showSelection();
    }
}

/// Copies the rows' selection to the view.
void QtListView::showSelection() {
    if (taking_ || filling_) {
        return;
    }
    showing_ = true;
    QItemSelection all;
    const int current = selectedRow();
    if (multiSelect() && current > 0) {
        for (int row = 1; row <= rowCount(); ++row) {
            if (selected(row)) {
                const QModelIndex index = model_.index(row - 1, 0);
                all.select(index, index);
            }
        }
    } else if (current > 0) {
        const QModelIndex index = model_.index(current - 1, 0);
        all.select(index, index);
    }
    QItemSelectionModel &selection = *shown().selectionModel();
    if (current > 0) {
        selection.setCurrentIndex(model_.index(current - 1, 0), QItemSelectionModel::NoUpdate);
    }
    selection.select(all, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    shown().keepCurrentSelected();
    showing_ = false;
}

/// Copies the view's selection, which the user changed, to the rows.
void QtListView::takeSelection(const QItemSelection &selected, const QItemSelection &deselected) {
    if (showing_) {
        return;
    }
    const QScopedValueRollback<bool> taking(taking_, true);
    const QItemSelection now = shown().selectionModel()->selection();
    if (now.size() == 1 && now.front().height() == 1) {
        // One step is enough, even if thousands of rows were selected before.
        selectOnly(now.front().top() + 1);
    } else {
        forEachRow(deselected, [this](int row) { deselect(row); });
        forEachRow(selected, [this](int row) { select(row); });
    }
    if (!selected.isEmpty() || selectedRow() == 0) {
        shown().noteSelection();
    }
}

void QtListView::tellPicked() {
    // In a selected range, the row where the user ended counts as selected last.
    const QModelIndex current = shown().currentIndex();
    if (current.isValid() && selected(current.row() + 1) && multiSelect()) {
        const QScopedValueRollback<bool> taking(taking_, true);
        select(current.row() + 1);
    }
    if (const int row = selectedRow(); row > 0) {
        run(onItemClick, row);
    } else {
        run(onDeselect);
    }
}

/// Gives each column its share of the width. The last visible column also gets the rest, so that
/// rows reach from edge to edge.
void QtListView::divideWidth() {
    QHeaderView &header = *shown().header();
    const int width = shown().viewport()->width();
    int left = width;
    int lastShown = -1;
    for (int section = 0; section < columnCount(); ++section) {
        const double share = column(section + 1).width;
        const int own = static_cast<int>(share * width);
        header.setSectionHidden(section, share <= 0);
        if (share > 0) {
            header.resizeSection(section, own);
            lastShown = section;
            left -= own;
        }
    }
    if (lastShown >= 0 && left > 0) {
        header.resizeSection(lastShown, header.sectionSize(lastShown) + left);
    }
}

} // namespace kvex::qt
