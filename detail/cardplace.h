// Where the floating card goes: beside the row that it tells of, on the row's screen.
#pragma once

#include <QPoint>
#include <QRect>
#include <QVector>

namespace CardPlace {

// The card's top left on a desktop of `desktopWidth` by `desktopHeight` whose corner is
// 0,0. x, y: the edge of the row where the card is to go, at its top; `rowWidth`: the
// row's. May be beyond the desktop where it has room on neither side.
QPoint cardPos(int x, int y, int rowWidth, bool preferLeft, int cardWidth, int cardHeight,
               int desktopWidth, int desktopHeight);

// The row that a card is shown for: a point as above, in the coordinates of all screens.
struct Anchor
{
    QPoint edge;
    int width = 0;
    bool preferLeft = false;
};

// The same among the screens' areas: on the one with the anchor, or next to it, and
// wholly inside of it, or at its top left corner when the card is larger.
QPoint onScreens(const Anchor &wanted, const QSize &card, const QVector<QRect> &screens);

} // namespace CardPlace
