// A window's dialog: where the focus was, what Enter and Esc press, how small it may become.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QPushButton>

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
    /// Lets the focus start at the first control that Tab reaches, unless it has a place.
    void focusFirst();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void keepTextsWhole();
    void noteFocus(QWidget *before, QWidget *now);
    [[nodiscard]] QPushButton *buttonOfEnter() const;

    Window &owner_;
    QPushButton *defaultButton_ = nullptr;
    QPushButton *cancelButton_ = nullptr;
    QPointer<QWidget> previousFocus_;
};

} // namespace kvex::qt
