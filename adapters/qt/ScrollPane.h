// The part of a window that scrolls where the screen has not the room for it.
#pragma once

#include <QScrollArea>

namespace kvex::qt {

/// Holds one page, which has a layout. The page fills the pane; what has not its room within the
/// pane can be scrolled to.
class ScrollPane final : public QScrollArea {
public:
    ScrollPane(QWidget *parent, QLayout *content);

    /// What the page needs to show all of its content, `width` wide or wider.
    [[nodiscard]] QSize neededFor(int width) const;

    /// Scrolls to a widget of the page, and what is close to it.
    void bringIntoView(const QWidget &widget);

    /// As the page wants it; and hardly anything.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void fit();
};

} // namespace kvex::qt
