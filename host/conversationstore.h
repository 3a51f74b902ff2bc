// The per-user database file with the settings of conversations: pinned, muted.
// The plug-in keeps its own tables in the same file and gets the connection from
// here.
#pragma once

#include "common/sqlitefile.h"

class ConversationStore
{
public:
    // A file that cannot be opened leaves the store closed: nothing is pinned or
    // muted then.
    explicit ConversationStore(const QString &fileName);

    // Not open when the file could not be had.
    QSqlDatabase database() const { return m_file.database(); }
    // The name under which a damaged file was kept; empty when there was none.
    QString setAsideAs() const { return m_file.setAsideAs(); }

    bool isTop(const QString &jid) const;
    void setTop(const QString &jid, bool top);
    bool isMuted(const QString &jid) const;

private:
    QString flag(const QString &statement, const QString &jid) const;

    SqliteFile m_file;
};
