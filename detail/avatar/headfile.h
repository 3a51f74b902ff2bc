// The file that the user's new picture is stored in and uploaded from.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QString>

namespace HeadFile {

constexpr int MaximumSide = 800; // pixels

// The cut as it is stored: at most 800 x 800, white where one could see through it,
// nothing but pixels. `cut` is a square.
QImage finished(const QImage &cut);

// Stores a finished picture as JPEG under a new name in the folder, which is made when
// it is missing. The path, or empty when it cannot be stored; then nothing is left of
// it. For any thread.
QString store(const QImage &picture, const QString &folder);

// A square pixmap of so many device-independent pixels. Fast for large ones: what a
// thumbnail does not show is not looked at.
QPixmap thumbnail(const QPixmap &picture, int side, qreal pixelRatio);

} // namespace HeadFile
