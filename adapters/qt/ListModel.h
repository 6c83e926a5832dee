// A list's rows as Qt's item views read them: straight from the rows, nothing held twice.
#pragma once

#include "adapters/controls/ListRows.h"
#include "platform/controls/WindowDesign.h"

#include <QAbstractTableModel>
#include <QIcon>

#include <functional>
#include <vector>

namespace kvex::qt {

/// Qt counts rows and columns from 0; the rows, and what is told to `tick`, count from 1.
class ListModel final : public QAbstractTableModel {
public:
    /// `pictures`: of the image list that the design names.
    ListModel(controls::ListRows &rows, const ControlDesign &design,
              const std::vector<Picture> &pictures);

    /// The user ticks or unticks a row.
    std::function<void(int row, bool checked)> tick;

    // The changes of the rows, between the calls that Qt wants around them.
    void aboutToInsertRow(int row) { beginInsertRows({}, row - 1, row - 1); }
    void rowInserted() { endInsertRows(); }
    void aboutToRemoveRow(int row) { beginRemoveRows({}, row - 1, row - 1); }
    void rowRemoved() { endRemoveRows(); }
    void aboutToReorder() { Q_EMIT layoutAboutToBeChanged(); }
    void reordered() { Q_EMIT layoutChanged(); }
    void aboutToReset() { beginResetModel(); }
    void reset() { endResetModel(); }
    void rowChanged(int row) {
        Q_EMIT dataChanged(index(row - 1, 0), index(row - 1, lastColumn()));
    }
    void columnIconChanged(int column) {
        Q_EMIT headerDataChanged(Qt::Horizontal, column - 1, column - 1);
    }

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    [[nodiscard]] int lastColumn() const { return std::max(0, columnCount() - 1); }
    [[nodiscard]] QVariant picture(int number) const;
    [[nodiscard]] QVariant greyed(int row, int role) const;

    controls::ListRows &rows_;
    std::vector<QIcon> pictures_;
    QString greyedHint_;
    bool checkBoxes_;
    int rowPicture_;
};

} // namespace kvex::qt
