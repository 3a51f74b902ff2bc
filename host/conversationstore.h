// The per-user database file with the settings of conversations: pinned, muted.
// The plug-in keeps its own tables in the same file and gets the connection from
// here.
#pragma once

#include <QSqlDatabase>
#include <QString>

class ConversationStore
{
public:
    // Opens or makes the file, readable by its owner only. A file that cannot be
    // opened leaves the store closed: nothing is pinned or muted then.
    explicit ConversationStore(const QString &fileName);
    ~ConversationStore();
    ConversationStore(const ConversationStore &) = delete;
    ConversationStore &operator=(const ConversationStore &) = delete;

    QSqlDatabase database() const; // not open when the file could not be had

    bool isTop(const QString &jid) const;
    void setTop(const QString &jid, bool top);
    bool isMuted(const QString &jid) const;

private:
    QString flag(const char *statement, const QString &jid) const;

    QString m_connection;
};
