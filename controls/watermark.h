// The watermark behind pages that show the company's data: the product's name and
// the user's, tiled and tilted, as a picture file in the user's folder.
#pragma once

#include <QPoint>
#include <QSize>
#include <QString>
#include <QVector>

// The file for the user who is logged in and the skin of now; drawn if it does not
// exist yet. Empty when it cannot be stored.
QString watermarkFile();

// The style sheet that lays the watermark behind the widget of this object name, or
// takes it away. The widget needs Qt::WA_StyledBackground.
QString watermarkSheet(const QString &objectName, bool show);

namespace Watermark {

constexpr double Angle = 0.27911111111111114; // radians; what the picture's size allows for
constexpr int AngleDegrees = 16;              // what its rows are turned by

// Where the two texts of one tile begin, on their baseline, in the turned system.
struct Cell
{
    QPoint first;
    QPoint second;
};

struct Tiles
{
    QSize image;
    QVector<Cell> cells;
};

// The tiles that cover a desktop once they are turned. Sizes in pixels of the
// picture; font height and ascent are those of the texts' font.
Tiles tiles(const QSize &desktop, int firstWidth, int secondWidth, int fontHeight, int ascent);

// The file's base name: whatever could lead out of the folder becomes "_".
QString fileName(const QString &userName, const QString &colour);

// The style sheet for a picture file; an empty one takes the watermark away.
QString sheet(const QString &objectName, const QString &file);

} // namespace Watermark
