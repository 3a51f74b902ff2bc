#include "backend/eventlog.h"

#include <QDateTime>

namespace {
constexpr qint64 Hour = 3600; // s
constexpr qint64 Kept = 24 * Hour;
const QString Everybody; // nobody's uid
} // namespace

// An hour's events at once, so that most calls only look at the oldest.
void EventLog::tidy()
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    bool isDue = false;
    {
        Statement oldest = m_transaction.prepare("SELECT time FROM event ORDER BY seq LIMIT 1");
        isDue = oldest.next() && oldest.number(0) < now - Kept - Hour;
    }
    if (!isDue)
        return;
    m_transaction
        .prepare("INSERT OR REPLACE INTO eventForgotten (id, seq)"
                 " SELECT 1, MAX(seq) FROM event WHERE time < ?")
        .bind(now - Kept)
        .run();
    m_transaction.prepare("DELETE FROM event WHERE time < ?").bind(now - Kept).run();
}

void EventLog::tell(const QStringList &uids, const char *type, const QString &subject,
                    const QString &member)
{
    tidy();
    Statement insert = m_transaction.prepare(
        "INSERT OR REPLACE INTO event (uid, type, subject, member, time) VALUES (?, ?, ?, ?, ?)");
    const QString typeText = QString::fromLatin1(type);
    for (const QString &uid : uids) {
        insert.bind(uid).bind(typeText).bind(subject).bind(member);
        insert.bind(QDateTime::currentSecsSinceEpoch()).run();
    }
}

void EventLog::tell(const QStringList &uids, const char *type, qint64 team, const QString &member)
{
    tell(uids, type, QString::number(team), member);
}

void EventLog::tellEverybody(const char *type, const QString &subject)
{
    tell({Everybody}, type, subject, subject);
}

void EventLog::tellMembers(qint64 team, const QString &member)
{
    tidy();
    m_transaction
        .prepare("INSERT OR REPLACE INTO event (uid, type, subject, member, time)"
                 " SELECT uid, ?, vtId, ?, ? FROM teamMember WHERE vtId = ?")
        .bind(QString::fromLatin1(EventType::Update))
        .bind(member)
        .bind(QDateTime::currentSecsSinceEpoch())
        .bind(team)
        .run();
}

std::vector<Event> EventLog::after(const QString &uid, qint64 number)
{
    Statement rows = m_transaction.prepare(
        "SELECT seq, type, subject, member, name FROM event LEFT JOIN team ON vtId = subject"
        " WHERE uid IN (?, ?) AND seq > ? ORDER BY seq LIMIT ?");
    rows.bind(uid).bind(Everybody).bind(number).bind(MaximumRead);
    std::vector<Event> events;
    while (rows.next())
        events.push_back({rows.number(0), rows.text(1), rows.text(2), rows.text(3), rows.text(4)});
    return events;
}

qint64 EventLog::last()
{
    Statement row = m_transaction.prepare("SELECT seq FROM sqlite_sequence WHERE name = 'event'");
    return row.next() ? row.number(0) : 0;
}

bool EventLog::isForgotten(qint64 number)
{
    Statement forgotten = m_transaction.prepare("SELECT seq FROM eventForgotten");
    return number > last() || (forgotten.next() && number < forgotten.number(0));
}
