#include "detail/avatar/cutgeometry.h"

#include <QtGlobal>

#include <algorithm>

namespace {
int shorter(const QSize &size)
{
    return std::min(size.width(), size.height());
}

QRect inside(QRect frame, const QSize &area)
{
    frame.moveLeft(std::max(0, std::min(frame.left(), area.width() - frame.width())));
    frame.moveTop(std::max(0, std::min(frame.top(), area.height() - frame.height())));
    return frame;
}

// How far the edges of the grip came, outwards.
int outward(int grip, const QPoint &by)
{
    const int x = grip & CutGeometry::Left ? -by.x() : by.x();
    const int y = grip & CutGeometry::Top ? -by.y() : by.y();
    const bool horizontal = grip & (CutGeometry::Left | CutGeometry::Right);
    const bool vertical = grip & (CutGeometry::Top | CutGeometry::Bottom);
    if (horizontal && vertical)
        return std::abs(x) > std::abs(y) ? x : y;
    return horizontal ? x : y;
}
} // namespace

CutGeometry::Limits CutGeometry::limits(const QSize &shown, const QSize &bound)
{
    // A picture smaller than the smallest frame is taken as a whole.
    return {shown, std::min(SmallestSide, shorter(shown)),
            std::min(shorter(bound), shorter(shown))};
}

QSize CutGeometry::shownSize(const QSize &picture, const QSize &bound)
{
    if (picture.width() <= bound.width() && picture.height() <= bound.height())
        return picture;
    return picture.scaled(bound, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

QRect CutGeometry::startFrame(const QSize &shown, const QSize &bound)
{
    const bool hasRoom = shown.width() >= RoomToStart && shown.height() >= RoomToStart;
    const Limits limit = limits(shown, bound);
    const int side = qBound(limit.smallest, hasRoom ? StartSide : shorter(shown), limit.largest);
    return QRect((shown.width() - side) / 2, (shown.height() - side) / 2, side, side);
}

int CutGeometry::gripAt(const QRect &frame, const QPoint &point)
{
    const QRect around = frame.adjusted(-Tolerance, -Tolerance, Tolerance, Tolerance);
    if (!around.contains(point))
        return None;
    const auto isAt = [](int coordinate, int edge) {
        return std::abs(coordinate - edge) <= Tolerance;
    };
    int grip = None;
    if (isAt(point.x(), frame.left()))
        grip |= Left;
    else if (isAt(point.x(), frame.right()))
        grip |= Right;
    if (isAt(point.y(), frame.top()))
        grip |= Top;
    else if (isAt(point.y(), frame.bottom()))
        grip |= Bottom;
    return grip == None ? Whole : grip;
}

Qt::CursorShape CutGeometry::cursorOf(int grip)
{
    switch (grip) {
    case None:
        return Qt::ArrowCursor;
    case Left | Top:
    case Right | Bottom:
        return Qt::SizeFDiagCursor;
    case Right | Top:
    case Left | Bottom:
        return Qt::SizeBDiagCursor;
    case Left:
    case Right:
        return Qt::SizeHorCursor;
    case Top:
    case Bottom:
        return Qt::SizeVerCursor;
    default:
        return Qt::SizeAllCursor;
    }
}

QRect CutGeometry::moved(const QRect &frame, const QPoint &by, const QSize &area)
{
    return inside(frame.translated(by), area);
}

QRect CutGeometry::resized(const QRect &frame, int grip, const QPoint &by, const Limits &limits)
{
    const bool fromRight = grip & Left; // the right edge stays
    const bool fromBottom = grip & Top;
    const int roomX = fromRight ? frame.left() + frame.width() : limits.area.width() - frame.left();
    const int roomY =
        fromBottom ? frame.top() + frame.height() : limits.area.height() - frame.top();
    const int largest = std::min({limits.largest, roomX, roomY});
    const int side =
        std::min(std::max(frame.width() + outward(grip, by), limits.smallest), largest);
    return QRect(fromRight ? frame.left() + frame.width() - side : frame.left(),
                 fromBottom ? frame.top() + frame.height() - side : frame.top(), side, side);
}

QRect CutGeometry::grown(const QRect &frame, int by, const Limits &limits)
{
    const int side = qBound(limits.smallest, frame.width() + by, limits.largest);
    const QPoint middle(frame.left() + frame.width() / 2, frame.top() + frame.height() / 2);
    return inside(QRect(middle.x() - side / 2, middle.y() - side / 2, side, side), limits.area);
}

QRect CutGeometry::sourceRect(const QRect &frame, const QSize &shown, const QSize &picture)
{
    const QRect visible = frame.intersected(QRect(QPoint(), shown));
    if (visible.isEmpty() || picture.isEmpty())
        return QRect();
    const double factor = double(picture.width()) / shown.width();
    const int side = std::max(
        1, std::min({qRound(shorter(visible.size()) * factor), picture.width(), picture.height()}));
    // Rounded up, a frame at the edge would lead a pixel out of the picture.
    return QRect(std::min(qRound(visible.left() * factor), picture.width() - side),
                 std::min(qRound(visible.top() * factor), picture.height() - side), side, side);
}
