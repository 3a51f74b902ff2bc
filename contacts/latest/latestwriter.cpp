#include "contacts/latest/latestwriter.h"

#include "common/localdatabase.h"
#include "common/logging.h"
#include "common/sessionsettings.h"
#include "contacts/latest/latestcontactstable.h"

namespace {
constexpr int RetryMs = 5000;
} // namespace

LatestWriter::LatestWriter(const Find &find, QObject *parent) : QObject(parent), m_find(find)
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(RetryMs);
    connect(&m_retry, &QTimer::timeout, this, &LatestWriter::flush);
}

void LatestWriter::note(const QString &jid, int parts)
{
    m_pending[jid] |= parts;
    // Waiting for a locked file stops the window: not with every message.
    if (m_posted || m_retry.isActive())
        return;
    m_posted = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_posted = false;
            flush();
        },
        Qt::QueuedConnection);
}

bool LatestWriter::storeParts(const QString &jid, const DBFriendData &record, int parts)
{
    using namespace LatestContactsTable;
    if ((parts & Name) && !rename(jid, record.displayName))
        return false;
    if ((parts & Icon) && !setIcon(jid, record.icon))
        return false;
    if ((parts & Top) && !SessionSettings::setPinned(jid, record.isTop != 0))
        return false;
    return !(parts & Unread) || setUnread(jid, record.unread);
}

bool LatestWriter::flush()
{
    if (m_pending.isEmpty())
        return true;
    const bool stored = LocalDatabase::instance().inTransaction([this] {
        QVector<DBFriendData> rows;
        for (auto at = m_pending.constBegin(); at != m_pending.constEnd(); ++at) {
            const DBFriendData *record = m_find(at.key());
            if (record && (at.value() & Row))
                rows.append(*record);
        }
        if (!rows.isEmpty() && !LatestContactsTable::store(rows))
            return false;
        for (auto at = m_pending.constBegin(); at != m_pending.constEnd(); ++at) {
            const DBFriendData *record = m_find(at.key());
            if (record && !(at.value() & Row) && !storeParts(at.key(), *record, at.value()))
                return false;
        }
        return true;
    });
    if (stored) {
        m_retry.stop();
        m_pending.clear();
        m_failing = false;
        return true;
    }
    m_retry.start();
    LOG_ERROR(QString::number(m_pending.size()) << " latest contacts could not be stored");
    if (!m_failing) {
        m_failing = true;
        emit failed();
    }
    return false;
}
