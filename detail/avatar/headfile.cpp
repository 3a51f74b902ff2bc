#include "detail/avatar/headfile.h"

#include "common/logging.h"
#include "common/platform.h"
#include "detail/avatar/headpicture.h"

#include <QDateTime>
#include <QDir>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>
#include <QtMath>

namespace {
constexpr int BestQuality = 100;

// Two pictures in one millisecond are not the same file.
QString unusedName(const QDir &folder)
{
    QDateTime time = QDateTime::currentDateTime();
    for (;;) {
        const QString name =
            time.toString(QStringLiteral("yyyyMMddhhmmsszzz")) + QStringLiteral(".jpg");
        if (!folder.exists(name))
            return folder.filePath(name);
        time = time.addMSecs(1);
    }
}
} // namespace

QImage HeadFile::finished(const QImage &cut)
{
    if (cut.isNull())
        return QImage();
    const bool isLarge = cut.width() > MaximumSide || cut.height() > MaximumSide;
    const QImage small = isLarge ? cut.scaled(MaximumSide, MaximumSide, Qt::IgnoreAspectRatio,
                                              Qt::SmoothTransformation)
                                 : cut;
    // Painted anew: an image carries along what its file said of itself.
    QImage plain(small.size(), QImage::Format_RGB32);
    plain.fill(Qt::white);
    QPainter painter(&plain);
    painter.drawImage(plain.rect(), small);
    return plain;
}

QString HeadFile::store(const QImage &picture, const QString &folder)
{
    const QDir place(folder);
    if (picture.isNull() || folder.isEmpty() || !place.mkpath(QStringLiteral("."))) {
        LOG_ERROR("there is no folder for the picture");
        return QString();
    }
    QSaveFile file(unusedName(place));
    if (file.open(QIODevice::WriteOnly)) {
        Platform::restrictToOwner(file);
        QImageWriter writer(&file, "jpg");
        writer.setQuality(BestQuality);
        if (writer.write(picture) && file.commit())
            return file.fileName();
    }
    LOG_ERROR("the picture cannot be stored: " << file.errorString());
    return QString();
}

QPixmap HeadFile::thumbnail(const QPixmap &picture, int side, qreal pixelRatio)
{
    const int pixels = qCeil(side * pixelRatio);
    QPixmap small =
        QPixmap::fromImage(HeadPicture::reduced(picture.toImage(), QSize(pixels, pixels)));
    small.setDevicePixelRatio(pixelRatio);
    return small;
}
