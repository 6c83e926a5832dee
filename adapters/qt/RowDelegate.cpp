#include "adapters/qt/RowDelegate.h"

#include "adapters/qt/Colours.h"

#include <QIcon>
#include <QWidget>

namespace kvex::qt {
namespace {

/// A selection that waits: a shade of the background towards the usual one.
QColor waitingHighlight(const QPalette &palette) {
    const QColor base = palette.color(QPalette::Base);
    const QColor highlight = palette.color(QPalette::Highlight);
    const auto between = [](int from, int to) { return from + (to - from) / 4; };
    return {between(base.red(), highlight.red()), between(base.green(), highlight.green()),
            between(base.blue(), highlight.blue())};
}

/// Drawn in the text's colour even where its row is selected.
QIcon inTextColour(const QIcon &icon, QSize size, qreal pixelRatio) {
    const QPixmap drawn = icon.pixmap(size, pixelRatio, QIcon::Normal);
    QIcon plain(drawn);
    plain.addPixmap(drawn, QIcon::Selected);
    return plain;
}

} // namespace

QSize RowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const QSize usual = QStyledItemDelegate::sizeHint(option, index);
    return usual.expandedTo({0, heightOf(option.fontMetrics)});
}

void RowDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->widget != nullptr && !option->widget->hasFocus()) {
        const QColor highlight = waitingHighlight(option->palette);
        option->palette.setColor(QPalette::Highlight, highlight);
        option->palette.setColor(QPalette::HighlightedText,
                                 readable(option->palette.color(QPalette::Text), highlight));
        if (!option->icon.isNull()) {
            option->icon = inTextColour(option->icon, option->decorationSize,
                                        option->widget->devicePixelRatio());
        }
    }
}

} // namespace kvex::qt
