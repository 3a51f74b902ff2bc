// Properties of what is painted.
#include "controls/rowpainter.h"
#include "tests/latest/latestfixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QPainter>

namespace {

QImage pictureOf(QWidget *widget, qreal ratio)
{
    QImage image(widget->size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    widget->render(&image);
    return image;
}

void fill(LatestFixture *page)
{
    FakeContext &context = page->host.context;
    FriendData wang;
    wang.jid = LatestFixture::jid(QStringLiteral("wang"));
    wang.nickName = QString::fromUtf8("王小明");
    context.addContact(wang);
    context.presences.insert(wang.jid, {PresenceData::Available, PresenceData::NoMobile});
    FriendData long_;
    long_.jid = LatestFixture::jid(QStringLiteral("long"));
    long_.nickName = QStringLiteral("Maximiliana Featherstonehaugh-Cholmondeley of the Sales");
    context.addContact(long_);
    context.cooperation.insert(long_.jid, true);
    context.presences.insert(long_.jid, {PresenceData::Away, PresenceData::NoMobile});
    MucData room;
    room.roomJid = LatestFixture::room(QStringLiteral("plan"));
    room.roomName = QString::fromUtf8("产品规划 2026");
    room.forbidden = true;
    context.rooms.insert(room.roomJid, room);
    context.topSessions.insert(room.roomJid);

    page->receive(wang.jid, QString::fromUtf8("明天下午三点开会，请带上报告。"),
                  QStringLiteral("5 11:58"));
    for (int i = 0; i < 120; ++i)
        page->receive(long_.jid,
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

    void pictures()
    {
        const Language language(QStringLiteral("zh_CN"));
        for (const char *skin : {"light", "dark"}) {
            setSkin(QLatin1String(skin));
            LatestFixture page;
            const QString name = QStringLiteral("latest-%1-%2x").arg(QLatin1String(skin));
            keepPicture(pictureOf(page.widget.get(), 1), name.arg(QStringLiteral("empty")));
            fill(&page);
            QTRY_COMPARE(page.rows().size(), 4);
            page.view()->selectionModel()->setCurrentIndex(page.model()->index(1),
                                                           QItemSelectionModel::ClearAndSelect);
            for (const int ratio : {1, 2})
                keepPicture(pictureOf(page.widget.get(), ratio), name.arg(ratio));
            page.widget->setLayoutDirection(Qt::RightToLeft);
            keepPicture(pictureOf(page.widget.get(), 2), name.arg(QStringLiteral("rtl")));
        }
    }
};

FRIENDUI_TEST(TstLatestLook)
#include "tst_latestlook.moc"
