#include "contacts/latest/latestcontactstable.h"

#include "common/localdatabase.h"
#include "common/logging.h"
#include "common/sessionsettings.h"

#include <QHash>

namespace {
constexpr int MaximumContent = 1000; // characters

#define TABLE "latestfriendnew"
#define FILTER_START                                                                               \
    " WHERE ((issystemnotice = 0) AND (jid NOT LIKE '%system%') AND (jid NOT LIKE '%cnotify%') "   \
    "AND (jid NOT LIKE '%friend%') AND (jid NOT LIKE '%KFCNL%') AND (jid NOT LIKE '%vroom%') "     \
    "AND (onjob is '' OR onjob is 1) AND "
#define FILTER_NAMED "(displayname is NOT NULL AND displayname is NOT '') AND "
#define FILTER_END                                                                                 \
    "(jid NOT IN (SELECT sessionJid FROM "                                                         \
    "sessionsetting"                                                                               \
    " WHERE isNotHint = 'T'))) ORDER BY time DESC"

// The columns of the list, and the others of the full row: one statement reads both. The
// plan is the same, and a page takes a fifth of the time of looking up each listed jid.
#define FULL_ROW                                                                                   \
    "SELECT jid, displayname, icon, signature, time, onjob, accountNo, lastcontent, "              \
    "issystemnotice, appkey, isTop FROM "
const QString FullRow = QStringLiteral(FULL_ROW TABLE);
// An OFFSET counts its way there through the whole filter, row for row.
const QString FullRowBehind =
    QStringLiteral(FULL_ROW "(SELECT * FROM " TABLE " WHERE time <= ? AND (time < ? OR jid > ?))");
const QString FilterNamed = QStringLiteral(FILTER_START FILTER_NAMED FILTER_END);
const QString FilterAll = QStringLiteral(FILTER_START FILTER_END);
const QString OfJid = QStringLiteral(" WHERE jid = ?");
const QString OfPinned = QStringLiteral(" WHERE isTop = 1 ORDER BY time DESC");
const QString Newest =
    QStringLiteral("SELECT time,lastcontent FROM " TABLE " order by time desc limit 0,1");

const QString Insert = QStringLiteral(
    "INSERT INTO " TABLE
    " (jid, displayname, icon, signature, time, onjob, accountNo, lastcontent,issystemnotice,"
    "appkey, isTop, isLocalSession) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
const QString UpdateNamed =
    QStringLiteral("UPDATE " TABLE " SET displayname = ?, lastcontent = ?, time = ?, "
                   "issystemnotice = ?, isLocalSession = \"1\" WHERE jid = ?");
const QString UpdateNameless =
    QStringLiteral("UPDATE " TABLE " SET lastcontent = ?, time = ?, issystemnotice = ?, "
                   "isLocalSession = \"1\" WHERE jid = ?");
// What the above leave out.
const QString UpdateRest =
    QStringLiteral("UPDATE " TABLE " SET icon = ?, signature = ?, onjob = ?, accountNo = ?, "
                   "appkey = ?, isTop = ? WHERE jid = ?");
const QString Rename = QStringLiteral("UPDATE " TABLE " SET displayname = ? WHERE jid = ?");
const QString SetIcon = QStringLiteral("UPDATE " TABLE " SET icon = ? WHERE jid = ?");
const QString DeleteOne = QStringLiteral("DELETE FROM " TABLE " WHERE jid = ?");
const QString DeleteAll = QStringLiteral("DELETE FROM " TABLE);

const QString AllUnread = QStringLiteral("SELECT jid, unread FROM latestunread");
const QString UnreadOfJid = QStringLiteral("SELECT jid, unread FROM latestunread WHERE jid = ?");
const QString ReplaceUnread =
    QStringLiteral("INSERT OR REPLACE INTO latestunread (jid, unread) VALUES (?, ?)");
const QString DeleteUnread = QStringLiteral("DELETE FROM latestunread WHERE jid = ?");
const QString DeleteAllUnread = QStringLiteral("DELETE FROM latestunread");

LocalDatabase &base()
{
    return LocalDatabase::instance();
}

// A NUL would end the text for some of the database's functions and not for others.
QString storable(QString text)
{
    text.remove(QChar(0));
    return text.isNull() ? QString::fromLatin1("") : text;
}

QString storableContent(const QString &content)
{
    QString text = storable(content.left(MaximumContent + 1));
    if (text.size() > MaximumContent)
        text.truncate(text.at(MaximumContent - 1).isHighSurrogate() ? MaximumContent - 1
                                                                    : MaximumContent);
    return text;
}

// Whether the filter takes the column for a number that is 0. NULL is not.
bool isZero(const QVariant &stored)
{
    bool isNumber = false;
    return stored.toDouble(&isNumber) == 0 && isNumber && !stored.isNull();
}

// The columns of FullRow.
DBFriendData rowOf(const QSqlQuery &query)
{
    DBFriendData record;
    record.jid = query.value(0).toString();
    record.displayName = query.value(1).toString();
    record.icon = query.value(2).toString();
    record.signature = query.value(3).toString();
    record.time = query.value(4).toString();
    const QVariant onJob = query.value(5);
    const QString onJobText = onJob.toString();
    record.onJob =
        !onJob.isNull() && (onJobText.isEmpty() || onJobText == QLatin1String("1")) ? 1 : 0;
    record.accountNo = query.value(6).toString();
    record.lastContent = query.value(7).toString();
    record.isSystemNotice = isZero(query.value(8)) ? 0 : 1;
    record.appKey = query.value(9).toString();
    record.isTop = query.value(10).toInt() == 1 ? 1 : 0;
    record.isLocalSession = 1;
    return record;
}

QVector<DBFriendData> rowsOf(const QString &statement, const QVariantList &values,
                             const char *caller)
{
    QVector<DBFriendData> rows;
    QSqlQuery query = base().prepared(statement);
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (base().run(&query, caller)) {
        while (query.next())
            rows.append(rowOf(query));
    }
    return rows;
}

QHash<QString, int> allUnread()
{
    QHash<QString, int> counts;
    QSqlQuery query = base().prepared(AllUnread);
    if (base().run(&query, "LatestContactsTable::page")) {
        while (query.next())
            counts.insert(query.value(0).toString(), query.value(1).toInt());
    }
    return counts;
}

void addUnread(QVector<DBFriendData> *rows)
{
    const QHash<QString, int> counts = allUnread();
    for (DBFriendData &row : *rows)
        row.unread = counts.value(row.jid);
}

bool storeUnread(const QString &jid, int count, const char *caller)
{
    return count > 0 ? base().run(ReplaceUnread, {jid, count}, caller)
                     : base().run(DeleteUnread, {jid}, caller);
}

// -1: failed; otherwise the number of rows.
int updateMessage(const DBFriendData &record, const QString &jid, const char *caller)
{
    const QString name = storable(record.displayName);
    QSqlQuery update = base().prepared(name.isEmpty() ? UpdateNameless : UpdateNamed);
    if (!name.isEmpty())
        update.addBindValue(name);
    update.addBindValue(storableContent(record.lastContent));
    update.addBindValue(storable(record.time));
    update.addBindValue(record.isSystemNotice);
    update.addBindValue(jid);
    return base().run(&update, caller) ? update.numRowsAffected() : -1;
}

bool storeOne(const DBFriendData &record)
{
    const char caller[] = "LatestContactsTable::store";
    const QString jid = storable(record.jid);
    if (jid.isEmpty()) {
        LOG_ERROR(caller << "(),ERROR: a record without a jid is left out");
        return true;
    }
    const int updated = updateMessage(record, jid, caller);
    if (updated < 0)
        return false;
    const QString onJob = QString::number(record.onJob);
    const QString icon = storable(record.icon), signature = storable(record.signature);
    const QString account = storable(record.accountNo), appKey = storable(record.appKey);
    const int top = record.isTop;
    const bool stored =
        updated > 0
            ? base().run(UpdateRest, {icon, signature, onJob, account, appKey, top, jid}, caller)
            : base().run(Insert,
                         {jid, storable(record.displayName), icon, signature, storable(record.time),
                          onJob, account, storableContent(record.lastContent),
                          record.isSystemNotice, appKey, top, 1},
                         caller);
    return stored && storeUnread(jid, record.unread, caller);
}

// As LIKE '%word%' finds them: only A to Z without regard to case.
bool isPseudoContact(const QString &jid)
{
    const auto lower = [](QChar c) {
        const ushort code = c.unicode();
        return code >= 'A' && code <= 'Z' ? ushort(code + ('a' - 'A')) : code;
    };
    const QChar *const end = jid.constData() + jid.size();
    for (const QChar *at = jid.constData(); at != end; ++at) {
        for (const char *word : {"system", "cnotify", "friend", "kfcnl", "vroom"}) {
            const QChar *c = at;
            while (*word != 0 && c != end && lower(*c) == ushort(*word)) {
                ++c;
                ++word;
            }
            if (*word == 0)
                return true;
        }
    }
    return false;
}

} // namespace

QString LatestContactsTable::listStatement(Names names)
{
    return FullRow + (names == Named ? FilterNamed : FilterAll);
}

QVector<DBFriendData> LatestContactsTable::page(int limit, int offset, Names names)
{
    QString statement = listStatement(names);
    QVariantList values;
    if (limit > 0 || offset > 0) {
        statement += QStringLiteral(" LIMIT ? OFFSET ?");
        values = {limit > 0 ? limit : -1, offset};
    }
    QVector<DBFriendData> rows = rowsOf(statement, values, "LatestContactsTable::page");
    addUnread(&rows);
    return rows;
}

QVector<DBFriendData> LatestContactsTable::pageBehind(const Place &place, int limit)
{
    QVector<DBFriendData> rows = rowsOf(
        statementBehind(), {place.time, place.time, place.jid, limit}, "LatestContactsTable::page");
    addUnread(&rows);
    return rows;
}

QString LatestContactsTable::statementBehind()
{
    return FullRowBehind + FilterNamed + QStringLiteral(" LIMIT ?");
}

QVector<DBFriendData> LatestContactsTable::pinned()
{
    // By isListable() and not by the filter: this way the index of the pinned rows
    // serves, and the others are not looked at.
    QVector<DBFriendData> listed;
    const QSet<QString> muted = SessionSettings::muted();
    for (const DBFriendData &row : rowsOf(FullRow + OfPinned, {}, "LatestContactsTable::pinned")) {
        if (isListable(row, muted.contains(row.jid)))
            listed.append(row);
    }
    addUnread(&listed);
    return listed;
}

bool LatestContactsTable::find(const QString &jid, DBFriendData *out)
{
    const char caller[] = "LatestContactsTable::find";
    const QVector<DBFriendData> rows = rowsOf(FullRow + OfJid, {jid}, caller);
    if (rows.isEmpty())
        return false;
    *out = rows.first();
    QSqlQuery unread = base().prepared(UnreadOfJid);
    unread.addBindValue(jid);
    if (base().run(&unread, caller) && unread.next())
        out->unread = unread.value(1).toInt();
    unread.finish();
    return true;
}

bool LatestContactsTable::newest(QString *time, QString *content)
{
    QSqlQuery query = base().prepared(Newest);
    const bool found = base().run(&query, "LatestContactsTable::newest") && query.next();
    if (found) {
        *time = query.value(0).toString();
        *content = query.value(1).toString();
    }
    query.finish();
    return found;
}

bool LatestContactsTable::store(const QVector<DBFriendData> &records)
{
    return base().inTransaction([&] {
        for (const DBFriendData &record : records) {
            if (!storeOne(record))
                return false;
        }
        return true;
    });
}

bool LatestContactsTable::rename(const QString &jid, const QString &name)
{
    return base().run(Rename, {storable(name), jid}, "LatestContactsTable::rename");
}

bool LatestContactsTable::setIcon(const QString &jid, const QString &icon)
{
    return base().run(SetIcon, {storable(icon), jid}, "LatestContactsTable::setIcon");
}

bool LatestContactsTable::setUnread(const QString &jid, int count)
{
    return storeUnread(storable(jid), count, "LatestContactsTable::setUnread");
}

bool LatestContactsTable::remove(const QString &jid)
{
    const char caller[] = "LatestContactsTable::remove";
    return base().inTransaction(
        [&] { return base().run(DeleteOne, {jid}, caller) && storeUnread(jid, 0, caller); });
}

bool LatestContactsTable::clear()
{
    const char caller[] = "LatestContactsTable::clear";
    return base().inTransaction([&] {
        return base().run(DeleteAll, {}, caller) && base().run(DeleteAllUnread, {}, caller);
    });
}

bool LatestContactsTable::isListable(const DBFriendData &record, bool muted, Names names)
{
    return record.isSystemNotice == 0 && record.onJob == 1 && !muted &&
           (names == AlsoNameless || !record.displayName.isEmpty()) && !isPseudoContact(record.jid);
}
