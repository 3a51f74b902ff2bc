// Properties of what is painted.
#include "controls/avatarstore.h"
#include "servicenum/cpembateaminfo.h"
#include "tests/servicenum/channelfixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QLabel>

namespace {
const QString Team = QStringLiteral("team@corp.example");

CSChannelData channel(const char *id, const char *name, bool isOpen, const QStringList &groups = {})
{
    CSChannelData data = ChannelFixture::channel(QLatin1String(id), QString::fromUtf8(name));
    data.isOpen = isOpen;
    data.workgroups = groups;
    return data;
}

void deliverSome()
{
    ChannelFixture::deliver(channel("it", "IT服务台", true,
                                    {QString::fromUtf8("网络"), QString::fromUtf8("办公设备"),
                                     QString::fromUtf8("账号与权限"), QString::fromUtf8("邮箱")}));
    ChannelFixture::deliver(channel("hr", "人事服务台", true, {QString::fromUtf8("考勤")}));
    ChannelFixture::deliver(channel("travel", "Travel desk", false, {QStringLiteral("Flights")}));
    ChannelFixture::deliver(channel("canteen", "Canteen", true));
    ChannelFixture::deliver(channel(
        "long", "A channel whose name is by far too long for the width of this list", false));
}

bool hasColour(const QImage &image, const QRect &area, const QColor &colour)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixelColor(x, y) == colour)
                return true;
        }
    }
    return false;
}
} // namespace

class TstChannelLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QStringLiteral("light")); }

    void looks_data()
    {
        const Rows<QString, QString> row{"skin", "language"};
        row("light, Chinese", "light", "zh_CN");
        row("light, English", "light", "en");
        row("dark, Chinese", "dark", "zh_CN");
        row("dark, English", "dark", "en");
    }

    void looks()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        const Language installed(language);
        setSkin(skin);
        const QString suffix =
            QStringLiteral("-%1-%2-%3").arg(skin, language).arg(qApp->devicePixelRatio());
        ChannelFixture f;
        f.host.context.productTeam = Team;
        f.page->setAutoFillBackground(true);
        followSkin(f.page);
        keepPicture(f.page->grab().toImage(), QStringLiteral("channels-empty") + suffix);
        deliverSome();
        f.setPinned(QStringLiteral("canteen"), true);
        MessageData message;
        message.sessionJid = QStringLiteral("it");
        message.kind = MessageData::Channel;
        for (int i = 0; i < 3; ++i)
            emit FriendUISignalSender::instance()->signal_latestFriend(true, message);
        QVERIFY(f.list->locate(QStringLiteral("hr")));
        f.settle();
        const QImage list = f.page->grab().toImage();
        keepPicture(list, QStringLiteral("channels-list") + suffix);
        SkinMenu *menu = f.openMenu(QStringLiteral("hr"));
        QVERIFY(menu);
        keepPicture(menu->grab().toImage(), QStringLiteral("channels-menu") + suffix);
        menu->close();
        CPembaTeamInfo *window = CPembaTeamInfo::open(f.page);
        QTRY_VERIFY(!AvatarStore::instance().isBusy());
        f.settle();
        keepPicture(window->grab().toImage(), QStringLiteral("channels-team") + suffix);
        const auto labels = window->findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            const bool fits = label->wordWrap()
                                  ? label->heightForWidth(label->width()) <= label->height()
                                  : label->sizeHint().width() <= label->width();
            QVERIFY2(fits, qPrintable(label->objectName()));
        }
    }

    // The mark of a pinned row, and a long name that stays clear of it and the edge.
    void marksAndCuts()
    {
        ChannelFixture f;
        deliverSome();
        for (const char *id : {"canteen", "long"}) {
            const QString pinned = QLatin1String(id);
            const auto markArea = [&f, &pinned] {
                const QRect row = f.list->visualRect(f.row(pinned));
                return QRect(row.right() - 32, row.top() + 8, 20, row.height() - 16);
            };
            const QImage before = f.list->viewport()->grab().toImage();
            const QImage mark = before.copy(markArea());
            f.setPinned(pinned, true);
            f.list->clearSelection();
            f.list->setCurrentIndex(QModelIndex());
            const QImage after = f.list->viewport()->grab().toImage();
            QVERIFY(after.copy(markArea()) != mark);
            const QRect row = f.list->visualRect(f.row(pinned));
            const QRect edge(row.right() - 8, row.top(), 8, row.height());
            QVERIFY(!hasColour(after, edge, Skin::instance().colors().text));
            QVERIFY(hasColour(after, row.adjusted(50, 20, -60, 0), QColor(0x8f, 0x8f, 0x8f)));
        }
    }
};

FRIENDUI_TEST(TstChannelLook)
#include "tst_channellook.moc"
