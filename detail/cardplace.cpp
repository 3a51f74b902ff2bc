#include "detail/cardplace.h"

#include <limits>

namespace {
// Beyond every screen, and yet small enough to be reckoned with.
constexpr int Farthest = 1 << 24;

int bounded(int value)
{
    return qBound(-Farthest, value, Farthest);
}

int distance(int at, int first, int last)
{
    return at < first ? first - at : at > last ? at - last : 0;
}

QRect screenAt(const QPoint &point, const QVector<QRect> &screens)
{
    QRect nearest;
    int smallest = std::numeric_limits<int>::max();
    for (const QRect &screen : screens) {
        const int away = distance(point.x(), screen.left(), screen.right()) +
                         distance(point.y(), screen.top(), screen.bottom());
        if (away < smallest) {
            smallest = away;
            nearest = screen;
        }
    }
    return nearest;
}
} // namespace

QPoint CardPlace::cardPos(int x, int y, int rowWidth, bool preferLeft, int cardWidth,
                          int cardHeight, int desktopWidth, int desktopHeight)
{
    int left = x;
    if (preferLeft)
        left = x >= cardWidth ? x - cardWidth : x + rowWidth;
    else if (x > desktopWidth - cardWidth + 1)
        left = x - cardWidth - rowWidth;
    const int top = y >= desktopHeight - cardHeight + 1 ? desktopHeight - cardHeight : y;
    return QPoint(left, top);
}

QPoint CardPlace::onScreens(const Anchor &wanted, const QSize &card, const QVector<QRect> &screens)
{
    const Anchor anchor{{bounded(wanted.edge.x()), bounded(wanted.edge.y())},
                        bounded(wanted.width),
                        wanted.preferLeft};
    // The row's own side of its edge: the pixel beyond may be the next screen's.
    const int inward = anchor.preferLeft ? 0 : 1;
    const QRect screen = screenAt(anchor.edge - QPoint(inward, 0), screens);
    const QPoint edge = anchor.edge - screen.topLeft();
    const QPoint place = cardPos(edge.x(), edge.y(), anchor.width, anchor.preferLeft, card.width(),
                                 card.height(), screen.width(), screen.height());
    const int left = qMax(0, qMin(place.x(), screen.width() - card.width()));
    const int top = qMax(0, qMin(place.y(), screen.height() - card.height()));
    return screen.topLeft() + QPoint(left, top);
}
