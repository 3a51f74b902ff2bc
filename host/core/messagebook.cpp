#include "host/core/messagebook.h"

#include "host/core/corestore.h"
#include "host/core/recordsql.h"

#include <algorithm>

namespace {
const char Columns[] = "sessionJid,fromJid,toJid,body,time,kind,displayName,icon,appKey";
const char NewestFirst[] = " WHERE sessionJid=? ORDER BY id DESC LIMIT ?";
const char Since[] = " WHERE id>? ORDER BY id";
const char ReadLastId[] = "SELECT coalesce(max(id),0) FROM messages";

const QString SeededKey = QStringLiteral("messagesSeeded");
const QString DeliveredKey = QStringLiteral("delivered"); // the newest id

QList<MessageData> readAll(const CoreStore &store, QSqlQuery *query)
{
    QList<MessageData> list;
    if (!store.run(query))
        return list;
    while (query->next()) {
        MessageData message;
        RecordSql::read(*query, &message);
        list.append(message);
    }
    return list;
}
} // namespace

MessageBook::MessageBook(CoreStore *store) : m_store(store) {}

bool MessageBook::isSeeded() const
{
    return !m_store->meta(SeededKey).isEmpty();
}

bool MessageBook::seed(const QList<MessageData> &messages)
{
    return m_store->inTransaction([&] {
        const bool isEmpty = m_store->value(QString::fromLatin1(ReadLastId)).toLongLong() == 0;
        for (const MessageData &message : isEmpty ? messages : QList<MessageData>()) {
            if (!add(message))
                return false;
        }
        return m_store->setMeta(SeededKey, QStringLiteral("1"));
    });
}

bool MessageBook::add(const MessageData &message)
{
    QSqlQuery insert = m_store->prepared(RecordSql::insertStatement("messages", Columns));
    RecordSql::bind(&insert, message);
    return m_store->run(&insert);
}

QList<MessageData> MessageBook::newest(const QString &sessionJid, int limit) const
{
    QSqlQuery query = m_store->prepared(RecordSql::selectStatement("messages", Columns) +
                                        QString::fromLatin1(NewestFirst));
    query.addBindValue(sessionJid);
    query.addBindValue(qMax(0, limit));
    QList<MessageData> list = readAll(*m_store, &query);
    std::reverse(list.begin(), list.end());
    return list;
}

QList<MessageData> MessageBook::undelivered() const
{
    QSqlQuery query = m_store->prepared(RecordSql::selectStatement("messages", Columns) +
                                        QString::fromLatin1(Since));
    query.addBindValue(m_store->meta(DeliveredKey).toLongLong());
    return readAll(*m_store, &query);
}

void MessageBook::setDelivered()
{
    m_store->setMeta(DeliveredKey, m_store->value(QString::fromLatin1(ReadLastId)).toString());
}
