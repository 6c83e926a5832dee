#include "adapters/qt/ListModel.h"

#include "adapters/qt/Colours.h"
#include "adapters/qt/Pictures.h"
#include "adapters/qt/QText.h"
#include "platform/Utf16.h"

#include <QGuiApplication>
#include <QWidget>

namespace kvex::qt {
namespace {

/// The selection's colour in a list without the focus. It lies between background and highlight.
QColor waitingHighlight(const QPalette &palette) {
    const QColor base = palette.color(QPalette::Base);
    const QColor highlight = palette.color(QPalette::Highlight);
    const auto between = [](int from, int to) { return from + (to - from) / 4; };
    return {between(base.red(), highlight.red()), between(base.green(), highlight.green()),
            between(base.blue(), highlight.blue())};
}

/// The icon in the text's colour, also in a selected row.
QIcon inTextColour(const QIcon &icon, QSize size, qreal pixelRatio) {
    const QPixmap drawn = icon.pixmap(size, pixelRatio, QIcon::Normal);
    QIcon plain(drawn);
    plain.addPixmap(drawn, QIcon::Selected);
    return plain;
}

/// The beginning of a text, longer than a column can show. Qt lays out all that it gets, which
/// takes seconds for millions of characters.
QString shownPart(std::u16string_view text) {
    constexpr std::size_t longest = 10'000;
    if (text.size() <= longest) {
        return toQt(text);
    }
    return toQt(text.substr(0, longest - (isHighSurrogate(text[longest - 1]) ? 1 : 0))) +
           QChar(u'…');
}

} // namespace

ListModel::ListModel(controls::ListRows &rows, const ControlDesign &design,
                     const std::vector<Picture> &pictures)
    : rows_(rows), greyedHint_(toQt(design.greyedRowHint)), checkBoxes_(design.checkBoxes),
      rowPicture_(design.rowPicture) {
    for (const Picture picture : pictures) {
        pictures_.push_back(iconOf(picture));
    }
}

int ListModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : rows_.rowCount();
}

int ListModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : rows_.columnCount();
}

QVariant ListModel::data(const QModelIndex &index, int role) const {
    const int row = index.row() + 1;
    const bool isFirst = index.column() == 0;
    switch (role) {
    case Qt::DisplayRole:
        return shownPart(rows_.cell(row, index.column() + 1));
    case Qt::CheckStateRole:
        return isFirst && checkBoxes_ ? QVariant(rows_.checked(row) ? Qt::Checked : Qt::Unchecked)
                                      : QVariant();
    case Qt::DecorationRole:
        return isFirst ? picture(rowPicture_) : QVariant();
    default:
        return greyed(row, role);
    }
}

bool ListModel::setData(const QModelIndex &index, const QVariant &value, int role) {
    if (role != Qt::CheckStateRole || !checkBoxes_ || !index.isValid()) {
        return false;
    }
    rows_.setChecked(index.row() + 1, value.value<Qt::CheckState>() == Qt::Checked);
    ticked(index.row());
    return true;
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= rows_.columnCount()) {
        return {};
    }
    const controls::ListRows::Column &column = rows_.column(section + 1);
    switch (role) {
    case Qt::DisplayRole:
        return toQt(column.header);
    case Qt::DecorationRole:
        return picture(column.icon);
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignLeading | Qt::AlignVCenter);
    default:
        return {};
    }
}

Qt::ItemFlags ListModel::flags(const QModelIndex &index) const {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (checkBoxes_ && index.column() == 0) {
        flags |= Qt::ItemIsUserCheckable;
    }
    return flags;
}

QVariant ListModel::picture(int number) const {
    const auto index = static_cast<std::size_t>(number) - 1;
    return index < pictures_.size() ? QVariant(pictures_[index]) : QVariant();
}

/// The colour of a greyed row, and the text that says why it is grey.
QVariant ListModel::greyed(int row, int role) const {
    if (rows_.rowColour(row) != RowColour::greyText) {
        return {};
    }
    switch (role) {
    case Qt::ForegroundRole:
        return quieterText(QGuiApplication::palette(), QPalette::Text, QPalette::Base);
    case Qt::AccessibleDescriptionRole:
    case Qt::ToolTipRole:
        return greyedHint_;
    default:
        return {};
    }
}

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
