// A window's dialog: what Enter and Esc press, and how small it may become.
#pragma once

#include <QDialog>
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
    void setCancelButton(QPushButton *button) { cancelButton_ = button; }
    /// Lets the focus start at the first control that Tab reaches, unless it has a place.
    void focusFirst();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void keepTextsWhole();

    Window &owner_;
    QPushButton *defaultButton_ = nullptr;
    QPushButton *cancelButton_ = nullptr;
};

} // namespace kvex::qt
