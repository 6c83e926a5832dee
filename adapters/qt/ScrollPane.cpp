#include "adapters/qt/ScrollPane.h"

#include <QEvent>
#include <QLayout>
#include <QScrollBar>

namespace kvex::qt {

ScrollPane::ScrollPane(QWidget *parent, QLayout *content) : QScrollArea(parent) {
    setFrameShape(NoFrame);
    // Only controls take the focus.
    setFocusPolicy(Qt::NoFocus);
    auto *page = new QWidget(this);
    page->setLayout(content);
    setWidget(page);
}

QSize ScrollPane::neededFor(int width) const {
    const QLayout &content = *widget()->layout();
    const QSize least = content.totalMinimumSize();
    const int needed = std::max(width, least.width());
    return {needed, content.hasHeightForWidth() ? content.totalMinimumHeightForWidth(needed)
                                                : least.height()};
}

void ScrollPane::bringIntoView(const QWidget &shown) {
    const QPoint middle = shown.mapTo(widget(), shown.rect().center());
    const int line = fontMetrics().height();
    ensureVisible(middle.x(), middle.y(), shown.width() / 2 + line, shown.height() / 2 + line);
}

QSize ScrollPane::sizeHint() const {
    return widget()->sizeHint();
}

QSize ScrollPane::minimumSizeHint() const {
    return {widget()->layout()->totalMinimumSize().width(), fontMetrics().height()};
}

void ScrollPane::resizeEvent(QResizeEvent *event) {
    QScrollArea::resizeEvent(event);
    fit();
}

/// Dialog brings the focused widget into view. QScrollArea's own version would show only its caret
/// or its current row.
bool ScrollPane::focusNextPrevChild(bool next) {
    return QWidget::focusNextPrevChild(next);
}

bool ScrollPane::eventFilter(QObject *object, QEvent *event) {
    if (object == widget() && event->type() == QEvent::LayoutRequest) {
        fit();
        updateGeometry();
    }
    return QScrollArea::eventFilter(object, event);
}

/// Lists and texts shrink first. The page exceeds the pane only if that is not enough.
void ScrollPane::fit() {
    QSize room = maximumViewportSize();
    if (neededFor(room.width()).height() > room.height()) {
        room.rwidth() -= verticalScrollBar()->sizeHint().width();
    }
    if (neededFor(room.width()).width() > room.width()) {
        room.rheight() -= horizontalScrollBar()->sizeHint().height();
    }
    widget()->resize(room.expandedTo(neededFor(room.width())));
}

} // namespace kvex::qt
