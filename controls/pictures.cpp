#include "controls/pictures.h"

#include "Resources/frienduiresources.h"

#include <QCoreApplication>
#include <QFile>
#include <QIcon>
#include <QPainter>
#include <QPixmapCache>
#include <QtMath>

QString resourcePath(const QString &relativePath)
{
    if (QFile::exists(relativePath))
        return relativePath;
    const QString beside = QCoreApplication::applicationDirPath() + QLatin1Char('/') + relativePath;
    if (QFile::exists(beside))
        return beside;
    initFriendUiResources();
    return QStringLiteral(":/FriendUI/") + relativePath;
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

    // The icon engine picks the @2x file by itself.
    const QIcon icon(resourcePath(relativePath));
    const int pixels = qCeil(size * pixelRatio);
    QPixmap source = icon.pixmap(QSize(pixels, pixels));
    source.setDevicePixelRatio(1);
    pixmap = QPixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(pixmap.rect(), source);
    if (tint.isValid()) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), tint);
    }
    painter.end();
    pixmap.setDevicePixelRatio(pixelRatio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}
