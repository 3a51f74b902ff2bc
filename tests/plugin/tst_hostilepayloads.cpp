// Payloads that no honest host sends: cut short, too long, random, or announcing
// containers larger than memory.
#include "plugin/frienduimessageprocess.h"
#include "tests/plugin/hubspy.h"
#include "tests/plugin/samplepayload.h"
#include "tests/plugin/spoiledpayload.h"
#include "tests/support/fakehost.h"
#include "tests/support/recordingactions.h"
#include "tests/support/testrunner.h"

#include <memory>

namespace {

constexpr quint32 Seed = 20240229;
} // namespace

class TstHostilePayloads : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        FriendUIMessageProcess::instance()->setPaneFactory([] { return new QWidget; });
        m_pane.reset(FriendUIMessageProcess::instance()->getFriendWidget());
    }
    void cleanupTestCase()
    {
        m_pane.reset();
        FriendUIMessageProcess::instance()->setPaneFactory({});
    }

    void everyPrefixIsHandledAsOneEvent()
    {
        RecordingActions actions;
        HubSpy spy;
        for (const EventInfo &info : inboundEvents()) {
            const QByteArray whole = samplePayload(info);
            FakeHost::sendRaw(info.code, whole);
            const int emitted = spy.take().size();
            const int called = actions.calls.size();
            for (int length = 0; length < whole.size(); ++length) {
                actions.calls.clear();
                FakeHost::sendRaw(info.code, whole.left(length));
                // The listed teams of one event are as many signals.
                if (info.code != Inbound::VirtualTeamsChanged)
                    QCOMPARE(spy.take().size(), emitted);
                QCOMPARE(actions.calls.size(), called);
            }
            actions.calls.clear();
            spy.take();
        }
    }

    void missingArgumentsAreDefaults_data()
    {
        const Rows<int, QByteArray, QByteArray> row{"code", "payload", "arguments"};
        const QString jid = QStringLiteral("j");
        row("flag missing", 4128, FakeHost::encode(jid), FakeHost::encode(jid, false));
        row("all missing", 4121, QByteArray(),
            FakeHost::encode(false, QString(), QString(), QString(), false));
        row("text cut", 4134, FakeHost::encode(jid, QStringLiteral("name")).chopped(1),
            FakeHost::encode(jid, QString(), false, false));
        row("list cut", 4845, FakeHost::encode(jid, QStringList{jid, jid}).chopped(1),
            FakeHost::encode(jid, QStringList(), 0));
        // The bytes behind a broken count must not be taken for the flag.
        row("huge list", 4119, QByteArray::fromHex("7ffffff0") + QByteArray::fromHex("01010101"),
            FakeHost::encode(QList<GroupData>(), false));
        row("huge map", 4711, QByteArray::fromHex("7ffffff001"),
            FakeHost::encode(QMap<QString, bool>()));
        row("huge text", 4114, QByteArray::fromHex("7ffffff0"), FakeHost::encode(QString()));
        row("huge inner list", 4803,
            FakeHost::encode(jid, jid, jid, jid) + QByteArray::fromHex("7ffffff0") +
                QByteArray(40, '\1'),
            FakeHost::encode(jid, jid, jid, jid, QStringList(), qint64(0), qint64(0), qint32(0),
                             qint32(0), qint32(0), false, false, false));
        row("too long", 4114, FakeHost::encode(jid, jid, jid), FakeHost::encode(jid));
    }
    void missingArgumentsAreDefaults()
    {
        QFETCH(int, code);
        QFETCH(QByteArray, payload);
        HubSpy spy;
        FakeHost::sendRaw(code, payload);
        QCOMPARE(spy.emissions.size(), 1);
        QTEST(spy.emissions.first().arguments, "arguments");
    }

    void textThatIsNoTextPassesThrough()
    {
        const QStringList texts = {
            QString(10000, QLatin1Char('x')),
            QString(QChar(0xd800)),
            QString(QChar(0)),
            QStringLiteral("<b>&\n\u202e"),
        };
        HubSpy spy;
        for (const QString &text : texts) {
            FakeHost::send(Inbound::RemarkChanged, text, text);
            QCOMPARE(spy.take().first().arguments, FakeHost::encode(text, text));
        }
    }

    void oversizedPayloadsAreReadAndForgotten()
    {
        RecordingActions actions;
        HubSpy spy;
        const QByteArray payload = QByteArray::fromHex("000fffff") + QByteArray(1 << 20, '\0');
        for (const EventInfo &info : inboundEvents()) {
            FakeHost::sendRaw(info.code, payload);
            spy.take();
        }
        FakeHost::sendRaw(Inbound::PresenceChanged, payload);
        // Every announced entry has the same, empty key.
        const auto [presence] =
            FakeHost::decode<QMap<QString, PresenceData>>(spy.take().first().arguments);
        QCOMPARE(presence.size(), 0); // not all of them were there
    }

    // Every event of a code that becomes a signal is one emission, whatever its
    // payload; a query is always answered by one bool.
    void randomPayloads()
    {
        const QVector<EventInfo> events = inboundEvents();
        QRandomGenerator random(Seed);
        FakeHost host;
        RecordingActions actions;
        HubSpy spy;

        QVector<QByteArray> wellFormed;
        QVector<int> emissions;
        for (const EventInfo &info : events) {
            wellFormed.append(samplePayload(info));
            FakeHost::sendRaw(info.code, wellFormed.last());
            emissions.append(spy.take().size());
        }

        for (int i = 0; i < hostileEventCount(); ++i) {
            const int which = i % events.size();
            const qint32 code = events.at(which).code;
            const QByteArray payload = spoiledPayload(wellFormed.at(which), random);
            const BaseEvent event = FakeHost::sendRaw(code, payload);
            const int emitted = spy.take().size();
            actions.calls.clear();
            const bool listsTeams = code == Inbound::VirtualTeamsChanged;
            if (listsTeams ? emitted < 1 : emitted != emissions.at(which)) {
                QFAIL(qPrintable(QStringLiteral("event %1 (code %2): %3 signals for %4")
                                     .arg(i)
                                     .arg(code)
                                     .arg(emitted)
                                     .arg(QString::fromLatin1(payload.toHex()))));
            }
            if (code == Inbound::MayAddContact)
                FakeHost::decode<bool>(event.payload);
            else if (event.payload != payload)
                QFAIL(qPrintable(QStringLiteral("code %1 changed its payload").arg(code)));
        }
        QVERIFY(host.requests.isEmpty());
    }

private:
    std::unique_ptr<QWidget> m_pane;
};

FRIENDUI_TEST(TstHostilePayloads)
#include "tst_hostilepayloads.moc"
