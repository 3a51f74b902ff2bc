// Pictures for tests, as bytes of a file: good ones, and what comes instead of them.
#pragma once

#include <QByteArray>
#include <QImage>

namespace PictureMaker {

// A different colour in each quarter: red and green above, blue and yellow below.
QImage quarters(const QSize &size);

QByteArray png(const QImage &image);
QByteArray jpeg(const QImage &image);

// A JPEG with a camera's note of how it was held (1 to 8) and where it was: the text
// "GPS".
QByteArray jpegHeld(const QImage &image, int orientation);
// The head of a PNG of that size and hardly any pixels.
QByteArray pngBomb(int side);
// A PNG with a second frame for those who show animations.
QByteArray animatedPng(const QImage &first, const QImage &second);

} // namespace PictureMaker
