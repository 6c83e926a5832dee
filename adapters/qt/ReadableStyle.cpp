#include "adapters/qt/ReadableStyle.h"

#include "adapters/qt/Colours.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace kvex::qt {
namespace {

int lineHeight(const QWidget *widget) {
    return QFontMetrics(widget != nullptr ? widget->font() : QApplication::font()).height();
}

/// A dashed line around the caption. Qt's outline only shows which button Enter presses.
void drawButtonFocus(const QStyleOption &option, QPainter &painter) {
    painter.save();
    painter.setPen(QPen(option.palette.color(QPalette::ButtonText), 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(3, 3, -4, -4));
    painter.restore();
}

} // namespace

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                  QPainter *painter, const QWidget *widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_IndicatorCheckBox && element != PE_IndicatorRadioButton) {
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(outline(option->palette));
    const QRectF border = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (element == PE_IndicatorCheckBox) {
        painter->drawRect(border);
    } else {
        painter->drawEllipse(border);
    }
    painter->restore();
}

void ReadableStyle::drawControl(ControlElement element, const QStyleOption *option,
                                QPainter *painter, const QWidget *widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_PushButton && (option->state & State_HasFocus) != 0) {
        drawButtonFocus(*option, *painter);
    }
    const bool isFocused = element == CE_ShapedFrame && widget != nullptr && widget->hasFocus() &&
                           dynamic_cast<const QAbstractScrollArea *>(widget) != nullptr;
    if (isFocused) {
        painter->save();
        painter->setPen(readable(option->palette.color(QPalette::Highlight),
                                 option->palette.color(QPalette::Window), leastShapeContrast));
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        painter->restore();
    }
}

int ReadableStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                               const QWidget *widget) const {
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return std::max(usual, lineHeight(widget) * 2 / 3);
    case PM_SmallIconSize:
        return std::max(usual, lineHeight(widget));
    default:
        return usual;
    }
}

QSize ReadableStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                      const QSize &contents, const QWidget *widget) const {
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_PushButton) {
        size.setWidth(std::max(size.width(), contents.width() + lineHeight(widget) * 3 / 2));
    }
    return size;
}

} // namespace kvex::qt
