// The style of an application that the toolkit makes itself: Qt's own, with the little that it
// lacks. Boxes to tick can be made out on dark themes. They and small pictures grow with the font.
// Lists and text views show that they have the focus, and buttons keep room around their captions.
#pragma once

#include <QProxyStyle>

namespace kvex::qt {

class ReadableStyle final : public QProxyStyle {
public:
    /// Over the style of that name.
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
