#include "virtualteam/teamtreechanges.h"

#include "common/context.h"
#include "common/displaytext.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

bool sameInfo(const CVirtualTeamSimpleInfo &a, const CVirtualTeamSimpleInfo &b)
{
    return std::tie(a.vtName, a.role, a.count) == std::tie(b.vtName, b.role, b.count);
}

auto fieldsOf(const CVirtualTeamMemberInfo &r)
{
    return std::tie(r.nickName, r.name, r.photoName, r.duty, r.companyCode, r.companyName,
                    r.employeeCode, r.mobile, r.email, r.role, r.presence.pcShow,
                    r.presence.mobile);
}

// Of a contact the host knows more, and earlier, than the team service.
PresenceData presenceOf(const CVirtualTeamMemberInfo &record)
{
    const QString jid = makeJid(record.userId);
    FriendData contact;
    return ctx().friendData(jid, &contact) ? ctx().presence(jid) : record.presence;
}

TeamRowKind placeholderKind(TeamChildren state)
{
    switch (state) {
    case TeamChildren::NotAsked:
    case TeamChildren::Loading:
        return TeamRowKind::Loading;
    case TeamChildren::Failed:
        return TeamRowKind::Failed;
    case TeamChildren::Loaded:
        break;
    }
    return TeamRowKind::Empty;
}

} // namespace

// --- Levels ----------------------------------------------------------------------------

void TeamTreeChanges::setTeams(const QList<CVirtualTeamSimpleInfo> &teams)
{
    bringTo(m_rows->root(), inTheirOrder(m_rows->root(), listedBranches(m_rows->root(), teams)));
    announce(std::exchange(m_changed, Nodes()));
}

void TeamTreeChanges::setLevel(TeamTreeBranch *branch, const QList<CVirtualTeamSimpleInfo> &groups,
                               const QList<CVirtualTeamMemberInfo> &members)
{
    branch->state = TeamChildren::Loaded;
    branch->isStale = false;
    Nodes wanted = inTheirOrder(branch, listedBranches(branch, groups));
    const Nodes people = listedMembers(branch, members);
    wanted.insert(wanted.end(), people.begin(), people.end());
    // The placeholder goes last: a level that is open never is without a row meanwhile.
    const bool hadPlaceholder = branch->hasPlaceholder();
    const bool isEmpty = wanted.empty();
    if (hadPlaceholder) {
        branch->rows.front()->isListed = true;
        wanted.insert(wanted.begin(), branch->rows.front());
    }
    bringTo(branch, wanted);
    if (hadPlaceholder && !isEmpty)
        removeRun(branch, 0, 1);
    else
        showState(branch);
    announce(std::exchange(m_changed, Nodes()));
}

bool TeamTreeChanges::mayHold(const TeamTreeBranch *branch, const QString &groupId) const
{
    if (branch->isRoot())
        return !groupId.isEmpty();
    if (TeamTreeRows::isRootId(groupId) || branch->level() >= TeamTreeSteps::MaximumDepth)
        return false;
    for (; branch != branch->team; branch = branch->above) {
        if (branch->info.vtId == groupId)
            return false;
    }
    return true;
}

// Null: has no place here, or has one already.
TeamTreeBranch *TeamTreeChanges::listedBranch(TeamTreeBranch *above,
                                              const CVirtualTeamSimpleInfo &info)
{
    if (!mayHold(above, info.vtId))
        return nullptr;
    TeamTreeBranch *known =
        above->isRoot() ? m_rows->findTeam(info.vtId) : above->team->branches.value(info.vtId);
    if (known && known->isListed)
        return nullptr;
    if (known && known->above != above) {
        // No service moves groups: the one below belongs elsewhere from now on.
        remove(known);
        known = nullptr;
    }
    if (!known)
        return above->isRoot() ? m_rows->makeTeam(info) : m_rows->makeGroup(above->team, info);
    if (!sameInfo(known->info, info)) {
        known->info = info;
        m_changed.push_back(known);
    }
    return known;
}

TeamTreeChanges::Nodes TeamTreeChanges::listedBranches(TeamTreeBranch *above,
                                                       const QList<CVirtualTeamSimpleInfo> &infos)
{
    Nodes listed;
    listed.reserve(size_t(infos.size()));
    for (const CVirtualTeamSimpleInfo &info : infos) {
        TeamTreeBranch *branch = listedBranch(above, info);
        if (!branch)
            continue;
        branch->isListed = true;
        branch->order = int(listed.size());
        listed.push_back(branch);
    }
    return listed;
}

// As listed; while nothing may move and something would, the new ones at the end.
TeamTreeChanges::Nodes TeamTreeChanges::inTheirOrder(TeamTreeBranch *above, const Nodes &listed)
{
    Nodes staying;
    for (TeamTreeNode *node : listed) {
        if (node->above)
            staying.push_back(node);
    }
    const auto byRow = [](const TeamTreeNode *a, const TeamTreeNode *b) { return a->row < b->row; };
    if (!m_frozen || std::is_sorted(staying.begin(), staying.end(), byRow))
        return listed;
    m_unsettled.insert(above);
    std::sort(staying.begin(), staying.end(), byRow);
    std::copy_if(listed.begin(), listed.end(), std::back_inserter(staying),
                 [](const TeamTreeNode *node) { return !node->above; });
    return staying;
}

TeamTreeChanges::Nodes TeamTreeChanges::listedMembers(TeamTreeBranch *branch,
                                                      const QList<CVirtualTeamMemberInfo> &records)
{
    std::vector<TeamTreeMember *> members;
    members.reserve(size_t(records.size()));
    QMap<TeamTreeBranch *, Nodes> fromElsewhere;
    for (const CVirtualTeamMemberInfo &listed : records) {
        if (listed.userId.isEmpty())
            continue;
        TeamTreeMember *member = m_rows->findMember(branch->team, listed.userId);
        if (member && member->isListed)
            continue;
        CVirtualTeamMemberInfo record = listed;
        record.presence = presenceOf(listed);
        if (!member) {
            member = m_rows->makeMember(branch->team, std::move(record));
        } else if (fieldsOf(member->record) != fieldsOf(record)) {
            TeamTreeRows::setRecord(member, std::move(record));
            m_changed.push_back(member);
        }
        if (member->above && member->above != branch)
            fromElsewhere[member->above].push_back(member);
        member->isListed = true;
        members.push_back(member);
    }
    for (auto from = fromElsewhere.constBegin(); from != fromElsewhere.constEnd(); ++from)
        takeOver(branch, from.key(), from.value());
    for (TeamTreeMember *member : members) {
        if (!m_frozen)
            member->stand = member->place();
        else if (!(member->stand == member->place()))
            m_unsettled.insert(branch);
    }
    std::sort(members.begin(), members.end(), TeamTreeOrder::before);
    return Nodes(members.begin(), members.end());
}

void TeamTreeChanges::setState(TeamTreeBranch *branch, TeamChildren state)
{
    if (branch->state == state)
        return;
    const bool couldOpen = !branch->rows.empty();
    branch->state = state;
    showState(branch);
    if (couldOpen != !branch->rows.empty())
        announce({branch});
}

// A level without rows has one that tells why, once it has been asked for.
void TeamTreeChanges::showState(TeamTreeBranch *branch)
{
    if (branch->isRoot())
        return;
    const TeamRowKind kind = placeholderKind(branch->state);
    if (branch->rows.empty()) {
        if (branch->state == TeamChildren::NotAsked)
            return;
        TeamTreeNode *node = new TeamTreeNode(kind);
        insertRun(branch, 0, &node, 1);
    } else if (branch->hasPlaceholder() && branch->state == TeamChildren::NotAsked) {
        removeRun(branch, 0, 1);
    } else if (branch->hasPlaceholder() && branch->rows.front()->kind != kind) {
        branch->rows.front()->kind = kind;
        announce({branch->rows.front()});
    }
}

// --- Single changes ----------------------------------------------------------------------

void TeamTreeChanges::remove(TeamTreeNode *node)
{
    TeamTreeBranch *above = node->above;
    removeRun(above, size_t(node->row), 1);
    showState(above);
}

void TeamTreeChanges::addGroup(TeamTreeBranch *branch, const CVirtualTeamSimpleInfo &info)
{
    if (!mayHold(branch, info.vtId) || branch->team->branches.contains(info.vtId))
        return;
    const auto isGroup = [](const TeamTreeNode *node) { return node->isBranch(); };
    const auto groups = std::count_if(branch->rows.begin(), branch->rows.end(), isGroup);
    TeamTreeBranch *group = m_rows->makeGroup(branch->team, info);
    group->order = int(groups);
    TeamTreeNode *node = group;
    const bool hadPlaceholder = branch->hasPlaceholder();
    insertRun(branch, size_t(groups), &node, 1);
    if (hadPlaceholder)
        removeRun(branch, 1, 1);
}

void TeamTreeChanges::moveMembers(TeamTreeBranch *target,
                                  const std::vector<TeamTreeMember *> &members)
{
    QMap<TeamTreeBranch *, Nodes> sources;
    for (TeamTreeMember *member : members) {
        if (member->above != target)
            sources[member->above].push_back(member);
    }
    for (auto source = sources.constBegin(); source != sources.constEnd(); ++source)
        takeOver(target, source.key(), source.value());
    if (target->hasPlaceholder() && target->rows.size() > 1)
        removeRun(target, 0, 1);
    reorder({{target, TeamTreeOrder::standing(target)}});
}

void TeamTreeChanges::update(const std::vector<TeamTreeMember *> &members)
{
    std::vector<TeamTreeBranch *> displaced;
    Nodes nodes;
    nodes.reserve(members.size());
    for (TeamTreeMember *member : members) {
        nodes.push_back(member);
        TeamTreeBranch *branch = member->above;
        if (branch->isListed || member->stand == member->place())
            continue;
        branch->isListed = true;
        displaced.push_back(branch);
    }
    announce(nodes);
    for (TeamTreeBranch *branch : displaced) {
        branch->isListed = false;
        if (m_frozen)
            m_unsettled.insert(branch);
    }
    if (!m_frozen)
        settle(displaced);
}

void TeamTreeChanges::setFrozen(bool frozen)
{
    m_frozen = frozen;
    if (frozen)
        return;
    const QSet<TeamTreeBranch *> waiting = std::exchange(m_unsettled, {});
    settle(std::vector<TeamTreeBranch *>(waiting.begin(), waiting.end()));
}
