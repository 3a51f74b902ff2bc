// Rows that leave their department: for another one, or because their new parent is
// not known.
#include "org/orgtreechanges.h"

#include <algorithm>

// Department by department, so that each is renumbered once however many leave it.
void OrgTreeChanges::moveRows()
{
    std::vector<quint32> sources;
    QHash<quint32, std::vector<quint32>> leavingFrom;
    for (const quint32 number : m_leaving) {
        if (!m_rows->node(number).isAttached) {
            m_rows->waitFor(number, m_newParent.value(number));
            m_takenOut.push_back(number);
            continue;
        }
        std::vector<quint32> &leaving = leavingFrom[m_rows->node(number).parent];
        if (leaving.empty())
            sources.push_back(m_rows->node(number).parent);
        leaving.push_back(number);
    }
    placeTakenOut();
    for (const quint32 source : sources)
        leave(source, leavingFrom.value(source));
    m_leaving.clear();
    m_newParent.clear();
}

void OrgTreeChanges::leave(quint32 source, const std::vector<quint32> &leaving)
{
    const Departures going = departures(source, leaving);
    if (!going.empty())
        leaveInRuns(source, going);
    placeTakenOut();
    updatePlaceholder(source, false);
}

void OrgTreeChanges::placeTakenOut()
{
    for (const quint32 number : std::exchange(m_takenOut, {})) {
        const quint32 target = m_rows->holder(m_newParent.value(number));
        if (target != OrgTreeRows::None && !m_rows->node(number).isAttached)
            arrive(number, target);
    }
    insertArrivals();
}

void OrgTreeChanges::leaveInRuns(quint32 source, const Departures &going)
{
    int end = int(m_rows->branch(source).rows.size());
    if (areInARow(going))
        end = int(m_rows->node(going.back().node).row) + 1;
    else
        gatherAtTheEnd(source, going);
    // From behind, so that the places of the others stay.
    for (size_t last = going.size(); last > 0;) {
        size_t first = last - 1;
        while (first > 0 && going[first - 1].target == going[last - 1].target)
            --first;
        const int begin = end - int(last - first);
        if (going[first].target == OrgTreeRows::None)
            takeOutRun(source, begin, end - 1);
        else
            moveRun(source, begin, end - 1, going[first].target);
        end = begin;
        last = first;
    }
}

// Who really leaves, those with the same target together.
OrgTreeChanges::Departures OrgTreeChanges::departures(quint32 source,
                                                      const std::vector<quint32> &leaving)
{
    Departures going;
    for (const quint32 number : leaving) {
        const OrgTreeNode &node = m_rows->node(number);
        if (!node.isAttached || node.parent != source) {
            // Went with the department that it was in.
            if (!node.isAttached) {
                m_rows->waitFor(number, m_newParent.value(number));
                m_takenOut.push_back(number);
            }
            continue;
        }
        const quint32 target = m_rows->holder(m_newParent.value(number));
        if (target != source) {
            const bool fits = target != OrgTreeRows::None && mayMove(number, target);
            going.push_back({number, fits ? target : OrgTreeRows::None});
        }
    }
    const auto byTarget = [](const Departure &a, const Departure &b) {
        return a.target < b.target;
    };
    std::stable_sort(going.begin(), going.end(), byTarget);
    return going;
}

// Not below itself, and not where levels would appear or vanish.
bool OrgTreeChanges::mayMove(quint32 number, quint32 target) const
{
    if (!m_rows->canHold(target) || m_rows->isAtOrAbove(number, target))
        return false;
    const int depth = m_rows->depth(target) + 1;
    return depth == m_rows->depth(number) ||
           (!m_rows->isCut() && depth + m_rows->height(number) <= OrgTreeRows::MaximumDepth);
}

bool OrgTreeChanges::areInARow(const Departures &leaving) const
{
    const quint32 first = m_rows->node(leaving.front().node).row;
    for (size_t i = 0; i < leaving.size(); ++i) {
        if (m_rows->node(leaving[i].node).row != first + quint32(i))
            return false;
    }
    return true;
}

void OrgTreeChanges::gatherAtTheEnd(quint32 source, const Departures &leaving)
{
    const QList<QPersistentModelIndex> parents{index(source)};
    emit m_model->layoutAboutToBeChanged(parents, QAbstractItemModel::VerticalSortHint);
    std::vector<quint32> &rows = m_rows->branch(source).rows;
    for (const Departure &departure : leaving)
        rows[m_rows->node(departure.node).row] = OrgTreeRows::None;
    rows.erase(std::remove(rows.begin(), rows.end(), OrgTreeRows::None), rows.end());
    for (const Departure &departure : leaving)
        rows.push_back(departure.node);
    m_rows->renumber(source, 0);
    QModelIndexList before, after;
    const QModelIndexList persistent = m_model->persistentIndexList();
    for (const QModelIndex &held : persistent) {
        if (OrgTreeRows::isPlaceholder(held.internalId()))
            continue;
        const QModelIndex now = index(quint32(held.internalId()));
        if (now.row() != held.row()) {
            before.append(held);
            after.append(now);
        }
    }
    m_model->changePersistentIndexList(before, after);
    emit m_model->layoutChanged(parents, QAbstractItemModel::VerticalSortHint);
}

void OrgTreeChanges::moveRun(quint32 source, int first, int last, quint32 target)
{
    std::vector<quint32> &from = m_rows->branch(source).rows;
    const std::vector<quint32> moved(from.begin() + first, from.begin() + last + 1);
    // A move before this one may have put the target below, deeper or aside.
    for (const quint32 number : moved) {
        if (!mayMove(number, target)) {
            takeOutRun(source, first, last);
            return;
        }
    }
    OrgTreeBranch &to = m_rows->branch(target);
    removePlaceholder(target);
    const size_t at = to.rows.size();
    m_model->beginMoveRows(index(source), first, last, index(target), int(at));
    from.erase(from.begin() + first, from.begin() + last + 1);
    m_rows->renumber(source, size_t(first));
    to.rows.insert(to.rows.end(), moved.begin(), moved.end());
    for (const quint32 number : moved)
        m_rows->node(number).parent = target;
    m_rows->renumber(target, at);
    m_model->endMoveRows();
}

void OrgTreeChanges::takeOutRun(quint32 source, int first, int last)
{
    m_model->beginRemoveRows(index(source), first, last);
    std::vector<quint32> &rows = m_rows->branch(source).rows;
    const std::vector<quint32> taken(rows.begin() + first, rows.begin() + last + 1);
    rows.erase(rows.begin() + first, rows.begin() + last + 1);
    m_rows->renumber(source, size_t(first));
    for (const quint32 number : taken) {
        m_rows->putChildrenAside(number);
        m_rows->waitFor(number, m_newParent.value(number));
    }
    m_model->endRemoveRows();
    m_takenOut.insert(m_takenOut.end(), taken.begin(), taken.end());
}
