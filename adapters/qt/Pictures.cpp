#include "adapters/qt/Pictures.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace kvex::qt {
namespace {

/// A numbered list: 1 and 2 with a line each.
void drawInOrder(QPainter &painter) {
    painter.drawRect(8, 3, 7, 2);
    painter.drawRect(8, 11, 7, 2);
    painter.setPen(QPen(painter.brush().color(), 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({{2, 2.6}, {3.8, 1}, {3.8, 7}}));
    painter.drawPolyline(
        QPolygonF({{1.8, 10.4}, {2.6, 9.3}, {4.2, 9.3}, {5, 10.6}, {1.8, 14.8}, {5.6, 14.8}}));
}

/// A letter.
void drawAccount(QPainter &painter) {
    const QColor ink = painter.brush().color();
    painter.setPen(QPen(ink, 1.4));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(1.5, 3, 13, 10), 1.5, 1.5);
    painter.drawPolyline(QPolygonF({{2.5, 4.5}, {8, 9}, {13.5, 4.5}}));
}

void drawPerson(QPainter &painter) {
    painter.drawEllipse(QPointF(8, 5), 3.2, 3.2);
    QPainterPath shoulders;
    shoulders.moveTo(1.8, 14.5);
    shoulders.cubicTo(1.8, 8, 14.2, 8, 14.2, 14.5);
    shoulders.closeSubpath();
    painter.drawPath(shoulders);
}

/// Scales a drawing of `side` by `side` units to any size.
class DrawnEngine : public QIconEngine {
public:
    explicit DrawnEngine(double side) : side_(side) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode,
               QIcon::State /*state*/) final {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / side_, rect.height() / side_);
        painter->setPen(Qt::NoPen);
        draw(*painter, mode);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) final {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, drawn.rect(), mode, state);
        return drawn;
    }

private:
    virtual void draw(QPainter &painter, QIcon::Mode mode) = 0;

    double side_;
};

class PictureEngine final : public DrawnEngine {
public:
    explicit PictureEngine(Picture picture) : DrawnEngine(16), picture_(picture) {}

    [[nodiscard]] QIconEngine *clone() const override { return new PictureEngine(picture_); }

private:
    void draw(QPainter &painter, QIcon::Mode mode) override {
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::Text;
        painter.setBrush(palette.color(group, role));
        switch (picture_) {
        case Picture::inOrder:
            drawInOrder(painter);
            break;
        case Picture::account:
            drawAccount(painter);
            break;
        case Picture::person:
            drawPerson(painter);
            break;
        }
    }

    Picture picture_;
};

/// Draws the same as resources/kvexrules.svg: a message with a list of rules.
class ProductEngine final : public DrawnEngine {
public:
    ProductEngine() : DrawnEngine(64) {}

    [[nodiscard]] QIconEngine *clone() const override { return new ProductEngine; }

private:
    void draw(QPainter &painter, QIcon::Mode /*mode*/) override {
        QPainterPath bubble;
        bubble.addRoundedRect(3, 4, 58, 46, 7, 7);
        QPainterPath tail;
        tail.addPolygon(QPolygonF({{16, 48}, {16, 62}, {30, 50}, {30, 48}, {16, 48}}));
        painter.fillPath(bubble.united(tail), QColor(0x1c, 0x5d, 0x99));
        painter.setBrush(Qt::white);
        painter.drawRect(25, 12, 28, 6);
        painter.drawRect(25, 24, 28, 6);
        painter.drawRect(25, 36, 18, 6);
        painter.drawEllipse(QPointF(15, 27), 4.5, 4.5);
        painter.drawEllipse(QPointF(15, 39), 4.5, 4.5);
        painter.setBrush(QColor(0xff, 0xd1, 0x66));
        painter.drawEllipse(QPointF(15, 15), 4.5, 4.5);
    }
};

} // namespace

QIcon iconOf(Picture picture) {
    return QIcon(new PictureEngine(picture));
}

QIcon productIcon() {
    return QIcon(new ProductEngine);
}

} // namespace kvex::qt
