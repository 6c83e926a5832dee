// The part of a window that scrolls if the screen is too small.
#pragma once

#include <QScrollArea>

namespace kvex::qt {

/// Holds one page with a layout. The page fills the pane. If it needs more room, the user can
/// scroll it.
class ScrollPane final : public QScrollArea {
public:
    ScrollPane(QWidget *parent, QLayout *content);

    /// The size that the page needs for all its content, at least `width` wide.
    [[nodiscard]] QSize neededFor(int width) const;

    /// Scrolls until the widget and a margin around it are visible.
    void bringIntoView(const QWidget &widget);

    /// The page's preferred size, but hardly any minimum height.
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
