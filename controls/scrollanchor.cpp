#include "controls/scrollanchor.h"

#include <QScrollBar>
#include <QTreeView>

ScrollAnchor::ScrollAnchor(QTreeView *view, const QAbstractItemModel *model)
    : QObject(view), m_view(view)
{
    connect(model, &QAbstractItemModel::rowsAboutToBeInserted, this,
            [this](const QModelIndex &parent) {
                // No layout answers rows that are inserted out of sight.
                if (!parent.isValid() || m_view->isExpanded(parent))
                    hold();
            });
    connect(model, &QAbstractItemModel::layoutAboutToBeChanged, this, &ScrollAnchor::hold);
    connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, &ScrollAnchor::leaveRows);
    connect(model, &QAbstractItemModel::rowsAboutToBeMoved, this, &ScrollAnchor::leaveRows);
}

void ScrollAnchor::hold()
{
    // Once per layout: between the first change and the layout that answers it the
    // view cannot tell where its rows are.
    if (m_held)
        return;
    m_held = true;
    m_index = QModelIndex();
    // At the very top the view stays at the top, so that who comes is seen.
    if (m_view->verticalScrollBar()->value() == 0)
        return;
    m_index = m_view->indexAt(QPoint(0, 0));
    const QRect row = m_view->visualRect(m_index);
    m_top = row.top();
    m_rowHeight = row.height();
}

void ScrollAnchor::leaveRows(const QModelIndex &parent, int first, int last)
{
    hold();
    if (!m_index.isValid() || m_index.parent() != parent || m_index.row() < first ||
        m_index.row() > last)
        return;
    const QAbstractItemModel *model = m_view->model();
    const int away = m_index.row();
    if (last + 1 < model->rowCount(parent)) {
        m_index = model->index(last + 1, 0, parent);
        m_top += m_rowHeight * (last + 1 - away);
    } else if (first > 0) {
        m_index = model->index(first - 1, 0, parent);
        m_top -= m_rowHeight * (away - first + 1);
    } else {
        m_top -= m_rowHeight * (away + 1);
        m_index = parent;
    }
}

void ScrollAnchor::restore()
{
    if (!m_held)
        return;
    m_held = false;
    QScrollBar *bar = m_view->verticalScrollBar();
    if (m_index.isValid())
        bar->setValue(bar->value() + m_view->visualRect(m_index).top() - m_top);
    m_index = QModelIndex();
}
