#include "org/orgtreerows.h"

#include <algorithm>

OrgTreeRows::OrgTreeRows()
{
    clear(QString());
}

void OrgTreeRows::clear(const QString &rootId)
{
    m_nodes.clear();
    m_branches.clear();
    m_index.clear();
    m_waiting.clear();
    m_waitingFor.clear();
    m_isCut = false;
    m_nodes.emplace_back();
    m_nodes.front().id = rootId;
    m_nodes.front().isAttached = 1;
    branch(Root);
}

quint32 OrgTreeRows::find(const QString &id) const
{
    if (id == rootId())
        return Root;
    return m_index.find(id,
                        [this](quint32 number) -> const QString & { return m_nodes[number].id; });
}

quint32 OrgTreeRows::append(const QString &id)
{
    const auto number = quint32(m_nodes.size());
    m_nodes.emplace_back();
    m_nodes.back().id = id;
    m_index.add(number, [this](quint32 known) -> const QString & { return m_nodes[known].id; });
    return number;
}

OrgTreeBranch &OrgTreeRows::branch(quint32 number)
{
    OrgTreeNode &owner = m_nodes[number];
    if (owner.branch == OrgTreeNode::NoBranch) {
        owner.branch = quint32(m_branches.size()) & OrgTreeNode::NoBranch;
        m_branches.emplace_back();
    }
    return m_branches[owner.branch];
}

const OrgTreeBranch *OrgTreeRows::branchOf(quint32 number) const
{
    const quint32 branch = m_nodes[number].branch;
    return branch == OrgTreeNode::NoBranch ? nullptr : &m_branches[branch];
}

int OrgTreeRows::rowCount(quint32 number) const
{
    const OrgTreeBranch *branch = branchOf(number);
    return branch ? int(branch->rows.size()) + (branch->hasPlaceholder ? 1 : 0) : 0;
}

bool OrgTreeRows::isShown(quint32 number) const
{
    const OrgTreeNode &node = m_nodes[number];
    if (!node.isAttached || number == Root)
        return false;
    const OrgTreeBranch *siblings = branchOf(node.parent);
    return siblings && node.row < siblings->rows.size() && siblings->rows[node.row] == number;
}

bool OrgTreeRows::canHold(quint32 number)
{
    const OrgTreeNode &node = m_nodes[number];
    if (!node.isAttached || node.isEmployee)
        return false;
    const bool isFull = depth(number) >= MaximumDepth;
    m_isCut = m_isCut || isFull;
    return !isFull;
}

quint32 OrgTreeRows::holder(const QString &id)
{
    const quint32 number = id.isEmpty() ? Root : find(id);
    return number != None && canHold(number) ? number : None;
}

int OrgTreeRows::depth(quint32 number) const
{
    int depth = 0;
    for (; number != Root; number = m_nodes[number].parent)
        ++depth;
    return depth;
}

int OrgTreeRows::height(quint32 number) const
{
    std::vector<quint32> level{number}, below;
    int height = 0;
    for (; !level.empty(); level.swap(below), ++height) {
        below.clear();
        for (const quint32 upper : level) {
            if (const OrgTreeBranch *branch = branchOf(upper))
                below.insert(below.end(), branch->rows.begin(), branch->rows.end());
        }
    }
    return height;
}

bool OrgTreeRows::isAtOrAbove(quint32 upper, quint32 lower) const
{
    while (lower != upper && lower != Root)
        lower = m_nodes[lower].parent;
    return lower == upper;
}

const QString &OrgTreeRows::parentId(quint32 number) const
{
    const OrgTreeNode &node = m_nodes[number];
    return node.isAttached ? m_nodes[node.parent].id : m_waiting[node.parent].parentId;
}

void OrgTreeRows::waitFor(quint32 number, const QString &parentId)
{
    const auto at = m_waitingFor.constFind(parentId);
    const quint32 list = at == m_waitingFor.constEnd() ? quint32(m_waiting.size()) : *at;
    if (at == m_waitingFor.constEnd()) {
        m_waitingFor.insert(parentId, list);
        m_waiting.push_back({parentId, {}});
    }
    m_waiting[list].nodes.push_back(number);
    m_nodes[number].isAttached = 0;
    m_nodes[number].parent = list;
}

std::vector<quint32> OrgTreeRows::takeWaiting(const QString &id)
{
    const auto at = m_waitingFor.constFind(id);
    if (at == m_waitingFor.constEnd())
        return {};
    const quint32 list = *at;
    std::vector<quint32> waiting = std::exchange(m_waiting[list].nodes, {});
    const auto hasLeft = [this, list](quint32 number) {
        return m_nodes[number].isAttached || m_nodes[number].parent != list;
    };
    waiting.erase(std::remove_if(waiting.begin(), waiting.end(), hasLeft), waiting.end());
    return waiting;
}

void OrgTreeRows::putChildrenAside(quint32 number)
{
    std::vector<quint32> parents{number};
    while (!parents.empty()) {
        const quint32 parent = parents.back();
        parents.pop_back();
        if (!branchOf(parent))
            continue;
        OrgTreeBranch &below = branch(parent);
        below.hasPlaceholder = false;
        for (const quint32 child : std::exchange(below.rows, {})) {
            waitFor(child, m_nodes[parent].id);
            parents.push_back(child);
        }
    }
}

void OrgTreeRows::renumber(quint32 number, size_t from)
{
    const std::vector<quint32> &rows = branch(number).rows;
    for (size_t row = from; row < rows.size(); ++row)
        m_nodes[rows[row]].row = quint32(row);
}
