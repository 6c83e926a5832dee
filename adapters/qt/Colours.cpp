#include "adapters/qt/Colours.h"

#include <algorithm>
#include <cmath>

namespace kvex::qt {
namespace {

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QColor mixed(const QColor &colour, const QColor &with, double share) {
    const auto mix = [share](double own, double other) {
        return static_cast<float>(own + (other - own) * share);
    };
    return QColor::fromRgbF(mix(colour.redF(), with.redF()), mix(colour.greenF(), with.greenF()),
                            mix(colour.blueF(), with.blueF()));
}

} // namespace

double contrast(const QColor &one, const QColor &other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readable(const QColor &wanted, const QColor &background, double leastContrast) {
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    const QColor &away = contrast(black, background) > contrast(white, background) ? black : white;
    constexpr int steps = 20;
    for (int step = 0; step < steps; ++step) {
        // Rounded, as it will be drawn.
        const QColor candidate(mixed(wanted, away, static_cast<double>(step) / steps).rgb());
        if (contrast(candidate, background) >= leastContrast) {
            return candidate;
        }
    }
    return away;
}

QColor quieterText(const QPalette &palette, QPalette::ColorRole text,
                   QPalette::ColorRole background) {
    const QColor behind = palette.color(QPalette::Active, background);
    constexpr double steppedBack = 0.4;
    return readable(mixed(palette.color(QPalette::Active, text), behind, steppedBack), behind);
}

QPalette readableWhenDisabled(const QPalette &palette) {
    QPalette adapted;
    const auto adapt = [&](QPalette::ColorRole text, QPalette::ColorRole background) {
        adapted.setColor(QPalette::Disabled, text,
                         readable(palette.color(QPalette::Disabled, text),
                                  palette.color(QPalette::Disabled, background)));
    };
    adapt(QPalette::WindowText, QPalette::Window);
    adapt(QPalette::ButtonText, QPalette::Button);
    adapt(QPalette::Text, QPalette::Base);
    return adapted;
}

QColor outline(const QPalette &palette) {
    const QColor base = palette.color(QPalette::Base);
    constexpr double steppedBack = 0.6;
    return readable(mixed(palette.color(QPalette::Text), base, steppedBack), base,
                    leastShapeContrast);
}

} // namespace kvex::qt
