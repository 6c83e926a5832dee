// The dialog of a window: its size, its focus, and what Enter and Esc press.
#pragma once

#include "adapters/qt/ScrollPane.h"

#include <QDialog>
#include <QPointer>
#include <QPushButton>

#include <optional>

namespace kvex {
class Window;
}

namespace kvex::qt {

class Dialog final : public QDialog {
public:
    explicit Dialog(Window &owner);

    /// The window that it shows.
    [[nodiscard]] Window &owner() const { return owner_; }
    void setDefaultButton(QPushButton *button) { defaultButton_ = button; }
    /// What had the focus before, null for nothing.
    [[nodiscard]] QWidget *previousFocus() const { return previousFocus_; }
    void setCancelButton(QPushButton *button) { cancelButton_ = button; }
    /// What of it scrolls where the screen is too small.
    void setPane(ScrollPane &pane) { pane_ = &pane; }

    /// What the screen has for it, beside its frame.
    [[nodiscard]] QSize roomOnScreen() const;
    /// The size that the user gave it since it was shown; nothing when he left it as it was.
    [[nodiscard]] std::optional<QSize> sizeByUser() const;

    /// Lets the focus start at the first control that Tab reaches, unless it has a place.
    void focusFirst();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void keepTextsWhole();
    void scrollTo(QWidget *focused);
    void noteFocus(QWidget *before, QWidget *now);
    [[nodiscard]] QPushButton *buttonOfEnter() const;

    Window &owner_;
    QPushButton *defaultButton_ = nullptr;
    QPushButton *cancelButton_ = nullptr;
    ScrollPane *pane_ = nullptr;
    QSize firstSize_;
    QPointer<QWidget> previousFocus_;
};

} // namespace kvex::qt
