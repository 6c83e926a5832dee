// A QLineEdit that asks before a key acts, and whose limit binds the user alone.
#pragma once

#include <QLineEdit>

#include <cstdint>
#include <functional>

namespace kvex::qt {

class LineEdit final : public QLineEdit {
public:
    /// Asked with a key's character code; false discards the key.
    using KeyFilter = std::function<bool(std::int16_t code)>;

    /// `limit`: UTF-16 units that typing and pasting may reach, 0 for none. `columns`: the width
    /// in average characters, 0 for Qt's own.
    LineEdit(QWidget *parent, int limit, int columns);

    /// Shows the whole text, however long. QLineEdit::setText is what assistive technology calls,
    /// and bound by the limit.
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
    /// The change under way keeps the limit, or may pass it.
    bool isBound_ = false;
    int columns_;
};

} // namespace kvex::qt
