#include "backend/session.h"

#include "backend/database.h"
#include "backend/datafolder.h"

#include <QCryptographicHash>
#include <QDateTime>

namespace {
constexpr int TicketBytes = 32;
constexpr qint64 Hour = 3600;
constexpr qint64 Month = 30 * 24 * Hour;

qint64 now()
{
    return QDateTime::currentSecsSinceEpoch();
}

QByteArray digest(const QString &ticket)
{
    return QCryptographicHash::hash(ticket.toUtf8(), QCryptographicHash::Sha256);
}
} // namespace

QString Sessions::issue(Kind kind, const QString &uid)
{
    const QString ticket = QString::fromLatin1(randomBytes(TicketBytes).toHex());
    const qint64 life = kind == AuthId ? 8 * Hour : Month;
    Transaction transaction(m_database);
    transaction.prepare("INSERT INTO ticket (digest, kind, uid, expires) VALUES (?, ?, ?, ?)")
        .bind(digest(ticket))
        .bind(qint64(kind))
        .bind(uid)
        .bind(now() + life)
        .run();
    transaction.commit();
    return ticket;
}

Caller Sessions::find(Kind kind, const QString &ticket)
{
    if (ticket.isEmpty())
        return {};
    Transaction transaction(m_database);
    Statement row =
        transaction.prepare("SELECT uid, expires FROM ticket WHERE digest = ? AND kind = ?");
    row.bind(digest(ticket)).bind(qint64(kind));
    if (!row.next())
        return {};
    return {row.number(1) > now() ? Caller::LoggedIn : Caller::Expired, row.text(0)};
}

void Sessions::expire(Kind kind, const QString &uid)
{
    Transaction transaction(m_database);
    transaction.prepare("UPDATE ticket SET expires = ? WHERE uid = ? AND kind = ?")
        .bind(now() - 1)
        .bind(uid)
        .bind(qint64(kind))
        .run();
    transaction.commit();
}

void Sessions::forget(const QString &uid)
{
    Transaction transaction(m_database);
    transaction.prepare("DELETE FROM ticket WHERE uid = ?").bind(uid).run();
    transaction.commit();
}

void Sessions::tidy()
{
    Transaction transaction(m_database);
    transaction.prepare("DELETE FROM ticket WHERE expires < ?").bind(now() - Month).run();
    transaction.commit();
}
