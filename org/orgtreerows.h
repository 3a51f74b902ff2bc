// The rows behind OrgTreeModel and how they hang together, without a word to any
// view. Every row but those that wait for their parent can be reached from the
// root in at most MaximumDepth steps, and on one way only.
#pragma once

#include "http/orgrecords.h"
#include "org/orgidindex.h"
#include "org/orgtreeroles.h"

#include <QHash>

#include <deque>
#include <vector>

// Kept small: there is one for each person of the company.
struct OrgTreeNode
{
    static constexpr quint32 NoBranch = 0xffffff;

    QString id;
    quint32 parent = 0; // the row above, or the list that this one waits in
    quint32 row = 0;    // among its siblings
    quint32 digest = 0; // of what the row shows
    quint32 branch : 24;
    quint32 status : 3;
    quint32 device : 2;
    quint32 isEmployee : 1;
    quint32 isAttached : 1;

    OrgTreeNode() : branch(NoBranch), status(0), device(0), isEmployee(0), isAttached(0) {}
};

// What is below a department that has been asked for or has children.
struct OrgTreeBranch
{
    std::vector<quint32> rows;
    std::vector<quint32> arrivals; // belong here, but the views do not know yet
    OrgChildren state = OrgChildren::NotAsked;
    bool hasPlaceholder = false; // the row that says "loading" or "failed"
};

class OrgTreeRows
{
public:
    static constexpr quint32 Root = 0;
    static constexpr quint32 None = OrgIdIndex::None;
    static constexpr int MaximumDepth = 64;

    OrgTreeRows();

    // The internal ids of model indexes: a row's number, or its department's for a
    // placeholder.
    static bool isPlaceholder(quintptr internalId) { return internalId & PlaceholderBit; }
    static quintptr placeholderId(quint32 department) { return department | PlaceholderBit; }
    static quint32 departmentOf(quintptr internalId)
    {
        return quint32(internalId & ~PlaceholderBit);
    }

    void clear(const QString &rootId);
    const QString &rootId() const { return m_nodes.front().id; }

    OrgTreeNode &node(quint32 number) { return m_nodes[number]; }
    const OrgTreeNode &node(quint32 number) const { return m_nodes[number]; }
    quint32 find(const QString &id) const; // the root too; None: unknown
    quint32 append(const QString &id);     // belongs nowhere yet
    bool isFull() const { return m_nodes.size() > OrgIdIndex::MaximumNumber; }

    OrgTreeBranch &branch(quint32 number); // made when there is none
    const OrgTreeBranch *branchOf(quint32 number) const;
    int rowCount(quint32 number) const; // with the placeholder

    // Whether the views can get at it.
    bool isShown(quint32 number) const;
    // The department of that id if it can take one more level; None otherwise.
    quint32 holder(const QString &id);
    bool canHold(quint32 number);
    // Whether rows may be missing because they would be too deep.
    bool isCut() const { return m_isCut; }
    int depth(quint32 number) const;  // the root's is 0; the row is attached
    int height(quint32 number) const; // 1 for a row without any below
    bool isAtOrAbove(quint32 upper, quint32 lower) const;
    // The id that the row is below, or waits for; the root's for the topmost.
    const QString &parentId(quint32 number) const;

    void waitFor(quint32 number, const QString &parentId);
    // The rows that waited for this one, in the order of their arrival; one that came
    // and went may be named twice.
    std::vector<quint32> takeWaiting(const QString &id);
    // Takes all rows below out; they wait for their parents.
    void putChildrenAside(quint32 number);

    void renumber(quint32 number, size_t from);

private:
    static constexpr quintptr PlaceholderBit = 0x80000000;

    struct WaitingList
    {
        QString parentId;
        std::vector<quint32> nodes; // some have left: their parent is another
    };

    std::deque<OrgTreeNode> m_nodes; // the root first
    std::deque<OrgTreeBranch> m_branches;
    OrgIdIndex m_index;
    std::deque<WaitingList> m_waiting;
    QHash<QString, quint32> m_waitingFor;
    bool m_isCut = false;
};
