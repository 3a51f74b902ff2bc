// The event monitor's decoder on every payload of the catalogue, whole, cut short
// and hostile.
#include "host/eventmonitor/payloaddecoder.h"
#include "host/eventmonitor/recordfields.h"
#include "hostapi/eventcodes.h"
#include "hostapi/hostrecords.h"
#include "tests/plugin/samplepayload.h"
#include "tests/support/testrunner.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

namespace {

template <class... Args> QByteArray streamed(const Args &...args)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    (void(out << args), ...);
    return bytes;
}

DecodedPayload decodeInbound(qint32 code, const QByteArray &payload,
                             PayloadDecoder::Depth depth = PayloadDecoder::Full)
{
    return PayloadDecoder::decode(EventCatalogue::find(EventInfo::ToPlugin, code), payload, depth);
}

QList<FriendData> people(int count)
{
    QList<FriendData> list;
    for (int i = 0; i < count; ++i) {
        FriendData person;
        person.jid = QStringLiteral("u%1@corp.example").arg(i);
        person.nickName = QString::fromUtf8("李雷 %1").arg(i);
        list.append(person);
    }
    return list;
}

} // namespace

class TstPayloadDecoder : public QObject
{
    Q_OBJECT

private slots:
    void everyPayloadOfTheCatalogueIsReadToItsLastByte()
    {
        int described = 0;
        for (const EventInfo &info : EventCatalogue::all()) {
            const QByteArray payload = samplePayload(info);
            for (auto depth : {PayloadDecoder::Brief, PayloadDecoder::Full}) {
                const DecodedPayload decoded = PayloadDecoder::decode(&info, payload, depth);
                QVERIFY2(decoded.status == DecodedPayload::Complete, info.name);
            }
            described += payload.isEmpty() ? 0 : 1;
        }
        QVERIFY(described > 80);
    }

    // The record tables of the monitor and the C++ records must not drift apart.
    void membersAppearUnderTheirNames()
    {
        VcardInfo profile;
        profile.jid = QStringLiteral("u1@corp.example");
        profile.leaderName = QString::fromUtf8("王总");
        const QJsonObject json =
            decodeInbound(Inbound::FullProfileReceived, streamed(profile.jid, profile))
                .json()
                .toObject();
        QCOMPARE(json.value(QStringLiteral("jid")).toString(), profile.jid);
        const QJsonObject record = json.value(QStringLiteral("profile")).toObject();
        QCOMPARE(record.value(QStringLiteral("leaderName")).toString(), profile.leaderName);
        QCOMPARE(record.size(), 24);

        const QString presence =
            decodeInbound(Inbound::PresenceChanged,
                          streamed(QMap<QString, PresenceData>{
                              {QStringLiteral("u1"), {PresenceData::Away, 0}}}))
                .summary();
        QVERIFY2(presence.contains(QLatin1String("u1: {pcShow=2 (away)")), qPrintable(presence));
    }

    void longListsAreShortenedButCounted()
    {
        const QByteArray payload = streamed(people(1200));
        const DecodedPayload brief =
            decodeInbound(Inbound::ContactList, payload, PayloadDecoder::Brief);
        QCOMPARE(brief.status, DecodedPayload::Shortened);
        QVERIFY(brief.summary().startsWith(QString::fromUtf8("contacts=1200 × [{jid=\"u0@")));
        QVERIFY(brief.summary().contains(QString::fromUtf8("… 1197 more")));
        QVERIFY(brief.summary().size() < 1000);

        const DecodedPayload full = decodeInbound(Inbound::ContactList, payload);
        QCOMPARE(full.fields.first().count, 1200);
        QCOMPARE(full.fields.first().children.size(), 500);
        QVERIFY(full.text().contains(QString::fromUtf8("… 700 more")));

        // What follows a long list is still read.
        QList<GroupData> groups;
        for (int i = 0; i < 50; ++i)
            groups.append({QString::number(i), QStringLiteral("g")});
        const DecodedPayload both =
            decodeInbound(Inbound::GroupList, streamed(groups, true), PayloadDecoder::Brief);
        QVERIFY(both.summary().endsWith(QLatin1String("inner=true")));
    }

    void cutPayloadsSaySo_data()
    {
        const Rows<QByteArray, int> row{"payload", "status"};
        const QByteArray whole = streamed(QStringLiteral("g1"), QStringLiteral("Team"), true, true);
        row("a flag is missing", whole.chopped(1), int(DecodedPayload::Truncated));
        row("inside a text", whole.left(9), int(DecodedPayload::Truncated));
        row("empty", QByteArray(), int(DecodedPayload::Truncated));
        row("too long", whole + "xyz", int(DecodedPayload::TrailingBytes));
    }
    void cutPayloadsSaySo()
    {
        QFETCH(QByteArray, payload);
        QFETCH(int, status);
        const DecodedPayload decoded = decodeInbound(Inbound::GroupCreated, payload);
        QCOMPARE(int(decoded.status), status);
        QVERIFY(decoded.summary().contains(decoded.statusText()));
    }

    void hugeCountsReserveNothing()
    {
        for (qint32 code : {Inbound::ContactList, Inbound::PresenceChanged,
                            Inbound::BatchAdditionFailed, Inbound::ServiceNumbersAdded}) {
            const DecodedPayload decoded =
                decodeInbound(code, QByteArray::fromHex("7ffffff000000000"));
            QCOMPARE(decoded.status, DecodedPayload::Corrupt);
        }
    }

    void anyCutAndAnyNoiseIsSurvived()
    {
        QRandomGenerator random(7);
        for (const EventInfo &info : EventCatalogue::all()) {
            const QByteArray payload = samplePayload(info);
            for (int length = 0; length < payload.size(); length += 3)
                PayloadDecoder::decode(&info, payload.left(length), PayloadDecoder::Full).text();
            for (int round = 0; round < 20; ++round) {
                QByteArray noise = payload + QByteArray(8, '\0');
                for (int i = 0; i < 6; ++i)
                    noise[random.bounded(noise.size())] = char(random.bounded(256));
                const auto decoded = PayloadDecoder::decode(&info, noise, PayloadDecoder::Full);
                QVERIFY(!decoded.text().isNull() || decoded.fields.isEmpty());
                decoded.summary();
                decoded.json();
            }
        }
    }

    void secretsAreMasked()
    {
        const QString data =
            QStringLiteral("{\"type\":\"join\",\"token\":\"abc123\",\"vtId\":\"7\"}");
        const DecodedPayload decoded =
            decodeInbound(Inbound::VirtualTeamsChanged, streamed(QStringLiteral("7"), data));
        QVERIFY(decoded.hasSecrets);
        QVERIFY(!decoded.text().contains(QLatin1String("abc123")));
        QVERIFY(decoded.text().contains(QLatin1String("vtId")));
        QVERIFY(PayloadDecoder::isSecret(QStringLiteral("authTicket")));
        QVERIFY(!PayloadDecoder::isSecret(QStringLiteral("groupName")));
    }

    void othersTextStaysOnItsLine()
    {
        QString name = QString::fromUtf8("a\nb\u202Ec");
        name.append(QChar(0xd800));
        const QString text =
            decodeInbound(Inbound::GroupCreated, streamed(QStringLiteral("g"), name, true, true))
                .summary();
        QVERIFY(text.contains(QLatin1String("a\\nb\\u202ec")));
        QVERIFY(!text.contains(QLatin1Char('\n')));
        const DecodedPayload huge = decodeInbound(
            Inbound::GroupCreated,
            streamed(QStringLiteral("g"), QString(100000, QLatin1Char('x')), true, true),
            PayloadDecoder::Brief);
        QVERIFY(huge.summary().size() < 400);
        QVERIFY(huge.summary().endsWith(QLatin1String("success=true, inner=true")));
    }
};

FRIENDUI_TEST(TstPayloadDecoder)
#include "tst_payloaddecoder.moc"
