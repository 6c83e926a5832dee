// Colours that can be read on whatever theme is in force.
#pragma once

#include <QColor>
#include <QPalette>

namespace kvex::qt {

/// The least contrast of text with its background, and of what else is to be made out.
inline constexpr double leastTextContrast = 4.5;
inline constexpr double leastShapeContrast = 3;

/// The contrast ratio of two colours, 1 to 21, as web accessibility guidelines define it.
[[nodiscard]] double contrast(const QColor &one, const QColor &other);

/// `wanted`, shifted away from `background` as far as the least contrast asks for.
[[nodiscard]] QColor readable(const QColor &wanted, const QColor &background,
                              double leastContrast = leastTextContrast);

/// Text that steps back behind the text of `text` on `background`, still readable.
[[nodiscard]] QColor quieterText(const QPalette &palette, QPalette::ColorRole text,
                                 QPalette::ColorRole background);

/// Sets only the colours of disabled text, to ones that can be read on their backgrounds.
[[nodiscard]] QPalette readableWhenDisabled(const QPalette &palette);

/// The outline of a box to fill in, on the palette's base colour.
[[nodiscard]] QColor outline(const QPalette &palette);

} // namespace kvex::qt
