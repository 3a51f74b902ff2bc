#include "backend/portrait.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace {
constexpr int Side = 256; // pixels

QColor colour(uchar hue, int saturation, int value)
{
    return QColor::fromHsv(hue * 359 / 255, saturation, value);
}

QColor skin(uchar number)
{
    static constexpr QRgb tones[] = {0xfff3d3b8, 0xffe8bd98, 0xffd29f74, 0xffa8734a, 0xff7b4f31};
    return QColor::fromRgb(tones[number % 5]);
}

QColor hair(uchar number)
{
    static constexpr QRgb tones[] = {0xff1d1a1a, 0xff3a2a20, 0xff6b4a2b, 0xffa37a45, 0xff8d8d8d};
    return QColor::fromRgb(tones[number % 5]);
}

void drawHair(QPainter *painter, uchar number)
{
    const QRectF head(78, 56, 100, 124);
    QPainterPath cap;
    cap.addEllipse(head.adjusted(-8, -12, 8, 0));
    QPainterPath face;
    face.addRect(0, number % 2 ? 104 : 92, Side, Side);
    painter->drawPath(cap.subtracted(face));
    if (number % 3 == 0) { // falls to the shoulders
        painter->drawRoundedRect(QRectF(66, 92, 18, 92), 9, 9);
        painter->drawRoundedRect(QRectF(172, 92, 18, 92), 9, 9);
    }
}
} // namespace

QByteArray drawPortrait(const QString &uid)
{
    const QByteArray digest = QCryptographicHash::hash(uid.toUtf8(), QCryptographicHash::Md5);
    const auto number = [&digest](int at) { return uchar(digest.at(at)); };
    QImage image(Side, Side, QImage::Format_RGB32);
    image.fill(colour(number(0), 90, 225));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour(number(0), 120, 200));
    painter.drawEllipse(QPointF(number(1), number(2)), 90, 90);
    painter.setBrush(colour(number(3), 150, 140)); // clothes
    painter.drawEllipse(QRectF(30, 190, 196, 160));
    painter.setBrush(skin(number(4)).darker(112));
    painter.drawRoundedRect(QRectF(106, 160, 44, 56), 20, 20);
    painter.setBrush(skin(number(4)));
    painter.drawEllipse(QRectF(78, 56, 100, 124));
    painter.setBrush(hair(number(5)));
    drawHair(&painter, number(6));
    painter.setBrush(QColor(40, 30, 30));
    painter.drawEllipse(QPointF(108, 122), 6, 6);
    painter.drawEllipse(QPointF(148, 122), 6, 6);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(150, 70, 70), 4, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(108, 128, 40, 30), 200 * 16, 140 * 16);
    painter.end();

    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}
