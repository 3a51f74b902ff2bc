#include "common/sessionsettings.h"

#include "common/localdatabase.h"

namespace {
const QString SelectOne =
    QStringLiteral("SELECT isNotHint FROM sessionsetting WHERE sessionJid = ?");
const QString SelectMuted =
    QStringLiteral("SELECT sessionJid FROM sessionsetting WHERE isNotHint = 'T'");
const QString UpdateOne =
    QStringLiteral("UPDATE sessionsetting SET isNotHint = ? WHERE sessionJid = ?");
const QString UpdateAll =
    QStringLiteral("UPDATE sessionsetting SET isNotHint = 'F' WHERE isNotHint = 'T'");
const QString InsertOne =
    QStringLiteral("INSERT INTO sessionsetting (sessionJid, isNotHint) VALUES (?, ?)");
const QString SetPinned = QStringLiteral("UPDATE latestfriendnew SET isTop = ? WHERE jid = ?");

// Not "INSERT OR REPLACE": the host may have columns of its own in the row.
bool store(const QString &jid, bool muted)
{
    const char caller[] = "SessionSettings::setMuted";
    const QString flag = muted ? QStringLiteral("T") : QStringLiteral("F");
    LocalDatabase &base = LocalDatabase::instance();
    QSqlQuery update = base.prepared(UpdateOne);
    update.addBindValue(flag);
    update.addBindValue(jid);
    if (!base.run(&update, caller))
        return false;
    return update.numRowsAffected() > 0 || base.run(InsertOne, {jid, flag}, caller);
}
} // namespace

bool SessionSettings::isMuted(const QString &jid)
{
    LocalDatabase &base = LocalDatabase::instance();
    QSqlQuery query = base.prepared(SelectOne);
    query.addBindValue(jid);
    const bool muted = base.run(&query, "SessionSettings::isMuted") && query.next() &&
                       query.value(0).toString() == QLatin1String("T");
    query.finish();
    return muted;
}

bool SessionSettings::setMuted(const QString &jid, bool muted)
{
    if (jid.isEmpty())
        return false;
    return LocalDatabase::instance().inTransaction([&] { return store(jid, muted); });
}

bool SessionSettings::replaceMuted(const QSet<QString> &jids)
{
    LocalDatabase &base = LocalDatabase::instance();
    return base.inTransaction([&] {
        if (!base.run(UpdateAll, {}, "SessionSettings::replaceMuted"))
            return false;
        for (const QString &jid : jids) {
            if (!jid.isEmpty() && !store(jid, true))
                return false;
        }
        return true;
    });
}

QSet<QString> SessionSettings::muted()
{
    LocalDatabase &base = LocalDatabase::instance();
    QSet<QString> jids;
    QSqlQuery query = base.prepared(SelectMuted);
    if (base.run(&query, "SessionSettings::muted")) {
        while (query.next())
            jids.insert(query.value(0).toString());
    }
    return jids;
}

bool SessionSettings::setPinned(const QString &jid, bool pinned)
{
    return LocalDatabase::instance().run(SetPinned, {pinned ? 1 : 0, jid},
                                         "SessionSettings::setPinned");
}
