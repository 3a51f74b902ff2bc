// How the page of group chats looks.
#include "controls/avatarstore.h"
#include "controls/skin.h"
#include "tests/rooms/roomsfixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QLabel>
#include <QPainter>

namespace {
QImage pictureOfRow(const RoomsFixture &page, const char *user)
{
    const QRect row = page.view->visualRect(page.row(user));
    return page.view->viewport()->grab(row).toImage().convertToFormat(QImage::Format_RGB32);
}

// Columns of a picture in which a pixel differs from the other picture's.
QVector<int> differentColumns(const QImage &a, const QImage &b)
{
    QVector<int> columns;
    for (int x = 0; x < a.width(); ++x) {
        for (int y = 0; y < a.height(); ++y) {
            if (a.pixel(x, y) != b.pixel(x, y)) {
                columns.append(x);
                break;
            }
        }
    }
    return columns;
}
} // namespace

class TstMucLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        setSkin("light");
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    }

    // However long the name: the number of members is seen whole, and the margin free.
    void longNamesLeaveTheCount_data()
    {
        const Rows<QString, Qt::LayoutDirection> row{"name", "direction"};
        row("Latin", QString(10000, QLatin1Char('m')), Qt::LeftToRight);
        row("Chinese", QString(60, QChar(0x5f20)), Qt::LeftToRight);
        row("mirrored", QString(60, QLatin1Char('m')), Qt::RightToLeft);
    }

    void longNamesLeaveTheCount()
    {
        QFETCH(QString, name);
        QFETCH(Qt::LayoutDirection, direction);
        QGuiApplication::setLayoutDirection(direction);
        RoomsFixture page(false);
        MucData room = makeRoom("r1", name);
        room.memberCount = QStringLiteral("1");
        page.add(room);
        RoomsFixture::settle();
        const QImage one = pictureOfRow(page, "r1");
        emit page.hub()->signal_updateRoomMembers(QStringLiteral("7"), room.roomJid);
        const QVector<int> changed = differentColumns(one, pictureOfRow(page, "r1"));
        QVERIFY(!changed.isEmpty() && changed.size() < 12); // one digit
        const QColor ground = one.pixelColor(one.width() / 2, 1);
        for (int y = 0; y < one.height(); ++y) {
            for (int x = 0; x < 11; ++x) {
                QCOMPARE(one.pixelColor(x, y), ground);
                QCOMPARE(one.pixelColor(one.width() - 1 - x, y), ground);
            }
        }
    }

    void markupIsText()
    {
        RoomsFixture page(false);
        page.add(makeRoom("r1", QStringLiteral("<b>a</b>")));
        page.add(makeRoom("r2", QStringLiteral("a")));
        RoomsFixture::settle();
        QVERIFY(differentColumns(pictureOfRow(page, "r1"), pictureOfRow(page, "r2")).size() > 20);
    }

    void forbiddenMarkIsOverTheAvatar()
    {
        const RoomsFixture page;
        const QImage before = pictureOfRow(page, "r1");
        emit page.hub()->signal_setForbiddenIcon(roomJid("r1"), true);
        const QVector<int> changed = differentColumns(before, pictureOfRow(page, "r1"));
        QVERIFY(!changed.isEmpty());
        QVERIFY(changed.first() >= 12 && changed.last() < 12 + 32 + 6);
    }

    void shakeMovesTheAvatarAlone()
    {
        const RoomsFixture page;
        const QImage before = pictureOfRow(page, "r1");
        page.widget->slot_shakeRoom(roomJid("r1"));
        page.view->slot_shakeTimeOut();
        page.view->slot_shakeTimeOut(); // (2,0)
        const QImage after = pictureOfRow(page, "r1");
        QCOMPARE(after.copy(14, 0, 34, 44), before.copy(12, 0, 34, 44));
        QCOMPARE(after.copy(50, 0, 200, 44), before.copy(50, 0, 200, 44));
    }

    void hostilePictureShowsThePortrait()
    {
        RoomsFixture page(false);
        page.add(makeRoom("r1", QStringLiteral("a")));
        MucData bad = makeRoom("r2", QStringLiteral("a"));
        bad.headImage = QStringLiteral("/dev/null); border-image: url(x");
        page.add(bad);
        RoomsFixture::settle();
        pictureOfRow(page, "r2"); // asks for the picture
        QTRY_VERIFY(!AvatarStore::instance().isBusy());
        QCOMPARE(pictureOfRow(page, "r2"), pictureOfRow(page, "r1"));
    }

    void textsAreReadable_data()
    {
        const Rows<QString> row{"skin"};
        row("light", QStringLiteral("light"));
        row("dark", QStringLiteral("dark"));
    }

    void textsAreReadable()
    {
        QFETCH(QString, skin);
        setSkin(skin);
        const RoomsFixture page;
        const Skin::Colors &colors = Skin::instance().colors();
        QVERIFY(contrast(colors.text, colors.background) > 4.5);
        QCOMPARE(page.widget->grab().toImage().pixelColor(270, 490), colors.background);
    }

    // In the width that the pane leaves: nothing is cut, and the longer explanation
    // keeps its two lines.
    void fitsTheWidth_data()
    {
        const Rows<QString, QString, qreal> row{"skin", "language", "ratio"};
        row("light zh 1x", QStringLiteral("light"), QStringLiteral("zh_CN"), 1.0);
        row("light en 2x", QStringLiteral("light"), QStringLiteral("en"), 2.0);
        row("dark en 1x", QStringLiteral("dark"), QStringLiteral("en"), 1.0);
        row("dark zh 2x", QStringLiteral("dark"), QStringLiteral("zh_CN"), 2.0);
    }

    void fitsTheWidth()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        QFETCH(qreal, ratio);
        const Language translator(language);
        setSkin(skin);
        const QString name = QStringLiteral("rooms-%1-%2-%3-").arg(skin, language).arg(ratio);
        {
            const RoomsFixture page(false);
            emit page.hub()->signal_roomIsNull();
            keepPicture(pictureOf(page.widget.get(), ratio), name + QStringLiteral("empty-book"));
            page.widget->slot_localMucClicked();
            RoomsFixture::settle();
            const auto *text =
                page.widget->findChild<QLabel *>(QStringLiteral("labelMucExplanation"));
            QCOMPARE(text->height() / text->fontMetrics().lineSpacing(), 2);
            QVERIFY(page.localTab()->geometry().right() < page.widget->width());
            keepPicture(pictureOf(page.widget.get(), ratio), name + QStringLiteral("empty-local"));
        }
        RoomsFixture page(false);
        fill(&page);
        page.click("r2");
        QTest::mouseMove(page.view->viewport(), page.middleOf("r4"));
        RoomsFixture::settle();
        keepPicture(pictureOf(page.widget.get(), ratio), name + QStringLiteral("list"));
        page.openMenu("r2");
        keepPicture(pictureOf(page.menu(), ratio), name + QStringLiteral("menu"));
        page.menu()->close();
    }

private:
    static void fill(RoomsFixture *page)
    {
        const char *names[] = {"产品设计讨论组",
                               "Release 5.2",
                               "周五下午茶",
                               "Northern region sales and account managers, quarterly planning",
                               "质量保障",
                               "<b>R&D</b>",
                               ""};
        int number = 0;
        for (const char *name : names) {
            MucData room =
                makeRoom(("r" + QByteArray::number(number)).constData(), QString::fromUtf8(name));
            room.memberCount = QString::number(number * number * 7);
            room.forbidden = number == 2 || number == 4;
            page->add(room);
            ++number;
        }
        page->host.context.roomRoles.insert(roomJid("r2"), 1);
        RoomsFixture::settle();
    }
};

FRIENDUI_TEST(TstMucLook)
#include "tst_muclook.moc"
