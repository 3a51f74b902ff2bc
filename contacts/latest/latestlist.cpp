#include "contacts/latest/latestlist.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/localdatabase.h"
#include "common/sessionsettings.h"
#include "contacts/latest/latestcontactstable.h"
#include "contacts/latest/latesttime.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace {
constexpr int FrameMs = 16;
// Of rows that are read anew at once, however many were read before.
constexpr int MostReadAnew = 5 * LatestList::PageSize;

using Place = LatestContactsTable::Place;

Place placeOf(const DBFriendData &row)
{
    return {row.time, row.jid};
}

bool standsBehind(const Place &place, const Place &other)
{
    return place.time != other.time ? place.time < other.time : place.jid > other.jid;
}
} // namespace

LatestList::LatestList(QObject *parent)
    : QObject(parent),
      m_model(new LatestModel(this)),
      m_writer([this](const QString &jid) -> const DBFriendData * {
          // Another user's table is not the place for what is left.
          const LatestEntry *entry = m_user == ctx().ownJid() ? find(jid) : nullptr;
          return entry ? &entry->row : nullptr;
      }),
      m_clock(&QDateTime::currentDateTime),
      m_user(ctx().ownJid())
{
    m_frame.setSingleShot(true);
    m_frame.setTimerType(Qt::PreciseTimer);
    m_frame.setInterval(FrameMs);
    connect(&m_frame, &QTimer::timeout, this, &LatestList::showChanges);
    connect(&m_writer, &LatestWriter::failed, this, &LatestList::notStored);
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &LatestList::save);
    connect(&LocalDatabase::instance(), &LocalDatabase::opened, this, &LatestList::databaseOpened);
}

LatestList::~LatestList()
{
    m_writer.disconnect(this);
    save();
}

void LatestList::setClock(const Clock &clock)
{
    m_clock = clock;
    m_model->setClock(clock);
}

const LatestEntry *LatestList::find(const QString &jid) const
{
    const auto at = m_entries.constFind(jid);
    return at == m_entries.constEnd() ? nullptr : &at.value();
}

// --- Rows ------------------------------------------------------------------------

void LatestList::setDisplayed(bool displayed)
{
    m_displayed = displayed;
    showChanges();
}

void LatestList::touch(const QString &jid)
{
    m_changed.insert(jid);
    // What comes alone is seen at once; what follows within the frame waits for its end.
    if (!m_frame.isActive())
        showChanges();
}

void LatestList::showChanges()
{
    if (!m_displayed || m_changed.isEmpty())
        return;
    m_frame.start();
    QVector<LatestEntry> entries;
    for (const QString &jid : std::as_const(m_changed)) {
        if (const LatestEntry *entry = find(jid))
            entries.append(*entry);
    }
    m_changed.clear();
    // In an empty list nothing can move under the pointer.
    if (m_model->rowCount() == 0)
        m_model->setOrderFrozen(false);
    m_model->putAll(entries);
}

// --- Changes ---------------------------------------------------------------------

LatestEntry LatestList::makeEntry(const DBFriendData &row, const QDateTime &now) const
{
    LatestEntry entry = makeLatestEntry(row, now);
    entry.muted = m_muted.contains(row.jid);
    return entry;
}

LatestEntry *LatestList::entryOf(const QString &jid)
{
    const auto at = m_entries.find(jid);
    if (at != m_entries.end())
        return &at.value();
    DBFriendData stored;
    if (!LatestContactsTable::find(jid, &stored))
        return nullptr;
    m_changed.insert(jid); // it has no row yet
    return &*m_entries.insert(jid, makeEntry(stored, now()));
}

void LatestList::message(const DBFriendData &row, bool received)
{
    if (m_user.isEmpty())
        m_user = ctx().ownJid();
    LatestEntry *entry = entryOf(row.jid);
    if (!entry)
        entry = &*m_entries.insert(row.jid, makeEntry(row, now()));
    DBFriendData renewed = row;
    renewed.isTop = entry->row.isTop;
    renewed.unread = received ? entry->row.unread + 1 : 0;
    // What a message does not tell stays known.
    if (renewed.displayName == displayText(jidUser(row.jid)))
        renewed.displayName = entry->row.displayName;
    if (renewed.icon.isEmpty())
        renewed.icon = entry->row.icon;
    entry->row = renewed;
    entry->kind = latestKind(renewed);
    setLatestTime(entry, renewed.time, now());
    m_writer.note(row.jid, LatestWriter::Row);
    touch(row.jid);
}

void LatestList::markRead(const QString &jid)
{
    const LatestEntry *entry = entryOf(jid);
    if (entry && entry->row.unread != 0)
        change(
            jid, [](LatestEntry &read) { read.row.unread = 0; }, LatestWriter::Unread);
}

bool LatestList::change(const QString &jid, const std::function<void(LatestEntry &)> &function,
                        int parts)
{
    const auto at = m_entries.find(jid);
    if (at == m_entries.end())
        return false;
    function(at.value());
    if (parts)
        m_writer.note(jid, parts);
    touch(jid);
    return true;
}

bool LatestList::changeStored(const QString &jid,
                              const std::function<void(LatestEntry &)> &function, int parts)
{
    return entryOf(jid) && change(jid, function, parts);
}

void LatestList::changeEach(const std::function<bool(LatestEntry &)> &function, int parts)
{
    for (auto at = m_entries.begin(); at != m_entries.end(); ++at) {
        if (!function(at.value()))
            continue;
        if (parts)
            m_writer.note(at.key(), parts);
        m_changed.insert(at.key());
    }
    if (!m_frame.isActive())
        showChanges();
}

void LatestList::drop(const QString &jid)
{
    m_entries.remove(jid);
    m_changed.remove(jid);
    m_writer.forget(jid);
    m_model->remove(jid);
}

bool LatestList::remove(const QString &jid)
{
    if (!m_entries.contains(jid))
        return false;
    drop(jid);
    if (!LatestContactsTable::remove(jid))
        emit notStored();
    if (m_model->rowCount() < PageSize / 2)
        loadMore();
    return true;
}

void LatestList::clear()
{
    forgetUser();
    if (!LatestContactsTable::clear())
        emit notStored();
}

void LatestList::forgetUser()
{
    m_entries.clear();
    m_changed.clear();
    m_writer.forgetAll();
    m_model->clear();
    m_readTo = Place();
    m_hasMore = true;
    m_wasRead = false;
}

void LatestList::setMuted(const QString &jid, bool muted)
{
    if (muted)
        m_muted.insert(jid);
    else
        m_muted.remove(jid);
    const auto apply = [muted](LatestEntry &entry) { entry.muted = muted; };
    changeStored(jid, apply, 0);
}

void LatestList::readPins()
{
    // Somebody may have been pinned who was not read yet.
    if (m_hasMore)
        adopt(LatestContactsTable::pinned(), false);
    changeEach(
        [](LatestEntry &entry) {
            const qint16 top = ctx().isSessionTop(entry.row.jid) ? 1 : 0;
            return top != std::exchange(entry.row.isTop, top);
        },
        LatestWriter::Top);
}

// --- The table -------------------------------------------------------------------

bool LatestList::readPage(const std::function<QVector<DBFriendData>()> &read, int limit,
                          QVector<DBFriendData> *rows)
{
    save();
    if (!LocalDatabase::instance().isOpen())
        return false;
    *rows = read();
    m_hasMore = rows->size() == limit;
    if (!rows->isEmpty())
        m_readTo = placeOf(rows->last());
    m_wasRead = true;
    return true;
}

void LatestList::adopt(const QVector<DBFriendData> &rows, bool replace)
{
    const QDateTime when = now();
    for (const DBFriendData &row : rows) {
        // What has not been stored yet is newer than what was read.
        if (m_entries.contains(row.jid) && (!replace || m_writer.isPending(row.jid)))
            continue;
        const LatestEntry entry = makeEntry(row, when);
        m_entries.insert(row.jid, entry);
        if (entry.row.isTop != row.isTop)
            m_writer.note(row.jid, LatestWriter::Top);
        m_changed.insert(row.jid);
    }
    showChanges();
}

void LatestList::reloadSoon()
{
    // Messages may follow at once, and belong to the new user.
    if (m_user != ctx().ownJid()) {
        reload();
        return;
    }
    if (std::exchange(m_reloadPosted, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_reloadPosted)
                reload();
        },
        Qt::QueuedConnection);
}

void LatestList::reload()
{
    m_reloadPosted = false;
    const QString user = ctx().ownJid();
    if (user != std::exchange(m_user, user))
        forgetUser();
    m_muted = SessionSettings::muted();
    const Place readBefore = m_wasRead ? m_readTo : Place();
    const bool hadMore = m_hasMore;
    const int limit = std::clamp(m_entries.size(), PageSize, MostReadAnew);
    QVector<DBFriendData> rows;
    if (!readPage([limit] { return LatestContactsTable::page(limit, 0); }, limit, &rows))
        return;
    if (rows.isEmpty() && storeInNewFile())
        return;
    const Place readTo = m_readTo;
    rows += LatestContactsTable::pinned();
    QSet<QString> present;
    for (const DBFriendData &row : std::as_const(rows))
        present.insert(row.jid);
    const QStringList known = m_entries.keys();
    for (const QString &jid : known) {
        if (present.contains(jid) || m_writer.isPending(jid))
            continue;
        LatestEntry &entry = m_entries[jid];
        if (!m_hasMore || !standsBehind(placeOf(entry.row), readTo)) {
            drop(jid);
            continue;
        }
        // Read before, further down than now.
        entry.muted = m_muted.contains(jid);
        m_changed.insert(jid);
    }
    adopt(rows, true);
    if (m_hasMore && !readBefore.jid.isEmpty() && standsBehind(readBefore, readTo)) {
        m_readTo = readBefore;
        m_hasMore = hadMore;
    }
}

void LatestList::databaseOpened()
{
    if (!m_wasRead || m_user != ctx().ownJid()) {
        reload();
        return;
    }
    storeInNewFile();
    save();
}

// Where a damaged file was set aside the new one, the plug-in's or the host's, holds
// nothing of what the list still knows.
bool LatestList::storeInNewFile()
{
    QString time, content;
    if (m_entries.isEmpty() || LatestContactsTable::newest(&time, &content))
        return false;
    const QStringList known = m_entries.keys();
    for (const QString &jid : known)
        m_writer.note(jid, LatestWriter::Row);
    return true;
}

void LatestList::loadMore()
{
    if (!m_wasRead)
        return;
    QVector<DBFriendData> rows;
    const int before = m_entries.size();
    const auto next = [this] { return LatestContactsTable::pageBehind(m_readTo, PageSize); };
    // A page may hold nobody new: those whom a message has brought up before.
    while (m_hasMore && m_entries.size() == before && m_displayed) {
        if (!readPage(next, PageSize, &rows))
            return;
        adopt(rows, false);
    }
}
