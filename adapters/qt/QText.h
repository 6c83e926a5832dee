// Texts in Qt: how to convert them, how much room they need, and which keys type them.
#pragma once

#include <QFontMetrics>
#include <QKeyEvent>
#include <QString>
#include <QWidget>

#include <algorithm>
#include <string>
#include <string_view>

namespace kvex::qt {

[[nodiscard]] inline QString toQt(std::u16string_view text) {
    return QStringView(text).toString();
}

[[nodiscard]] inline std::u16string fromQt(const QString &text) {
    return text.toStdU16String();
}

/// The width of this many average characters in the widget's font.
[[nodiscard]] inline int widthOf(int columns, const QWidget &widget) {
    // The average width alone is too small for digits and capitals.
    const QFontMetrics metrics(widget.fontMetrics());
    const int one = std::max(metrics.averageCharWidth(), metrics.horizontalAdvance(u'0'));
    return columns * one;
}

/// The height of this many lines in the widget's font.
[[nodiscard]] inline int heightOf(int lines, const QWidget &widget) {
    return lines * widget.fontMetrics().lineSpacing();
}

/// Whether the key types a character, and is not a command.
[[nodiscard]] inline bool isTyping(const QKeyEvent &event) {
    const auto held = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool commands = held == Qt::ControlModifier || held == Qt::AltModifier;
    const bool isControl =
        event.text().isEmpty() || event.text().front().category() == QChar::Other_Control;
    return !isControl && !commands;
}

} // namespace kvex::qt
