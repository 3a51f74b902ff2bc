// Service numbers in step with the services and the host.
#include "common/displaytext.h"
#include "servicenum/chttpservicenum.h"
#include "tests/servicenum/numberfixture.h"

namespace {
using Hub = FriendUISignalSender;

CServiceNumData number(const QString &code, const QString &name = QString())
{
    CServiceNumData data;
    data.code = code;
    data.name = name;
    return data;
}

const QString s1 = QStringLiteral("s1");
const QString s2 = QStringLiteral("s2");
const QString s3 = QStringLiteral("s3");
} // namespace

class TstServiceNumbers : public QObject
{
    Q_OBJECT

private slots:
    void listIsTakenOver()
    {
        NumberFixture fixture;
        QSignalSpy announced(fixture.hub, &Hub::signal_notifyAddServiceNum);
        QVERIFY(fixture.loaded({record("s2"), record("s1"), record("s2"), "{}", "7"}));
        QCOMPARE(fixture.listed(), QStringLiteral("s2 s1"));
        QVERIFY(fixture.numbers.isSubscribed(s1));
        QCOMPARE(announced.size(), 1);

        // Unchanged: an empty list of the version that was sent along.
        QVERIFY(fixture.loaded({}));
        QCOMPARE(fixture.server.last().body, QByteArray("version=1"));
        QCOMPARE(fixture.listed(), QStringLiteral("s2 s1"));
        QCOMPARE(announced.size(), 1);

        QSignalSpy gone(fixture.hub, &Hub::signal_notifyCancelSubServiceNum);
        QVERIFY(fixture.loaded({record("s3"), record("s1")}, "2"));
        QTRY_COMPARE(fixture.listed(), QStringLiteral("s3 s1"));
        QVERIFY(!fixture.numbers.isSubscribed(s2));
        QCOMPARE(announced.size(), 2);
        QCOMPARE(codesOf(announced.at(1).at(0).value<QList<CServiceNumData>>()), s3);
        QCOMPARE(gone.size(), 1);
        QVERIFY(fixture.loaded({}, "3"));
        QTRY_COMPARE(fixture.listed(), QString());
    }

    void failureIsMadeUpForWhenConnected()
    {
        NumberFixture fixture;
        fixture.server.reply(Mine, {FakeReply::of(503), answer(list({record("s1")}))});
        fixture.numbers.load();
        fixture.numbers.load();
        QCOMPARE(fixture.numbers.state(), ServiceNumbers::Loading);
        QTRY_COMPARE(fixture.numbers.state(), ServiceNumbers::Failed);
        QCOMPARE(fixture.server.count(Mine), 1);
        emit fixture.hub->signal_isConnected(true);
        QTRY_COMPARE(fixture.listed(), s1);
        // What is there stays when it cannot be had again.
        fixture.server.reply(Mine, FakeReply::of(503));
        fixture.numbers.load();
        QTRY_COMPARE(fixture.server.count(Mine), 3);
        QTRY_COMPARE(fixture.server.unanswered(), 0);
        QCOMPARE(fixture.numbers.state(), ServiceNumbers::Ready);
        QCOMPARE(fixture.listed(), s1);
    }

    void subscribedAndCancelled()
    {
        NumberFixture fixture;
        QVERIFY(fixture.loaded({record("s1")}));
        fixture.numbers.note({number(s2)});
        fixture.server.reply(Subscribe, {answer(), FakeReply::json("{\"code\":1}")});
        fixture.server.reply(Cancel, {FakeReply::json("{\"code\":10001}"), answer()});
        QSignalSpy announced(fixture.hub, &Hub::signal_notifyAddServiceNum);
        QSignalSpy refused(&fixture.numbers, &ServiceNumbers::subscriptionFailed);
        QSignalSpy kept(&fixture.numbers, &ServiceNumbers::cancellationFailed);

        fixture.numbers.subscribe(s2);
        fixture.numbers.subscribe(s2);
        QVERIFY(fixture.numbers.isBusy(s2) && !fixture.numbers.isSubscribed(s2));
        QTRY_COMPARE(fixture.listed(), QStringLiteral("s1 s2"));
        QVERIFY(!fixture.numbers.isBusy(s2));
        QCOMPARE(fixture.server.count(Subscribe), 1);
        QCOMPARE(announced.size(), 1);

        fixture.numbers.unsubscribe(s2);
        QTRY_COMPARE(kept.size(), 1);
        QVERIFY(fixture.numbers.isSubscribed(s2));
        fixture.numbers.unsubscribe(s2);
        QTRY_COMPARE(fixture.listed(), s1);
        fixture.numbers.subscribe(s2);
        QTRY_COMPARE(refused.size(), 1);
        QCOMPARE(refused.first().at(1).toString(), QStringLiteral("1"));
        QCOMPARE(fixture.listed(), s1);
    }

    // Whichever door an answer comes through, a number has one row.
    void hostTells()
    {
        NumberFixture fixture;
        QVERIFY(fixture.loaded({record("s1")}));
        fixture.numbers.note({number(s2)});
        const QString none;
        emit fixture.hub->signal_notifySubServiceNum(s2, none, true, QStringLiteral("0"));
        emit fixture.hub->signal_notifySubServiceNum(s2, none, true, QStringLiteral("0"));
        emit fixture.hub->signal_notifyAddServiceNum({number(s2), number(s3), number(s3)});
        QCOMPARE(fixture.listed(), QStringLiteral("s1 s2 s3"));
        emit fixture.hub->signal_notifyCancelSubServiceNum(s2, none, false);
        QVERIFY(fixture.numbers.isSubscribed(s2));
        emit fixture.hub->signal_notifyCancelSubServiceNum(s2, none, true);
        QCOMPARE(fixture.listed(), QStringLiteral("s1 s3"));

        QSignalSpy changed(&fixture.numbers, &ServiceNumbers::changed);
        emit fixture.hub->signal_notifyUpdateServiceNum(makeJid(s1), number(s3, "renamed"));
        QCOMPARE(fixture.numbers.find(s1)->name, QStringLiteral("renamed"));
        QVERIFY(fixture.numbers.isSubscribed(s1));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(fixture.listed(), QStringLiteral("s1 s3"));
    }

    void hostTellsOfAnUnknownOne()
    {
        NumberFixture fixture;
        QVERIFY(fixture.loaded({record("s1")}));
        fixture.server.reply(InfoList, answer(list({record("s3"), record("s2"), record("s9")})));
        for (const QString &code : {s2, s3, s2})
            emit fixture.hub->signal_notifySubServiceNum(code, {}, true, QStringLiteral("0"));
        QTRY_COMPARE(fixture.listed(), QStringLiteral("s1 s3 s2"));
        QCOMPARE(fixture.server.last().body, QByteArray("codes=s2%2Cs3&versions=%2C"));
    }

    // The service has made up its answer before the user decided.
    void decidedWhileTheListIsOnItsWay()
    {
        NumberFixture fixture;
        QVERIFY(fixture.loaded({record("s1")}));
        fixture.numbers.note({number(s2)});
        fixture.server.reply(Mine, answer(list({record("s1"), record("s3")}, "2")).onRelease());
        fixture.numbers.load();
        emit fixture.hub->signal_notifyCancelSubServiceNum(s1, {}, true);
        emit fixture.hub->signal_notifySubServiceNum(s2, {}, true, QStringLiteral("0"));
        QTRY_COMPARE(fixture.server.unanswered(), 1);
        fixture.server.release();
        QTRY_COMPARE(fixture.listed(), QStringLiteral("s3 s2"));
    }

    void details()
    {
        NumberFixture fixture;
        QVERIFY(fixture.loaded({record("s1")}));
        fixture.server.reply(Info, {answer("\"data\":" + record("s1", "\"description\":\"new\"")),
                                    answer(), FakeReply::json("{\"code\":10001}")});
        QSignalSpy told(fixture.hub, &Hub::signal_notifyUpdateServiceNum);
        QSignalSpy failed(&fixture.numbers, &ServiceNumbers::detailFailed);
        fixture.numbers.refresh(s1);
        fixture.numbers.refresh(s1);
        QTRY_COMPARE(fixture.numbers.find(s1)->description, QStringLiteral("new"));
        QCOMPARE(fixture.server.last().body, QByteArray("code=s1&version=1"));
        QVERIFY(fixture.numbers.isSubscribed(s1));
        QCOMPARE(told.size(), 1);
        QSignalSpy changed(&fixture.numbers, &ServiceNumbers::changed);
        fixture.numbers.refresh(s1); // nothing new
        QVERIFY(changed.wait(TestPatience));
        QCOMPARE(fixture.numbers.find(s1)->description, QStringLiteral("new"));
        fixture.numbers.refresh(s2);
        QVERIFY(failed.wait(TestPatience));
        QVERIFY(!fixture.numbers.find(s2));
    }

    void anotherUserStartsAnew()
    {
        NumberFixture fixture;
        QVERIFY(fixture.loaded({record("s1")}));
        fixture.server.reply(Mine, answer(list({record("s2")}, "2")).onRelease());
        fixture.numbers.load();
        QTRY_COMPARE(fixture.server.unanswered(), 1);
        emit fixture.hub->signal_login(); // the same one, again
        QCOMPARE(fixture.listed(), s1);
        fixture.services.host.user = QStringLiteral("u2");
        emit fixture.hub->signal_login();
        QCOMPARE(fixture.numbers.state(), ServiceNumbers::Unasked);
        fixture.server.release();
        QTRY_COMPARE(fixture.server.unanswered(), 0);
        QVERIFY(fixture.loaded({record("s3")}, "1"));
        QCOMPARE(fixture.server.last().body, QByteArray("version="));
        QCOMPARE(fixture.listed(), s3);
    }

    void thousands()
    {
        NumberFixture fixture;
        QByteArrayList records;
        for (int i = 0; i < 2000; ++i)
            records += record("n" + QByteArray::number(i), "\"menuList\":[{\"a\":1}]");
        QVERIFY(fixture.loaded(records));
        QCOMPARE(fixture.numbers.subscriptions().size(), 2000);
        // The same once more, and by the other door: nobody has anything to repaint.
        QSignalSpy changed(&fixture.numbers, &ServiceNumbers::changed);
        QSignalSpy announced(fixture.hub, &Hub::signal_notifyAddServiceNum);
        QVERIFY(fixture.loaded(records, "2"));
        QCOMPARE(changed.size(), 0);
        QCOMPARE(announced.size(), 0);
        emit fixture.hub->signal_notifyAddServiceNum(fixture.numbers.subscriptions());
        QCOMPARE(changed.size(), 0);
        QCOMPARE(fixture.numbers.subscriptions().size(), 2000);
    }

    // --- Icons --------------------------------------------------------------------

    void icons_data()
    {
        const Rows<QByteArray, QString> row{"icon", "file"};
        row("name", "s1.png", "s1.png");
        row("capitals", "Icon1.PNG", "Icon1.PNG");
        row("path", "../../x.png", "x.png");
        row("address", "https://cdn.example/a/i.png", "i.png");
        row("of another system", "C:\\\\icons\\\\w.png", "w.png");
        row("none", "", "");
        row("the default", "Resources/images/FriendDetail/ic_portrait_server_90.png", "");
        row("no name", "a/..", "");
    }

    void icons()
    {
        QFETCH(QByteArray, icon);
        QFETCH(QString, file);
        NumberFixture fixture;
        fixture.server.replyElsewhere(
            [](const FakeRequest &) { return FakeReply::of(200, "pic"); });
        QVERIFY(fixture.loaded({"{\"iServiceCode\":\"s1\",\"icon\":\"" + icon + "\"}"}));
        fixture.server.forget();
        const QString standard =
            QStringLiteral("Resources/images/FriendDetail/ic_portrait_server_90.png");
        QSignalSpy ready(fixture.hub, &Hub::signal_notifyDownloadServiceIconResult);
        QSignalSpy told(&fixture.numbers, &ServiceNumbers::iconReady);
        QCOMPARE(fixture.numbers.icon(s1), standard);
        if (file.isEmpty()) {
            QVERIFY(fixture.loaded({}));
            QCOMPARE(fixture.server.requests().size(), 1);
            return;
        }
        QVERIFY(ready.wait(TestPatience));
        const QString local =
            fixture.services.host.baseFolder + QLatin1String("/u1/serviceIcon/") + file;
        QCOMPARE(ready.first(), (QVariantList{s1, local}));
        QCOMPARE(told.size(), 1);
        QCOMPARE(fixture.numbers.icon(s1), local);
        QCOMPARE(fixture.server.requests().size(), 1);
    }

    void iconsAFewAtATime()
    {
        NumberFixture fixture;
        fixture.server.replyElsewhere(
            [](const FakeRequest &) { return FakeReply::of(200, "pic").onRelease(); });
        QByteArrayList records;
        for (int i = 0; i < 12; ++i)
            records += record("n" + QByteArray::number(i));
        QVERIFY(fixture.loaded(records));
        fixture.server.forget();
        QSignalSpy told(&fixture.numbers, &ServiceNumbers::iconReady);
        for (const CServiceNumData &each : fixture.numbers.subscriptions())
            fixture.numbers.icon(each.code);
        QTRY_COMPARE(fixture.server.requests().size(), PictureFiles::IconsAtATime);
        fixture.server.release(1);
        QTRY_COMPARE(fixture.server.requests().size(), PictureFiles::IconsAtATime + 1);
        QVERIFY(fixture.server.last().path.endsWith("n11.png")); // newest wish
        while (told.size() < 12) {
            fixture.server.release(1);
            QVERIFY(told.wait(TestPatience));
        }
        QCOMPARE(fixture.server.mostUnanswered(), PictureFiles::IconsAtATime);
    }

    // Unknown to the service: asked for once, whoever paints the row again.
    void iconThatIsNotThere()
    {
        NumberFixture fixture;
        QVERIFY(fixture.loaded({record("s1")}));
        fixture.server.forget();
        for (int i = 0; i < 3; ++i) {
            fixture.numbers.icon(s1);
            QTRY_VERIFY(!PictureFiles::serviceIcons().isBusy());
        }
        QCOMPARE(fixture.server.requests().size(), 1);
    }

    void iconOfTheHost()
    {
        NumberFixture fixture;
        QVERIFY(fixture.loaded({record("s1")}));
        const QString file = fixture.services.makeFile(QStringLiteral("stored.png"), "pic");
        QSignalSpy told(&fixture.numbers, &ServiceNumbers::iconReady);
        emit fixture.hub->signal_notifyDownloadServiceIconResult(s1, QStringLiteral("//h/x.png"));
        emit fixture.hub->signal_notifyDownloadServiceIconResult(s1, file);
        QCOMPARE(told.size(), 1);
        QCOMPARE(fixture.numbers.icon(s1), file);
        QVERIFY(QFile::remove(file));
        QVERIFY(fixture.numbers.icon(s1) != file);
    }
};

FRIENDUI_TEST(TstServiceNumbers)
#include "tst_servicenumbers.moc"
