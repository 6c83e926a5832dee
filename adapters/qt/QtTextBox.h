// A text box of one line.
#pragma once

#include "adapters/qt/QtControl.h"
#include "platform/controls/TextBox.h"

#include <QLineEdit>

#include <cstdint>
#include <functional>

namespace kvex::qt {

/// A QLineEdit that asks before a key acts. Its limit binds the user but not the code.
class LineEdit final : public QLineEdit {
public:
    /// Called with the key's character code. Returns false to discard the key.
    using KeyFilter = std::function<bool(std::int16_t code)>;

    /// `limit` is the longest text, in UTF-16 units, that the user can make; 0 for no limit.
    /// `columns` is the width in average characters; 0 for Qt's default.
    LineEdit(QWidget *parent, int limit, int columns);

    /// Shows the whole text, even beyond the limit. QLineEdit::setText obeys the limit, because
    /// assistive technology calls it.
    void showText(const QString &text);
    void setKeyFilter(KeyFilter filter) { filter_ = std::move(filter); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    [[nodiscard]] bool passes(int code) const;
    [[nodiscard]] QString passed(const QString &typed) const;
    [[nodiscard]] QString fitting(const QString &text) const;
    void insertFitting(const QString &text);
    void keepLimit();
    void cutIfPassed();
    void copyIfPassed();
    void pasteIfPassed();

    KeyFilter filter_;
    int limit_;
    /// The change in progress needs no check: it keeps the limit, or may exceed it.
    bool isBound_ = false;
    int columns_;
};

class QtTextBox final : public QtControl<TextBox, LineEdit> {
public:
    QtTextBox(const ControlDesign &design, const std::u16string &window, QWidget &parent);

    [[nodiscard]] std::u16string text() const override;
    void setText(const std::u16string &text) override;
};

} // namespace kvex::qt
