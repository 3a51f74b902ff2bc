// People of two companies become each other's contacts and part again, and somebody's
// picture changes: one of them in the reference host, the others, and the same user's other
// host, by the services alone.
#include "host/core/embeddedcore.h"
#include "host/eventlog.h"
#include "host/hostbus.h"
#include "host/hostcontext.h"
#include "host/tour/serviceuser.h"
#include "hostapi/baseevent.h"
#include "hostapi/eventcodes.h"
#include "http/jsonreader.h"
#include "tests/e2e/onehost.h"
#include "tests/support/testrunner.h"

namespace {

const QString User = QStringLiteral("u000000");
const QString Outsider = QStringLiteral("x000003");
const QString OutsiderJid = Outsider + QStringLiteral("@corp.example");
const QString Photo = QStringLiteral("/center/user/setPhoto.do");

QString friendService(const char *name)
{
    return QStringLiteral("/center/friend/%1.do").arg(QLatin1String(name));
}

template <class... Args> QByteArray payloadOf(const Args &...args)
{
    QByteArray payload;
    QDataStream out(&payload, QIODevice::WriteOnly);
    (void(out << args), ...);
    return payload;
}

struct Host : OneHost
{
    QVector<EventRecord> recorded;

    bool begin(const BackendAddress &services)
    {
        if (!start(User, services))
            return false;
        QObject::connect(application->log(), &EventLog::recorded, application->log(),
                         [this](const EventRecord &record) { recorded.append(record); });
        return true;
    }
    // As the module asks for it.
    template <class... Args> void ask(qint32 code, const Args &...args)
    {
        BaseEvent event(code, payloadOf(args...), QString::fromLatin1(PluginId::FriendUi),
                        QString::fromLatin1(PluginId::Roster));
        QCoreApplication::sendEvent(application->bus(), &event);
    }
    template <class... Args> bool told(qint32 code, const Args &...args) const
    {
        const QByteArray payload = payloadOf(args...);
        return std::any_of(recorded.begin(), recorded.end(), [&](const EventRecord &each) {
            return each.code == code && each.payload == payload;
        });
    }
    FriendData contact(const QString &jid) const
    {
        FriendData found;
        application->core()->contact(jid, &found);
        return found;
    }
    VcardInfo profile(const QString &jid) const
    {
        VcardInfo found;
        application->core()->profile(jid, &found);
        return found;
    }
};

// The entry of a person in somebody's list; null: none.
Json::Value entryOf(ServiceUser *user, const QString &uid)
{
    const Json::Value list = user->call(friendService("getFriendList"));
    for (const Json::Value &entry : JsonReader::array(list, "friends")) {
        if (JsonReader::text(entry, "userId") == uid)
            return entry;
    }
    return Json::Value();
}

QStringList eventTypes(ServiceUser *user, qint64 since)
{
    QStringList types;
    const Json::Value news = user->call(QStringLiteral("/center/event/getEvents.do"),
                                        {{"since", QString::number(since)}});
    for (const Json::Value &event : JsonReader::array(news, "events"))
        types.append(JsonReader::text(event, "type"));
    return types;
}

} // namespace

class TstExternals : public QObject
{
    Q_OBJECT

private slots:
    // One host: the module keeps what it was given until the process ends.
    void initTestCase()
    {
        QVERIFY(services.start());
        QVERIFY(host.begin(services.address()));
    }

    void contactsAreAskedMovedAndRemoved()
    {
        ServiceUser outsider(services.address(), Outsider);
        ServiceUser otherHost(services.address(), User);
        QVERIFY(!entryOf(&outsider, User).isNull());
        host.ask(Outbound::DeleteContact, OutsiderJid, false);
        QTRY_VERIFY_WITH_TIMEOUT(host.told(Inbound::ContactRemoved, OutsiderJid, false), WaitMs);
        QVERIFY(host.contact(OutsiderJid).jid.isEmpty());
        QVERIFY(entryOf(&outsider, User).isNull());

        const SampleCompany sample;
        const SamplePerson person = sample.find(Outsider);
        host.ask(Outbound::SearchExternalPeople, person.account);
        SearchFriendResultData found;
        QTRY_VERIFY_WITH_TIMEOUT(isFound(OutsiderJid, &found), WaitMs);
        QCOMPARE(found.name, person.name);

        host.ask(Outbound::AddExternalContact, OutsiderJid, QStringLiteral("hello"),
                 QStringLiteral("pc"));
        QTRY_VERIFY_WITH_TIMEOUT(
            host.told(Inbound::ExternalContactAnswer, OutsiderJid, true, qint32(0), qint32(0)),
            WaitMs);
        const Json::Value waiting = outsider.call(QStringLiteral("/center/event/getEvents.do"));
        QCOMPARE(JsonReader::text(JsonReader::array(waiting, "events")[0u], "reason"),
                 QStringLiteral("hello"));
        outsider.call(friendService("confirmAddFriend"),
                      {{"userId", User}, {"type", QStringLiteral("1")}});
        QTRY_VERIFY_WITH_TIMEOUT(host.told(Inbound::ContactAdded, OutsiderJid), WaitMs);
        QCOMPARE(host.contact(OutsiderJid).outside, 1);

        host.ask(Outbound::CreateGroup, QStringLiteral("Fair"), false);
        QString group;
        QTRY_VERIFY_WITH_TIMEOUT(hasGroup(QStringLiteral("Fair"), &group), WaitMs);
        host.ask(Outbound::MoveContact, OutsiderJid, QString(), group, false);
        QTRY_COMPARE_WITH_TIMEOUT(host.contact(OutsiderJid).groupId, group, WaitMs);
        QCOMPARE(JsonReader::text(entryOf(&otherHost, Outsider), "groupId"), group);
        otherHost.call(friendService("removeFriendGroup"), {{"groupId", group}});
        QTRY_VERIFY_WITH_TIMEOUT(host.told(Inbound::GroupDeleted, true, group, false), WaitMs);
        QCOMPARE(host.contact(OutsiderJid).groupId, QString::fromLatin1(""));

        host.ask(Outbound::SetRemark, OutsiderJid, QStringLiteral("from the fair"));
        QTRY_COMPARE_WITH_TIMEOUT(host.contact(OutsiderJid).remark, QStringLiteral("from the fair"),
                                  WaitMs);
        QCOMPARE(JsonReader::text(entryOf(&otherHost, Outsider), "remark"),
                 QStringLiteral("from the fair"));
        outsider.call(friendService("removeFriend"), {{"userId", User}});
        QTRY_VERIFY_WITH_TIMEOUT(host.contact(OutsiderJid).jid.isEmpty(), WaitMs);
    }

    void whoAsksIsAnsweredAndBlacklisted()
    {
        ServiceUser outsider(services.address(), Outsider);
        host.recorded.clear();
        outsider.call(friendService("addFriendRequest"),
                      {{"userId", User}, {"reason", QStringLiteral("please")}});
        QCOMPARE(outsider.code(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(host.notices(), 1, WaitMs);
        bool cooperates = false;
        QVERIFY(host.application->context()->cooperates(OutsiderJid, &cooperates));
        host.stage->press("Notices", "acceptNotice");
        QCOMPARE(int(std::count_if(host.recorded.cbegin(), host.recorded.cend(),
                                   [](const EventRecord &each) {
                                       return each.code == Inbound::ContactRequested;
                                   })),
                 1);
        QCOMPARE(host.notices(), 1); // until it is answered
        host.ask(Outbound::ConfirmExternalContact, OutsiderJid, qint32(1), QStringLiteral("pc"));
        QTRY_VERIFY_WITH_TIMEOUT(host.told(Inbound::ContactAdded, OutsiderJid), WaitMs);
        QTRY_COMPARE_WITH_TIMEOUT(host.notices(), 0, WaitMs);
        QVERIFY(!entryOf(&outsider, User).isNull());

        host.ask(Outbound::BlacklistExternalContact, OutsiderJid);
        QTRY_VERIFY_WITH_TIMEOUT(host.contact(OutsiderJid).jid.isEmpty(), WaitMs);
        outsider.call(friendService("addFriendRequest"),
                      {{"userId", User}, {"reason", QStringLiteral("again")}});
        QCOMPARE(outsider.code(), 10004);
    }

    void picturesAppearEverywhere()
    {
        ServiceUser otherHost(services.address(), User);
        ServiceUser colleague(services.address(), QStringLiteral("u000001"));
        const QString own = host.application->core()->ownJid();
        const QString colleagueJid = QStringLiteral("u000001@corp.example");
        otherHost.call(Photo, {{"photoName", QStringLiteral("7.png")}});
        QCOMPARE(otherHost.code(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(host.profile(own).photoName, QStringLiteral("7.png"), WaitMs);
        const QString head = host.application->context()->headPath(own);
        QVERIFY2(head.endsWith(QLatin1String("SystemAvatar/7.png")), qPrintable(head));
        QTRY_VERIFY(host.told(Inbound::HeadChanged, own, head));
        colleague.call(Photo, {{"photoName", QStringLiteral("5.png")}});
        QTRY_COMPARE_WITH_TIMEOUT(host.profile(colleagueJid).photoName, QStringLiteral("5.png"),
                                  WaitMs);

        // The other way round.
        const qint64 before = JsonReader::integer(
            otherHost.call(QStringLiteral("/center/event/getEvents.do")), "next");
        VcardInfo profile = host.profile(own);
        profile.photoName = QStringLiteral("9.png");
        host.recorded.clear();
        host.ask(Outbound::StoreOwnProfile, profile);
        QTRY_VERIFY_WITH_TIMEOUT(host.told(Inbound::OwnProfileStored), WaitMs);
        QCOMPARE(eventTypes(&otherHost, before), QStringList{QStringLiteral("picture")});
        QTRY_COMPARE(host.profile(own).photoName, QStringLiteral("9.png"));
        profile.photoName = QStringLiteral("no_such.png");
        host.ask(Outbound::StoreOwnProfile, profile);
        QCOMPARE(eventTypes(&otherHost, before).size(), 1);
        QCOMPARE(host.profile(own).photoName, QStringLiteral("9.png"));
    }

    void subscriptionsOfTheOtherHostAreTold()
    {
        ServiceUser otherHost(services.address(), User);
        host.recorded.clear();
        const QString code = QStringLiteral("sn2001"); // everybody's at first
        otherHost.call(QStringLiteral("/center/isrv/unsubIsrv.do"), {{"appCode", code}});
        QCOMPARE(otherHost.code(), 0);
        QTRY_VERIFY_WITH_TIMEOUT(host.told(Inbound::ServiceNumberCancelled, code, QString(), true),
                                 WaitMs);
        otherHost.call(QStringLiteral("/center/isrv/subIsrv.do"), {{"appCode", code}});
        QTRY_VERIFY_WITH_TIMEOUT(std::any_of(host.recorded.cbegin(), host.recorded.cend(),
                                             [](const EventRecord &each) {
                                                 return each.code == Inbound::ServiceNumbersAdded;
                                             }),
                                 WaitMs);
    }

private:
    bool isFound(const QString &jid, SearchFriendResultData *out) const
    {
        for (const EventRecord &record : host.recorded) {
            QDataStream in(record.payload);
            QList<SearchFriendResultData> results;
            if (record.code != Inbound::PeopleFound)
                continue;
            in >> results;
            for (const SearchFriendResultData &result : qAsConst(results)) {
                *out = result;
                if (result.jid == jid)
                    return true;
            }
        }
        return false;
    }
    bool hasGroup(const QString &name, QString *id) const
    {
        const QList<GroupData> groups = host.application->core()->groups(false);
        for (const GroupData &group : groups) {
            *id = group.id;
            if (group.name == name)
                return true;
        }
        return false;
    }

    RunningServices services;
    Host host;
};

FRIENDUI_TEST(TstExternals)
#include "tst_externals.moc"
