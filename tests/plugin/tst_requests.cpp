// Requests of the plug-in to the host.
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduimessageprocess.h"
#include "tests/support/fakehost.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QCoreApplication>

namespace {

using Process = FriendUIEventProcess;

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}
template <class... Args> QByteArray encode(const Args &...args)
{
    return FakeHost::encode(args...);
}

struct RequestRow
{
    const char *name;
    qint32 code;
    const char *receiver;
    QByteArray payload;
    void (*call)();
};

constexpr char Roster[] = "{7123C2B9-E89C-0CC5-5B1E-9496BB7427C8}";
constexpr char Chat[] = "{FE9829B7-5267-D9AA-3917-514F39C709F0}";
constexpr char Rooms[] = "{2172813C-E314-727B-CD3B-E3A469DA945C}";
constexpr char Mail[] = "{8732B5E7-2377-4061-937E-B3D7A27B6483}";
constexpr char Everybody[] = "";

QVector<RequestRow> rosterRows()
{
    return {
        {"refresh groups", 4356, Roster, encode(false), [] { Process::refreshGroups(false); }},
        {"create group", 4360, Roster, encode(text("n"), true),
         [] { Process::createGroup(text("n"), true); }},
        {"delete group", 4361, Roster, encode(text("g"), false),
         [] { Process::deleteGroup(text("g"), false); }},
        {"rename group", 4362, Roster, encode(text("g"), text("n"), true),
         [] { Process::renameGroup(text("g"), text("n"), true); }},
        {"move contact", 4358, Roster, encode(text("j"), text("from"), text("to"), true),
         [] { Process::moveContact(text("j"), text("from"), text("to"), true); }},
        {"delete contact", 4157, Roster, encode(text("j"), true),
         [] { Process::deleteContact(text("j"), true); }},
        {"set remark", 4167, Roster, encode(text("j"), text("r")),
         [] { Process::setRemark(text("j"), text("r")); }},
        {"profile", 4326, Roster, encode(text("j"), true),
         [] { Process::requestProfile(text("j"), true); }},
        {"add contact", 4337, Roster, encode(text("j"), text("v"), text("g"), text("r"), qint32(2)),
         [] { Process::addContact(text("j"), text("v"), text("g"), text("r"), 2); }},
        {"policy", 4338, Roster, encode(text("j")), [] { Process::requestPolicy(text("j")); }},
        {"add contacts", 4350, Roster, encode(QStringList{text("1"), text("2")}, text("g")),
         [] {
             Process::addContacts({text("1"), text("2")}, text("g"));
         }},
        {"own profile", 4354, Roster, encode(VcardInfo()),
         [] { Process::storeOwnProfile(VcardInfo()); }},
        {"search external", 4896, Roster, encode(text("k")),
         [] { Process::searchExternalPeople(text("k")); }},
        {"add external", 4379, Roster, encode(text("j"), text("v"), text("pc")),
         [] { Process::addExternalContact(text("j"), text("v")); }},
        {"confirm external", 4380, Roster, encode(text("j"), qint32(1), text("pc")),
         [] { Process::confirmExternalContact(text("j"), true); }},
        {"refuse external", 4380, Roster, encode(text("j"), qint32(0), text("pc")),
         [] { Process::confirmExternalContact(text("j"), false); }},
        {"blacklist external", 4397, Roster, encode(text("j")),
         [] { Process::blacklistExternalContact(text("j")); }},
    };
}

QVector<RequestRow> otherRows()
{
    return {
        {"open chat", 4251, Chat, encode(text("j"), qint32(2)),
         [] { Process::openChat(text("j"), MessageData::ServiceNumber); }},
        {"send file", 4264, Chat, encode(QStringList{text("j")}, qint32(1)),
         [] { Process::sendFile({text("j")}, MessageData::Room); }},
        {"history", 4330, Chat, encode(text("j"), qint32(0)),
         [] { Process::openHistory(text("j"), MessageData::Person); }},
        {"group chat", 4393, Chat, encode(QStringList()), [] { Process::createGroupChat({}); }},
        {"cancel transfers", 4394, Chat, encode(text("j")),
         [] { Process::cancelTransfers(text("j")); }},
        {"pin", 4396, Chat, encode(text("j"), true),
         [] { Process::pinConversation(text("j"), true); }},
        {"picture", 4408, Chat, encode(text("j"), text("p")),
         [] { Process::showPicture(text("j"), text("p")); }},
        {"topic page", 4664, Chat,
         encode(text("{4188F242-B145-4416-8499-DC0257271F60}"), text("j")),
         [] { Process::openTopicPage(text("j")); }},
        {"pick members", 4844, Chat, encode(text("t"), qint32(3), QStringList{text("u")}),
         [] { Process::pickTeamMembers(text("t"), 3, {text("u")}); }},
        {"rename room", 4421, Rooms, encode(text("r"), text("s")),
         [] { Process::renameRoom(text("r"), text("s")); }},
        {"quit room", 4423, Rooms, encode(text("r")), [] { Process::quitRoom(text("r")); }},
        {"dismiss room", 4425, Rooms, encode(text("r")), [] { Process::dismissRoom(text("r")); }},
        {"manage room", 4426, Rooms, encode(text("r")), [] { Process::manageRoom(text("r")); }},
        {"classify room", 4540, Rooms, encode(text("r"), qint32(2)),
         [] { Process::classifyRoom(text("r"), MucData::PreferredRoom); }},
        {"mail", 4233, Mail, encode(QStringList{text("j")}),
         [] { Process::writeMail({text("j")}); }},
        {"locate", 4674, Everybody, encode(text("u"), false),
         [] { Process::locateInOrganisation(text("u"), false); }},
    };
}

} // namespace

class TstRequests : public QObject
{
    Q_OBJECT

private slots:
    void requestsHaveCodeReceiverAndPayload_data()
    {
        const Rows<int> row{"row"};
        const QVector<RequestRow> rows = rosterRows() + otherRows();
        for (int i = 0; i < rows.size(); ++i)
            row(rows.at(i).name, i);
    }
    void requestsHaveCodeReceiverAndPayload()
    {
        QFETCH(int, row);
        const RequestRow expected = (rosterRows() + otherRows()).at(row);
        FakeHost host;
        expected.call();
        QCOMPARE(host.requests.size(), 1);
        const FakeHost::Request sent = host.requests.first();
        QCOMPARE(sent.code, expected.code);
        QCOMPARE(sent.receiver, text(expected.receiver));
        QCOMPARE(sent.sender, text("{77CCE3F9-79F5-C5E8-17E7-F6B7389AAA6E}"));
        QCOMPARE(sent.payload, expected.payload);
        QCOMPARE(sent.payloadFlag, 0);
        QCOMPARE(sent.postAsync, 0);
    }

    void reservedCodesAreSentOn()
    {
        FakeHost host;
        QVERIFY(Process::request(Outbound::Broadcast4918, text("a"), qint32(5)));
        QCOMPARE(host.last(4918).receiver, QString());
        const auto [word, number] = host.arguments<QString, qint32>(4918);
        QCOMPARE(word, text("a"));
        QCOMPARE(number, 5);
    }

    void unknownCodesAreRefused_data()
    {
        const Rows<int> row{"code"};
        row("no code", 0);
        row("inbound only", int(Inbound::ContactAdded));
        row("negative", -1);
    }
    void unknownCodesAreRefused()
    {
        QFETCH(int, code);
        FakeHost host;
        const LogCapture log(host.context);
        QVERIFY(!Process::request(Outbound::Code(code), true));
        QVERIFY(host.requests.isEmpty());
        QCOMPARE(log.linesWith("[ERROR]").size(), 1);
    }

    void sentEventsStayTheCallersAndPostedOnesAreTaken()
    {
        struct CountedEvent : BaseEvent
        {
            CountedEvent(int *alive, qint32 async)
                : BaseEvent(4251, {}, {}, {}, async), m_alive(alive)
            {
                ++*m_alive;
            }
            ~CountedEvent() override { --*m_alive; }
            int *m_alive;
        };
        FriendUIMessageProcess *process = FriendUIMessageProcess::instance();
        int alive = 0;
        for (const bool receiver : {true, false}) {
            FakeHost host;
            const LogCapture log(host.context);
            if (!receiver)
                process->setHostReceiver(nullptr);

            CountedEvent sent(&alive, 0);
            process->sendToHost(&sent);
            QCOMPARE(alive, 1);
            QCOMPARE(host.requests.size(), receiver ? 1 : 0);

            process->sendToHost(new CountedEvent(&alive, 1));
            QCOMPARE(host.requests.size(), receiver ? 1 : 0); // not before the event loop
            QCOMPARE(alive, receiver ? 2 : 1);
            QCoreApplication::sendPostedEvents(&host);
            QCOMPARE(alive, 1);
            QCOMPARE(host.requests.size(), receiver ? 2 : 0);
            QCOMPARE(log.linesWith("[ERROR]").size(), receiver ? 0 : 2);
        }
        process->sendToHost(nullptr);
    }

    void receiverMayDieBeforeThePlugin()
    {
        auto *receiver = new QObject;
        FriendUIMessageProcess::instance()->setHostReceiver(receiver);
        delete receiver;
        FakeContext context;
        const HostContextScope scope(&context);
        const LogCapture log(context);
        Process::refreshGroups(true);
        QCOMPARE(log.linesWith("4356").size(), 1);
    }
};

FRIENDUI_TEST(TstRequests)
#include "tst_requests.moc"
