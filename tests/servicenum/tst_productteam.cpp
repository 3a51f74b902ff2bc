// The product team's window.
#include "servicenum/cpembateaminfo.h"
#include "tests/servicenum/channelfixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QAbstractButton>
#include <QLabel>

namespace {
const QString Team = QStringLiteral("team@corp.example");

CPembaTeamInfo *window()
{
    for (QWidget *top : QApplication::topLevelWidgets()) {
        auto *found = qobject_cast<CPembaTeamInfo *>(top);
        if (found && found->isVisible())
            return found;
    }
    return nullptr;
}

void press(const char *button)
{
    QVERIFY(window());
    QTest::mouseClick(window()->findChild<QAbstractButton *>(QLatin1String(button)),
                      Qt::LeftButton);
    ChannelFixture::settle();
}
} // namespace

class TstProductTeam : public QObject
{
    Q_OBJECT

private slots:
    void opens_data()
    {
        const Rows<QString, QString, bool> row{"how", "configured", "isShown"};
        row("request", "signal", Team, true);
        row("request without an account", "signal", QString(), false);
        row("click", "click", Team, true);
        row("click on another row", "click", "other", false);
        row("Enter", "enter", Team, true);
    }

    void opens()
    {
        QFETCH(QString, how);
        QFETCH(QString, configured);
        QFETCH(bool, isShown);
        ChannelFixture f({Team});
        f.host.context.productTeam = configured;
        if (how == QLatin1String("signal"))
            emit FriendUISignalSender::instance()->signal_OpenCSChannel(configured);
        else if (how == QLatin1String("click"))
            QTest::mouseClick(f.list->viewport(), Qt::LeftButton, Qt::NoModifier, f.middle(Team));
        else if (f.list->locate(Team))
            QTest::keyClick(f.list, Qt::Key_Return);
        QCOMPARE(window() != nullptr, isShown);
        QCOMPARE(f.host.count(Outbound::OpenChat),
                 how == QLatin1String("click") && !isShown ? 1 : 0);
    }

    void oneWindow()
    {
        ChannelFixture f;
        f.host.context.productTeam = Team;
        const QPointer<CPembaTeamInfo> first = CPembaTeamInfo::open(f.page);
        QCOMPARE(CPembaTeamInfo::open(f.page), first.data());
        QTest::keyClick(first.data(), Qt::Key_Escape);
        QVERIFY(!window());
        QVERIFY(CPembaTeamInfo::open(f.page) != first);
        press("close");
        QVERIFY(!window());
        CPembaTeamInfo::open(f.page);
        emit FriendUISignalSender::instance()->signal_logout();
        QVERIFY(!window());
    }

    void invites_data()
    {
        const Rows<bool, int> row{"isChannel", "kind"};
        row("an account", false, MessageData::Person);
        row("a channel", true, MessageData::Channel);
    }

    void invites()
    {
        QFETCH(bool, isChannel);
        QFETCH(int, kind);
        ChannelFixture f(isChannel ? QStringList{Team} : QStringList());
        f.host.context.productTeam = Team;
        CPembaTeamInfo::open(f.page);
        press("invitechat");
        QCOMPARE(f.host.count(Outbound::OpenChat), 1);
        const auto [jid, asked] = f.host.arguments<QString, qint32>(Outbound::OpenChat);
        QCOMPARE(jid, Team);
        QCOMPARE(asked, qint32(kind));
        QVERIFY(!window());
    }

    void destroyedInItsRequest()
    {
        ChannelFixture f;
        f.host.context.productTeam = Team;
        f.host.onRequest = [&f](const FakeHost::Request &) {
            f.tester.reset();
            delete f.page;
        };
        CPembaTeamInfo::open(f.page);
        press("invitechat");
        QVERIFY(!f.page);
    }

    void showsTheCode()
    {
        ChannelFixture f;
        f.host.context.productTeam = Team;
        CPembaTeamInfo::open(f.page);
        press("btnCode");
        const auto [jid, path] = f.host.arguments<QString, QString>(Outbound::ShowPicture);
        QCOMPARE(jid, Team);
        QVERIFY(!QImage(path).isNull());
    }

    void namesTheTeam()
    {
        ChannelFixture f;
        f.host.context.productTeam = Team;
        const auto shown = [] {
            return window()->findChild<QLabel *>(QStringLiteral("labelName"))->text();
        };
        {
            const Language language(QStringLiteral("en"));
            CPembaTeamInfo::open(f.page);
            QCOMPARE(shown(), QStringLiteral("Product team"));
            QCOMPARE(window()->windowTitle(), QStringLiteral("Product team"));
        }
        VcardInfo profile;
        profile.nickName = QStringLiteral("<b>Helpers</b>\n");
        f.host.context.profiles.insert(Team, profile);
        FakeHost::send(Inbound::ProfileReceived, Team, profile);
        QCOMPARE(shown(), QStringLiteral("<b>Helpers</b>"));
        f.deliver(f.channel(Team, QStringLiteral("Channel")));
        FakeHost::send(Inbound::ChannelHeadChanged, Team, QStringLiteral("/x.png"));
        QCOMPARE(shown(), QStringLiteral("Channel"));
    }
};

FRIENDUI_TEST(TstProductTeam)
#include "tst_productteam.moc"
