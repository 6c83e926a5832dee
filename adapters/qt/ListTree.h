// The item view of a list: finds out what the user did, and tells it once the view is done.
#pragma once

#include "adapters/controls/ListSearch.h"

#include <QTreeView>

#include <functional>

namespace kvex::qt {

/// Qt counts rows from 0, so does this. The row that Qt calls current, which has the focus
/// rectangle, is the selected one; while none is selected there is none.
class ListTree final : public QTreeView {
public:
    ListTree(QWidget *parent, int columns, int lines);

    /// Given a model: what the list says, to eyes and to assistive technology, while it has no
    /// rows.
    void setEmptyText(const QString &text);
    /// The rows' search, which the keys typed go on with. It must outlive the view's last event.
    void setSearch(controls::ListSearch &search) { search_ = &search; }
    /// Where no row is selected, Tab into the list selects the first.
    void startAtFirstRow() { startsAtFirstRow_ = true; }

    /// Before a key or a button acts.
    std::function<void()> beforeAction;
    /// The user selected a row, or pressed the mouse on the selected row again.
    std::function<void()> rowPicked;
    std::function<void(int row)> rowTicked;
    std::function<void()> rowDoubleClicked;
    std::function<void()> resized;
    std::function<void()> aboutToShow;

    /// The user's selection changed; the row's tick.
    void noteSelection();
    void noteTick(int row);
    /// To be called when code changed the selection.
    void keepCurrentSelected();

    /// The row's check box, in the viewport; empty where there is none.
    [[nodiscard]] QRect tickRect(const QModelIndex &row) const;

    /// The list has a search of its own.
    void keyboardSearch(const QString & /*search*/) override {}
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// What the user did since the last time it was told.
    struct Deeds {
        bool picked = false;
        bool doubleClicked = false;
        int ticked = -1;
    };

    [[nodiscard]] QSize roomFor(int columns, int lines) const;
    [[nodiscard]] bool isOnRow(const QMouseEvent &event) const;
    [[nodiscard]] bool searchFor(const QKeyEvent &event);
    [[nodiscard]] bool enterByKey(int key);
    void walkTo(int row);
    void tellDeeds();

    QString emptyText_;
    Deeds deeds_;
    /// Inside an event of the view's own, or between press and release.
    bool busy_ = false;
    QPersistentModelIndex pressed_;
    controls::ListSearch *search_ = nullptr;
    /// When the search took its last character, as events tell the time.
    quint64 searchedAt_ = 0;
    bool startsAtFirstRow_ = false;
    int columns_;
    int lines_;
};

} // namespace kvex::qt
