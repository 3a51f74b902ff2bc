// Where pictures come from.
#pragma once

#include "Resources/frienduiresources.h"

#include <QColor>
#include <QPixmap>
#include <QString>

// A picture file that another person's record names, or empty when it is not one of
// this machine: a share on the network would be told who the user is.
QString localPicture(const QString &path);

// A picture as a pixmap `size` device-independent pixels square, sharp at the
// given pixel ratio; a valid colour replaces the colours of a glyph. Cached.
QPixmap loadPicture(const QString &relativePath, int size, qreal pixelRatio,
                    const QColor &tint = QColor());

// The same cut to a circle, for portraits.
QPixmap loadRoundPicture(const QString &relativePath, int size, qreal pixelRatio);

// The same with the round corners of what is no person.
QPixmap loadSquarePicture(const QString &relativePath, int size, qreal pixelRatio);

// What of a square pixmap lies in its circle.
QPixmap rounded(const QPixmap &square);
// A square pixmap with its corners rounded off.
QPixmap withRoundCorners(const QPixmap &square);
