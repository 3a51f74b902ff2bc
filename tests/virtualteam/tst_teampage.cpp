// The page of virtual teams: what it shows, when it asks, and what it does with answers
// that come late or not at all.
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teampagefixture.h"
#include "virtualteam/dialogs/cvirtualteamwidgetcreat.h"
#include "virtualteam/teamcommands.h"
#include "virtualteam/teamloader.h"
#include "virtualteam/waitwgt.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSignalSpy>

namespace {
const QString LoadingPage = QStringLiteral("VirtualTeamLoadingPage");
const QString FailPage = QStringLiteral("VirtualTeamLoadFailPage");
const QString EmptyPage = QStringLiteral("noVirtualTeamPage");
const QString ListPage = QStringLiteral("VirtualTeamListPage");
const QString One = QStringLiteral("1");
const QString Two = QStringLiteral("2");
const QString Root = rootGroupId();
} // namespace

class TstTeamPage : public QObject
{
    Q_OBJECT

private slots:
    void loadsWhenFirstShown()
    {
        TeamPageFixture f({One, Two});
        f.hold("getAllVirtualTeam");
        emit f.hub()->signal_refresh_virtualTeam(One);
        emit f.hub()->signal_position_virtualTeam(true);
        emit f.hub()->signal_isConnected(true);
        f.show();
        QCOMPARE(f.shown(), LoadingPage);
        QTRY_COMPARE(f.lists(), 1);
        QVERIFY(!f.box->isVisible());
        f.server.release();
        QTRY_COMPARE(f.shown(), ListPage);
        QCOMPARE(f.model->teamIds(), (QStringList{One, Two}));
        QVERIFY(f.box->isVisible());
        f.page->hide();
        f.page->show();
        QCoreApplication::processEvents();
        QCOMPARE(f.lists(), 1);
    }

    void stateOfAReply_data()
    {
        const Rows<QByteArray, int, QString> row{"body", "status", "page"};
        row("teams", QByteArray(R"({"code":0,"data":{"vt":[{"vtId":"1","vtName":"A"}]}})"), 200,
            ListPage);
        row("no team", QByteArray(R"({"code":0,"data":{"vt":[]}})"), 200, EmptyPage);
        row("no data", QByteArray(R"({"code":0})"), 200, EmptyPage);
        row("refused", QByteArray(R"({"code":10001})"), 200, FailPage);
        row("no JSON", QByteArray("<html>"), 200, FailPage);
        row("server error", QByteArray(R"({"code":0,"data":{"vt":[]}})"), 500, FailPage);
    }
    void stateOfAReply()
    {
        QFETCH(QByteArray, body);
        QFETCH(int, status);
        TeamPageFixture f;
        f.setSpecial([&](const FakeRequest &, FakeReply *answer) {
            *answer = FakeReply::of(status, body);
            return true;
        });
        f.show();
        QTRY_VERIFY(f.shown() != LoadingPage);
        QTEST(f.shown(), "page");
    }

    void retriesAfterAFailure_data()
    {
        const Rows<bool> row{"byButton"};
        row("button", true);
        row("connection", false);
    }
    void retriesAfterAFailure()
    {
        QFETCH(bool, byButton);
        TeamPageFixture f({One});
        f.fail("getAllVirtualTeam");
        f.show();
        QTRY_COMPARE(f.shown(), FailPage);
        f.failNothing();
        if (byButton)
            QTest::mouseClick(f.visible<QPushButton>("retry"), Qt::LeftButton);
        else
            emit f.hub()->signal_isConnected(true);
        QCOMPARE(f.shown(), LoadingPage);
        QTRY_COMPARE(f.shown(), ListPage);
        // Nothing is asked for without a reason.
        emit f.hub()->signal_isConnected(true);
        QVERIFY(f.refresh->isEnabled());
        QCOMPARE(f.lists(), 2);
    }

    void offline()
    {
        TeamPageFixture f({One});
        f.setOnline(false);
        f.show();
        QCOMPARE(f.shown(), FailPage);
        for (QPushButton *pressed :
             {static_cast<QPushButton *>(f.create), static_cast<QPushButton *>(f.refresh),
              f.visible<QPushButton>("retry")}) {
            const int boxes = TipBox::count();
            QTest::mouseClick(pressed, Qt::LeftButton);
            QCOMPARE(TipBox::count(), boxes + 1);
            QCOMPARE(TipBox::lastText(), QStringLiteral("isOfflinePleaseLogin"));
        }
        QVERIFY(!f.page->findChild<CVirtualTeamWidgetCreat *>());
        QCOMPARE(f.server.requests().size(), 0);
        f.setOnline(true);
        QTRY_COMPARE(f.shown(), ListPage);
    }

    void refreshKeepsWhatIsShown()
    {
        TeamPageFixture f({One, Two});
        f.setMembers(One, {f.member(QStringLiteral("a"))});
        f.load();
        f.page->tree()->expandTeam(One);
        QTRY_VERIFY(f.model->memberIndex(One, QStringLiteral("a")).isValid());
        f.page->tree()->reveal(f.model->memberIndex(One, QStringLiteral("a")));
        QSignalSpy resets(f.model, &QAbstractItemModel::modelReset);
        f.setTeams({Two, One});
        f.hold("getAllVirtualTeam");
        f.refresh->setFocus();
        QTest::keyClick(f.refresh, Qt::Key_Space);
        QTRY_COMPARE(f.levels(), 2); // what is open is loaded again, too
        QCOMPARE(f.shown(), ListPage);
        QVERIFY(!f.refresh->isEnabled());
        QTRY_VERIFY(f.page->findChild<WaitWgt *>()->isVisible());
        f.server.release();
        QTRY_VERIFY(f.refresh->isEnabled());
        QVERIFY(f.refresh->hasFocus());
        QVERIFY(!f.page->findChild<WaitWgt *>()->isVisible());
        QCOMPARE(f.model->teamIds(), (QStringList{Two, One}));
        QCOMPARE(f.page->tree()->currentIndex(), f.model->memberIndex(One, QStringLiteral("a")));
        QVERIFY(f.page->tree()->isExpanded(f.model->teamIndex(One)));
        QCOMPARE(resets.size(), 0);
    }

    void refreshFails_data()
    {
        const Rows<QByteArray> row{"service"};
        row("list", "getAllVirtualTeam");
        row("open level", "getVirtualTeamGroup");
    }
    void refreshFails()
    {
        QFETCH(QByteArray, service);
        TeamPageFixture f({One});
        f.setMembers(One, {f.member(QStringLiteral("a"))});
        f.load();
        f.page->tree()->expandTeam(One);
        QTRY_VERIFY(f.model->memberIndex(One, QStringLiteral("a")).isValid());
        f.fail(service.constData());
        QTest::mouseClick(f.refresh, Qt::LeftButton);
        QTRY_VERIFY(f.visible<QPushButton>("noticeRetry"));
        QTRY_COMPARE(f.server.unanswered(), 0);
        QCOMPARE(f.shown(), ListPage);
        QVERIFY(f.model->memberIndex(One, QStringLiteral("a")).isValid());
        f.failNothing();
        f.setTeams({One, Two});
        QTest::mouseClick(f.visible<QPushButton>("noticeRetry"), Qt::LeftButton);
        QTRY_COMPARE(f.model->teamIds(), (QStringList{One, Two}));
        QTRY_COMPARE(f.levels(), 3);
        QTRY_COMPARE(f.server.unanswered(), 0);
        QTRY_VERIFY(!f.visible<QPushButton>("noticeRetry"));
    }

    // A burst of news is one list, and each open level once.
    void burstsOfNews()
    {
        TeamPageFixture f({One, Two});
        f.load();
        f.page->tree()->expandTeam(One);
        QTRY_COMPARE(f.model->childrenState(One, Root), TeamChildren::Loaded);
        f.server.forget();
        for (int i = 0; i < 30; ++i) {
            emit f.hub()->signal_refresh_virtualTeam(i % 2 ? One : Two);
            emit f.hub()->signal_position_virtualTeam(true);
            emit f.page->tree()->teamsChanged();
        }
        emit f.hub()->signal_position_virtualTeam(false);
        QTRY_COMPARE(f.levels(), 1);
        QTRY_VERIFY(f.refresh->isEnabled());
        QCOMPARE(f.lists(), 1);
        QCOMPARE(f.asked("getVirtualTeamGroup", "vtId"), QStringList{One});
    }

    // The answer on its way may be older than the news.
    void newsWhileItLoads()
    {
        TeamPageFixture f({One});
        f.load();
        f.hold("getAllVirtualTeam");
        QTest::mouseClick(f.refresh, Qt::LeftButton);
        QTRY_COMPARE(f.lists(), 2);
        f.setTeams({One, Two});
        for (int i = 0; i < 3; ++i)
            f.page->slot_refreshVirtualTeam();
        f.failNothing();
        f.server.release();
        QTRY_COMPARE(f.model->teamIds(), (QStringList{One, Two}));
        QTRY_VERIFY(f.refresh->isEnabled());
        QCOMPARE(f.lists(), 3);
        QCOMPARE(f.server.mostUnanswered(), 1);
    }

    void levelsOnceAtATime()
    {
        TeamPageFixture f({One});
        TeamLoader loader;
        QSignalSpy loaded(&loader, &TeamLoader::levelLoaded);
        f.hold("getVirtualTeamGroup");
        for (int i = 0; i < 5; ++i)
            loader.loadLevel(One, Root);
        const int others = 3 * TeamLoader::LevelsAtATime;
        for (int i = 0; i < 2 * others; ++i)
            loader.loadLevel(One, QString::number(1 + i % others));
        QTRY_COMPARE(f.server.unanswered(), TeamLoader::LevelsAtATime);
        f.failNothing();
        f.server.release();
        // Those that ran when they were wanted once more are asked for twice.
        const int all = 1 + others + TeamLoader::LevelsAtATime;
        QTRY_COMPARE(loaded.size(), all);
        QCOMPARE(f.levels(), all);
        QCOMPARE(f.server.mostUnanswered(), TeamLoader::LevelsAtATime);
        QCOMPARE(f.asked("getVirtualTeamGroup", "pgId").count(Root), 2);
    }

    // The level on its way was read before the change.
    void newsWhileALevelLoads_data()
    {
        const Rows<bool> row{"own"};
        row("of the user", true);
        row("of others", false);
    }

    void newsWhileALevelLoads()
    {
        QFETCH(bool, own);
        TeamPageFixture f({One});
        f.load();
        f.hold("getVirtualTeamGroup");
        f.page->tree()->expandTeam(One);
        QTRY_COMPARE(f.levels(), 1);
        f.setMembers(One, {f.member(QStringLiteral("a"))});
        if (own) {
            emit f.page->tree()->commands()->membersMoved(One, rootGroupId(), {});
        } else {
            emit f.hub()->signal_refresh_virtualTeam(One);
            QTRY_COMPARE(f.lists(), 2);
        }
        f.failNothing();
        f.server.release();
        QTRY_VERIFY(f.model->memberIndex(One, QStringLiteral("a")).isValid());
        QCOMPARE(f.levels(), 2);
    }

    void textsThatMeanNoGood_data()
    {
        const Rows<QString> row{"text"};
        row("markup", QStringLiteral("<b>bold</b><img src='/etc/hostname'>"));
        row("other direction", QStringLiteral("\u202Eabc\u202D"));
        row("lines", QStringLiteral("a\nb\u2028c\td"));
        row("nothing", QString(QChar(0)) + QLatin1String("a"));
        row("half a pair", QString(QChar(0xD800)));
        row("long", QString(1000000, QLatin1Char('x')));
        row("path", QStringLiteral("../../../etc/passwd"));
    }

    void textsThatMeanNoGood()
    {
        QFETCH(QString, text);
        TeamPageFixture f;
        f.setSpecial([&text](const FakeRequest &request, FakeReply *answer) {
            const QJsonObject member{{"userId", "a"},
                                     {"nickName", text},
                                     {"photoName", text},
                                     {"duty", text},
                                     {"role", 1}};
            const QJsonObject group{{"groupId", "7"}, {"groupName", text}};
            const QJsonObject team{{"vtId", "1"}, {"vtName", text}, {"role", 2}, {"count", -1}};
            QJsonObject data;
            if (request.path == TeamService::path("getAllVirtualTeam"))
                data = {{"vt", QJsonArray{team}}};
            else
                data = {{"group", QJsonArray{group}}, {"members", QJsonArray{member}}};
            *answer = TeamService::reply(QJsonDocument(data).toJson());
            return true;
        });
        f.load();
        f.page->tree()->expandTeam(One);
        QTRY_VERIFY(f.model->memberIndex(One, QStringLiteral("a")).isValid());
        f.page->grab();
        for (const QModelIndex &index :
             {f.model->teamIndex(One), f.model->groupIndex(One, QStringLiteral("7")),
              f.model->memberIndex(One, QStringLiteral("a"))}) {
            const QString shown = index.data().toString();
            static const QRegularExpression bad(
                QStringLiteral("[\\x{0}\n\t\\x{2028}\\x{202A}-\\x{202E}]"));
            QVERIFY2(!shown.contains(bad) && shown.size() <= 100, qPrintable(shown));
            const QString tip = index.data(Qt::ToolTipRole).toString();
            QVERIFY(!tip.contains(QLatin1String("<b>")) && !tip.contains(QLatin1String("<img")));
            QVERIFY(tip.size() < 10000);
        }
        for (const FakeRequest &request : f.server.requests())
            QVERIFY2(!request.path.contains(".."), request.path);
    }

    void levelOfATeamThatHasGone()
    {
        TeamPageFixture f({One, Two});
        const LogCapture log(f.host.context);
        f.setMembers(One, {f.member(QStringLiteral("a"))});
        f.load();
        f.hold("getVirtualTeamGroup");
        f.page->tree()->expandTeam(One);
        f.page->tree()->expandTeam(Two);
        QTRY_COMPARE(f.levels(), 2);
        f.setTeams({Two});
        emit f.hub()->signal_position_virtualTeam(true);
        QTRY_COMPARE(f.model->teamIds(), QStringList{Two});
        f.server.release();
        QTRY_COMPARE(f.model->childrenState(Two, Root), TeamChildren::Loaded);
        QTRY_COMPARE(log.linesWith("item is null").size(), 1);
        QCOMPARE(f.model->teamIds(), QStringList{Two});
    }

    void levelFails()
    {
        TeamPageFixture f({One});
        f.setMembers(One, {f.member(QStringLiteral("a"))});
        f.load();
        f.fail("getVirtualTeamGroup");
        f.page->tree()->expandTeam(One);
        QCOMPARE(f.model->childrenState(One, Root), TeamChildren::Loading);
        QTRY_COMPARE(f.model->childrenState(One, Root), TeamChildren::Failed);
        f.failNothing();
        emit f.hub()->signal_isConnected(true);
        QTRY_COMPARE(f.model->childrenState(One, Root), TeamChildren::Loaded);
        f.setOnline(false);
        f.page->slot_getMembers(One, Root);
        QCOMPARE(f.model->childrenState(One, Root), TeamChildren::Loaded); // what is known stays
        QCOMPARE(f.levels(), 2);
    }

    // A level was on its way when the user logged out.
    void sameUserLogsInAgain()
    {
        TeamPageFixture f({One});
        f.setMembers(One, {f.member(QStringLiteral("a"))});
        f.load();
        f.hold("getVirtualTeamGroup");
        f.page->tree()->expandTeam(One);
        QTRY_COMPARE(f.levels(), 1);
        emit f.hub()->signal_logout();
        QCOMPARE(f.model->childrenState(One, Root), TeamChildren::Failed);
        f.failNothing();
        f.setTeams({One, Two});
        f.page->hide();
        emit f.hub()->signal_login();
        QCOMPARE(f.lists(), 1);
        f.page->show();
        QCOMPARE(f.shown(), ListPage); // what was known, meanwhile
        QTRY_COMPARE(f.model->teamIds(), (QStringList{One, Two}));
        QTRY_VERIFY(f.model->memberIndex(One, QStringLiteral("a")).isValid());
    }

    void anotherUserLogsIn()
    {
        TeamPageFixture f({One});
        f.load();
        QSignalSpy known(f.page.get(), &CVirtualTeamPage::teamsKnown);
        f.hold("getAllVirtualTeam");
        f.setTeams({QStringLiteral("of the first")});
        QTest::mouseClick(f.refresh, Qt::LeftButton);
        QTRY_COMPARE(f.lists(), 2);
        f.setTeams({Two});
        emit f.hub()->signal_logout();
        f.host.context.user = QStringLiteral("u2");
        emit f.hub()->signal_login();
        QCOMPARE(f.shown(), LoadingPage);
        QCOMPARE(f.model->teamIds(), QStringList());
        QCOMPARE(known.size(), 1);
        QTRY_COMPARE(f.lists(), 3);
        f.server.release();
        QTRY_COMPARE(f.shown(), ListPage);
        QCOMPARE(f.model->teamIds(), QStringList{Two});
        QCOMPARE(known.size(), 2); // the late answer was none of this user's
        QCOMPARE(known.last().first().value<QList<CVirtualTeamSimpleInfo>>().value(0).vtId, Two);
    }

    void lastTeamIsLeft()
    {
        TeamPageFixture f({One, Two});
        f.load();
        QSignalSpy known(f.page.get(), &CVirtualTeamPage::teamsKnown);
        f.box->setText(QStringLiteral("x"));
        f.model->setTeamName(One, QStringLiteral("renamed"));
        f.model->removeTeam(Two);
        QTRY_COMPARE(known.size(), 1);
        f.model->removeTeam(One);
        QTRY_COMPARE(f.shown(), EmptyPage);
        QVERIFY(f.box->text().isEmpty());
        QCOMPARE(known.size(), 2);
        QTest::mouseClick(f.visible<SkinButton>("addVirtualTeamButton"), Qt::LeftButton);
        QVERIFY(f.page->findChild<CVirtualTeamWidgetCreat *>());
    }

    void locates_data()
    {
        const Rows<QString, bool> row{"team", "isLoaded"};
        row("before it is shown", Two, false);
        row("at once", Two, true);
        row("unknown", QStringLiteral("no'body"), true);
    }
    void locates()
    {
        QFETCH(QString, team);
        QFETCH(bool, isLoaded);
        TeamPageFixture f({One, Two});
        if (isLoaded)
            f.load();
        f.box->setText(QStringLiteral("x"));
        f.page->locateTeam(team);
        f.show();
        QVERIFY(f.box->text().isEmpty());
        QTRY_VERIFY(f.refresh->isEnabled() && f.shown() == ListPage);
        const QModelIndex index = f.model->teamIndex(team);
        QTRY_COMPARE(f.page->tree()->currentIndex(), index);
        QCOMPARE(f.page->tree()->isExpanded(index), index.isValid());
    }

    void newTeam_data()
    {
        const Rows<bool> row{"isPending"};
        row("active", false);
        row("waits for approval", true);
    }
    void newTeam()
    {
        QFETCH(bool, isPending);
        TeamPageFixture f({One});
        f.load();
        f.hold("getAllVirtualTeam"); // one that is too old is on its way
        QTest::mouseClick(f.refresh, Qt::LeftButton);
        QTRY_COMPARE(f.lists(), 2);
        QTest::mouseClick(f.create, Qt::LeftButton);
        QTest::mouseClick(f.create, Qt::LeftButton);
        const auto dialogs = f.page->findChildren<CVirtualTeamWidgetCreat *>();
        QCOMPARE(dialogs.size(), 1);
        f.setTeams({One, Two});
        emit dialogs.first()->teamCreated(Two, isPending);
        f.failNothing();
        f.server.release();
        QTRY_VERIFY(f.model->teamIndex(Two).isValid());
        QCOMPARE(f.page->tree()->currentIndex() == f.model->teamIndex(Two), !isPending);
    }
};

FRIENDUI_TEST(TstTeamPage)
#include "tst_teampage.moc"
