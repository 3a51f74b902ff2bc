// The search for members in all teams of the user. Waits until nobody types any more,
// asks for one team after the other, a few at a time, and lets no answer through to a
// text that stands there no longer.
#pragma once

#include "virtualteam/teamrecords.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTimer>

class CHttpVirtualTeamOperation;

class TeamSearch : public QObject
{
    Q_OBJECT

public:
    static constexpr int Delay = 200; // ms, after the last letter
    static constexpr int AtATime = 4; // teams
    // Of one team; nobody reads on so far.
    static constexpr int MostHits = 1000;

    enum State
    {
        Idle, // there is nothing to ask
        Offline,
        Searching, // or about to
        Done,
        SomeFailed, // of the teams
        Failed      // all of them
    };

    explicit TeamSearch(QObject *parent = nullptr);

    // Where to search, by their ids: teams that come are searched, too.
    void setTeams(const QStringList &teams);
    // Another text; an empty one ends the search.
    void setText(const QString &text);
    State state() const { return m_state; }
    // Those teams that failed.
    void retry();

signals:
    void stateChanged();
    // All hits in one team; none, too, when it failed.
    void answered(const QString &vtId, const QList<CVirtualTeamMemberInfo> &hits);

private:
    void begin();
    void ask();
    void arrived(const QString &vtId, bool ok, QList<CVirtualTeamMemberInfo> hits);
    void drop(const QString &vtId);
    void setState(State state);

    QString m_text;
    State m_state = Idle;
    QStringList m_teams;
    QStringList m_waiting, m_failed;
    QHash<QString, CHttpVirtualTeamOperation *> m_running;
    QTimer m_delay;
};
