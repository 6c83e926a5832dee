#include "adapters/qt/Pictures.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace kvex::qt {
namespace {

/// The pictures are drawn on a square of this side.
constexpr double side = 16;

void drawSortAscending(QPainter &painter) {
    painter.drawPolygon(QPolygonF({{8, 4.5}, {12.5, 10.5}, {3.5, 10.5}}));
}

/// A page with lines, held by the server: a rounded card with three lines of text.
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

class PictureEngine final : public QIconEngine {
public:
    explicit PictureEngine(Picture picture) : picture_(picture) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode,
               QIcon::State /*state*/) override {
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::Text;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / side, rect.height() / side);
        painter->setPen(Qt::NoPen);
        painter->setBrush(palette.color(group, role));
        switch (picture_) {
        case Picture::sortAscending:
            drawSortAscending(*painter);
            break;
        case Picture::account:
            drawAccount(*painter);
            break;
        case Picture::person:
            drawPerson(*painter);
            break;
        }
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, drawn.rect(), mode, state);
        return drawn;
    }

    [[nodiscard]] QIconEngine *clone() const override { return new PictureEngine(picture_); }

private:
    Picture picture_;
};

} // namespace

QIcon iconOf(Picture picture) {
    return QIcon(new PictureEngine(picture));
}

} // namespace kvex::qt
