// What the user has set for conversations, at the service and stored here.
#include "common/localdatabase.h"
#include "common/sessionsettings.h"
#include "http/httpmgr.h"
#include "tests/http/servicefixture.h"
#include "tests/support/testrunner.h"

namespace {
constexpr char SetPath[] = "/center/session/setSetting.do";
constexpr char LoadPath[] = "/center/clientsettings/getClientSettings.do";

const QString R1 = QStringLiteral("r1@conf.corp.example");
const QString R2 = QStringLiteral("r2+x&y@conf.corp.example");

// With the apostrophes as quotes.
QByteArray json(QByteArray text)
{
    return text.replace('\'', '"');
}

const QByteArray Done = json("{'code':0}");

FakeReply silent(const QByteArray &jid)
{
    return FakeReply::json(
        json("{'code':0,'data':{'sessions':[{'sessionJid':'" + jid + "','isNotHint':1}]}}"));
}

// Its folder can go only when the database in it is closed.
struct Fixture : ServiceFixture
{
    ~Fixture() { LocalDatabase::instance().close(); }
};
} // namespace

class TstClientSettings : public QObject
{
    Q_OBJECT

private slots:
    void setAtTheServiceThenHere()
    {
        Fixture fixture;
        QSignalSpy done(HttpMgr::instance(), &HttpMgr::signal_setSessionMsgConfigDone);
        fixture.server.reply(SetPath, FakeReply::json(Done));
        HttpMgr::instance()->setSessionMsgConfig(R2, true);
        QVERIFY(done.isEmpty());
        QVERIFY(!SessionSettings::isMuted(R2));
        QTRY_COMPARE(done.size(), 1);
        QCOMPARE(done.at(0), QVariantList({true, R2, QStringLiteral("isNotHint"), true}));
        QVERIFY(SessionSettings::isMuted(R2));
        QCOMPARE(fixture.server.last().body,
                 QByteArray("sessionJid=r2%2Bx%26y%40conf.corp.example&isNotHint=1"));

        HttpMgr::instance()->setSessionMsgConfig(R2, false);
        QTRY_COMPARE(done.size(), 2);
        QCOMPARE(done.at(1).at(3), QVariant(false));
        QVERIFY(!SessionSettings::isMuted(R2));
        QVERIFY(fixture.server.last().body.endsWith("&isNotHint=0"));
    }

    void refusals_data()
    {
        const Rows<QByteArray, QByteArray> row{"ini", "reply"};
        row("unknown room", "", json("{'code':10001}"));
        row("no JSON", "", "<html>");
        row("no address", "[ClientSetting]\nsetMucMessageConfigUrl=\n", "");
    }

    void refusals()
    {
        QFETCH(QByteArray, ini);
        QFETCH(QByteArray, reply);
        Fixture fixture;
        if (!ini.isEmpty())
            fixture.write(ini);
        fixture.server.reply(SetPath, FakeReply::json(reply));
        QSignalSpy done(HttpMgr::instance(), &HttpMgr::signal_setSessionMsgConfigDone);
        HttpMgr::instance()->setSessionMsgConfig(R1, true);
        QVERIFY(done.isEmpty());
        QTRY_COMPARE(done.size(), 1);
        QCOMPARE(done.at(0), QVariantList({false, R1, QStringLiteral("isNotHint"), true}));
        QVERIFY(!SessionSettings::isMuted(R1));
    }

    void loadTakesThePlaceOfWhatIsStored_data()
    {
        const Rows<QByteArray, bool, QSet<QString>> row{"reply", "ok", "muted"};
        const QSet<QString> before{R1};
        row("two kinds of flags",
            json("{'code':0,'data':{'sessions':["
                 "{'sessionJid':'a@c','isNotHint':'1'},{'sessionJid':'b@c','isNotHint':0},"
                 "{'sessionJid':'','isNotHint':1},7,{'isNotHint':1}]}}"),
            true, {QStringLiteral("a@c")});
        row("none", json("{'code':0,'data':{'sessions':[]}}"), true, {});
        row("refused", json("{'code':10001}"), false, before);
        row("broken", json("{'code':0,'data':{'sess"), false, before);
    }

    void loadTakesThePlaceOfWhatIsStored()
    {
        QFETCH(QByteArray, reply);
        QFETCH(bool, ok);
        Fixture fixture;
        QVERIFY(SessionSettings::setMuted(R1, true));
        fixture.server.reply(LoadPath, FakeReply::json(reply));
        QSignalSpy loaded(HttpMgr::instance(), &HttpMgr::signal_clientSettingsLoaded);
        HttpMgr::instance()->loadClientSettings();
        QTRY_COMPARE(loaded.size(), 1);
        QCOMPARE(loaded.at(0).at(0), QVariant(ok));
        QTEST(SessionSettings::muted(), "muted");
    }

    // The log-in and the connection ask almost at once.
    void lastLoadAnswersForAll()
    {
        Fixture fixture;
        fixture.server.reply(LoadPath, {silent("old@c").after(200), silent("new@c")});
        QSignalSpy loaded(HttpMgr::instance(), &HttpMgr::signal_clientSettingsLoaded);
        HttpMgr::instance()->loadClientSettings();
        QTRY_COMPARE(fixture.server.requests().size(), 1);
        HttpMgr::instance()->loadClientSettings();
        QTRY_COMPARE(fixture.server.unanswered(), 0);
        QTRY_COMPARE(loaded.size(), 1);
        QCOMPARE(SessionSettings::muted(), QSet<QString>{QStringLiteral("new@c")});
    }

    // A reply that was written before the user set something else.
    void loadDoesNotTakeASettingBack()
    {
        Fixture fixture;
        fixture.server.reply(LoadPath, {FakeReply::json(Done).onRelease(), silent(R1.toUtf8())});
        fixture.server.reply(SetPath, FakeReply::json(Done));
        QSignalSpy loaded(HttpMgr::instance(), &HttpMgr::signal_clientSettingsLoaded);
        QSignalSpy done(HttpMgr::instance(), &HttpMgr::signal_setSessionMsgConfigDone);
        HttpMgr::instance()->loadClientSettings();
        HttpMgr::instance()->setSessionMsgConfig(R1, true);
        QTRY_COMPARE(done.size(), 1);
        QTRY_COMPARE(fixture.server.count(LoadPath), 1);
        fixture.server.release();
        QTRY_COMPARE(loaded.size(), 1);
        QCOMPARE(fixture.server.count(LoadPath), 2);
        QVERIFY(SessionSettings::isMuted(R1));
    }

    void anotherUsersReplyIsNotStored()
    {
        Fixture fixture;
        fixture.server.reply(LoadPath, silent("x@c").onRelease());
        fixture.server.reply(SetPath, FakeReply::json(Done).onRelease());
        QSignalSpy loaded(HttpMgr::instance(), &HttpMgr::signal_clientSettingsLoaded);
        QSignalSpy done(HttpMgr::instance(), &HttpMgr::signal_setSessionMsgConfigDone);
        HttpMgr::instance()->loadClientSettings();
        HttpMgr::instance()->setSessionMsgConfig(R1, true);
        QTRY_COMPARE(fixture.server.requests().size(), 2);
        fixture.host.user = QStringLiteral("u2");
        fixture.server.release();
        QTRY_COMPARE(loaded.size(), 1);
        QTRY_COMPARE(done.size(), 1);
        QCOMPARE(loaded.at(0).at(0), QVariant(false));
        QCOMPARE(done.at(0).at(0), QVariant(false));
        QVERIFY(SessionSettings::muted().isEmpty());
    }
};

FRIENDUI_TEST(TstClientSettings)
#include "tst_clientsettings.moc"
