#include "host/conversationstore.h"

#include "common/logging.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>

namespace {

// "sessionsetting" is shared with the plug-in's list of latest contacts.
constexpr const char *createStatements[] = {
    "CREATE TABLE IF NOT EXISTS sessionsetting"
    " (sessionJid VARCHAR(100) primary key NOT NULL, isNotHint VARCHAR(2))",
    "CREATE TABLE IF NOT EXISTS hostconversation"
    " (jid VARCHAR(100) primary key NOT NULL, isTop INT NOT NULL DEFAULT 0)",
};
constexpr char selectMuted[] = "SELECT isNotHint FROM sessionsetting WHERE sessionJid = ?";
constexpr char selectTop[] = "SELECT isTop FROM hostconversation WHERE jid = ?";
constexpr char replaceTop[] = "INSERT OR REPLACE INTO hostconversation (jid, isTop) VALUES (?, ?)";

bool run(QSqlQuery &query)
{
    if (query.exec())
        return true;
    LOG_ERROR("ConversationStore: " << query.lastError().text());
    return false;
}

} // namespace

ConversationStore::ConversationStore(const QString &fileName)
    : m_connection(QStringLiteral("host-") + QUuid::createUuid().toString(QUuid::Id128))
{
    QSqlDatabase base = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    base.setDatabaseName(fileName);
    if (!base.open()) {
        LOG_ERROR("ConversationStore: " << base.lastError().text());
        return;
    }
    QFile::setPermissions(fileName, QFile::ReadOwner | QFile::WriteOwner);
    for (const char *statement : createStatements) {
        QSqlQuery query(base);
        query.prepare(QString::fromLatin1(statement));
        run(query);
    }
}

ConversationStore::~ConversationStore()
{
    {
        QSqlDatabase base = database();
        base.close();
    }
    QSqlDatabase::removeDatabase(m_connection);
}

QSqlDatabase ConversationStore::database() const
{
    return QSqlDatabase::database(m_connection, false);
}

QString ConversationStore::flag(const char *statement, const QString &jid) const
{
    if (!database().isOpen())
        return QString();
    QSqlQuery query(database());
    query.setForwardOnly(true);
    query.prepare(QString::fromLatin1(statement));
    query.addBindValue(jid);
    return run(query) && query.next() ? query.value(0).toString() : QString();
}

bool ConversationStore::isTop(const QString &jid) const
{
    return flag(selectTop, jid) == QLatin1String("1");
}

bool ConversationStore::isMuted(const QString &jid) const
{
    return flag(selectMuted, jid) == QLatin1String("T");
}

void ConversationStore::setTop(const QString &jid, bool top)
{
    if (!database().isOpen())
        return;
    QSqlQuery query(database());
    query.prepare(QString::fromLatin1(replaceTop));
    query.addBindValue(jid);
    query.addBindValue(top ? 1 : 0);
    run(query);
}
