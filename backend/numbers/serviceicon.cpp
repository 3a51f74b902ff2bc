#include "backend/numbers/serviceicon.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace {
constexpr int Side = 180; // pixels

void drawPage(QPainter *painter)
{
    painter->drawRoundedRect(QRectF(54, 42, 72, 96), 8, 8);
    painter->setCompositionMode(QPainter::CompositionMode_DestinationOut);
    for (const int y : {62, 82, 102})
        painter->drawRoundedRect(QRectF(68, y, y == 102 ? 28 : 44, 8), 4, 4);
}

void drawBell(QPainter *painter)
{
    QPainterPath bell(QPointF(46, 122));
    bell.cubicTo(66, 108, 52, 52, 90, 48);
    bell.cubicTo(128, 52, 114, 108, 134, 122);
    bell.closeSubpath();
    painter->drawPath(bell);
    painter->drawEllipse(QPointF(90, 44), 8, 8);
    painter->drawEllipse(QPointF(90, 130), 12, 10);
}

void drawBars(QPainter *painter)
{
    for (int i = 0; i < 4; ++i) {
        const int height = 30 + (i * 37) % 66;
        painter->drawRoundedRect(QRectF(46 + i * 24, 132 - height, 16, height), 4, 4);
    }
}

void drawCalendar(QPainter *painter)
{
    painter->drawRoundedRect(QRectF(46, 52, 88, 80), 10, 10);
    painter->drawRoundedRect(QRectF(64, 40, 10, 22), 5, 5);
    painter->drawRoundedRect(QRectF(106, 40, 10, 22), 5, 5);
    painter->setCompositionMode(QPainter::CompositionMode_DestinationOut);
    for (int i = 0; i < 6; ++i)
        painter->drawRoundedRect(QRectF(58 + i % 3 * 24, 82 + i / 3 * 22, 14, 14), 3, 3);
}

void drawBubble(QPainter *painter)
{
    painter->drawRoundedRect(QRectF(42, 48, 96, 66), 20, 20);
    painter->drawPolygon(QVector<QPointF>{{66, 106}, {66, 136}, {94, 110}});
    painter->setCompositionMode(QPainter::CompositionMode_DestinationOut);
    for (const int x : {66, 90, 114})
        painter->drawEllipse(QPointF(x, 81), 7, 7);
}

void drawCup(QPainter *painter)
{
    painter->drawRoundedRect(QRectF(48, 62, 64, 66), 14, 14);
    painter->drawEllipse(QPointF(116, 88), 20, 20);
    painter->drawRoundedRect(QRectF(40, 132, 82, 8), 4, 4);
    painter->setCompositionMode(QPainter::CompositionMode_DestinationOut);
    QPainterPath hole;
    hole.addEllipse(QPointF(116, 88), 11, 11);
    QPainterPath cup;
    cup.addRect(0, 0, 112, Side);
    painter->drawPath(hole.subtracted(cup));
}
} // namespace

QByteArray drawServiceIcon(const QString &code)
{
    static constexpr void (*signs[])(QPainter *) = {drawPage,     drawBell,   drawBars,
                                                    drawCalendar, drawBubble, drawCup};
    const QByteArray digest = QCryptographicHash::hash(code.toUtf8(), QCryptographicHash::Md5);
    const auto number = [&digest](int at) { return uchar(digest.at(at)); };
    QImage sign(Side, Side, QImage::Format_ARGB32_Premultiplied);
    sign.fill(Qt::transparent);
    {
        QPainter painter(&sign);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::white);
        signs[number(0) % std::size(signs)](&painter);
    }
    QImage image(Side, Side, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(number(1) * 359 / 255, 150, 190));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 28));
    painter.drawEllipse(QPointF(number(2) * Side / 255, number(3) * Side / 255), 70, 70);
    painter.drawImage(0, 0, sign);
    painter.end();

    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}
