#include "controls/pictures.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <QtMath>

QString localPicture(const QString &path)
{
    const QString slashes = QDir::fromNativeSeparators(path);
    const bool isLocal = QDir::isAbsolutePath(slashes) &&
                         !slashes.startsWith(QLatin1String("//")) &&
                         !slashes.startsWith(QLatin1Char(':')) && !slashes.contains(QChar::Null);
    return isLocal ? path : QString();
}

QPixmap loadPicture(const QString &relativePath, int size, qreal pixelRatio, const QColor &tint)
{
    const QString key =
        QStringLiteral("friendui|%1|%2|%3|%4")
            .arg(relativePath, tint.isValid() ? tint.name(QColor::HexArgb) : QString(),
                 QString::number(size), QString::number(pixelRatio));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;

    const QString file = resourcePath(relativePath);
    const int dot = file.lastIndexOf(QLatin1Char('.'));
    const QString twice = file.left(dot) + QStringLiteral("@2x") + file.mid(dot);
    const int pixels = qCeil(size * pixelRatio);
    const QImage source(pixelRatio > 1 && QFile::exists(twice) ? twice : file);
    pixmap = QPixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(pixmap.rect(), source);
    if (tint.isValid()) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), tint);
    }
    painter.end();
    pixmap.setDevicePixelRatio(pixelRatio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

namespace {
template <class Cut>
QPixmap loadCut(const char *form, const QString &relativePath, int size, qreal pixelRatio, Cut cut)
{
    const QString key = QStringLiteral("friendui/%1/%2|%3|%4")
                            .arg(QLatin1String(form), relativePath, QString::number(size),
                                 QString::number(pixelRatio));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = cut(loadPicture(relativePath, size, pixelRatio));
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

QPixmap clipped(const QPixmap &square, const QPainterPath &shape)
{
    QPixmap result(square.size());
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(shape);
    painter.drawPixmap(result.rect(), square);
    painter.end();
    result.setDevicePixelRatio(square.devicePixelRatioF());
    return result;
}
} // namespace

QPixmap loadRoundPicture(const QString &relativePath, int size, qreal pixelRatio)
{
    return loadCut("round", relativePath, size, pixelRatio, rounded);
}

QPixmap loadSquarePicture(const QString &relativePath, int size, qreal pixelRatio)
{
    return loadCut("square", relativePath, size, pixelRatio, withRoundCorners);
}

QPixmap rounded(const QPixmap &square)
{
    QPainterPath circle;
    circle.addEllipse(square.rect());
    return clipped(square, circle);
}

QPixmap withRoundCorners(const QPixmap &square)
{
    constexpr qreal RadiusShare = 0.2; // of the side
    QPainterPath shape;
    shape.addRoundedRect(square.rect(), square.width() * RadiusShare,
                         square.height() * RadiusShare);
    return clipped(square, shape);
}
