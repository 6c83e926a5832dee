// The item view of a list. It detects what the user did and reports it after Qt's own code has run.
#pragma once

#include "adapters/controls/ListSearch.h"

#include <QTreeView>

#include <functional>

namespace kvex::qt {

/// Rows count from 0, as in Qt. Qt's current row has the focus rectangle. Here it is always the
/// selected row, and there is none while no row is selected.
class ListTree final : public QTreeView {
public:
    ListTree(QWidget *parent, int columns, int lines);

    /// The text of an empty list, on the screen and for assistive technology. Set the model first.
    void setEmptyText(const QString &text);
    /// The search that typed characters feed. It must outlive the view's last event.
    void setSearch(controls::ListSearch &search) { search_ = &search; }
    /// Lets Tab into the list select the first row if none is selected.
    void startAtFirstRow() { startsAtFirstRow_ = true; }

    /// Called before a key or a mouse button takes effect.
    std::function<void()> beforeAction;
    /// The user changed the selection, or clicked the selected row again.
    std::function<void()> rowPicked;
    std::function<void(int row)> rowTicked;
    std::function<void()> rowDoubleClicked;
    std::function<void()> resized;
    std::function<void()> aboutToShow;

    /// Notes that the user changed the selection.
    void noteSelection();
    /// Notes that the user ticked or unticked the row.
    void noteTick(int row);
    /// Makes the selected row current. Call it after code changed the selection.
    void keepCurrentSelected();

    /// The row's check box in the viewport; empty if there is none.
    [[nodiscard]] QRect tickRect(const QModelIndex &row) const;

    /// Does nothing, because the search of setSearch() replaces Qt's own.
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
    /// What the user did since the last report.
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
    /// True while the view handles an event, and from mouse press to release.
    bool busy_ = false;
    QPersistentModelIndex pressed_;
    controls::ListSearch *search_ = nullptr;
    /// The time stamp of the event with the search's last character.
    quint64 searchedAt_ = 0;
    bool startsAtFirstRow_ = false;
    int columns_;
    int lines_;
};

} // namespace kvex::qt
