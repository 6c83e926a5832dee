// The dialog of a window: its size, its focus, and the buttons of Enter and Esc.
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
    ~Dialog() override;
    Dialog(const Dialog &) = delete;
    Dialog &operator=(const Dialog &) = delete;

    /// The window that this dialog shows.
    [[nodiscard]] Window &owner() const { return owner_; }
    void setDefaultButton(QPushButton *button) { defaultButton_ = button; }
    /// The widget that had the focus before; null if there is none.
    [[nodiscard]] QWidget *previousFocus() const { return previousFocus_; }
    void setCancelButton(QPushButton *button) { cancelButton_ = button; }
    /// The part that scrolls if the screen is too small.
    void setPane(ScrollPane &pane) { pane_ = &pane; }

    /// The room on the screen without the window's frame.
    [[nodiscard]] QSize roomOnScreen() const;
    /// The size that the user gave the window; nothing if they left it unchanged.
    [[nodiscard]] std::optional<QSize> sizeByUser() const;

    /// Gives the focus to the first tab stop, unless a widget already has it.
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
