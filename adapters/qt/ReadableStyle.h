// The style of an application that this toolkit creates. It adds to Qt's own style: Check boxes are
// visible in dark themes. Check boxes and icons grow with the font. Lists and text boxes show that
// they have the focus. Buttons keep room around their captions.
#pragma once

#include <QProxyStyle>

namespace kvex::qt {

class ReadableStyle final : public QProxyStyle {
public:
    /// Extends the style of this name.
    explicit ReadableStyle(const QString &name) : QProxyStyle(name) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption *option,
                                  const QWidget *widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption *option,
                                         const QSize &contents,
                                         const QWidget *widget) const override;
};

} // namespace kvex::qt
