// The steps of TeamTreeChanges: how the views are told.
#include "virtualteam/teamtreechanges.h"

#include <algorithm>

namespace {
// More runs of rows than this are gathered first, so that they come or go as one.
constexpr int MaximumRuns = 32;
} // namespace

QModelIndex TeamTreeChanges::index(TeamTreeNode *node) const
{
    if (!node || !node->above)
        return QModelIndex();
    return m_model->createIndex(node->row, 0, TeamTreeId::of(node, node->isMember()));
}

// One range for each branch with changed rows.
void TeamTreeChanges::announce(const Nodes &nodes)
{
    QHash<TeamTreeBranch *, std::pair<TeamTreeNode *, TeamTreeNode *>> ranges;
    for (TeamTreeNode *node : nodes) {
        auto range = ranges.find(node->above);
        if (range == ranges.end())
            range = ranges.insert(node->above, {node, node});
        if (node->row < range->first->row)
            range->first = node;
        if (node->row > range->second->row)
            range->second = node;
    }
    for (const auto &range : qAsConst(ranges))
        emit m_model->dataChanged(index(range.first), index(range.second));
}

// --- Coming and going --------------------------------------------------------------------

// `wanted` are listed rows of the branch and new nodes. What is not among them goes.
void TeamTreeChanges::bringTo(TeamTreeBranch *branch, const Nodes &wanted)
{
    removeUnlisted(branch);
    Nodes staying;
    staying.reserve(branch->rows.size());
    for (TeamTreeNode *node : wanted) {
        if (node->above)
            staying.push_back(node);
        node->isListed = false;
    }
    reorder({{branch, staying}});
    insertNew(branch, wanted);
}

void TeamTreeChanges::removeUnlisted(TeamTreeBranch *branch)
{
    const auto stays = [](const TeamTreeNode *node) { return node->isListed; };
    int runs = 0;
    for (size_t row = 0; row < branch->rows.size(); ++row)
        runs += !stays(branch->rows[row]) && (row == 0 || stays(branch->rows[row - 1]));
    if (runs > MaximumRuns) {
        Nodes gathered(branch->rows);
        std::stable_partition(gathered.begin(), gathered.end(), stays);
        reorder({{branch, gathered}});
    }
    for (size_t end = branch->rows.size(); end > 0; --end) {
        if (stays(branch->rows[end - 1]))
            continue;
        size_t first = end - 1;
        while (first > 0 && !stays(branch->rows[first - 1]))
            --first;
        removeRun(branch, first, end - first);
        end = first + 1;
    }
}

void TeamTreeChanges::removeRun(TeamTreeBranch *branch, size_t first, size_t count)
{
    m_model->beginRemoveRows(index(branch), int(first), int(first + count) - 1);
    const auto begin = branch->rows.begin() + std::ptrdiff_t(first);
    const Nodes leaving(begin, begin + std::ptrdiff_t(count));
    branch->rows.erase(begin, begin + std::ptrdiff_t(count));
    branch->renumber(first);
    m_model->endRemoveRows();
    for (TeamTreeNode *node : leaving) {
        if (node->isBranch()) {
            auto *gone = static_cast<TeamTreeBranch *>(node);
            m_unsettled.remove(gone);
            for (TeamTreeNode *lower : TeamTreeRows::below(gone)) {
                if (lower->isBranch())
                    m_unsettled.remove(static_cast<TeamTreeBranch *>(lower));
            }
        }
        m_rows->destroy(node);
    }
}

void TeamTreeChanges::insertNew(TeamTreeBranch *branch, const Nodes &wanted)
{
    Nodes added;
    int runs = 0;
    for (size_t row = 0; row < wanted.size(); ++row) {
        if (wanted[row]->above)
            continue;
        runs += row == 0 || wanted[row - 1]->above;
        added.push_back(wanted[row]);
    }
    if (added.empty())
        return;
    if (runs > MaximumRuns) {
        insertRun(branch, branch->rows.size(), added.data(), added.size());
        reorder({{branch, wanted}});
        return;
    }
    for (size_t row = 0; row < wanted.size(); ++row) {
        if (wanted[row]->above)
            continue;
        size_t end = row;
        while (end < wanted.size() && !wanted[end]->above)
            ++end;
        insertRun(branch, row, wanted.data() + row, end - row);
        row = end - 1;
    }
}

void TeamTreeChanges::insertRun(TeamTreeBranch *branch, size_t at, TeamTreeNode *const *first,
                                size_t count)
{
    m_model->beginInsertRows(index(branch), int(at), int(at + count) - 1);
    branch->rows.insert(branch->rows.begin() + std::ptrdiff_t(at), first, first + count);
    for (size_t i = 0; i < count; ++i)
        first[i]->above = branch;
    branch->renumber(at);
    m_model->endInsertRows();
}

// The members of one branch to the end of another.
void TeamTreeChanges::takeOver(TeamTreeBranch *target, TeamTreeBranch *source, const Nodes &leaving)
{
    QSet<const TeamTreeNode *> leaves;
    for (const TeamTreeNode *node : leaving)
        leaves.insert(node);
    Nodes gathered(source->rows);
    const auto first = std::stable_partition(
        gathered.begin(), gathered.end(),
        [&leaves](const TeamTreeNode *node) { return !leaves.contains(node); });
    const auto count = std::ptrdiff_t(leaving.size());
    int from = source->rows[size_t(first - gathered.begin())]->row;
    const auto [lowest, highest] =
        std::minmax_element(leaving.begin(), leaving.end(),
                            [](const auto *a, const auto *b) { return a->row < b->row; });
    const bool isOneRun = (*highest)->row - (*lowest)->row + 1 == int(count);
    if (isOneRun)
        from = (*lowest)->row;
    else
        reorder({{source, gathered}});
    m_model->beginMoveRows(index(source), from, from + int(count) - 1, index(target),
                           int(target->rows.size()));
    const auto begin = source->rows.begin() + from;
    target->rows.insert(target->rows.end(), begin, begin + count);
    source->rows.erase(begin, begin + count);
    for (TeamTreeNode *node : leaving) {
        auto *member = static_cast<TeamTreeMember *>(node);
        member->above = target;
        member->stand = member->place();
    }
    source->renumber(size_t(from));
    target->renumber(target->rows.size() - size_t(count));
    m_model->endMoveRows();
    showState(source);
}

// --- Order -------------------------------------------------------------------------------

void TeamTreeChanges::settle(const std::vector<TeamTreeBranch *> &branches)
{
    std::vector<Order> orders;
    orders.reserve(branches.size());
    for (TeamTreeBranch *branch : branches)
        orders.emplace_back(branch, TeamTreeOrder::settled(branch));
    reorder(std::move(orders));
}

// Each order has all the rows of its branch. However many rows change places, the
// views lay themselves out once.
void TeamTreeChanges::reorder(std::vector<Order> orders)
{
    const auto stands = [](const Order &order) { return order.first->rows == order.second; };
    orders.erase(std::remove_if(orders.begin(), orders.end(), stands), orders.end());
    if (orders.empty() ||
        (orders.size() == 1 && moveSingleRow(orders.front().first, orders.front().second)))
        return;
    QList<QPersistentModelIndex> parents;
    for (const Order &order : orders)
        parents.append(index(order.first));
    emit m_model->layoutAboutToBeChanged(parents, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = m_model->persistentIndexList();
    for (Order &order : orders) {
        order.first->rows.swap(order.second);
        order.first->renumber(0);
    }
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex &old : before)
        after.append(index(TeamTreeId::node(old.internalId())));
    m_model->changePersistentIndexList(before, after);
    emit m_model->layoutChanged(parents, QAbstractItemModel::VerticalSortHint);
}

// False, and nothing is done, when more than one row has to move.
bool TeamTreeChanges::moveSingleRow(TeamTreeBranch *branch, const Nodes &order)
{
    Nodes &rows = branch->rows;
    const auto first = std::mismatch(rows.begin(), rows.end(), order.begin()).first - rows.begin();
    const auto last =
        std::ptrdiff_t(rows.size()) - 1 -
        (std::mismatch(rows.rbegin(), rows.rend(), order.rbegin()).first - rows.rbegin());
    const auto begin = rows.begin() + first;
    const auto end = rows.begin() + last + 1;
    const bool goesDown = std::equal(begin + 1, end, order.begin() + first);
    const bool goesUp = std::equal(begin, end - 1, order.begin() + first + 1);
    if (!goesDown && !goesUp)
        return false;
    const int from = int(goesDown ? first : last);
    m_model->beginMoveRows(index(branch), from, from, index(branch),
                           int(goesDown ? last + 1 : first));
    if (goesDown)
        std::rotate(begin, begin + 1, end);
    else
        std::rotate(begin, end - 1, end);
    branch->renumber(size_t(first));
    m_model->endMoveRows();
    return true;
}
