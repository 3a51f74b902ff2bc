// What was written before the first start, and what a client is given of it.
#include "host/core/samplemessages.h"
#include "tests/host/corefixture.h"
#include "tests/support/testrunner.h"

using Core = EmbeddedCore;

class TstSampleMessages : public CoreFixture
{
    Q_OBJECT

private slots:
    void historyIsOfTheDaysBefore_data()
    {
        const Rows<QString> row{"now"};
        row("afternoon", "2024-06-12 15:30:00");
        row("just after midnight", "2024-06-12 00:00:20");
        row("new year", "2024-01-01 10:00:00");
        row("leap day", "2024-02-29 23:59:59");
    }

    void historyIsOfTheDaysBefore()
    {
        QFETCH(QString, now);
        const QDateTime moment = QDateTime::fromString(now, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
        const auto lines = SampleMessages::history(m_core->sample(), moment);
        QSet<int> days, years;
        QSet<int> kinds;
        QDateTime before;
        for (const SampleMessages::Line &line : lines) {
            QVERIFY(line.time.isValid());
            QVERIFY(line.time <= moment);
            QVERIFY(!before.isValid() || before <= line.time);
            before = line.time;
            days.insert(int(line.time.daysTo(moment)));
            years.insert(line.time.date().year());
            kinds.insert(readMessageBody(line.body).kind);
        }
        QVERIFY(days.contains(0) && days.contains(1) && days.contains(3));
        QVERIFY(years.size() >= 3);
        for (int kind = MessageBody::Text; kind <= MessageBody::Recalled; ++kind)
            QVERIFY2(kinds.contains(kind), qPrintable(QString::number(kind)));
    }

    void aClientGetsTheHistoryOnce()
    {
        const MessagingCore::Backlog backlog = m_core->backlog();
        QVERIFY(backlog.messages.size() > 20);
        QString before;
        QSet<QString> unread;
        QSet<int> kinds;
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        for (const MessageData &message : backlog.messages) {
            QVERIFY(before <= message.time);
            before = message.time;
            QVERIFY2(!message.displayName.isEmpty(), qPrintable(message.sessionJid));
            kinds.insert(message.kind);
            if (message.time >= today)
                unread.insert(message.sessionJid);
        }
        QCOMPARE(kinds.size(), 4); // people, rooms, service numbers, channels
        for (const QString &session : unread)
            QVERIFY(!backlog.readSessions.contains(session));
        QVERIFY(!backlog.readSessions.isEmpty());

        // Nobody has taken it: it comes again.
        restart();
        QCOMPARE(m_core->backlog().messages.size(), backlog.messages.size());
        m_core->clearBacklog();
        QVERIFY(m_core->backlog().messages.isEmpty());
        const QString peer = m_core->contacts().at(4).jid;
        m_core->receiveMessage(peer, peer, QStringLiteral("new"));
        restart();
        QCOMPARE(m_core->backlog().messages.size(), 1);
        QCOMPARE(m_core->backlog().messages.first().body, QStringLiteral("new"));
    }

    void aVerySmallCompanyHasNoRooms()
    {
        EmbeddedCore::Options options;
        options.folder = m_folder->path();
        options.people = 1;
        EmbeddedCore core(options);
        QString problem;
        QVERIFY2(core.open(&problem), qPrintable(problem));
        QVERIFY(core.rooms().isEmpty());
        for (const MessageData &message : core.backlog().messages)
            QVERIFY(message.kind != MessageData::Room && message.kind != MessageData::Person);
    }
};

FRIENDUI_TEST(TstSampleMessages)
#include "tst_samplemessages.moc"
