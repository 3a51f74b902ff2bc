// What TeamTreeModel is made of.
#pragma once

#include "virtualteam/teamtreechanges.h"

#include <utility>

struct TeamTreeParts
{
    explicit TeamTreeParts(TeamTreeSteps *model) : changes(model, &rows) {}

    TeamTreeRows rows;
    TeamTreeChanges changes;

    // Lets `function` change the record of a member, who then finds the new place.
    template <class Function>
    void changeMember(const QString &vtId, const QString &userId, const Function &function)
    {
        TeamTreeMember *member = rows.findMember(rows.findTeam(vtId), userId);
        if (!member)
            return;
        CVirtualTeamMemberInfo record = member->record;
        function(&record);
        TeamTreeRows::setRecord(member, std::move(record));
        changes.update({member});
    }
    template <class Function>
    void changeGroup(const QString &vtId, const QString &groupId, const Function &function)
    {
        if (TeamTreeBranch *branch = rows.findGroup(vtId, groupId)) {
            function(&branch->info);
            changes.changed(branch);
        }
    }
};
