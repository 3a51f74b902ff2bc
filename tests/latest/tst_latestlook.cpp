// Properties of what is painted.
#include "controls/rowpainter.h"
#include "tests/latest/latestfixture.h"
#include "tests/support/looks.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

namespace {

void fill(LatestFixture *page)
{
    FakeContext &context = page->host.context;
    FriendData wang;
    wang.jid = LatestFixture::jid(QStringLiteral("wang"));
    wang.nickName = QString::fromUtf8("王小明");
    context.addContact(wang);
    context.presences.insert(wang.jid, {PresenceData::Available, PresenceData::NoMobile});
    FriendData sales;
    sales.jid = LatestFixture::jid(QStringLiteral("long"));
    sales.outside = 1;
    sales.nickName = QStringLiteral("Maximiliana Featherstonehaugh-Cholmondeley of the Sales");
    context.addContact(sales);
    context.cooperation.insert(sales.jid, true);
    context.presences.insert(sales.jid, {PresenceData::Away, PresenceData::NoMobile});
    MucData room;
    room.roomJid = LatestFixture::room(QStringLiteral("plan"));
    room.roomName = QString::fromUtf8("产品规划 2026");
    room.forbidden = true;
    context.rooms.insert(room.roomJid, room);
    context.topSessions.insert(room.roomJid);

    page->receive(wang.jid, QString::fromUtf8("明天下午三点开会，请带上报告。"),
                  QStringLiteral("5 11:58"));
    for (int i = 0; i < 120; ++i)
        page->receive(sales.jid,
                      QStringLiteral("Could you send me the figures of the last quarter, please?"),
                      QStringLiteral("4 18:01"));
    MessageData inRoom =
        page->message(room.roomJid, QStringLiteral("{\"type\":\"file\",\"name\":\"plan.pdf\"}"),
                      QStringLiteral("2 09:15"));
    inRoom.fromJid = wang.jid;
    inRoom.kind = MessageData::Room;
    FakeHost::send(Inbound::MessageReceived, true, inRoom);
    MessageData old =
        page->message(LatestFixture::jid(QStringLiteral("dora")),
                      QString::fromUtf8("שלום, מה שלומך?"), QStringLiteral("1 08:00"));
    old.time = QStringLiteral("2025-12-31 23:59:00");
    old.displayName = QString::fromUtf8("דורה");
    FakeHost::send(Inbound::MessageReceived, true, old);
}

} // namespace

class TstLatestLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QStringLiteral("light")); }

    void rowsInEverySkin_data()
    {
        const Rows<QString, qreal, bool> row{"skin", "ratio", "mirrored"};
        row("light 1x", "light", 1, false);
        row("light 2x", "light", 2, false);
        row("dark 1x", "dark", 1, false);
        row("dark 2x", "dark", 2, false);
        row("light 2x from the right", "light", 2, true);
    }

    // What stands at the far side of a row stands clear of its texts, its badge in the
    // colour for it, a pinned row on a ground of its own.
    void rowsInEverySkin()
    {
        QFETCH(QString, skin);
        QFETCH(qreal, ratio);
        QFETCH(bool, mirrored);
        const Language language(QStringLiteral("zh_CN"));
        setSkin(skin);
        LatestFixture page;
        page.widget->setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
        keepPicture(pictureOf(page.widget.get(), ratio),
                    QStringLiteral("latest-empty-%1-%2").arg(skin).arg(ratio));
        fill(&page);
        QTRY_COMPARE(page.rows(), (QStringList{"plan", "wang", "long", "dora"}));
        page.view()->selectionModel()->setCurrentIndex(page.model()->index(1),
                                                       QItemSelectionModel::ClearAndSelect);
        const QImage image = pictureOf(page.view()->viewport(), ratio);
        keepPicture(image, QStringLiteral("latest-%1-%2%3")
                               .arg(skin)
                               .arg(ratio)
                               .arg(QLatin1String(mirrored ? "-rtl" : "")));
        const int width = page.view()->viewport()->width();
        const auto pixel = [&](int x, int y) {
            return image.pixelColor(int((mirrored ? width - 1 - x : x) * ratio), int(y * ratio));
        };
        const Skin::Colors &colors = Skin::instance().colors();
        QCOMPARE(pixel(3, 3), colors.side);
        QCOMPARE(pixel(3, 2 * RowPainter::RowHeight + 3), colors.background);

        // The third row: a long name beside "yesterday", a badge of three characters.
        const int top = 2 * RowPainter::RowHeight;
        const int time = width - RowPainter::Margin -
                         QFontMetrics(skinFont(11)).horizontalAdvance(QObject::tr("yesterday"));
        for (int y = top + 3; y < top + 20; ++y) {
            QCOMPARE(pixel(time - 5, y), colors.background);
            QCOMPARE(pixel(width - RowPainter::Margin + 2, y), colors.background);
        }
        QCOMPARE(pixel(width - RowPainter::Margin - 3, top + 32), colors.danger);
        QVERIFY(page.of(LatestFixture::jid(QStringLiteral("long")), LatestRole::Unread).toInt() >
                99);
    }

    void badge_data()
    {
        const Rows<int, QString> row{"count", "text"};
        row("none", 0, "");
        row("negative", -5, "");
        row("one", 1, "1");
        row("most", 99, "99");
        row("more", 100, "99+");
    }

    void badge()
    {
        QFETCH(int, count);
        QTEST(RowPainter::badgeText(count), "text");
    }
};

FRIENDUI_TEST(TstLatestLook)
#include "tst_latestlook.moc"
