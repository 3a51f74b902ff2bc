// Pictures from files and from the clipboard, as the user may make their own of them.
#pragma once

#include <QImage>
#include <QString>

namespace HeadPicture {

constexpr int MaximumSide = 8192; // pixels
constexpr qint64 MaximumFileSize = 64 * 1024 * 1024;

enum class Flaw
{
    None,
    Missing,   // there is no such file, or none to read
    NoPicture, // neither PNG nor JPEG, or not whole
    TooLarge   // more pixels on a side, or more bytes, than above
};

// A file and what it holds.
struct Picture
{
    Flaw flaw = Flaw::None;
    QImage image; // upright, RGB32 or ARGB32_Premultiplied in sRGB; null with a flaw
    QImage shown; // the same in the bound that was asked for
};

// Whether the name ends like that of a PNG or a JPEG file.
bool hasRightSuffix(const QString &file);

// Reads a file; what it is goes by its content. The size is looked at before anything
// is decoded. Of several pictures in one file it is the first. Its orientation is
// applied. `bound`: device pixels that `shown` has at most. For any thread.
Picture load(const QString &file, const QSize &bound);

// A picture in fewer pixels: fast, since of very many only some are looked at, yet smooth.
QImage reduced(const QImage &image, const QSize &size);

// The same for a picture that is there already, such as the clipboard's.
Picture of(QImage image, const QSize &bound);

} // namespace HeadPicture
