// Room for content, from average characters and lines.
#pragma once

#include <QFontMetrics>
#include <QWidget>

#include <cmath>

namespace kvex::qt {

[[nodiscard]] inline int widthOf(int columns, const QWidget &widget) {
    // The average alone is too narrow for figures and capitals.
    const QFontMetrics metrics(widget.fontMetrics());
    const int one = std::max(metrics.averageCharWidth(), metrics.horizontalAdvance(u'0'));
    return columns * one;
}
[[nodiscard]] inline int heightOf(int lines, const QWidget &widget) {
    return lines * widget.fontMetrics().lineSpacing();
}

} // namespace kvex::qt
