// How Qt's item views read and draw the rows of a list.
#pragma once

#include "adapters/controls/ListRows.h"
#include "platform/controls/WindowDesign.h"

#include <QAbstractTableModel>
#include <QFontMetrics>
#include <QIcon>
#include <QStyledItemDelegate>

#include <functional>
#include <vector>

namespace kvex::qt {

/// Reads ListRows directly and keeps no copy. Qt counts rows and columns from 0, ListRows from 1.
class ListModel final : public QAbstractTableModel {
public:
    /// `pictures` is the image list that the design names.
    ListModel(controls::ListRows &rows, const ControlDesign &design,
              const std::vector<Picture> &pictures);

    /// Called with the row's number, from 0, after the user ticked or unticked it.
    std::function<void(int row)> ticked;

    // Qt requires these calls before and after each change of the rows.
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

/// Draws rows that have room for every script. If the list lacks the focus, the selection is paler.
class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Scripts with marks above and below need more room than one line of the font.
    [[nodiscard]] static int heightOf(const QFontMetrics &metrics) {
        return metrics.height() * 4 / 3;
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

} // namespace kvex::qt
