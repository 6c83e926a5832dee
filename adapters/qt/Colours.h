// Colours that can be read on whatever theme is in force.
#pragma once

#include <QColor>
#include <QPalette>

namespace kvex::qt {

/// The least contrast of text with its background.
inline constexpr double leastContrast = 4.5;

/// The contrast ratio of two colours, 1 to 21, as web accessibility guidelines define it.
[[nodiscard]] double contrast(const QColor &one, const QColor &other);

/// `wanted`, shifted away from `background` as far as the least contrast asks for.
[[nodiscard]] QColor readable(const QColor &wanted, const QColor &background);

/// Text that steps back behind the text of `text` on `background`, still readable.
[[nodiscard]] QColor quieterText(const QPalette &palette, QPalette::ColorRole text,
                                 QPalette::ColorRole background);

} // namespace kvex::qt
