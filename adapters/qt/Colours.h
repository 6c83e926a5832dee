// Colours that are readable in every theme.
#pragma once

#include <QColor>
#include <QPalette>

namespace kvex::qt {

/// The least contrast with the background, for text and for shapes.
inline constexpr double leastTextContrast = 4.5;
inline constexpr double leastShapeContrast = 3;

/// The contrast ratio of two colours, from 1 to 21, as the web accessibility guidelines define it.
[[nodiscard]] double contrast(const QColor &one, const QColor &other);

/// `wanted`, moved away from `background` until it has the least contrast.
[[nodiscard]] QColor readable(const QColor &wanted, const QColor &background,
                              double leastContrast = leastTextContrast);

/// A paler colour than that of `text`, still readable on `background`.
[[nodiscard]] QColor quieterText(const QPalette &palette, QPalette::ColorRole text,
                                 QPalette::ColorRole background);

/// A palette that only sets the colours of disabled text, to readable ones.
[[nodiscard]] QPalette readableWhenDisabled(const QPalette &palette);

/// The colour of a check box's outline on the palette's base colour.
[[nodiscard]] QColor outline(const QPalette &palette);

} // namespace kvex::qt
