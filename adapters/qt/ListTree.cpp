#include "adapters/qt/ListTree.h"

#include "adapters/qt/Colours.h"
#include "adapters/qt/ListModel.h"
#include "adapters/qt/QText.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <utility>

namespace kvex::qt {

ListTree::ListTree(QWidget *parent, int columns, int lines)
    : QTreeView(parent), columns_(columns), lines_(lines) {
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setItemDelegate(new RowDelegate(this));
    setIconSize({fontMetrics().height(), fontMetrics().height()});
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setMinimumSectionSize(0);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setHighlightSections(false);
}

void ListTree::setEmptyText(const QString &text) {
    emptyText_ = text;
    const auto say = [this] {
        setAccessibleDescription(model()->rowCount() == 0 ? emptyText_ : QString());
    };
    connect(model(), &QAbstractItemModel::rowsInserted, this, say);
    connect(model(), &QAbstractItemModel::rowsRemoved, this, say);
    connect(model(), &QAbstractItemModel::modelReset, this, say);
    say();
}

void ListTree::noteSelection() {
    deeds_.picked = true;
    if (!busy_) {
        tellDeeds();
    }
}

void ListTree::noteTick(int row) {
    deeds_.ticked = row;
    if (!busy_) {
        tellDeeds();
    }
}

/// Qt may make another row current: one that was only ticked, or the first one.
void ListTree::keepCurrentSelected() {
    QItemSelectionModel &selection = *selectionModel();
    if (!selection.hasSelection()) {
        selection.clearCurrentIndex();
    } else if (selectionMode() == SingleSelection) {
        selection.setCurrentIndex(selection.selectedRows().front(), QItemSelectionModel::NoUpdate);
    }
}

QRect ListTree::tickRect(const QModelIndex &row) const {
    if (!row.data(Qt::CheckStateRole).isValid()) {
        return {};
    }
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(row);
    option.index = row;
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this);
}

QSize ListTree::sizeHint() const {
    return roomFor(columns_, lines_);
}

QSize ListTree::minimumSizeHint() const {
    // The list may be narrower than its texts, because a tool tip shows a cut text.
    constexpr int enough = 20;
    return roomFor(std::min(columns_, enough), 0);
}

QSize ListTree::roomFor(int columns, int lines) const {
    // A smaller list cannot be read or clicked.
    constexpr int leastColumns = 12;
    constexpr int leastLines = 3;
    const int headerHeight = isHeaderHidden() ? 0 : header()->sizeHint().height();
    const int bar = verticalScrollBar()->sizeHint().width();
    return {widthOf(std::max(columns, leastColumns), *this) + 2 * frameWidth() + bar,
            std::max(lines, leastLines) * RowDelegate::heightOf(fontMetrics()) + headerHeight +
                2 * frameWidth()};
}

void ListTree::keyPressEvent(QKeyEvent *event) {
    beforeAction();
    busy_ = true;
    if (!searchFor(*event) && !enterByKey(event->key())) {
        QTreeView::keyPressEvent(event);
    }
    busy_ = false;
    tellDeeds();
}

/// A search ends after a pause between two keys. A blank never starts a search. The time stamps of
/// the events count, so that a busy program does not end a search.
bool ListTree::searchFor(const QKeyEvent &event) {
    const auto pause = static_cast<quint64>(QApplication::keyboardInputInterval());
    if (!isTyping(event) || event.timestamp() - searchedAt_ >= pause) {
        search_->end();
    }
    if (!isTyping(event) || (event.key() == Qt::Key_Space && !search_->isRunning())) {
        return false;
    }
    searchedAt_ = event.timestamp();
    walkTo(search_->rowAfter(fromQt(event.text())) - 1);
    return true;
}

/// If no row is selected, an arrow or page key or Home selects the first row, End selects the last,
/// and a blank does nothing.
bool ListTree::enterByKey(int key) {
    const bool toFirst = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home ||
                         key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    const bool toLast = key == Qt::Key_End;
    if ((!toFirst && !toLast && key != Qt::Key_Space) || selectionModel()->hasSelection()) {
        return false;
    }
    if (toFirst || toLast) {
        walkTo(toFirst ? 0 : model()->rowCount() - 1);
    }
    return true;
}

/// Does nothing if the row does not exist.
void ListTree::walkTo(int row) {
    if (const QModelIndex index = model()->index(row, 0); index.isValid()) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                     QItemSelectionModel::Rows);
    }
}

void ListTree::focusInEvent(QFocusEvent *event) {
    QTreeView::focusInEvent(event);
    const bool isByTab =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (startsAtFirstRow_ && isByTab && !selectionModel()->hasSelection()) {
        walkTo(0);
    }
    keepCurrentSelected();
}

void ListTree::focusOutEvent(QFocusEvent *event) {
    search_->end();
    QTreeView::focusOutEvent(event);
}

void ListTree::mousePressEvent(QMouseEvent *event) {
    search_->end();
    beforeAction();
    busy_ = true;
    pressed_ = indexAt(event->position().toPoint());
    QTreeView::mousePressEvent(event);
}

void ListTree::mouseReleaseEvent(QMouseEvent *event) {
    QTreeView::mouseReleaseEvent(event);
    busy_ = false;
    const bool isClick = event->button() == Qt::LeftButton && isOnRow(*event);
    if (isClick && deeds_.ticked < 0 && !deeds_.doubleClicked &&
        selectionModel()->isSelected(pressed_)) {
        deeds_.picked = true;
    }
    tellDeeds();
}

void ListTree::mouseDoubleClickEvent(QMouseEvent *event) {
    search_->end();
    beforeAction();
    busy_ = true;
    const QPoint at = event->position().toPoint();
    const QModelIndex index = indexAt(at);
    pressed_ = index;
    deeds_.doubleClicked = event->button() == Qt::LeftButton && index.isValid() &&
                           !tickRect(index.siblingAtColumn(0)).contains(at);
    QTreeView::mouseDoubleClickEvent(event);
}

/// Shows a text that is cut as its tool tip.
bool ListTree::viewportEvent(QEvent *event) {
    if (event->type() == QEvent::ToolTip) {
        const auto &help = static_cast<const QHelpEvent &>(*event);
        const QModelIndex index = indexAt(help.pos());
        const bool isCut =
            index.isValid() && sizeHintForIndex(index).width() > visualRect(index).width();
        if (isCut && !index.data(Qt::ToolTipRole).isValid()) {
            QToolTip::showText(help.globalPos(), index.data().toString().toHtmlEscaped(), this);
            return true;
        }
    }
    return QTreeView::viewportEvent(event);
}

void ListTree::resizeEvent(QResizeEvent *event) {
    QTreeView::resizeEvent(event);
    resized();
}

void ListTree::showEvent(QShowEvent *event) {
    aboutToShow();
    QTreeView::showEvent(event);
}

void ListTree::paintEvent(QPaintEvent *event) {
    QTreeView::paintEvent(event);
    if (model()->rowCount() == 0) {
        QPainter painter(viewport());
        painter.setPen(quieterText(palette(), QPalette::Text, QPalette::Base));
        const int margin = fontMetrics().height() / 2;
        painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                         Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, emptyText_);
    }
}

bool ListTree::isOnRow(const QMouseEvent &event) const {
    const QModelIndex index = indexAt(event.position().toPoint());
    return index.isValid() && index == pressed_;
}

/// Runs the handlers, after all of the view's code. They may change the rows, show other windows,
/// or close this one.
void ListTree::tellDeeds() {
    keepCurrentSelected();
    const Deeds done = std::exchange(deeds_, {});
    if (done.ticked >= 0) {
        rowTicked(done.ticked);
    }
    if (done.picked) {
        rowPicked();
    }
    if (done.doubleClicked) {
        rowDoubleClicked();
    }
}

} // namespace kvex::qt
