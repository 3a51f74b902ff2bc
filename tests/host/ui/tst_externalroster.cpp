// People outside the company: the list as scripted services tell it, what the user changes,
// requests both ways, and pictures.
#include "host/core/embeddedcore.h"
#include "host/corenotifier.h"
#include "host/eventlog.h"
#include "host/externalnews.h"
#include "host/externalroster.h"
#include "host/hostbus.h"
#include "host/hostcontext.h"
#include "host/personpictures.h"
#include "host/webservices.h"
#include "host/windows/notices.h"
#include "hostapi/eventcodes.h"
#include "tests/support/fakecontext.h"
#include "tests/support/fakeserver.h"
#include "tests/support/testrunner.h"

#include <QPushButton>
#include <QTemporaryDir>

namespace {

const QByteArray Events = ServiceEvents::path().toLatin1();
const char List[] = "/center/friend/getFriendList.do";
const char Move[] = "/center/friend/moveFriendItem.do";
const QByteArray Groups = R"("groups":[{"groupId":"0","groupName":"Outside"},)"
                          R"({"groupId":"7","groupName":"Partners"}])";
const QByteArray Bo = R"({"userId":"x000001","name":"Bo","groupId":"7","companyCode":"C3"})";

FakeReply done(const QByteArray &data = "{}")
{
    return FakeReply::json("{\"code\":0,\"data\":" + data + "}");
}
FakeReply friends(const QByteArray &people = Bo, const QByteArray &groups = Groups)
{
    return done('{' + groups + ",\"friends\":[" + people + "]}");
}
FakeReply news(int next, const QByteArray &events = "")
{
    return done("{\"next\":" + QByteArray::number(next) + ",\"events\":[" + events + "]}");
}
QString jid(const char *uid)
{
    return QString::fromLatin1(uid) + QLatin1String("@corp.example");
}
QString text(const char *latin)
{
    return QString::fromLatin1(latin);
}

EmbeddedCore::Options coreOptions(const QString &folder)
{
    EmbeddedCore::Options options;
    options.folder = folder + QLatin1String("/core");
    return options;
}

// A host without a window, whose events for the plug-in are kept as "4121 true x..." lines.
struct Bench
{
    FakeServer server;
    QTemporaryDir folder;
    EmbeddedCore core{coreOptions(folder.path())};
    HostContext context{&core, folder.path()};
    HostContextScope scope{&context};
    EventLog log;
    HostBus bus{&log};
    CoreNotifier notifier{&core, &bus, &context};
    QObject plugin;
    Notices notices;
    ServiceEvents events;
    QVector<EventRecord> recorded;
    std::unique_ptr<WebServices> services;
    std::unique_ptr<ExternalRoster> roster;
    std::unique_ptr<ExternalNews> externalNews;
    std::unique_ptr<PersonPictures> pictures;

    Bench()
    {
        QString problem;
        if (!core.open(&problem))
            QTest::qFail(qPrintable(problem), __FILE__, __LINE__);
        core.setAnswerDelay(0);
        FakeReply logIn = FakeReply::json(R"({"code":0})");
        logIn.header("Set-Cookie", "imAuthId=a; Path=/; HttpOnly");
        server.reply("/ids/login", logIn);
        server.reply(List, friends());
        server.reply(Events, {news(1), news(1).onRelease()});
        bus.setPlugin(&plugin, QString::fromLatin1(PluginId::FriendUi));
        QObject::connect(&log, &EventLog::recorded, &log,
                         [this](const EventRecord &record) { recorded.append(record); });
        WebServices::Options options;
        options.source = WebServices::Named;
        options.named.address = server.url(QString()).toString();
        options.named.password = QStringLiteral("secret");
        services = std::make_unique<WebServices>(&context, options);
        roster = std::make_unique<ExternalRoster>(
            ExternalRoster::Parts{services.get(), &events, &core, &bus});
        externalNews = std::make_unique<ExternalNews>(
            ExternalNews::Parts{&events, roster.get(), &core, &context, &bus, &notices});
        pictures = std::make_unique<PersonPictures>(
            PersonPictures::Parts{services.get(), &events, roster.get(), &core, &bus});
        events.follow(services.get(), &core);
    }
    ~Bench()
    {
        events.stop();
        services.reset();
        context.shutDown();
    }

    // Logged in, with the list as the services have it.
    bool start()
    {
        services->start();
        if (!QTest::qWaitFor([this] { return isContact("x000001", "7"); }))
            return false;
        recorded.clear();
        return true;
    }
    bool isContact(const char *uid, const char *group) const
    {
        FriendData contact;
        return core.contact(jid(uid), &contact) && contact.outside == 1 &&
               contact.groupId == QLatin1String(group);
    }
    QByteArray lastForm(const QByteArray &path) const
    {
        QByteArray form;
        for (const FakeRequest &request : server.requests()) {
            if (request.path == path)
                form = request.body;
        }
        return form;
    }
    // What the events of a code said first, and how many there were.
    int count(qint32 code) const
    {
        return int(std::count_if(recorded.cbegin(), recorded.cend(),
                                 [code](const EventRecord &each) { return each.code == code; }));
    }
    template <class... Args> bool told(qint32 code, const Args &...expected) const
    {
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        (void(out << expected), ...);
        return std::any_of(recorded.cbegin(), recorded.cend(), [&](const EventRecord &each) {
            return each.code == code && each.payload == payload;
        });
    }
};

} // namespace

class TstExternalRoster : public QObject
{
    Q_OBJECT

private slots:
    void theListIsTheServices()
    {
        Bench bench;
        const int before = bench.core.contacts().size();
        bench.services->start();
        QTRY_VERIFY(bench.isContact("x000001", "7"));
        QCOMPARE(bench.core.groups(false),
                 (QList<GroupData>{{text(""), text("Outside")}, {text("7"), text("Partners")}}));
        QCOMPARE(bench.core.contacts().size(), before - SampleCompany::KnownOutsiderCount + 1);
        QVERIFY(bench.told(Inbound::ContactRemoved, jid("x000003"), false));
        QVERIFY(bench.told(Inbound::GroupCreated, text("7"), text("Partners"), true, false));

        // By another host, or by the people themselves.
        bench.recorded.clear();
        bench.server.reply(List, friends(R"({"userId":"x000001","name":"Bo","groupId":"0"},)"
                                         R"({"userId":"x000004","name":"New","groupId":"99"},)"
                                         R"({"userId":"u000001","name":"Boss","groupId":"0"})"));
        emit bench.events.friendsChanged();
        QTRY_VERIFY(bench.told(Inbound::ContactAdded, jid("x000004")));
        QVERIFY(
            bench.told(Inbound::ContactMoved, true, jid("x000001"), text("7"), text(""), false));
        QVERIFY(bench.isContact("x000004", ""));
        FriendData boss; // a colleague stays one
        QVERIFY(bench.core.contact(jid("u000001"), &boss) && boss.outside == 0);
        QCOMPARE(bench.count(Inbound::ContactRemoved), 0);
    }

    void whatTheUserChanges()
    {
        Bench bench;
        QVERIFY(bench.start());
        bench.server.reply("/center/friend/createFriendGroup.do", done(R"({"groupId":"12"})"));
        bench.server.reply("/center/friend/renameFriendGroup.do", done());
        bench.server.reply("/center/friend/removeFriendGroup.do", done());
        bench.server.reply("/center/friend/removeFriend.do", done());
        bench.server.reply(Move, done());
        bench.roster->createGroup(text(" Fair & co "));
        QVERIFY(bench.recorded.isEmpty()); // never inside the call
        QTRY_VERIFY(bench.told(Inbound::GroupCreated, text("12"), text("Fair & co"), true, false));
        QCOMPARE(bench.lastForm("/center/friend/createFriendGroup.do"),
                 QByteArray("groupName=Fair%20%26%20co"));
        bench.roster->moveContact(jid("x000001"), text("7"), text("12"));
        QTRY_VERIFY(
            bench.told(Inbound::ContactMoved, true, jid("x000001"), text("7"), text("12"), false));
        QCOMPARE(bench.lastForm(Move), QByteArray("userId=x000001&oldGroupId=7&newGroupId=12"));
        bench.roster->renameGroup(text("12"), text("Fair"));
        QTRY_VERIFY(bench.told(Inbound::GroupRenamed, text("12"), text("Fair"), true, false));
        bench.roster->renameGroup(text("12"), text("Fair")); // nothing differs
        QTRY_COMPARE(bench.count(Inbound::GroupRenamed), 2);
        bench.roster->deleteGroup(text("12"));
        QTRY_VERIFY(bench.told(Inbound::GroupDeleted, true, text("12"), false));
        QVERIFY(bench.isContact("x000001", ""));
        bench.roster->moveContact(jid("x000001"), text("0"), text("7"));
        QTRY_VERIFY(
            bench.told(Inbound::ContactMoved, true, jid("x000001"), text(""), text("7"), false));
        QCOMPARE(bench.lastForm(Move), QByteArray("userId=x000001&oldGroupId=0&newGroupId=7"));
        bench.roster->removeContact(jid("x000001"));
        QTRY_VERIFY(bench.told(Inbound::ContactRemoved, jid("x000001"), false));
        QCOMPARE(bench.count(Inbound::GroupCreated), 1);
        QCOMPARE(bench.count(Inbound::ContactRemoved), 1);
    }

    void whatTheServicesRefuseStaysAsItWas_data()
    {
        const Rows<QString> row{"trouble"};
        row("a refusal", "refusal");
        row("no answer", "silence");
        row("offline", "offline");
    }
    void whatTheServicesRefuseStaysAsItWas()
    {
        QFETCH(QString, trouble);
        Bench bench;
        QVERIFY(bench.start());
        if (trouble == QLatin1String("silence"))
            bench.server.stop();
        bench.server.replyElsewhere(
            [](const FakeRequest &) { return FakeReply::json(R"({"code":10002})"); });
        if (trouble != QLatin1String("refusal"))
            bench.server.reply(List, FakeReply::of(503));
        if (trouble == QLatin1String("offline")) {
            bench.core.setConnected(false);
            QTRY_VERIFY(!bench.core.isConnected());
        }
        bench.roster->createGroup(text("Team"));
        bench.roster->renameGroup(text("7"), text("Team"));
        bench.roster->deleteGroup(text("7"));
        bench.roster->moveContact(jid("x000001"), text("7"), text("0"));
        bench.roster->removeContact(jid("x000001"));
        bench.roster->add(jid("x000004"), text("hello"), text("pc"));
        bench.roster->searchPeople(text("bo"));
        const qint32 code = trouble == QLatin1String("refusal") ? 10002 : -1;
        QTRY_VERIFY(
            bench.told(Inbound::ExternalContactAnswer, jid("x000004"), false, code, qint32(0)));
        QTRY_VERIFY(bench.told(Inbound::PeopleFound, QList<SearchFriendResultData>(), qint32(-1)));
        QTRY_VERIFY(bench.told(Inbound::GroupCreated, QString(), text("Team"), false, false));
        QTRY_VERIFY(bench.told(Inbound::GroupRenamed, text("7"), text("Team"), false, false));
        QTRY_VERIFY(bench.told(Inbound::GroupDeleted, false, text("7"), false));
        QTRY_VERIFY(
            bench.told(Inbound::ContactMoved, false, jid("x000001"), text("7"), text(""), false));
        QTRY_VERIFY(bench.told(Inbound::ContactRemovalFailed, jid("x000001"), false));
        QVERIFY(bench.isContact("x000001", "7"));
        // The list that was known is shown, whoever asks.
        bench.recorded.clear();
        bench.roster->requestGroups();
        QTRY_VERIFY(bench.told(Inbound::GroupList, bench.core.groups(false), false));
        QCOMPARE(bench.core.groups(false).size(), 2);
        QCOMPARE(bench.count(Inbound::GroupListFailed),
                 trouble == QLatin1String("refusal") ? 0 : 1);
    }

    void aChangeIsNotUndoneByAnOlderList()
    {
        Bench bench;
        QVERIFY(bench.start());
        bench.server.reply(List, {friends().onRelease(),
                                  friends(R"({"userId":"x000001","name":"Bo","groupId":"0"})")});
        bench.server.reply(Move, done());
        bench.roster->reload();
        QTRY_COMPARE(bench.server.unanswered(), 2); // and the one for events
        bench.roster->moveContact(jid("x000001"), text("7"), text("0"));
        QTRY_VERIFY(bench.isContact("x000001", ""));
        bench.server.release();
        QTRY_COMPARE(bench.server.count(List), 3);
        QTRY_COMPARE(bench.server.unanswered(), 0);
        QVERIFY(bench.isContact("x000001", ""));
        QCOMPARE(bench.count(Inbound::ContactMoved), 1);
    }

    void remarksAreTheServicesWhenTheyHaveThem()
    {
        Bench bench;
        QVERIFY(bench.start());
        bench.server.reply("/center/friend/setFriendRemark.do",
                           {done(), FakeReply::json(R"({"code":10001})")});
        bench.roster->setRemark(jid("x000001"), text(" mine "));
        QTRY_VERIFY(bench.told(Inbound::RemarkChanged, jid("x000001"), text("mine")));
        QSignalSpy notes(bench.roster.get(), &ExternalRoster::note);
        bench.roster->setRemark(jid("x000001"), text("other"));
        QVERIFY(notes.wait());
        QSignalSpy listed(bench.roster.get(), &ExternalRoster::pictureKnown);
        bench.server.reply(
            List, {friends(R"({"userId":"x000001","name":"Bo","groupId":"7","photoName":""})"),
                   friends(R"({"userId":"x000001","name":"Bo","remark":"theirs"})")});
        bench.roster->reload(); // tells no remark
        QVERIFY(listed.wait());
        QCOMPARE(bench.count(Inbound::RemarkChanged), 1);
        bench.roster->reload();
        QTRY_VERIFY(bench.told(Inbound::RemarkChanged, jid("x000001"), text("theirs")));
    }

    void whoAsksStandsAmongTheNotices()
    {
        Bench bench;
        bench.server.reply(
            Events,
            {news(3, R"({"type":"friendRequest","member":"x000004","name":"Di <b>",)"
                     R"("companyName":"C & D","reason":"hi","time":"2026-01-02 03:04:05"})"),
             news(3).onRelease(), news(4)});
        bench.server.reply("/center/friend/confirmAddFriend.do",
                           {FakeReply::json(R"({"code":10003})"), done()});
        bool cooperates = false;
        QVERIFY(bench.start());
        QTRY_COMPARE(bench.notices.count(), 1);
        QVERIFY(bench.context.cooperates(jid("x000004"), &cooperates) && cooperates);
        bench.notices.findChild<QPushButton *>(text("acceptNotice"))->click();
        QVERIFY(bench.told(Inbound::ContactRequested, jid("x000004"), text("hi"),
                           text("2026-01-02 03:04:05")));
        QCOMPARE(bench.notices.count(), 1);

        bench.roster->confirm(jid("x000004"), 1, text("pc"));
        QTRY_VERIFY(
            bench.told(Inbound::ExternalContactAnswer, jid("x000004"), false, 10003, qint32(1)));
        QCOMPARE(bench.notices.count(), 1);
        bench.server.reply(List, friends(R"({"userId":"x000004","name":"Di","groupId":"0"})"));
        bench.roster->confirm(jid("x000004"), 1, text("pc"));
        QTRY_VERIFY(
            bench.told(Inbound::ExternalContactAnswer, jid("x000004"), true, qint32(0), qint32(1)));
        QCOMPARE(bench.lastForm("/center/friend/confirmAddFriend.do"),
                 QByteArray("userId=x000004&type=1&groupId=0&clientType=pc"));
        QCOMPARE(bench.notices.count(), 0);
        QTRY_VERIFY(bench.told(Inbound::ContactAdded, jid("x000004")));
        bench.roster->blacklist(jid("x000004"));
        QTRY_VERIFY(
            bench.told(Inbound::ExternalContactAnswer, jid("x000004"), true, qint32(0), qint32(2)));
        QVERIFY(bench.lastForm("/center/friend/confirmAddFriend.do").contains("type=2"));
    }

    void peopleAreFound()
    {
        Bench bench;
        QVERIFY(bench.start());
        bench.server.reply("/center/friend/search.do",
                           done(R"([{"userId":"x000007","name":"A<B>","companyName":"C3",)"
                                R"("photoName":"p.png"},{"name":"nobody"},5])"));
        bench.roster->searchPeople(text("13800000001"));
        SearchFriendResultData found{jid("x000007"), text("A<B>"), text("A<B>"), text("p.png"),
                                     text("C3")};
        QTRY_VERIFY(
            bench.told(Inbound::PeopleFound, QList<SearchFriendResultData>{found}, qint32(1)));
        QCOMPARE(bench.lastForm("/center/friend/search.do"), QByteArray("key=13800000001"));
    }

    void somebodysNewPictureIsFetchedAndTold()
    {
        Bench bench;
        QVERIFY(bench.start());
        bench.server.reply("/center/im/downloadFile.do", FakeReply::of(200, "picture"));
        const QString own = bench.core.ownJid();
        emit bench.events.pictureChanged(bench.core.ownUid(), text("mine_2.png"));
        const QString file = bench.context.pictureFolder() + QLatin1String("/mine_2.png");
        QTRY_VERIFY(bench.told(Inbound::HeadChanged, own, file));
        QCOMPARE(bench.context.headPath(own), file);
        QVERIFY(bench.count(Inbound::OwnProfileStored) > 0);
        VcardInfo profile;
        QVERIFY(bench.core.profile(own, &profile));
        QCOMPARE(profile.photoName, text("mine_2.png"));
        QVERIFY(bench.told(Inbound::ProfileReceived, own, profile));
        emit bench.events.pictureChanged(bench.core.ownUid(), QString()); // taken away
        QVERIFY(bench.told(Inbound::HeadChanged, own, QString()));
        QCOMPARE(bench.context.headPath(own), QString());
    }

    void theOwnPictureIsTheServicesToTake()
    {
        Bench bench;
        QVERIFY(bench.start());
        bench.server.reply("/center/user/setPhoto.do",
                           {FakeReply::json(R"({"code":10001})"), done()});
        VcardInfo profile;
        const QString own = bench.core.ownJid();
        QVERIFY(bench.core.profile(own, &profile));
        profile.photoName = text("7.png");
        profile.sign = text("new");
        QSignalSpy notes(bench.pictures.get(), &PersonPictures::note);
        bench.pictures->storeOwnProfile(profile);
        QVERIFY(notes.wait());
        QCOMPARE(bench.count(Inbound::OwnProfileStored), 0);
        bench.pictures->storeOwnProfile(profile);
        QTRY_VERIFY(bench.count(Inbound::OwnProfileStored) > 0);
        QCOMPARE(bench.lastForm("/center/user/setPhoto.do"), QByteArray("photoName=7.png"));
        QTRY_VERIFY(bench.core.profile(own, &profile) && profile.sign == QLatin1String("new"));
        QVERIFY(bench.count(Inbound::HeadChanged) > 0);
    }
};

FRIENDUI_TEST(TstExternalRoster)
#include "tst_externalroster.moc"
