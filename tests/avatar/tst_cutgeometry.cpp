// The square that is cut out, in numbers.
#include "detail/avatar/cutgeometry.h"
#include "tests/support/testrunner.h"

using namespace CutGeometry;

namespace {
const QSize Bound(300, 300);
}

class TstCutGeometry : public QObject
{
    Q_OBJECT

private slots:
    void starts_data()
    {
        const Rows<QSize, QSize, QRect> row{"picture", "shown", "frame"};
        row("large, wide", QSize(6000, 4000), QSize(300, 200), QRect(100, 50, 100, 100));
        row("shown as it is", QSize(300, 299), QSize(300, 299), QRect(100, 99, 100, 100));
        row("one larger than the bound", QSize(301, 301), QSize(300, 300),
            QRect(100, 100, 100, 100));
        row("just room", QSize(120, 120), QSize(120, 120), QRect(10, 10, 100, 100));
        row("no room, high", QSize(119, 500), QSize(71, 300), QRect(0, 114, 71, 71));
        row("no room, in the bound", QSize(119, 300), QSize(119, 300), QRect(0, 90, 119, 119));
        row("no room, wide", QSize(200, 119), QSize(200, 119), QRect(40, 0, 119, 119));
        row("tiny", QSize(10, 10), QSize(10, 10), QRect(0, 0, 10, 10));
        row("one pixel", QSize(1, 1), QSize(1, 1), QRect(0, 0, 1, 1));
        row("a line", QSize(8000, 1), QSize(300, 1), QRect(149, 0, 1, 1));
    }
    void starts()
    {
        QFETCH(QSize, picture);
        QFETCH(QRect, frame);
        QTEST(shownSize(picture, Bound), "shown");
        QCOMPARE(startFrame(shownSize(picture, Bound), Bound), frame);
    }

    void grips_data()
    {
        const Rows<QPoint, int, int> row{"point", "grip", "cursor"};
        // The frame covers 50 to 149 in both directions.
        row("middle", QPoint(100, 100), int(Whole), int(Qt::SizeAllCursor));
        row("far", QPoint(20, 20), int(None), int(Qt::ArrowCursor));
        row("left outside", QPoint(47, 100), int(Left), int(Qt::SizeHorCursor));
        row("beyond left", QPoint(46, 100), int(None), int(Qt::ArrowCursor));
        row("left inside", QPoint(53, 100), int(Left), int(Qt::SizeHorCursor));
        row("within left", QPoint(54, 100), int(Whole), int(Qt::SizeAllCursor));
        row("right", QPoint(152, 100), int(Right), int(Qt::SizeHorCursor));
        row("top", QPoint(100, 47), int(Top), int(Qt::SizeVerCursor));
        row("bottom", QPoint(100, 146), int(Bottom), int(Qt::SizeVerCursor));
        row("top left", QPoint(47, 53), Left | Top, int(Qt::SizeFDiagCursor));
        row("bottom right", QPoint(149, 149), Right | Bottom, int(Qt::SizeFDiagCursor));
        row("top right", QPoint(152, 47), Right | Top, int(Qt::SizeBDiagCursor));
        row("bottom left", QPoint(50, 152), Left | Bottom, int(Qt::SizeBDiagCursor));
    }
    void grips()
    {
        QFETCH(QPoint, point);
        QFETCH(int, cursor);
        const int grip = gripAt(QRect(50, 50, 100, 100), point);
        QTEST(grip, "grip");
        QCOMPARE(int(cursorOf(grip)), cursor);
    }

    void moves_data()
    {
        const Rows<QPoint, QPoint> row{"by", "corner"};
        row("a little", QPoint(7, -9), QPoint(57, 41));
        row("out at the top left", QPoint(-500, -51), QPoint(0, 0));
        row("out at the bottom right", QPoint(151, 5000), QPoint(200, 100));
    }
    void moves()
    {
        QFETCH(QPoint, by);
        QFETCH(QPoint, corner);
        QCOMPARE(moved(QRect(50, 50, 100, 100), by, QSize(300, 200)),
                 QRect(corner, QSize(100, 100)));
    }

    void resizes_data()
    {
        const Rows<int, QPoint, QRect> row{"grip", "by", "frame"};
        // The frame covers 50 to 149 in both directions of an area of 300 x 200.
        row("right", int(Right), QPoint(10, 99), QRect(50, 50, 110, 110));
        row("left", int(Left), QPoint(10, 99), QRect(60, 50, 90, 90));
        row("top", int(Top), QPoint(99, -10), QRect(50, 40, 110, 110));
        row("bottom", int(Bottom), QPoint(99, -10), QRect(50, 50, 90, 90));
        row("bottom right, farther down", Right | Bottom, QPoint(5, 20), QRect(50, 50, 120, 120));
        row("bottom right, inwards", Right | Bottom, QPoint(-20, 5), QRect(50, 50, 80, 80));
        row("top left", Left | Top, QPoint(-20, -10), QRect(30, 30, 120, 120));
        row("top right", Right | Top, QPoint(3, -10), QRect(50, 40, 110, 110));
        row("bottom left", Left | Bottom, QPoint(10, -30), QRect(80, 50, 70, 70));
        row("right, as far as there is room below", int(Right), QPoint(500, 0),
            QRect(50, 50, 150, 150));
        row("left, as far as there is room", int(Left), QPoint(-500, 0), QRect(0, 50, 150, 150));
        row("top left, as far as there is room", Left | Top, QPoint(-500, -500),
            QRect(0, 0, 150, 150));
        row("smallest, from the left", int(Left), QPoint(500, 0), QRect(125, 50, 25, 25));
        row("smallest, from the right", int(Right), QPoint(-500, 0), QRect(50, 50, 25, 25));
        row("smallest, from a corner", Left | Top, QPoint(90, 90), QRect(125, 125, 25, 25));
    }
    void resizes()
    {
        QFETCH(int, grip);
        QFETCH(QPoint, by);
        QTEST(resized(QRect(50, 50, 100, 100), grip, by, limits(QSize(300, 200), Bound)), "frame");
    }

    void neverBeyondItsBoundOrThePicture()
    {
        const Limits tall = limits(QSize(300, 200), QSize(300, 120));
        QCOMPARE(resized(QRect(0, 0, 100, 100), Right, QPoint(90, 0), tall).width(), 120);
        const Limits tiny = limits(QSize(10, 30), Bound);
        QCOMPARE(resized(QRect(0, 5, 10, 10), Bottom, QPoint(0, -8), tiny), QRect(0, 5, 10, 10));
    }

    void grows_data()
    {
        const Rows<QRect, int, QRect> row{"frame", "by", "wanted"};
        row("about its middle", QRect(50, 50, 100, 100), 20, QRect(40, 40, 120, 120));
        row("smaller", QRect(50, 50, 100, 100), -20, QRect(60, 60, 80, 80));
        row("smallest", QRect(50, 50, 100, 100), -500, QRect(88, 88, 25, 25));
        row("at the edge", QRect(0, 0, 100, 100), 20, QRect(0, 0, 120, 120));
        row("all there is", QRect(190, 90, 100, 100), 500, QRect(100, 0, 200, 200));
    }
    void grows()
    {
        QFETCH(QRect, frame);
        QFETCH(int, by);
        QTEST(grown(frame, by, limits(QSize(300, 200), Bound)), "wanted");
    }

    void growsAndShrinksBack()
    {
        const Limits area = limits(QSize(300, 200), Bound);
        const QRect before(71, 50, 99, 99);
        QRect frame = before;
        for (int i = 0; i < 20; ++i)
            frame = grown(frame, 1, area);
        for (int i = 0; i < 20; ++i)
            frame = grown(frame, -1, area);
        QCOMPARE(frame, before);
    }

    void cutsOut_data()
    {
        const Rows<QRect, QSize, QSize, QRect> row{"frame", "shown", "picture", "cut"};
        row("as it is", QRect(10, 20, 30, 30), QSize(100, 90), QSize(100, 90),
            QRect(10, 20, 30, 30));
        row("ten times", QRect(10, 20, 30, 30), QSize(300, 200), QSize(3000, 2000),
            QRect(100, 200, 300, 300));
        row("rounded at the end", QRect(0, 201, 99, 99), QSize(99, 300), QSize(333, 1000),
            QRect(0, 667, 333, 333));
        row("rounded at the right", QRect(275, 0, 25, 25), QSize(300, 300), QSize(750, 750),
            QRect(687, 0, 63, 63));
        row("partly outside", QRect(-10, -10, 30, 30), QSize(100, 100), QSize(200, 200),
            QRect(0, 0, 40, 40));
        row("outside", QRect(200, 0, 30, 30), QSize(100, 100), QSize(200, 200), QRect());
        row("nothing", QRect(0, 0, 30, 30), QSize(), QSize(), QRect());
        row("a line", QRect(149, 0, 1, 1), QSize(300, 1), QSize(8000, 1), QRect(3973, 0, 1, 1));
    }
    void cutsOut()
    {
        QFETCH(QRect, frame);
        QFETCH(QSize, shown);
        QFETCH(QSize, picture);
        QTEST(sourceRect(frame, shown, picture), "cut");
    }
};

FRIENDUI_TEST(TstCutGeometry)
#include "tst_cutgeometry.moc"
