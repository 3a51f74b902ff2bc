// Stores what changes among the latest contacts: everything of one turn of the event
// loop in one transaction at the turn's end. What cannot be stored is tried again
// after five seconds, with what has come meanwhile.
#pragma once

#include "plugin/sharedrecords.h"

#include <QHash>
#include <QObject>
#include <QTimer>

#include <functional>

class LatestWriter : public QObject
{
    Q_OBJECT

public:
    enum Part
    {
        Row = 1, // everything
        Name = 2,
        Icon = 4,
        Top = 8,
        Unread = 16
    };
    // The record of a jid as it is to be stored, or null.
    using Find = std::function<const DBFriendData *(const QString &jid)>;

    explicit LatestWriter(const Find &find, QObject *parent = nullptr);

    // `parts` of the jid's record are to be stored, or-ed from Part.
    void note(const QString &jid, int parts);
    bool isPending(const QString &jid) const { return m_pending.contains(jid); }
    void forget(const QString &jid) { m_pending.remove(jid); }
    void forgetAll() { m_pending.clear(); }

    // Stores now what waits. False when it could not be stored.
    bool flush();

signals:
    // After what could be stored before could not any more.
    void failed();

private:
    bool storeParts(const QString &jid, const DBFriendData &record, int parts);

    Find m_find;
    QHash<QString, int> m_pending;
    QTimer m_retry;
    bool m_posted = false;
    bool m_failing = false;
};
