#include "detail/avatar/headpicture.h"

#include "common/logging.h"
#include "detail/avatar/cutgeometry.h"

#include <QBuffer>
#include <QColorSpace>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <cstring>

namespace {

constexpr int SamplesPerPixel = 4; // in each direction

// The reader fills up with grey what a JPEG file lacks and says nothing of it.
bool isWholeJpeg(const QByteArray &bytes)
{
    const auto *at = reinterpret_cast<const uchar *>(bytes.constData());
    const auto *const end = at + bytes.size();
    while (end - at >= 2) {
        if (at[0] != 0xff) {
            at = static_cast<const uchar *>(std::memchr(at, 0xff, size_t(end - at)));
            if (!at)
                return false;
            continue;
        }
        const uchar marker = at[1];
        const bool isAlone = marker <= 0x01 || (marker >= 0xd0 && marker <= 0xd8);
        if (marker == 0xd9)
            return true;
        if (marker == 0xff)
            at += 1;
        else if (isAlone)
            at += 2;
        else if (end - at < 4)
            return false;
        else
            at += std::min<qint64>(end - at, 2 + (at[2] << 8 | at[3]));
    }
    return false;
}

bool isTooLarge(const QSize &size)
{
    return size.width() > HeadPicture::MaximumSide || size.height() > HeadPicture::MaximumSide;
}

// As the window and the file that is stored have it, whatever the picture came in.
QImage inScreenColors(QImage image)
{
    if (image.colorSpace().isValid() && image.colorSpace() != QColorSpace(QColorSpace::SRgb))
        image.convertToColorSpace(QColorSpace(QColorSpace::SRgb));
    const QImage::Format format =
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    return std::move(image).convertToFormat(format);
}

HeadPicture::Picture flawed(HeadPicture::Flaw flaw, const QString &why)
{
    LOG_ERROR("the picture cannot be used: " << logText(why));
    HeadPicture::Picture picture;
    picture.flaw = flaw;
    return picture;
}

} // namespace

bool HeadPicture::hasRightSuffix(const QString &file)
{
    const QString suffix = QFileInfo(file).suffix().toLower();
    return suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg") ||
           suffix == QLatin1String("png");
}

QImage HeadPicture::reduced(const QImage &image, const QSize &size)
{
    const QSize sampled = size * SamplesPerPixel;
    const bool hasMany = image.width() > sampled.width() && image.height() > sampled.height();
    return (hasMany ? image.scaled(sampled) : image)
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

HeadPicture::Picture HeadPicture::load(const QString &path, const QSize &bound)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return flawed(Flaw::Missing, file.errorString());
    if (file.size() > MaximumFileSize)
        return flawed(Flaw::TooLarge, QStringLiteral("too many bytes"));
    // As a whole, so that nothing that happens to the file meanwhile spoils it.
    QBuffer bytes;
    bytes.setData(file.readAll());
    QImageReader reader(&bytes);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (!reader.canRead() || (reader.format() != "png" && reader.format() != "jpeg"))
        return flawed(Flaw::NoPicture, QStringLiteral("neither PNG nor JPEG"));
    const QSize size = reader.size();
    if (!size.isValid() || isTooLarge(size))
        return flawed(size.isValid() ? Flaw::TooLarge : Flaw::NoPicture,
                      QStringLiteral("its size"));
    if (reader.format() == "jpeg" && !isWholeJpeg(bytes.data()))
        return flawed(Flaw::NoPicture, QStringLiteral("its end is missing"));
    QImage image = reader.read();
    if (image.isNull())
        return flawed(Flaw::NoPicture, reader.errorString());
    bytes.close();
    bytes.setData(QByteArray()); // as much memory as the file is long
    return of(std::move(image), bound);
}

HeadPicture::Picture HeadPicture::of(QImage image, const QSize &bound)
{
    if (image.isNull())
        return flawed(Flaw::NoPicture, QStringLiteral("there is none"));
    if (isTooLarge(image.size()))
        return flawed(Flaw::TooLarge, QStringLiteral("its size"));
    Picture picture;
    const QSize size = image.size();
    picture.image = inScreenColors(std::move(image));
    // A pixel of it is one of the screen, whatever the resolution it was made for.
    picture.image.setDevicePixelRatio(1);
    const QSize shown = CutGeometry::shownSize(size, bound);
    picture.shown = shown == size ? picture.image : reduced(picture.image, shown);
    return picture;
}
