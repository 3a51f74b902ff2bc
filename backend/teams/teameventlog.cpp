#include "backend/teams/teameventlog.h"

#include <QDateTime>

namespace {
constexpr qint64 Hour = 3600; // s
constexpr qint64 Kept = 24 * Hour;
} // namespace

// An hour's events at once, so that most calls only look at the oldest.
void TeamEventLog::tidy()
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    bool isDue = false;
    {
        Statement oldest = m_transaction.prepare("SELECT time FROM teamEvent ORDER BY seq LIMIT 1");
        isDue = oldest.next() && oldest.number(0) < now - Kept - Hour;
    }
    if (!isDue)
        return;
    m_transaction
        .prepare("INSERT OR REPLACE INTO teamEventForgotten (id, seq)"
                 " SELECT 1, MAX(seq) FROM teamEvent WHERE time < ?")
        .bind(now - Kept)
        .run();
    m_transaction.prepare("DELETE FROM teamEvent WHERE time < ?").bind(now - Kept).run();
}

void TeamEventLog::tell(const QStringList &uids, const char *type, qint64 team,
                        const QString &member)
{
    tidy();
    Statement insert = m_transaction.prepare(
        "INSERT OR REPLACE INTO teamEvent (uid, type, vtId, member, time) VALUES (?, ?, ?, ?, ?)");
    const QString typeText = QString::fromLatin1(type);
    for (const QString &uid : uids) {
        insert.bind(uid).bind(typeText).bind(team).bind(member);
        insert.bind(QDateTime::currentSecsSinceEpoch()).run();
    }
}

void TeamEventLog::tellMembers(qint64 team, const QString &member)
{
    tidy();
    m_transaction
        .prepare("INSERT OR REPLACE INTO teamEvent (uid, type, vtId, member, time)"
                 " SELECT uid, ?, vtId, ?, ? FROM teamMember WHERE vtId = ?")
        .bind(QString::fromLatin1(TeamEventType::Update))
        .bind(member)
        .bind(QDateTime::currentSecsSinceEpoch())
        .bind(team)
        .run();
}

std::vector<TeamEvent> TeamEventLog::after(const QString &uid, qint64 number)
{
    Statement rows = m_transaction.prepare(
        "SELECT seq, type, vtId, member, name FROM teamEvent LEFT JOIN team USING (vtId)"
        " WHERE uid = ? AND seq > ? ORDER BY seq LIMIT ?");
    rows.bind(uid).bind(number).bind(MaximumRead);
    std::vector<TeamEvent> events;
    while (rows.next())
        events.push_back(
            {rows.number(0), rows.text(1), rows.number(2), rows.text(3), rows.text(4)});
    return events;
}

qint64 TeamEventLog::last()
{
    Statement row =
        m_transaction.prepare("SELECT seq FROM sqlite_sequence WHERE name = 'teamEvent'");
    return row.next() ? row.number(0) : 0;
}

bool TeamEventLog::isForgotten(qint64 number)
{
    Statement forgotten = m_transaction.prepare("SELECT seq FROM teamEventForgotten");
    return number > last() || (forgotten.next() && number < forgotten.number(0));
}
