// The nodes behind TeamTreeModel, how they hang together and how they are found,
// without a word to any view.
#pragma once

#include "virtualteam/teamrecords.h"
#include "virtualteam/teamroles.h"

#include <QHash>
#include <QStringList>

#include <vector>

struct TeamTreeBranch;

// Where a member stands in its group.
struct TeamTreePlace
{
    quint8 rank = 0; // owner, sub-administrators, who can be reached, others
    QString key;     // of the name

    friend bool operator==(const TeamTreePlace &a, const TeamTreePlace &b)
    {
        return a.rank == b.rank && a.key == b.key;
    }
};

// Itself one of the rows that stand in for a level.
struct TeamTreeNode
{
    explicit TeamTreeNode(TeamRowKind rowKind) : kind(rowKind) {}
    virtual ~TeamTreeNode() = default;
    TeamTreeNode(const TeamTreeNode &) = delete;
    TeamTreeNode &operator=(const TeamTreeNode &) = delete;

    bool isBranch() const { return kind == TeamRowKind::Team || kind == TeamRowKind::Group; }
    bool isMember() const { return kind == TeamRowKind::Member; }
    bool isPlaceholder() const { return !isBranch() && !isMember(); }

    TeamRowKind kind;
    bool isListed = false; // is to stay: only while a level is brought up to date
    int row = 0;
    TeamTreeBranch *above = nullptr; // null before the views know of the row
};

// The internal ids of model indexes: a node, and whether it is a member, so that a view
// that lays out thousands of them need not look at each.
namespace TeamTreeId {
inline quintptr of(const TeamTreeNode *node, bool isMember)
{
    return reinterpret_cast<quintptr>(node) | quintptr(isMember);
}
inline bool isMember(quintptr id)
{
    return id & 1;
}
inline TeamTreeNode *node(quintptr id)
{
    return reinterpret_cast<TeamTreeNode *>(id & ~quintptr(1));
}
} // namespace TeamTreeId

struct TeamTreeMember : TeamTreeNode
{
    TeamTreeMember() : TeamTreeNode(TeamRowKind::Member) {}

    TeamTreePlace place() const; // where it belongs

    CVirtualTeamMemberInfo record;
    QString key;         // of the name as it is now
    TeamTreePlace stand; // where it stands; older than the record while nothing may move
    TeamTreeBranch *team = nullptr;
    TeamTreeMember *inNextTeam = nullptr; // the same person
};

// The root, a team, or a sub-group. Its rows are sub-groups, then members, or a single
// placeholder.
struct TeamTreeBranch : TeamTreeNode
{
    explicit TeamTreeBranch(TeamRowKind rowKind) : TeamTreeNode(rowKind) {}
    ~TeamTreeBranch() override;

    bool isRoot() const { return !team; }
    bool hasPlaceholder() const { return !rows.empty() && rows.front()->isPlaceholder(); }
    int level() const; // a team's is 0
    void renumber(size_t from);

    CVirtualTeamSimpleInfo info;
    TeamChildren state = TeamChildren::NotAsked;
    bool isStale = false; // loaded, but has changed since
    int order = 0;        // among its siblings, as the service lists them
    TeamTreeBranch *team = nullptr;
    std::vector<TeamTreeNode *> rows;          // owned
    std::vector<quint8> areMembers;            // of each row, kept by renumber()
    QHash<QString, TeamTreeBranch *> branches; // of the root its teams, of a team all sub-groups
};

class TeamTreeRows
{
public:
    TeamTreeRows();

    TeamTreeBranch *root() { return &m_root; }
    TeamTreeBranch *findTeam(const QString &vtId) const { return m_root.branches.value(vtId); }
    // "0" and an empty id: the team itself.
    TeamTreeBranch *findGroup(const QString &vtId, const QString &groupId) const;
    TeamTreeMember *findMember(const TeamTreeBranch *team, const QString &userId) const;
    // The person in one of the teams; the others follow by inNextTeam.
    TeamTreeMember *findPerson(const QString &userId) const { return m_people.value(userId); }

    // Nodes that can be found, but are among nobody's rows yet.
    TeamTreeBranch *makeTeam(const CVirtualTeamSimpleInfo &info);
    TeamTreeBranch *makeGroup(TeamTreeBranch *team, const CVirtualTeamSimpleInfo &info);
    TeamTreeMember *makeMember(TeamTreeBranch *team, CVirtualTeamMemberInfo record);
    // Takes a node, which is among nobody's rows any more, and all below out.
    void destroy(TeamTreeNode *node);
    void clear();

    static void setRecord(TeamTreeMember *member, CVirtualTeamMemberInfo record);
    static bool isRootId(const QString &groupId);
    // All rows below, the nearest first.
    static std::vector<TeamTreeNode *> below(const TeamTreeBranch *branch);

private:
    void forget(TeamTreeNode *node);

    TeamTreeBranch m_root;
    QHash<QString, TeamTreeMember *> m_people;
};

namespace TeamTreeOrder {

bool before(const TeamTreeMember *a, const TeamTreeMember *b);
// The rows of a branch by where its members stand.
std::vector<TeamTreeNode *> standing(const TeamTreeBranch *branch);
// And as they ought to stand: the members' stands are brought up to date.
std::vector<TeamTreeNode *> settled(const TeamTreeBranch *branch);

} // namespace TeamTreeOrder
