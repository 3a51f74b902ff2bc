// Where the square lies that is cut out of a picture, and what it becomes when it is
// dragged. Lengths are device-independent pixels of the picture as it is shown, unless
// said otherwise.
#pragma once

#include <QRect>
#include <QSize>

namespace CutGeometry {

constexpr int Tolerance = 3; // how far from an edge it can still be taken hold of
constexpr int SmallestSide = 25;
constexpr int StartSide = 100;
constexpr int RoomToStart = 120; // a picture with less on a side starts as large as it can

// What a drag takes hold of: a combination of edges, or all of them to move the frame.
enum Grip
{
    None = 0,
    Left = 1,
    Top = 2,
    Right = 4,
    Bottom = 8,
    Whole = Left | Top | Right | Bottom
};

// The sides that the frame may have in a picture of this size.
struct Limits
{
    QSize area;
    int smallest;
    int largest;
};
Limits limits(const QSize &shown, const QSize &bound);

// The size of a picture in the bound: its own, or as large as fits. Never empty for a
// picture that is not, however long and thin it is.
QSize shownSize(const QSize &picture, const QSize &bound);

// The frame at first: in the middle.
QRect startFrame(const QSize &shown, const QSize &bound);

// What a press at the point takes hold of; corners before edges. None outside.
int gripAt(const QRect &frame, const QPoint &point);
Qt::CursorShape cursorOf(int grip);

// The frame moved by so much, as far as the area goes.
QRect moved(const QRect &frame, const QPoint &by, const QSize &area);

// The frame whose edge or corner was dragged by so much. The opposite edge or corner
// stays where it is, with an edge also the top or the left; a corner follows the
// direction in which it came farther.
QRect resized(const QRect &frame, int grip, const QPoint &by, const Limits &limits);

// The frame with a side longer by so much (shorter when negative). Its middle stays
// where it is, unless that would lead out of the area.
QRect grown(const QRect &frame, int by, const Limits &limits);

// What the frame cuts out of the picture, in pixels of the picture: a square inside
// it, empty when the frame does not touch it. `frame` is relative to what is shown.
QRect sourceRect(const QRect &frame, const QSize &shown, const QSize &picture);

} // namespace CutGeometry
