#include "tests/avatar/picturemaker.h"

#include <QBuffer>
#include <QPainter>
#include <QtEndian>

namespace {
constexpr int PngSignature = 8; // bytes, as all below
constexpr int PngHeader = 25;   // the first chunk
constexpr int PngEnd = 12;      // the last chunk

QByteArray written(const QImage &image, const char *format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 90);
    return buffer.data();
}

template <class Number> QByteArray bigEndian(Number number)
{
    QByteArray bytes(sizeof number, Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

quint32 crc(const QByteArray &bytes)
{
    quint32 sum = 0xffffffff;
    for (const char byte : bytes) {
        sum ^= uchar(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum & 1 ? 0xedb88320 ^ sum >> 1 : sum >> 1;
    }
    return ~sum;
}

QByteArray chunk(const QByteArray &type, const QByteArray &data)
{
    return bigEndian(quint32(data.size())) + type + data + bigEndian(crc(type + data));
}

// The compressed pixels of a PNG.
QByteArray pixelsOf(const QByteArray &png)
{
    QByteArray pixels;
    for (int at = PngSignature; at + PngEnd <= png.size();) {
        const auto length = int(qFromBigEndian<quint32>(png.constData() + at));
        if (png.mid(at + 4, 4) == "IDAT")
            pixels += png.mid(at + 8, length);
        at += PngEnd + length;
    }
    return pixels;
}

QByteArray tag(quint16 id, quint16 type, quint32 count, const QByteArray &value)
{
    return bigEndian(id) + bigEndian(type) + bigEndian(count) + value;
}
} // namespace

QImage PictureMaker::quarters(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    const QSize half = size / 2;
    painter.fillRect(image.rect(), Qt::yellow);
    painter.fillRect(QRect(QPoint(), half), Qt::red);
    painter.fillRect(QRect(QPoint(half.width(), 0), half), Qt::green);
    painter.fillRect(QRect(QPoint(0, half.height()), half), Qt::blue);
    return image;
}

QByteArray PictureMaker::png(const QImage &image)
{
    return written(image, "png");
}

QByteArray PictureMaker::jpeg(const QImage &image)
{
    return written(image, "jpg");
}

QByteArray PictureMaker::jpegHeld(const QImage &image, int orientation)
{
    constexpr quint16 Short = 3;
    constexpr quint16 Text = 2;
    const QByteArray tiff =
        QByteArray("MM\0\x2a", 4) + bigEndian(quint32(8)) + bigEndian(quint16(2)) +
        tag(0x010f, Text, 4, QByteArray("GPS", 4)) +
        tag(0x0112, Short, 1, bigEndian(quint16(orientation)) + bigEndian(quint16(0))) +
        bigEndian(quint32(0));
    const QByteArray exif = QByteArray("Exif\0\0", 6) + tiff;
    QByteArray bytes = jpeg(image);
    bytes.insert(2, "\xff\xe1" + bigEndian(quint16(exif.size() + 2)) + exif);
    return bytes;
}

QByteArray PictureMaker::pngBomb(int side)
{
    const QByteArray whole = png(quarters(QSize(4, 4)));
    const QByteArray header =
        bigEndian(quint32(side)) + bigEndian(quint32(side)) + whole.mid(PngSignature + 16, 5);
    return whole.left(PngSignature) + chunk("IHDR", header) + whole.mid(PngSignature + PngHeader);
}

QByteArray PictureMaker::animatedPng(const QImage &first, const QImage &second)
{
    const QByteArray whole = png(first);
    const auto control = [&first](quint32 number) {
        return chunk("fcTL", bigEndian(number) + bigEndian(quint32(first.width())) +
                                 bigEndian(quint32(first.height())) + QByteArray(8, '\0') +
                                 bigEndian(quint16(1)) + bigEndian(quint16(10)) +
                                 QByteArray(2, '\0'));
    };
    const int body = PngSignature + PngHeader;
    return whole.left(body) + chunk("acTL", bigEndian(quint32(2)) + bigEndian(quint32(0))) +
           control(0) + whole.mid(body, whole.size() - body - PngEnd) + control(1) +
           chunk("fdAT", bigEndian(quint32(2)) + pixelsOf(png(second))) + whole.right(PngEnd);
}
