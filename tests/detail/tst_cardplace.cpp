// Where the floating card goes.
#include "detail/cardplace.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

#include <limits>

using CardPlace::Anchor;

class TstCardPlace : public QObject
{
    Q_OBJECT

private slots:
    // A card of 300 by 400 on a desktop of 800 by 600.
    void oneDesktop_data()
    {
        const Rows<int, int, int, bool, QPoint> row{"x", "y", "width", "left", "place"};
        row("right", 200, 100, 50, false, QPoint(200, 100));
        row("right, just", 501, 100, 50, false, QPoint(501, 100));
        row("right, no room", 502, 100, 50, false, QPoint(152, 100));
        row("right, no room on either side", 502, 100, 450, false, QPoint(-248, 100));
        row("left", 400, 100, 50, true, QPoint(100, 100));
        row("left, just", 300, 100, 50, true, QPoint(0, 100));
        row("left, no room", 299, 100, 50, true, QPoint(349, 100));
        row("the bottom, just", 200, 200, 50, false, QPoint(200, 200));
        row("the bottom", 200, 201, 50, false, QPoint(200, 200));
        row("below the bottom", 200, 700, 50, false, QPoint(200, 200));
    }

    void oneDesktop()
    {
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(int, width);
        QFETCH(bool, left);
        QTEST(CardPlace::cardPos(x, y, width, left, 300, 400, 800, 600), "place");
    }

    // Screens of 800 by 600 at 0,0 and of 1000 by 700 to its right or left.
    void twoScreens_data()
    {
        const Rows<QRect, QPoint, int, bool, QPoint> row{"second", "edge", "width", "left",
                                                         "place"};
        const QRect right(800, 0, 1000, 700);
        const QRect left(-1000, -100, 1000, 700);
        row("first", right, QPoint(200, 100), 150, false, QPoint(200, 100));
        row("not across the border", right, QPoint(700, 100), 150, false, QPoint(250, 100));
        row("a row that ends at the border", right, QPoint(800, 100), 150, false, QPoint(350, 100));
        row("second", right, QPoint(1000, 100), 150, false, QPoint(1000, 100));
        row("second, its right edge", right, QPoint(1700, 100), 150, false, QPoint(1250, 100));
        row("second, to the left", right, QPoint(1000, 100), 150, true, QPoint(1150, 100));
        row("second is lower", right, QPoint(1000, 650), 150, false, QPoint(1000, 300));
        row("negative", left, QPoint(-900, -50), 150, false, QPoint(-900, -50));
        row("negative, its bottom", left, QPoint(-900, 590), 150, false, QPoint(-900, 200));
        row("negative, its right edge", left, QPoint(-100, 0), 150, false, QPoint(-550, 0));
        row("negative, to the left", left, QPoint(-950, 0), 150, true, QPoint(-800, 0));
        row("one column out", right, QPoint(501, 0), 150, false, QPoint(500, 0));
        row("no room on either side", right, QPoint(600, 0), 500, false, QPoint(0, 0));
        row("beside all screens", right, QPoint(400, -80), 150, false, QPoint(400, 0));
        row("one that is gone", right, QPoint(9000, 9000), 150, false, QPoint(1500, 300));
        constexpr int least = std::numeric_limits<int>::min();
        row("nowhere", right, QPoint(least, least), least, false, QPoint(0, 0));
        row("nowhere else", left, -QPoint(least + 1, least + 1), -(least + 1), true,
            QPoint(500, 200));
    }

    void twoScreens()
    {
        QFETCH(QRect, second);
        QFETCH(QPoint, edge);
        QFETCH(int, width);
        QFETCH(bool, left);
        QTEST(CardPlace::onScreens({edge, width, left}, QSize(300, 400),
                                   {QRect(0, 0, 800, 600), second}),
              "place");
    }

    void largerThanTheScreen()
    {
        QCOMPARE(CardPlace::onScreens({QPoint(900, 500), 100, false}, QSize(1200, 900),
                                      {QRect(500, 200, 800, 600)}),
                 QPoint(500, 200));
    }
};

FRIENDUI_TEST(TstCardPlace)
#include "tst_cardplace.moc"
