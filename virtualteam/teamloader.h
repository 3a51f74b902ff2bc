// Asks for the list of teams and for levels of their structure: the list once at a
// time, each level once at a time, a few levels together. What is wanted while the
// same is being asked for is asked for again after that, since the answer on its way
// may be older than the wish.
#pragma once

#include "virtualteam/teamrecords.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPair>
#include <QSet>

class CHttpVirtualTeamOperation;

class TeamLoader : public QObject
{
    Q_OBJECT

public:
    static constexpr int LevelsAtATime = 6;

    using QObject::QObject;

    using Level = QPair<QString, QString>; // team, group

    void loadTeams();
    bool isLoadingTeams() const { return m_list != nullptr; }
    void loadLevel(const QString &vtId, const QString &pgId);
    // The team has changed: what is being asked for of it is asked for again.
    void repeatLevels(const QString &vtId);
    // Forgets what runs and what waits: none of it is told of any more. Returns the
    // levels that somebody was waiting for.
    QList<Level> stop();

signals:
    void loadingTeamsChanged(bool loading);
    void teamsLoaded(bool ok, const QList<CVirtualTeamSimpleInfo> &teams);
    void levelLoaded(bool ok, const QString &vtId, const QString &pgId,
                     const QList<CVirtualTeamSimpleInfo> &groups,
                     const QList<CVirtualTeamMemberInfo> &members);

private:
    void sendList();
    void sendLevels();
    void levelEnded(const Level &level);

    CHttpVirtualTeamOperation *m_list = nullptr; // that runs
    bool m_listAgain = false;
    QHash<Level, CHttpVirtualTeamOperation *> m_levels; // that run
    QSet<Level> m_levelsAgain;
    QList<Level> m_waiting; // in the order of the wishes
};
