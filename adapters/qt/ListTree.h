// The item view of a list: finds out what the user did, and tells it once the view is done.
#pragma once

#include <QTreeView>

#include <functional>

namespace kvex::qt {

/// Qt counts rows from 0, so does this.
class ListTree final : public QTreeView {
public:
    ListTree(QWidget *parent, int columns, int lines);

    /// Given a model: what the list says, to eyes and to assistive technology, while it has no
    /// rows.
    void setEmptyText(const QString &text);

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

    /// The row's check box, in the viewport; empty where there is none.
    [[nodiscard]] QRect tickRect(const QModelIndex &row) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
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
    [[nodiscard]] bool enterByKey(int key);
    void tellDeeds();

    QString emptyText_;
    Deeds deeds_;
    /// Inside an event of the view's own, or between press and release.
    bool busy_ = false;
    QPersistentModelIndex pressed_;
    int columns_;
    int lines_;
};

} // namespace kvex::qt
