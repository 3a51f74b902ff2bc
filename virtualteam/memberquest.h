// The way to a member of a team whose group is not loaded. No service tells in which
// group somebody is: so the levels of the team are gone through, the upper ones first.
#pragma once

#include <QModelIndex>
#include <QSet>
#include <QStringList>

class TeamTreeModel;

class MemberQuest
{
public:
    static constexpr int MostLevels = 200; // that one search asks for
    static constexpr int AtATime = 4;

    void begin(const QString &vtId, const QString &userId);
    void end();
    bool isUnderWay() const { return !m_userId.isEmpty(); }
    // It has asked for levels that nobody had opened.
    bool isLooking() const { return !m_asked.isEmpty(); }
    QString vtId() const { return m_vtId; }

    // The member's row; invalid while it is not there.
    QModelIndex member(const TeamTreeModel &teams) const;
    // The levels to be asked for now, as their groups. Without one, and with none on
    // its way, the search has failed: it ends.
    QStringList next(const TeamTreeModel &teams);
    // A level of the team has come, or failed.
    void answered(const QString &groupId) { m_running.remove(groupId); }

private:
    bool isWanted(const TeamTreeModel &teams, const QString &groupId) const;

    QString m_vtId, m_userId;
    QSet<QString> m_asked, m_running;
};
