// The latest contacts of the user: the record of each, what of them has a row, what
// the table still has to be asked for. Changes reach the rows at most once a frame,
// however many there are.
#pragma once

#include "contacts/latest/latestcontactstable.h"
#include "contacts/latest/latestmodel.h"
#include "contacts/latest/latestwriter.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

class LatestList : public QObject
{
    Q_OBJECT

public:
    static constexpr int PageSize = 100;
    using Clock = LatestModel::Clock;

    explicit LatestList(QObject *parent = nullptr);
    ~LatestList() override; // stores what waits

    LatestModel *model() const { return m_model; }
    const LatestEntry *find(const QString &jid) const;
    void setClock(const Clock &clock);
    QDateTime now() const { return m_clock(); }

    // While not displayed, the rows stay as they are.
    void setDisplayed(bool displayed);
    bool isDisplayed() const { return m_displayed; }

    // A message made this row of its conversation.
    void message(const DBFriendData &row, bool received);
    // The user has seen the conversation.
    void markRead(const QString &jid);
    // Lets `function` change an entry; `parts` of it are stored. False without one.
    bool change(const QString &jid, const std::function<void(LatestEntry &)> &function,
                int parts = 0);
    // The same for each; `function` tells whether it changed the entry.
    void changeEach(const std::function<bool(LatestEntry &)> &function, int parts = 0);
    // As change(), also for who is in the table but not among the entries yet.
    bool changeStored(const QString &jid, const std::function<void(LatestEntry &)> &function,
                      int parts);

    // True when there was one. From the table, too.
    bool remove(const QString &jid);
    void clear();

    void setMuted(const QString &jid, bool muted);
    // Asks the context which conversations are pinned.
    void readPins();

    // Reads the table anew, as far as it was read; another user's from its beginning.
    void reload();
    // At the end of this turn of the event loop, however often it is asked for; for
    // another user at once.
    void reloadSoon();
    // Reads another page, if there is one.
    void loadMore();
    // Stores now what waits.
    void save() { m_writer.flush(); }

signals:
    // What the user wants to be kept could not be stored.
    void notStored();

private:
    LatestEntry *entryOf(const QString &jid); // from the table when need be, or null
    LatestEntry makeEntry(const DBFriendData &row, const QDateTime &now) const;
    void adopt(const QVector<DBFriendData> &rows, bool replace);
    void drop(const QString &jid);
    void forgetUser();
    void databaseOpened();
    bool storeInNewFile();
    void touch(const QString &jid);
    void showChanges();
    bool readPage(const std::function<QVector<DBFriendData>()> &read, int limit,
                  QVector<DBFriendData> *rows);

    LatestModel *m_model;
    LatestWriter m_writer;
    Clock m_clock;
    QString m_user;
    QHash<QString, LatestEntry> m_entries;
    QSet<QString> m_muted;
    QSet<QString> m_changed; // whose rows are behind their entries
    QTimer m_frame;
    LatestContactsTable::Place m_readTo; // the last row of the table that was read
    bool m_hasMore = true;
    bool m_reloadPosted = false;
    bool m_wasRead = false; // this user's table
    bool m_displayed = true;
};
