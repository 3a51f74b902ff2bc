#include "contacts/grouplabels.h"

#include "contacts/friendtreeroles.h"
#include "contacts/grouplabel.h"

#include <QTreeView>

GroupLabels::GroupLabels(QTreeView *view) : QObject(view), m_view(view) {}

GroupLabel *GroupLabels::unused(int position)
{
    if (position < m_labels.size())
        return m_labels.at(position);
    auto *label = new GroupLabel(m_view->viewport());
    m_labels.append(label);
    emit labelMade(label);
    return label;
}

void GroupLabels::sync()
{
    const int bottom = m_view->viewport()->height();
    int used = 0;
    for (QModelIndex index = m_view->indexAt(QPoint(0, 0)); index.isValid();
         index = m_view->indexBelow(index)) {
        const QRect row = m_view->visualRect(index);
        if (row.top() > bottom)
            break;
        if (index.data(FriendTreeRole::Kind).toInt() != GroupRow)
            continue;
        GroupLabel *label = unused(used++);
        label->setGeometry(0, row.top(), m_view->viewport()->width(), row.height());
        if (label->index() != index)
            label->setIndex(index);
        else
            label->refresh();
        label->show();
    }
    for (; used < m_labels.size(); ++used)
        m_labels.at(used)->hide();
    showStates();
}

void GroupLabels::showStates()
{
    for (GroupLabel *label : qAsConst(m_labels)) {
        const QModelIndex index = label->index();
        if (label->isHidden() || !index.isValid())
            continue;
        const bool current = m_view->currentIndex() == index;
        label->setState(m_view->isExpanded(index), m_view->selectionModel()->isSelected(index),
                        current && m_view->hasFocus());
    }
}

GroupLabel *GroupLabels::labelOf(const QModelIndex &index) const
{
    for (GroupLabel *label : m_labels) {
        if (!label->isHidden() && label->index() == index)
            return label;
    }
    return nullptr;
}

void GroupLabels::setDropTarget(const QModelIndex &index)
{
    for (GroupLabel *label : m_labels)
        label->setDropTarget(index.isValid() && label->index() == index);
}
