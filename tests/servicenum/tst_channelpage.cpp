// The page: what it shows, when it loads, and what a restart leaves.
#include "controls/statepage.h"
#include "tests/servicenum/channelfixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QLabel>

namespace {
const QString A = QStringLiteral("a");
const QString B = QStringLiteral("b");
const QString C = QStringLiteral("c");
} // namespace

class TstChannelPage : public QObject
{
    Q_OBJECT

private slots:
    void emptyPage()
    {
        const Language language(QStringLiteral("en"));
        ChannelFixture f;
        const auto *empty = f.page->findChild<StatePage *>(QStringLiteral("nocustomer"));
        QVERIFY(empty->isVisible());
        QVERIFY(!f.list->isVisible());
        QStringList texts;
        for (const QLabel *label : empty->findChildren<QLabel *>())
            texts.append(label->text());
        QVERIFY(texts.contains(QStringLiteral("No customer-service channels")));
        f.deliver(A);
        QVERIFY(f.list->isVisible());
        FakeHost::send(Inbound::ChannelRemoved, A);
        QVERIFY(empty->isVisible());
    }

    void languageOfTheRows()
    {
        ChannelFixture f;
        CSChannelData data = f.channel(A);
        data.workgroups = QStringList{QStringLiteral("IT"), QStringLiteral("HR")};
        f.deliver(data);
        data.id = B;
        data.isOpen = false;
        data.workgroups.clear();
        f.deliver(data);
        const Language language(QStringLiteral("en"));
        f.settle();
        QCOMPARE(f.row(A).data(ChannelRole::Second).toString(), QString::fromUtf8("Open · IT, HR"));
        QCOMPARE(f.row(B).data(ChannelRole::Second).toString(), QStringLiteral("Closed"));
    }

    void pinsSurviveARestart()
    {
        ChannelFixture f({A, B, C});
        f.setPinned(C, true);
        f.setPinned(B, true);
        f.restart();
        QCOMPARE(f.rows(), QString());
        // A pin waits for its channel, and the removal of a channel takes none away.
        for (const QString &id : {A, C, B})
            f.deliver(id);
        QCOMPARE(f.rows(), QStringLiteral("B C a"));
        FakeHost::send(Inbound::ChannelRemoved, B);
        f.setPinned(C, false);
        f.restart();
        for (const QString &id : {A, C, B})
            f.deliver(id);
        QCOMPARE(f.rows(), QStringLiteral("B a c"));
        f.setPinned(B, false);
        f.restart();
        for (const QString &id : {B, A})
            f.deliver(id);
        QCOMPARE(f.rows(), QStringLiteral("b a"));
    }

    // The page stays while one user goes and another comes.
    void logOut()
    {
        ChannelFixture f({A, B});
        f.setPinned(B, true);
        SkinMenu *menu = f.openMenu(A);
        QVERIFY(menu);
        emit FriendUISignalSender::instance()->signal_logout();
        QVERIFY(!menu->isVisible());
        QCOMPARE(f.rows(), QString());
        QVERIFY(f.page->findChild<StatePage *>()->isVisible());
        for (const char *user : {"o'ther\"; --", "me"}) {
            f.host.context.user = QLatin1String(user);
            emit FriendUISignalSender::instance()->signal_login();
            f.deliver(A);
            f.deliver(B);
            f.settle();
            QCOMPARE(f.rows(), QLatin1String(user) == QLatin1String("me") ? "B a" : "a b");
            f.setPinned(A, true);
            emit FriendUISignalSender::instance()->signal_logout();
        }
    }

    void reloads()
    {
        ChannelFixture f({A, B});
        const LogCapture log(f.host.context);
        f.setPinned(A, true);
        f.model->setPins({}); // as after another client of this user has stored others
        QCOMPARE(f.rows(), QStringLiteral("a b"));
        f.page->reload();
        QCOMPARE(f.rows(), QStringLiteral("A b"));
        QCOMPARE(log.linesWith("load Customer list").size(), 1);
    }

    // Nothing is read before anybody looks at the page.
    void loadsWhenFirstShown()
    {
        ChannelFixture f({A});
        const LogCapture log(f.host.context);
        CCustomerServerPage second;
        QVERIFY(log.linesWith("load Customer list").isEmpty());
        second.show();
        second.hide();
        second.show();
        QCOMPARE(log.linesWith("load Customer list").size(), 1);
        QCOMPARE(second.list()->model()->rowCount(), 1);
    }

    void locates()
    {
        ChannelFixture f({A, B});
        CCustomerServerPage hidden;
        for (CCustomerServerPage *page : {f.page.data(), &hidden}) {
            QVERIFY(page->locateChannel(B));
            QCOMPARE(page->list()->currentIndex().data(ChannelRole::Id).toString(), B);
            QVERIFY(!page->locateChannel(C));
        }
        QVERIFY(f.host.requests.isEmpty());
    }

    void requestToOpen()
    {
        ChannelFixture f({A, B});
        emit FriendUISignalSender::instance()->signal_OpenCSChannel(C);
        QVERIFY(f.host.requests.isEmpty());
        emit FriendUISignalSender::instance()->signal_OpenCSChannel(B);
        const auto [id, kind] = f.host.arguments<QString, qint32>(Outbound::OpenChat);
        QCOMPARE(id, B);
        QCOMPARE(kind, qint32(MessageData::Channel));
        QCOMPARE(f.list->currentIndex(), f.row(B));
    }

    // Without a database the pins hold until the client is closed.
    void noDatabase()
    {
        ChannelFixture f({A, B});
        f.host.context.baseFolder = QString();
        f.restart();
        f.deliver(A);
        f.deliver(B);
        f.setPinned(B, true);
        QCOMPARE(f.rows(), QStringLiteral("B a"));
        f.page->reload();
        QCOMPARE(f.rows(), QStringLiteral("B a"));
    }
};

FRIENDUI_TEST(TstChannelPage)
#include "tst_channelpage.moc"
