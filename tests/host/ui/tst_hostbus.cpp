// The host's end of the bus: routing, requests into the core, answers out of it.
#include "host/corenotifier.h"
#include "host/eventlog.h"
#include "host/hostbus.h"
#include "host/requesttable.h"
#include "hostapi/baseevent.h"
#include "hostapi/eventcodes.h"
#include "tests/host/ui/fakeactions.h"
#include "tests/host/ui/fakecore.h"
#include "tests/host/ui/fakeexternal.h"
#include "tests/plugin/samplepayload.h"
#include "tests/support/fakecontext.h"
#include "tests/support/testrunner.h"

#include <QCoreApplication>

namespace {

const QString pluginId()
{
    return QString::fromLatin1(PluginId::FriendUi);
}

// Stands where the plug-in's event receiver does.
class FakePlugin : public QObject
{
public:
    struct Received
    {
        qint32 code;
        QString sender, receiver;
        QByteArray payload;
    };
    QVector<Received> events;
    std::function<void(BaseEvent &)> onEvent;

    QList<qint32> codes() const
    {
        QList<qint32> list;
        for (const Received &event : events)
            list.append(event.code);
        return list;
    }

protected:
    void customEvent(QEvent *event) override
    {
        BaseEvent *base = asBaseEvent(event);
        events.append({base->code, base->senderId, base->receiverId, base->payload});
        if (onEvent)
            onEvent(*base);
    }
};

struct Bench
{
    EventLog log;
    FakeCore core;
    FakeActions actions;
    FakeExternal external;
    FakePlugin plugin;
    FakeContext context;
    HostBus bus{&log};
    CoreNotifier notifier{&core, &bus, &context};
    QVector<EventRecord> recorded;

    Bench()
    {
        QObject::connect(&log, &EventLog::recorded, &bus,
                         [this](const EventRecord &record) { recorded.append(record); });
        installRequestHandlers(bus, {&core, &actions, &external});
        bus.setPlugin(&plugin, pluginId());
    }

    QStringList calls() const { return core.calls + actions.calls + external.calls; }

    template <class... Args> bool request(qint32 code, const char *receiver, const Args &...args)
    {
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        (void(out << args), ...);
        return raw(code, QString::fromLatin1(receiver), payload);
    }
    bool raw(qint32 code, const QString &receiver, const QByteArray &payload)
    {
        BaseEvent event(code, payload, pluginId(), receiver);
        event.ignore();
        QCoreApplication::sendEvent(&bus, &event);
        return event.isAccepted();
    }
};

const QString jid()
{
    return QStringLiteral("u1@corp.example");
}

} // namespace

class TstHostBus : public QObject
{
    Q_OBJECT

private slots:
    void requestsReachTheCore_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QByteArray>("payload");
        QTest::addColumn<QString>("call");
        const auto row = [](qint32 code, const QString &call, const auto &...args) {
            QByteArray payload;
            QDataStream out(&payload, QIODevice::WriteOnly);
            (void(out << args), ...);
            QTest::newRow(qPrintable(call)) << int(code) << payload << call;
        };
        const QString text = QString::fromUtf8("项目 \"x\"");
        row(Outbound::CreateGroup, QStringLiteral("createGroup(%1)").arg(text), text, true);
        row(Outbound::CreateGroup, QStringLiteral("external createGroup(%1)").arg(text), text,
            false);
        row(Outbound::MoveContact, QStringLiteral("moveContact(j, g1, g2)"), QStringLiteral("j"),
            QStringLiteral("g1"), QStringLiteral("g2"), true);
        row(Outbound::MoveContact, QStringLiteral("external moveContact(j, g1, g2)"),
            QStringLiteral("j"), QStringLiteral("g1"), QStringLiteral("g2"), false);
        row(Outbound::RefreshGroups, QStringLiteral("requestGroups(true)"), true);
        row(Outbound::RefreshGroups, QStringLiteral("external requestGroups()"), false);
        row(Outbound::ConfirmExternalContact, QStringLiteral("external confirm(j, 1, pc)"),
            QStringLiteral("j"), qint32(1), QStringLiteral("pc"));
        row(Outbound::AddContact, QStringLiteral("addContact(j, hello, g1, remark)"),
            QStringLiteral("j"), QStringLiteral("hello"), QStringLiteral("g1"),
            QStringLiteral("remark"), qint32(2));
        row(Outbound::AddContacts, QStringLiteral("addContacts(a+b, g1)"),
            QStringList{QStringLiteral("a"), QStringLiteral("b")}, QStringLiteral("g1"));
        row(Outbound::OpenChat, QStringLiteral("openChat(j, 1)"), QStringLiteral("j"), qint32(1));
        row(Outbound::PickTeamMembers, QStringLiteral("pickTeamMembers(t, 3, a)"),
            QStringLiteral("t"), qint32(3), QStringList{QStringLiteral("a")});
    }
    void requestsReachTheCore()
    {
        QFETCH(int, code);
        QFETCH(QByteArray, payload);
        QFETCH(QString, call);
        Bench bench;
        const EventInfo *info = EventCatalogue::find(EventInfo::FromPlugin, code);
        QVERIFY(bench.raw(code, QString::fromLatin1(info->receiver), payload));
        QCOMPARE(bench.calls(), QStringList{call});
        QCOMPARE(bench.recorded.size(), 1);
        QCOMPARE(bench.recorded.first().direction, EventInfo::FromPlugin);
        QCOMPARE(bench.recorded.first().payload, payload);
    }

    // Every request whose payload the catalogue describes has a handler, and the
    // handler reads what the catalogue says.
    void everyDescribedRequestIsHandled()
    {
        for (const EventInfo &info : EventCatalogue::all()) {
            if (info.direction != EventInfo::FromPlugin || !*info.payload || !*info.receiver)
                continue;
            Bench bench;
            const QSignalSpy malformed(&bench.bus, &HostBus::malformed);
            const QByteArray payload = samplePayload(info);
            bench.raw(info.code, QString::fromLatin1(info.receiver), payload);
            QVERIFY2(bench.calls().size() == 1, info.name);
            QCOMPARE(malformed.count(), 0);
            // One byte less must not be taken for whole.
            bench.raw(info.code, QString::fromLatin1(info.receiver), payload.chopped(1));
            QCOMPARE(malformed.count(), 1);
            QVERIFY2(bench.calls().size() == 1, info.name);
        }
    }

    void wrongAddressesAreNotHandled()
    {
        Bench bench;
        const QSignalSpy unanswered(&bench.bus, &HostBus::unanswered);
        bench.request(Outbound::CreateGroup, PluginId::Chat, QStringLiteral("x"), true);
        bench.request(Outbound::CreateGroup, "{00000000}", QStringLiteral("x"), true);
        bench.request(4424, PluginId::Roster);
        QCOMPARE(unanswered.count(), 3);
        QVERIFY(bench.core.calls.isEmpty());
        QVERIFY(bench.plugin.events.isEmpty());
    }

    void broadcastsComeBackToThePlugin()
    {
        Bench bench;
        const QSignalSpy unanswered(&bench.bus, &HostBus::unanswered);
        bench.request(Outbound::LocateInOrganisation, PluginId::Everybody, QStringLiteral("u7"),
                      true);
        QCOMPARE(bench.plugin.events.size(), 1);
        const FakePlugin::Received &back = bench.plugin.events.first();
        QCOMPARE(back.code, qint32(Inbound::LocateInOrganisation));
        QCOMPARE(back.sender, pluginId());
        QVERIFY(back.receiver.isEmpty());
        QCOMPARE(back.payload, bench.recorded.first().payload);
        QCOMPARE(bench.recorded.size(), 2);
        QCOMPARE(unanswered.count(), 0);
        bench.request(4158, PluginId::Everybody);
        QCOMPARE(unanswered.count(), 1);
    }

    void aPluginThatEchoesBroadcastsDoesNotEndTheProcess()
    {
        Bench bench;
        bench.plugin.onEvent = [&bench](BaseEvent &event) {
            bench.raw(event.code, QString(), event.payload);
        };
        bench.request(Outbound::LocateInOrganisation, PluginId::Everybody, QStringLiteral("u7"),
                      true);
        QVERIFY(bench.plugin.events.size() < 100);
    }

    void postedRequestsAreTakenToo()
    {
        Bench bench;
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        out << jid();
        QCoreApplication::postEvent(&bench.bus,
                                    new BaseEvent(Outbound::QuitRoom, payload, pluginId(),
                                                  QString::fromLatin1(PluginId::Rooms), 1));
        QTRY_COMPARE(bench.core.calls.size(), 1);
    }

    void theQuestionIsAnsweredInsideTheEvent_data()
    {
        // answer: -1: none
        const Rows<int, bool> row{"answer", "allowed"};
        row("yes", 1, true);
        row("no", 0, false);
        row("silence", -1, false);
    }
    void theQuestionIsAnsweredInsideTheEvent()
    {
        QFETCH(int, answer);
        QFETCH(bool, allowed);
        Bench bench;
        bench.plugin.onEvent = [answer](BaseEvent &event) {
            if (answer < 0)
                return;
            event.payload.clear();
            QDataStream out(&event.payload, QIODevice::WriteOnly);
            out << (answer == 1);
        };
        QCOMPARE(bench.bus.mayAddContact(jid()), allowed);
        QCOMPARE(bench.plugin.events.first().code, qint32(Inbound::MayAddContact));
    }

    void coreSignalsBecomeEvents()
    {
        Bench bench;
        emit bench.core.groupDeleted(QStringLiteral("g1"), true, false);
        QByteArray expected;
        QDataStream out(&expected, QIODevice::WriteOnly);
        out << true << QStringLiteral("g1") << false; // the flag leads on the wire
        QCOMPARE(bench.plugin.events.last().payload, expected);

        emit bench.core.profileReceived(jid(), VcardInfo(), false);
        emit bench.core.profileReceived(jid(), VcardInfo(), true);
        emit bench.core.groupsFailed(true);
        emit bench.core.contactsReceived({});
        QCOMPARE(bench.plugin.codes(),
                 (QList<qint32>{Inbound::GroupDeleted, Inbound::ProfileReceived,
                                Inbound::FullProfileReceived, Inbound::GroupListFailed,
                                Inbound::ContactList}));
        for (const FakePlugin::Received &event : bench.plugin.events)
            QCOMPARE(event.receiver, pluginId());
    }

    void theConnectionFlagIsSetBeforeItsEvent()
    {
        Bench bench;
        bool flagInEvent = true;
        bench.plugin.onEvent = [&](BaseEvent &event) {
            if (event.code == Inbound::ConnectionChanged)
                flagInEvent = bench.context.settings.connected();
        };
        bench.core.setConnected(false);
        QVERIFY(!flagInEvent);
        QCOMPARE(bench.plugin.codes(),
                 (QList<qint32>{Inbound::ConnectionChanged, Inbound::AllOffline}));
        bench.core.setConnected(true);
        QVERIFY(flagInEvent);
        QCOMPARE(bench.plugin.codes().last(), qint32(Inbound::PresenceChanged));
    }

    void contactsFollowTheGroups()
    {
        Bench bench;
        bench.notifier.startSession();
        QCOMPARE(bench.plugin.codes().first(), qint32(Inbound::LoginChanged));
        QVERIFY(!bench.core.calls.contains(QLatin1String("requestContacts()")));
        emit bench.core.groupsFailed(true);
        emit bench.core.groupsReceived({}, false);
        QVERIFY(!bench.core.calls.contains(QLatin1String("requestContacts()")));
        emit bench.core.groupsReceived({}, true);
        emit bench.core.groupsReceived({}, true);
        QCOMPARE(bench.core.calls.count(QStringLiteral("requestContacts()")), 1);
    }

    void whatWasMissedIsDeliveredInOrder()
    {
        Bench bench;
        MessageData old;
        old.sessionJid = old.fromJid = jid();
        old.time = QStringLiteral("2024-01-02 03:04:05");
        MessageData own = old;
        own.fromJid = bench.core.ownJid();
        own.body = QStringLiteral("own");
        bench.core.missed = {{old, own}, {jid()}};
        emit bench.core.messageReceived(true, old); // before the pane exists
        QVERIFY(bench.plugin.events.isEmpty());
        QVERIFY(!bench.core.calls.contains(QLatin1String("clearBacklog()")));

        bench.notifier.startSession();
        const QList<qint32> codes = bench.plugin.codes();
        QCOMPARE(codes.mid(codes.size() - 3),
                 (QList<qint32>{Inbound::MessageReceived, Inbound::MessageReceived,
                                Inbound::LatestContactChanged}));
        const int first = bench.plugin.events.size() - 3;
        QCOMPARE(bench.plugin.events.at(first).payload.at(0), char(1)); // received
        QCOMPARE(bench.plugin.events.at(first + 1).payload.at(0), char(0));
        QString session, content;
        QDataStream in(bench.plugin.events.last().payload);
        in >> session >> content;
        QCOMPARE(session, jid());
        QCOMPARE(content, own.body);
        // Only once the plug-in has had its turn to store them.
        QVERIFY(!bench.core.calls.contains(QLatin1String("clearBacklog()")));
        QTRY_VERIFY(bench.core.calls.contains(QLatin1String("clearBacklog()")));
    }

    void membersAreCounted()
    {
        Bench bench;
        bench.core.members = {{jid(), QStringLiteral("a"), 2}, {jid(), QStringLiteral("b"), 0}};
        emit bench.core.roomMembersChanged(jid());
        QByteArray expected;
        QDataStream out(&expected, QIODevice::WriteOnly);
        out << QStringLiteral("2") << jid(); // the number leads on the wire
        QCOMPARE(bench.plugin.events.last().payload, expected);
    }

    void withoutAPluginNothingHappens()
    {
        Bench bench;
        bench.bus.setPlugin(nullptr, QString());
        emit bench.core.contactAdded(jid());
        QVERIFY(!bench.bus.mayAddContact(jid()));
        QVERIFY(bench.recorded.isEmpty());
    }
};

FRIENDUI_TEST(TstHostBus)
#include "tst_hostbus.moc"
