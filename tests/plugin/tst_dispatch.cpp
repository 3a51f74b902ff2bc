// Events from the host that become signals of the hub.
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduimessageprocess.h"
#include "plugin/frienduisignalsender.h"
#include "tests/plugin/hubspy.h"
#include "tests/plugin/samplepayload.h"
#include "tests/support/fakehost.h"
#include "tests/support/recordingactions.h"
#include "tests/support/testrunner.h"

namespace {

using Hub = FriendUISignalSender;

// The contract: numbers and names as host developers use them.
const QMap<qint32, QByteArray> &signalOfCode()
{
    static const QMap<qint32, QByteArray> map = [] {
        const QByteArrayList words =
            QByteArray(
                "4102 signal_clearFriend 4105 signal_FriendVcardInfo 4106 "
                "signal_FriendFullVcardInfo "
                "4107 signal_UpdateFrdHead 4109 signal_SearchFriendRecv 4111 "
                "signal_requestAddFriend "
                "4114 signal_addFriend 4115 signal_addAllFriend 4117 signal_updateFriendPresence "
                "4118 signal_addGroup 4119 signal_addAllGroup 4120 signal_delGroup 4121 "
                "signal_moveitem "
                "4122 signal_myProfileRecv 4128 signal_delFriendFail 4129 signal_addsucess "
                "4133 signal_configreceived 4134 signal_changeGroupName 4135 signal_isConnected "
                "4149 signal_roomSubjectChanged 4150 signal_mucChatHeadChanged 4160 "
                "signal_EmployeeInfo "
                "4165 signal_addFriendFail 4166 signal_BatchAddFriendFial "
                "4169 signal_notifyUpdateServiceNum 4253 signal_removedRoom 4281 "
                "signal_GetVcardFail "
                "4355 signal_doalloffline 4398 signal_latestFriend 4403 signal_delStranger "
                "4430 signal_updateRoomMembers 4431 signal_addMuc 4452 signal_deleteMucRoon "
                "4453 signal_setForbiddenIcon 4460 signal_roomIsNull 4497 signal_myStatusChanged "
                "4500 signal_getGroupFail 4524 signal_SkinChange 4541 siganl_mucClassifyChanged "
                "4562 siganl_recvMissingCall 4564 siganl_delMissingCall 4593 signal_showAllRoom "
                "4594 signal_openLeaderDetail 4596 signal_localMucAdded 4606 "
                "signal_updateLatestContact "
                "4624 signal_notifySubServiceNum 4625 signal_notifyCancelSubServiceNum "
                "4629 signal_notifyDownloadServiceIconResult 4630 signal_notifyAddServiceNum "
                "4635 signal_notifyGetMyAPPFail 4637 signal_GetVcardSuccessNoChange "
                "4674 signal_position_orgstruct 4711 signal_notifyCooperate "
                "4748 signal_notifyFriendRemarkName 4802 signal_notifyRemoveChannel "
                "4803 signal_notifyAddChannel 4843 signal_refresh_virtualTeam "
                "4845 signal_addMembersToVirtualTeam 4892 signal_refreshOrganization "
                "4899 signal_notifyUpdateChannelHead")
                .split(' ');
        QMap<qint32, QByteArray> codes;
        for (int i = 0; i + 1 < words.size(); i += 2)
            codes.insert(words.at(i).toInt(), words.at(i + 1));
        return codes;
    }();
    return map;
}

const QString Jid = QStringLiteral("u2@corp.example");

} // namespace

class TstDispatch : public QObject
{
    Q_OBJECT

private slots:
    void everyCodeReachesItsSignal_data()
    {
        const Rows<int> row{"code"};
        for (auto at = signalOfCode().begin(); at != signalOfCode().end(); ++at)
            row(at.value().constData(), at.key());
    }
    void everyCodeReachesItsSignal()
    {
        QFETCH(int, code);
        const EventInfo *info = EventCatalogue::find(EventInfo::ToPlugin, code);
        QVERIFY(info);
        const QByteArray payload = samplePayload(*info);
        FakeHost host;
        RecordingActions actions;
        HubSpy spy;
        QVERIFY(FakeHost::sendRaw(code, payload).isAccepted());
        QCOMPARE(spy.names(), QList<QByteArray>{signalOfCode().value(code)});
        QCOMPARE(spy.emissions.first().arguments, payload);
    }

    void flagsChooseTheSignal_data()
    {
        const Rows<int, QByteArray, QByteArray, QByteArray> row{"code", "payload", "signal",
                                                                "arguments"};
        const QByteArray jid = FakeHost::encode(Jid);
        row("roster contact removed", 4101, FakeHost::encode(Jid, true), "signal_delFriend", jid);
        row("external contact removed", 4101, FakeHost::encode(Jid, false),
            "signal_delOutsideFriend", jid);
        row("logged in", 4209, FakeHost::encode(true), "signal_login", QByteArray());
        row("logged out", 4209, FakeHost::encode(false), "signal_logout", QByteArray());
    }
    void flagsChooseTheSignal()
    {
        QFETCH(int, code);
        QFETCH(QByteArray, payload);
        QFETCH(QByteArray, signal);
        HubSpy spy;
        FakeHost::sendRaw(code, payload);
        QCOMPARE(spy.names(), QList<QByteArray>{signal});
        QTEST(spy.emissions.first().arguments, "arguments");
    }

    void onlyEventsForThisPluginAreTaken_data()
    {
        const Rows<QString, bool> row{"receiver", "taken"};
        row("addressed", QStringLiteral("{77CCE3F9-79F5-C5E8-17E7-F6B7389AAA6E}"), true);
        row("broadcast", QString(), true);
        row("another plug-in", QString::fromLatin1(PluginId::Chat), false);
        row("without braces", QStringLiteral("77CCE3F9-79F5-C5E8-17E7-F6B7389AAA6E"), false);
        row("lower case", QStringLiteral("{77cce3f9-79f5-c5e8-17e7-f6b7389aaa6e}"), false);
    }
    void onlyEventsForThisPluginAreTaken()
    {
        QFETCH(QString, receiver);
        QFETCH(bool, taken);
        HubSpy spy;
        const BaseEvent event =
            FakeHost::sendRaw(Inbound::ContactAdded, FakeHost::encode(Jid), receiver);
        QCOMPARE(event.isAccepted(), taken);
        QCOMPARE(spy.emissions.size(), taken ? 1 : 0);
    }

    void codesWithoutAnActionDoNothing()
    {
        FakeHost host;
        RecordingActions actions;
        HubSpy spy;
        const QByteArray payload = FakeHost::encode(Jid);
        for (const qint32 code : {0, -1, 4100, 4179, 4900, 2147483647})
            QCOMPARE(FakeHost::sendRaw(code, payload).payload, payload);
        QVERIFY(spy.emissions.isEmpty());
        QVERIFY(actions.calls.isEmpty());
        QVERIFY(host.requests.isEmpty());
    }

    void connectionFlagIsSetBeforeTheSignal()
    {
        FakeHost host;
        QVERIFY(isOnline());
        QList<bool> seen;
        QObject receiver;
        connect(Hub::instance(), &Hub::signal_isConnected, &receiver,
                [&seen] { seen.append(isOnline()); });
        FakeHost::send(Inbound::ConnectionChanged, false);
        FakeHost::send(Inbound::ConnectionChanged, true);
        QCOMPARE(seen, (QList<bool>{false, true}));
        host.context.hasSettings = false; // then there is nothing to set
        FakeHost::send(Inbound::ConnectionChanged, false);
        QCOMPARE(seen.size(), 3);
    }

    void ownBroadcastComesBack()
    {
        FakeHost host;
        HubSpy spy;
        // What a host does with a broadcast.
        host.onRequest = [](const FakeHost::Request &request) {
            QCOMPARE(request.receiver, QString());
            FakeHost::sendRaw(request.code, request.payload, request.receiver);
        };
        FriendUIEventProcess::locateInOrganisation(QStringLiteral("d7"), true);
        QCOMPARE(host.count(4674), 1);
        QCOMPARE(spy.names(), QList<QByteArray>{"signal_position_orgstruct"});
        QCOMPARE(spy.emissions.first().arguments, FakeHost::encode(QStringLiteral("d7"), true));
    }

    void handlersMayCallBackIntoTheHost()
    {
        FakeHost host;
        QStringList order;
        QObject receiver;
        connect(Hub::instance(), &Hub::signal_getGroupFail, &receiver, [&order] {
            order.append(QStringLiteral("asks"));
            FriendUIEventProcess::refreshGroups(true);
            order.append(QStringLiteral("asked"));
        });
        connect(Hub::instance(), &Hub::signal_addAllGroup, &receiver,
                [&order](QList<GroupData> &groups) { order.append(groups.first().name); });
        host.onRequest = [](const FakeHost::Request &) {
            const GroupData group{QStringLiteral("g1"), QStringLiteral("answered")};
            FakeHost::send(Inbound::GroupList, QList<GroupData>{group}, true);
        };
        FakeHost::send(Inbound::GroupListFailed);
        QCOMPARE(order.join(QLatin1Char(' ')), QStringLiteral("asks answered asked"));
    }

    void registeredHandlerTakesTheCodeOver()
    {
        FriendUIMessageProcess *process = FriendUIMessageProcess::instance();
        HubSpy spy;
        QStringList seen;
        process->onEvent<QString, bool>(4101, [&](const QString &jid, bool inner) {
            seen.append(jid + (inner ? QStringLiteral(" inner") : QStringLiteral(" outer")));
            process->registerHandler(4101, {}); // while it runs
        });
        FakeHost::send(4101, Jid, false);
        QCOMPARE(seen, QStringList{Jid + QStringLiteral(" outer")});
        QVERIFY(spy.emissions.isEmpty());
        FakeHost::send(4101, Jid, false);
        QCOMPARE(seen.size(), 1);
        QCOMPARE(spy.names(), QList<QByteArray>{"signal_delOutsideFriend"});
    }

    void paneIsMadeOnceAndAgainWhenTheHostDestroyedIt()
    {
        FriendUIMessageProcess *process = FriendUIMessageProcess::instance();
        QVERIFY(!process->getFriendWidget());
        int made = 0;
        process->setPaneFactory([&made] {
            ++made;
            return new QWidget;
        });
        QWidget *pane = process->getFriendWidget();
        QVERIFY(pane && process->hasPane());
        QCOMPARE(process->getFriendWidget(), pane);
        {
            QWidget window;
            pane->setParent(&window);
        }
        QVERIFY(!process->hasPane());
        QVERIFY(process->getFriendWidget());
        QCOMPARE(made, 2);
        delete process->getFriendWidget();
        process->setPaneFactory({});
    }
};

FRIENDUI_TEST(TstDispatch)
#include "tst_dispatch.moc"
