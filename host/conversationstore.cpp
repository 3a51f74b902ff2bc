#include "host/conversationstore.h"

#include "common/localtables.h"

namespace {
const QString SelectMuted =
    QStringLiteral("SELECT isNotHint FROM sessionsetting WHERE sessionJid = ?");
const QString SelectTop = QStringLiteral("SELECT isTop FROM hostconversation WHERE jid = ?");
const QString ReplaceTop =
    QStringLiteral("INSERT OR REPLACE INTO hostconversation (jid, isTop) VALUES (?, ?)");
} // namespace

ConversationStore::ConversationStore(const QString &fileName)
    : m_file(fileName, SqliteFile::freeConnectionName("host"))
{
    const QVector<SqliteTable> tables = {
        LocalTables::sessionSetting(),
        {"hostconversation",
         " (jid VARCHAR(100) primary key NOT NULL, isTop INT NOT NULL DEFAULT 0)"},
    };
    QString problem;
    m_file.open([&](QString *why) { return bringUpToDate(&m_file, tables, why); }, &problem);
}

QString ConversationStore::flag(const QString &statement, const QString &jid) const
{
    return database().isOpen()
               ? m_file.value(statement, {jid}, "ConversationStore::flag").toString()
               : QString();
}

bool ConversationStore::isTop(const QString &jid) const
{
    return flag(SelectTop, jid) == QLatin1String("1");
}

bool ConversationStore::isMuted(const QString &jid) const
{
    return flag(SelectMuted, jid) == QLatin1String("T");
}

void ConversationStore::setTop(const QString &jid, bool top)
{
    if (database().isOpen())
        m_file.run(ReplaceTop, {jid, top ? 1 : 0}, "ConversationStore::setTop");
}
