// Events from the host that act on a view.
#include "plugin/frienduimessageprocess.h"
#include "tests/plugin/hubspy.h"
#include "tests/support/fakehost.h"
#include "tests/support/logcapture.h"
#include "tests/support/recordingactions.h"
#include "tests/support/testrunner.h"

#include <memory>

namespace {
const QString Jid = QStringLiteral("u2@corp.example");

enum class Needs
{
    Actions,
    Pane
};

struct ActionRow
{
    const char *name;
    qint32 code;
    QByteArray payload;
    const char *call;
    Needs needs;
};

QVector<ActionRow> actionRows()
{
    const QByteArray jid = FakeHost::encode(Jid);
    return {
        {"hide offline", 4202, FakeHost::encode(true), "hideOfflineInitialised true", Needs::Pane},
        {"locate contact", 4898, jid, "locateContact u2@corp.example", Needs::Pane},
        {"show card", 4268, FakeHost::encode(Jid, 10, -20, 300, true),
         "showContactCard u2@corp.example 10 -20 300 true", Needs::Actions},
        {"hide card", 4269, jid, "hideContactCard u2@corp.example", Needs::Actions},
        {"hide card, other code", 4543, jid, "hideContactCard u2@corp.example", Needs::Actions},
        {"hide any card", 4269, FakeHost::encode(QString()), "hideContactCard ", Needs::Actions},
        {"all offline", 4355, QByteArray(), "hideContactCard ", Needs::Actions},
        {"detail", 4275, jid, "openContactDetail u2@corp.example", Needs::Actions},
        {"detail, other code", 4669, jid, "openContactDetail u2@corp.example", Needs::Actions},
        {"own detail", 4889, QByteArray(), "openOwnDetail", Needs::Actions},
        {"service number", 4683, FakeHost::encode(QStringLiteral("s9")), "openServiceNumber s9",
         Needs::Pane},
        {"service number search", 4887, QByteArray(), "openServiceNumberSearch", Needs::Pane},
        {"channels", 4686, QByteArray(), "reloadChannels", Needs::Pane},
        {"external contact", 4890, FakeHost::encode(Jid, true, 200, 1),
         "externalContactAnswer u2@corp.example true 200 1", Needs::Pane},
        {"external contact, short payload", 4890, jid,
         "externalContactAnswer u2@corp.example false 0 0", Needs::Pane},
        {"team approval", 4842,
         FakeHost::encode(QStringLiteral("7"),
                          QStringLiteral(R"({"type":"audit","vtId":"7","member":"u3"})")),
         "virtualTeamEvent audit 7 u3", Needs::Actions},
        {"team join", 4842,
         FakeHost::encode(QString(), QStringLiteral(R"({"type":"join","vtId":"8"})")),
         "virtualTeamEvent join 8 ", Needs::Actions},
    };
}

void addRows()
{
    QTest::addColumn<int>("row");
    const QVector<ActionRow> rows = actionRows();
    for (int i = 0; i < rows.size(); ++i)
        QTest::newRow(rows.at(i).name) << i;
}

// A pane that exists from here to the end of the test.
std::unique_ptr<QWidget> makePane()
{
    FriendUIMessageProcess::instance()->setPaneFactory([] { return new QWidget; });
    return std::unique_ptr<QWidget>(FriendUIMessageProcess::instance()->getFriendWidget());
}
} // namespace

class TstPaneActions : public QObject
{
    Q_OBJECT

private slots:
    void eventCallsItsAction_data() { addRows(); }
    void eventCallsItsAction()
    {
        QFETCH(int, row);
        const ActionRow expected = actionRows().at(row);
        FakeHost host;
        LogCapture log(host.context);
        RecordingActions actions;
        const auto pane = makePane();
        FakeHost::sendRaw(expected.code, expected.payload);
        QCOMPARE(actions.calls, QStringList{QString::fromLatin1(expected.call)});
        QCOMPARE(log.lines(), QStringList());
    }

    void eventIsDroppedWithOneLineWhenNobodyActs_data() { addRows(); }
    void eventIsDroppedWithOneLineWhenNobodyActs()
    {
        QFETCH(int, row);
        const ActionRow expected = actionRows().at(row);
        FakeHost host;
        LogCapture log(host.context);
        int made = 0;
        FriendUIMessageProcess::instance()->setPaneFactory([&made] {
            ++made;
            return new QWidget;
        });

        FakeHost::sendRaw(expected.code, expected.payload); // no actions, no pane
        QCOMPARE(log.lines().size(), 1);

        RecordingActions actions; // no pane
        FakeHost::sendRaw(expected.code, expected.payload);
        QCOMPARE(actions.calls.size(), expected.needs == Needs::Pane ? 0 : 1);
        QCOMPARE(log.lines().size(), expected.needs == Needs::Pane ? 2 : 1);
        QCOMPARE(made, 0);
        FriendUIMessageProcess::instance()->setPaneFactory({});
    }

    void failedDetailIsLogged()
    {
        FakeHost host;
        LogCapture log(host.context);
        RecordingActions actions;
        actions.detailOpens = false;
        FakeHost::send(4275, Jid);
        FakeHost::send(4889);
        const QStringList lines = log.linesWith("[ERROR]");
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines.first().endsWith(QStringLiteral(": ContactInfo dialog creat failed!")));
    }

    void queryIsAnsweredInThePayload_data()
    {
        const Rows<QString, bool> row{"jid", "answer"};
        row("stranger", Jid, true);
        row("contact", QStringLiteral("friend@corp.example"), false);
        row("own jid", QStringLiteral("u1@corp.example"), false);
        row("empty", QString(), false);
    }
    void queryIsAnsweredInThePayload()
    {
        QFETCH(QString, jid);
        FakeHost host;
        host.context.user = QStringLiteral("u1");
        FriendData contact;
        contact.jid = QStringLiteral("friend@corp.example");
        host.context.addContact(contact);
        for (const QString &receiver : {QString(), QString::fromLatin1(PluginId::FriendUi)}) {
            const BaseEvent event = FakeHost::sendRaw(4200, FakeHost::encode(jid), receiver);
            const auto [answer] = FakeHost::decode<bool>(event.payload);
            QTEST(answer, "answer");
            QCOMPARE(event.payloadFlag, 0);
        }
        // Whoever knows better is asked first.
        struct NeverActions : RecordingActions
        {
            bool mayAddContact(const QString &) const override { return false; }
        } actions;
        QCOMPARE(FakeHost::send(4200, jid).payload, FakeHost::encode(false));
    }

    void listedTeamsAreLoadedAgain_data()
    {
        const Rows<QString> row{"data"};
        row("no data", QString());
        row("update", QStringLiteral(R"({"type":"update","vtId":"9"})"));
        row("no type", QStringLiteral("{}"));
        row("type of the wrong kind", QStringLiteral(R"({"type":["audit"]})"));
        row("an array", QStringLiteral(R"(["audit"])"));
        row("no JSON", QStringLiteral("<audit>"));
        row("deep", QString(100000, QLatin1Char('[')));
    }
    void listedTeamsAreLoadedAgain()
    {
        QFETCH(QString, data);
        RecordingActions actions;
        HubSpy spy;
        FakeHost::send(4842, QStringLiteral("1,,22,1,"), data);
        const auto emitted = spy.take();
        QCOMPARE(emitted.size(), 3);
        QCOMPARE(emitted.at(0).name, QByteArray("signal_refresh_virtualTeam"));
        QCOMPARE(emitted.at(0).arguments, FakeHost::encode(QStringLiteral("1")));
        QCOMPARE(emitted.at(1).arguments, FakeHost::encode(QStringLiteral("22")));
        QCOMPARE(emitted.at(2).name, QByteArray("signal_position_virtualTeam"));
        QCOMPARE(emitted.at(2).arguments, FakeHost::encode(true));
        QVERIFY(actions.calls.isEmpty());
    }

    void teamWindowAlsoRaisesTheTeams()
    {
        RecordingActions actions;
        HubSpy spy;
        FakeHost::send(4842, QStringLiteral("1"), QStringLiteral(R"({"type":"audit","vtId":"1"})"));
        QCOMPARE(spy.names(), QList<QByteArray>{"signal_position_virtualTeam"});
    }

    void destroyedActionsAreForgotten()
    {
        {
            RecordingActions actions;
            QCOMPARE(paneActions(), &actions);
            const RecordingActions later;
        }
        QVERIFY(!paneActions());
        RecordingActions actions;
        {
            RecordingActions other;
            setPaneActions(&actions);
        }
        QCOMPARE(paneActions(), &actions); // the other one was not in charge
    }
};

FRIENDUI_TEST(TstPaneActions)
#include "tst_paneactions.moc"
