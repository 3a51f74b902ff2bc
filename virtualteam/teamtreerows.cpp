#include "virtualteam/teamtreerows.h"

#include "common/cchcharactertopp.h"
#include "common/displaytext.h"

#include <algorithm>
#include <utility>

TeamTreePlace TeamTreeMember::place() const
{
    quint8 rank = record.presence.isOnline() ? 2 : 3;
    if (record.role == TeamRole::Owner)
        rank = 0;
    else if (record.role == TeamRole::SubAdministrator)
        rank = 1;
    return {rank, key};
}

TeamTreeBranch::~TeamTreeBranch()
{
    for (const TeamTreeNode *node : rows)
        delete node;
}

int TeamTreeBranch::level() const
{
    int level = 0;
    for (const TeamTreeBranch *branch = this; branch != branch->team; branch = branch->above)
        ++level;
    return level;
}

void TeamTreeBranch::renumber(size_t from)
{
    areMembers.resize(rows.size());
    for (size_t i = from; i < rows.size(); ++i) {
        rows[i]->row = int(i);
        areMembers[i] = rows[i]->isMember();
    }
}

TeamTreeRows::TeamTreeRows() : m_root(TeamRowKind::Team)
{
    m_root.state = TeamChildren::Loaded;
}

bool TeamTreeRows::isRootId(const QString &groupId)
{
    return groupId.isEmpty() || groupId == rootGroupId();
}

TeamTreeBranch *TeamTreeRows::findGroup(const QString &vtId, const QString &groupId) const
{
    TeamTreeBranch *team = findTeam(vtId);
    return !team || isRootId(groupId) ? team : team->branches.value(groupId);
}

TeamTreeMember *TeamTreeRows::findMember(const TeamTreeBranch *team, const QString &userId) const
{
    TeamTreeMember *member = m_people.value(userId);
    while (member && member->team != team)
        member = member->inNextTeam;
    return member;
}

TeamTreeBranch *TeamTreeRows::makeTeam(const CVirtualTeamSimpleInfo &info)
{
    auto *team = new TeamTreeBranch(TeamRowKind::Team);
    team->info = info;
    team->team = team;
    m_root.branches.insert(info.vtId, team);
    return team;
}

TeamTreeBranch *TeamTreeRows::makeGroup(TeamTreeBranch *team, const CVirtualTeamSimpleInfo &info)
{
    auto *group = new TeamTreeBranch(TeamRowKind::Group);
    group->info = info;
    group->team = team;
    team->branches.insert(info.vtId, group);
    return group;
}

TeamTreeMember *TeamTreeRows::makeMember(TeamTreeBranch *team, CVirtualTeamMemberInfo record)
{
    auto *member = new TeamTreeMember;
    setRecord(member, std::move(record));
    member->stand = member->place();
    member->team = team;
    TeamTreeMember *&first = m_people[member->record.userId];
    member->inNextTeam = first;
    first = member;
    return member;
}

void TeamTreeRows::setRecord(TeamTreeMember *member, CVirtualTeamMemberInfo record)
{
    const bool isNamed = !member->key.isNull() && member->record.shownName() == record.shownName();
    member->record = record;
    if (!isNamed)
        member->key = CChCharacterToPP().toPinyin(displayText(record.shownName()), false).toLower();
}

void TeamTreeRows::forget(TeamTreeNode *node)
{
    if (node->isMember()) {
        const auto *member = static_cast<TeamTreeMember *>(node);
        const auto found = m_people.find(member->record.userId);
        TeamTreeMember **link = &found.value();
        while (*link != member)
            link = &(*link)->inNextTeam;
        *link = member->inNextTeam;
        if (!found.value())
            m_people.erase(found);
    } else if (node->isBranch()) {
        const auto *branch = static_cast<TeamTreeBranch *>(node);
        auto &branches = node->kind == TeamRowKind::Team ? m_root.branches : branch->team->branches;
        branches.remove(branch->info.vtId);
    }
}

void TeamTreeRows::destroy(TeamTreeNode *node)
{
    if (node->isBranch()) {
        for (TeamTreeNode *lower : below(static_cast<TeamTreeBranch *>(node)))
            forget(lower);
    }
    forget(node);
    delete node;
}

void TeamTreeRows::clear()
{
    for (const TeamTreeNode *node : m_root.rows)
        delete node;
    m_root.rows.clear();
    m_root.areMembers.clear();
    m_root.branches.clear();
    m_people.clear();
}

std::vector<TeamTreeNode *> TeamTreeRows::below(const TeamTreeBranch *branch)
{
    std::vector<TeamTreeNode *> nodes(branch->rows);
    for (size_t i = 0; i < nodes.size(); ++i) {
        if (!nodes[i]->isBranch())
            continue;
        const auto *lower = static_cast<TeamTreeBranch *>(nodes[i]);
        nodes.insert(nodes.end(), lower->rows.begin(), lower->rows.end());
    }
    return nodes;
}

// --- Order ---------------------------------------------------------------------------

bool TeamTreeOrder::before(const TeamTreeMember *a, const TeamTreeMember *b)
{
    if (a->stand.rank != b->stand.rank)
        return a->stand.rank < b->stand.rank;
    const int order = a->stand.key.compare(b->stand.key);
    return order != 0 ? order < 0 : a->record.userId < b->record.userId;
}

std::vector<TeamTreeNode *> TeamTreeOrder::standing(const TeamTreeBranch *branch)
{
    std::vector<TeamTreeNode *> result(branch->rows);
    const auto members = std::find_if(result.begin(), result.end(),
                                      [](const TeamTreeNode *node) { return node->isMember(); });
    std::sort(members, result.end(), [](const TeamTreeNode *a, const TeamTreeNode *b) {
        return before(static_cast<const TeamTreeMember *>(a),
                      static_cast<const TeamTreeMember *>(b));
    });
    return result;
}

std::vector<TeamTreeNode *> TeamTreeOrder::settled(const TeamTreeBranch *branch)
{
    std::vector<TeamTreeNode *> result;
    std::vector<TeamTreeMember *> steady;
    std::vector<TeamTreeMember *> displaced;
    for (TeamTreeNode *node : branch->rows) {
        if (!node->isMember()) {
            result.push_back(node);
            continue;
        }
        auto *member = static_cast<TeamTreeMember *>(node);
        const TeamTreePlace place = member->place();
        if (member->stand == place) {
            steady.push_back(member);
        } else {
            member->stand = place;
            displaced.push_back(member);
        }
    }
    if (!branch->hasPlaceholder())
        std::sort(result.begin(), result.end(), [](const TeamTreeNode *a, const TeamTreeNode *b) {
            return static_cast<const TeamTreeBranch *>(a)->order <
                   static_cast<const TeamTreeBranch *>(b)->order;
        });
    std::sort(displaced.begin(), displaced.end(), before);
    const size_t groups = result.size();
    result.resize(branch->rows.size());
    std::merge(steady.begin(), steady.end(), displaced.begin(), displaced.end(),
               result.begin() + std::ptrdiff_t(groups), before);
    return result;
}
