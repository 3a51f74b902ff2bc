// Brings the rows behind TeamTreeModel to what the service, the host or the user says,
// and tells the views in few steps, however much has changed.
#pragma once

#include "virtualteam/teamtreerows.h"
#include "virtualteam/teamtreesteps.h"

#include <QMap>
#include <QSet>

class TeamTreeChanges
{
public:
    TeamTreeChanges(TeamTreeSteps *model, TeamTreeRows *rows) : m_model(model), m_rows(rows) {}

    void setTeams(const QList<CVirtualTeamSimpleInfo> &teams);
    void setLevel(TeamTreeBranch *branch, const QList<CVirtualTeamSimpleInfo> &groups,
                  const QList<CVirtualTeamMemberInfo> &members);
    void setState(TeamTreeBranch *branch, TeamChildren state);
    // To the end of a group of the same team, and from there to their places.
    void moveMembers(TeamTreeBranch *target, const std::vector<TeamTreeMember *> &members);
    // Behind the others; nothing happens when it is there.
    void addGroup(TeamTreeBranch *branch, const CVirtualTeamSimpleInfo &info);
    // One row and all below.
    void remove(TeamTreeNode *node);
    // The node's own texts are others now.
    void changed(TeamTreeNode *node) { announce({node}); }
    // Some members' records are others now: they move, unless the order is frozen.
    void update(const std::vector<TeamTreeMember *> &members);

    void setFrozen(bool frozen);
    void forgetWaiting() { m_unsettled.clear(); }

    QModelIndex index(TeamTreeNode *node) const; // invalid for none, and for the root

private:
    using Nodes = std::vector<TeamTreeNode *>;
    using Order = std::pair<TeamTreeBranch *, Nodes>;

    Nodes listedBranches(TeamTreeBranch *above, const QList<CVirtualTeamSimpleInfo> &infos);
    Nodes listedMembers(TeamTreeBranch *branch, const QList<CVirtualTeamMemberInfo> &records);
    TeamTreeBranch *listedBranch(TeamTreeBranch *above, const CVirtualTeamSimpleInfo &info);
    bool mayHold(const TeamTreeBranch *branch, const QString &groupId) const;
    Nodes inTheirOrder(TeamTreeBranch *above, const Nodes &listed);

    void bringTo(TeamTreeBranch *branch, const Nodes &wanted);
    void removeUnlisted(TeamTreeBranch *branch);
    void insertNew(TeamTreeBranch *branch, const Nodes &wanted);
    void insertRun(TeamTreeBranch *branch, size_t at, TeamTreeNode *const *first, size_t count);
    void removeRun(TeamTreeBranch *branch, size_t first, size_t count);
    void takeOver(TeamTreeBranch *target, TeamTreeBranch *source, const Nodes &leaving);
    void showState(TeamTreeBranch *branch);

    void settle(const std::vector<TeamTreeBranch *> &branches);
    void reorder(std::vector<Order> orders);
    bool moveSingleRow(TeamTreeBranch *branch, const Nodes &order);
    void announce(const Nodes &nodes);

    TeamTreeSteps *const m_model;
    TeamTreeRows *const m_rows;
    bool m_frozen = false;
    QSet<TeamTreeBranch *> m_unsettled; // wait for the end of the freeze
    Nodes m_changed;                    // during one call: to be announced
};
