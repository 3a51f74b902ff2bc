// The event catalogue: what a monitor and the documents rely on.
#include "hostapi/eventcatalogue.h"
#include "hostapi/eventcodes.h"
#include "tests/support/testrunner.h"

#include <QSet>

class TstEventCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void everyCodeStandsOncePerDirection()
    {
        QSet<QPair<int, int>> seen;
        for (const EventInfo &info : EventCatalogue::all()) {
            const QPair<int, int> key(info.direction, info.code);
            QVERIFY2(!seen.contains(key), info.name);
            seen.insert(key);
            QCOMPARE(EventCatalogue::find(info.direction, info.code)->code, info.code);
        }
    }

    void requestsGoToTheirReceivers()
    {
        QHash<QString, int> count;
        for (const EventInfo &info : EventCatalogue::all()) {
            if (info.direction == EventInfo::FromPlugin)
                ++count[EventCatalogue::receiverName(QString::fromLatin1(info.receiver))];
        }
        QCOMPARE(count.value(QStringLiteral("roster")), 25);
        QCOMPARE(count.value(QStringLiteral("chat")), 15);
        QCOMPARE(count.value(QStringLiteral("rooms")), 8);
        QCOMPARE(count.value(QStringLiteral("mail")), 1);
        QCOMPARE(count.value(QStringLiteral("everybody")), 54);
    }

    void payloadTextsSplitIntoTypedFields()
    {
        const EventInfo *info = EventCatalogue::find(EventInfo::ToPlugin, Inbound::PresenceChanged);
        QVERIFY(info);
        const auto fields = EventCatalogue::payloadFields(*info);
        QCOMPARE(fields.size(), 1);
        QCOMPARE(fields.first().type, QStringLiteral("QMap<QString,PresenceData>"));
        QCOMPARE(fields.first().name, QStringLiteral("presence"));

        const EventInfo *move = EventCatalogue::find(EventInfo::FromPlugin, Outbound::MoveContact);
        QCOMPARE(EventCatalogue::payloadFields(*move).size(), 4);
    }

    void unknownCodesAreNotFound()
    {
        QVERIFY(!EventCatalogue::find(EventInfo::ToPlugin, 1));
        // Only this code goes both ways.
        QVERIFY(EventCatalogue::find(EventInfo::ToPlugin, Inbound::LocateInOrganisation));
        QVERIFY(EventCatalogue::find(EventInfo::FromPlugin, Outbound::LocateInOrganisation));
        QVERIFY(!EventCatalogue::find(EventInfo::FromPlugin, Inbound::ContactRemoved));
    }
};

FRIENDUI_TEST(TstEventCatalogue)
#include "tst_eventcatalogue.moc"
