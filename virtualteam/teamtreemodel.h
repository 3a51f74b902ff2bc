// The user's teams as a tree of rows: teams in the order of the service, below them
// and below each other sub-groups, then members: who leads first, who can be reached
// before the others, then by name. A level that is being asked for, failed, or is
// empty has one row that says so.
//
// Every change keeps the rows that stay: what is selected, open and in sight remains.
// A sub-group is in one place only: one that the service lists above itself, twice or
// deeper than MaximumDepth is left out. A person can be in several teams, but once
// in each.
#pragma once

#include "virtualteam/teamrecords.h"
#include "virtualteam/teamroles.h"
#include "virtualteam/teamtreesteps.h"

#include <QMap>
#include <QStringList>

#include <memory>

struct TeamTreeParts;

class TeamTreeModel : public TeamTreeSteps
{
    Q_OBJECT

public:
    explicit TeamTreeModel(QObject *parent = nullptr);
    ~TeamTreeModel() override;

    // --- Loading ------------------------------------------------------------------
    // All teams of the user: others go. Of the ones that stay what was loaded stays.
    void setTeams(const QList<CVirtualTeamSimpleInfo> &teams);
    // One level; false, with a line in the log, when its group has gone.
    bool setLevel(const QString &vtId, const QString &pgId,
                  const QList<CVirtualTeamSimpleInfo> &groups,
                  const QList<CVirtualTeamMemberInfo> &members);
    void setChildrenState(const QString &vtId, const QString &pgId, TeamChildren state);
    TeamChildren childrenState(const QString &vtId, const QString &pgId) const;
    // What is loaded of a team may be out of date: each of its levels is stale until it
    // is set again.
    void expire(const QString &vtId);
    void expireLevel(const QString &vtId, const QString &pgId);
    bool isStale(const QString &vtId, const QString &pgId) const;
    void clear();

    // --- Single changes; nothing happens to what is not there -----------------------
    bool removeTeam(const QString &vtId);
    bool removeGroup(const QString &vtId, const QString &groupId); // with all below
    bool removeMember(const QString &vtId, const QString &userId);
    // Behind the other sub-groups of a loaded level.
    void addGroup(const QString &vtId, const QString &pgId, const QString &groupId,
                  const QString &name);
    // To another group of the team; out of sight when that is not loaded.
    void moveMembers(const QString &vtId, const QString &groupId, const QStringList &userIds);
    void setTeamName(const QString &vtId, const QString &name);
    void setTeamRole(const QString &vtId, int role);
    void setGroupName(const QString &vtId, const QString &groupId, const QString &name);
    void setNickName(const QString &vtId, const QString &userId, const QString &nickName);
    void setDuty(const QString &vtId, const QString &userId, const QString &duty);
    void setRole(const QString &vtId, const QString &userId, int role);
    // In every team; by jid.
    void setPresence(const QMap<QString, PresenceData> &presence);
    void setPhoto(const QString &userId, const QString &photoName);

    // While it is frozen rows change what they show, but do not move for it.
    void setOrderFrozen(bool frozen);

    // --- Reading --------------------------------------------------------------------
    QStringList teamIds() const;
    QModelIndex teamIndex(const QString &vtId) const; // invalid: there is none
    QModelIndex groupIndex(const QString &vtId, const QString &groupId) const; // "0": the team
    QModelIndex memberIndex(const QString &vtId, const QString &userId) const;
    TeamRowKind kind(const QModelIndex &index) const;
    CVirtualTeamSimpleInfo team(const QModelIndex &index) const;  // that the row belongs to
    CVirtualTeamSimpleInfo group(const QModelIndex &index) const; // empty for other kinds
    CVirtualTeamMemberInfo member(const QModelIndex &index) const;
    // Of the row itself or, for others than teams and groups, of the one above.
    QString groupId(const QModelIndex &index) const;
    int level(const QModelIndex &index) const; // of that group; a team's is 0
    QStringList loadedMembers(const QString &vtId) const;
    // Whose levels have been asked for, whatever came of it; first the team's own.
    QStringList askedGroups(const QString &vtId) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    std::unique_ptr<TeamTreeParts> d;
};
