// How the rows of lists stand: with room for every script, and paler where the list has not the
// focus.
#pragma once

#include <QFontMetrics>
#include <QStyledItemDelegate>

namespace kvex::qt {

class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Scripts with marks above and below need more than the font's own line.
    [[nodiscard]] static int heightOf(const QFontMetrics &metrics) {
        return metrics.height() * 4 / 3;
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};

} // namespace kvex::qt
