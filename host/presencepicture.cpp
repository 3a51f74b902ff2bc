#include "host/presencepicture.h"

#include <QPainter>
#include <QPixmap>

namespace {

constexpr int Size = 16;

void paint(QPainter &painter, PresenceData::ePcShowType show)
{
    const QRectF disc(2.5, 2.5, 11, 11);
    const QPen mark(Qt::white, 2, Qt::SolidLine, Qt::RoundCap);
    const auto fill = [&](const QColor &colour) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(disc);
        painter.setPen(mark);
    };
    switch (show) {
    case PresenceData::Offline:
        painter.setPen(QPen(QColor(140, 146, 155), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(disc.adjusted(1, 1, -1, -1));
        break;
    case PresenceData::Available:
        fill(QColor(46, 160, 67));
        break;
    case PresenceData::FreeForChat:
        fill(QColor(46, 160, 67));
        painter.drawLine(QPointF(8, 5.5), QPointF(8, 10.5));
        painter.drawLine(QPointF(5.5, 8), QPointF(10.5, 8));
        break;
    case PresenceData::Away:
    case PresenceData::ExtendedAway:
        fill(QColor(219, 142, 18));
        painter.drawLine(QPointF(8, 5), QPointF(8, 8));
        painter.drawLine(QPointF(8, 8),
                         show == PresenceData::Away ? QPointF(10.5, 8) : QPointF(5.5, 8));
        break;
    case PresenceData::DoNotDisturb:
        fill(QColor(207, 52, 46));
        painter.drawLine(QPointF(5.5, 8), QPointF(10.5, 8));
        break;
    }
}

} // namespace

QIcon PresencePicture::icon(PresenceData::ePcShowType show)
{
    QIcon result;
    // The largest for tool bars, whose pictures are larger than this size.
    for (const qreal ratio : {1.0, 2.0, 4.0}) {
        QPixmap pixmap(QSize(Size, Size) * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        paint(painter, show);
        painter.end();
        result.addPixmap(pixmap);
    }
    return result;
}
