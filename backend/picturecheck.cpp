#include "backend/picturecheck.h"

#include <QBuffer>
#include <QImageReader>

namespace {
constexpr int LargestSide = 8192;
constexpr qint64 MostPixels = 32 * 1000 * 1000;

QString endingOf(const QByteArray &format)
{
    if (format == "jpeg")
        return QStringLiteral("jpg");
    for (const char *known : {"png", "gif", "bmp"}) {
        if (format == known)
            return QString::fromLatin1(known);
    }
    return {};
}
} // namespace

QString pictureEnding(const QByteArray &content)
{
    QBuffer buffer;
    buffer.setData(content);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QString ending = endingOf(reader.format());
    if (ending.isEmpty())
        return {};
    // A small file can claim a size that fills the memory.
    const QSize size = reader.size();
    if (!size.isValid() || size.isEmpty() || qMax(size.width(), size.height()) > LargestSide ||
        qint64(size.width()) * size.height() > MostPixels)
        return {};
    return reader.read().isNull() ? QString() : ending;
}
