// Members of a team are dragged to another of its sub-groups.
#include "common/logging.h"
#include "controls/mydrag.h"
#include "controls/skin.h"
#include "virtualteam/cvirtualteamtreeview.h"
#include "virtualteam/teamcommands.h"
#include "virtualteam/teamrules.h"
#include "virtualteam/teamtreemodel.h"

#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace {
constexpr int FrameWidth = 2; // around what would take the drop
constexpr int FrameRadius = 4;
} // namespace

void CVirtualTeamTreeView::startDrag(Qt::DropActions)
{
    const CVirtualTeamSimpleInfo team = m_model->team(currentIndex());
    m_dragTeam = team.vtId;
    m_dragMembers.clear();
    const QModelIndexList rows = selectionModel()->selectedRows();
    for (const QModelIndex &row : rows) {
        if (m_model->kind(row) != TeamRowKind::Member)
            continue;
        // A part of what is selected would be a surprise.
        if (m_model->team(row).vtId != m_dragTeam)
            return;
        m_dragMembers.append(m_model->member(row).userId);
    }
    if (m_dragMembers.isEmpty() || !TeamRules::mayMove(team) || m_commands->isBusy(m_dragTeam))
        return;
    // Not from inside the mouse event: the view may be destroyed before the drag
    // ends, and the base class goes on with the event.
    m_dragDue = true;
    QMetaObject::invokeMethod(this, &CVirtualTeamTreeView::runDrag, Qt::QueuedConnection);
}

void CVirtualTeamTreeView::runDrag()
{
    m_dragDue = false;
    if (m_drag || !(QGuiApplication::mouseButtons() & Qt::LeftButton))
        return;
    m_drag = new MyDrag(this);
    const QModelIndex first = m_model->memberIndex(m_dragTeam, m_dragMembers.value(0));
    m_drag->showPeople(first.data().toString(), m_dragMembers.size());
    connect(m_drag, &MyDrag::signal_dropEnd, this, &CVirtualTeamTreeView::dropEnded);
    updateHold();
    const QPointer<CVirtualTeamTreeView> alive(this);
    m_drag->run();
    if (!alive)
        return;
    m_drag = nullptr;
    updateHold();
}

QModelIndex CVirtualTeamTreeView::dropTarget(QPoint pos) const
{
    const QModelIndex row = indexAt(pos);
    const CVirtualTeamSimpleInfo team = m_model->team(row);
    if (!row.isValid() || team.vtId != m_dragTeam || !TeamRules::mayMove(team) ||
        m_commands->isBusy(m_dragTeam))
        return QModelIndex();
    const QModelIndex target = m_model->groupIndex(m_dragTeam, m_model->groupId(row));
    const bool hasAll =
        std::all_of(m_dragMembers.begin(), m_dragMembers.end(), [&](const QString &userId) {
            const QModelIndex member = m_model->memberIndex(m_dragTeam, userId);
            return !member.isValid() || member.parent() == target;
        });
    return hasAll ? QModelIndex() : target;
}

void CVirtualTeamTreeView::setDropTarget(const QModelIndex &group, const QModelIndex &pointedAt)
{
    m_dropTarget = group;
    m_pointedAt = pointedAt;
    viewport()->update();
    const TeamRowKind kind = m_model->kind(pointedAt);
    const bool isClosed =
        (kind == TeamRowKind::Team || kind == TeamRowKind::Group) && !isExpanded(pointedAt);
    if (!isClosed || m_model->team(pointedAt).vtId != m_dragTeam) {
        m_openTimer.stop();
        m_toBeOpened = QModelIndex();
    } else if (m_toBeOpened != pointedAt) {
        m_toBeOpened = pointedAt;
        m_openTimer.start();
    }
}

void CVirtualTeamTreeView::dragEnterEvent(QDragEnterEvent *event)
{
    if (MyDrag::isFrom(event, viewport()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void CVirtualTeamTreeView::dragMoveEvent(QDragMoveEvent *event)
{
    // The base class scrolls near the edges; what it thinks of the drop is not asked.
    QTreeView::dragMoveEvent(event);
    const bool isOwn = MyDrag::isFrom(event, viewport());
    const QModelIndex target = isOwn ? dropTarget(event->pos()) : QModelIndex();
    setDropTarget(target, isOwn ? indexAt(event->pos()) : QModelIndex());
    if (target.isValid())
        event->acceptProposedAction();
    else
        event->ignore();
}

void CVirtualTeamTreeView::dragLeaveEvent(QDragLeaveEvent *event)
{
    setDropTarget(QModelIndex(), QModelIndex());
    QTreeView::dragLeaveEvent(event);
}

void CVirtualTeamTreeView::dropEvent(QDropEvent *event)
{
    setDropTarget(QModelIndex(), QModelIndex());
    event->ignore();
    if (!MyDrag::isFrom(event, viewport())) {
        LOG_DEBUG("event->source() == 0");
        return;
    }
    if (!m_drag || m_dragMembers.isEmpty()) {
        LOG_DEBUG("m_dragitem is null");
        return;
    }
    if (!indexAt(event->pos()).isValid()) {
        LOG_DEBUG("item is null");
        return;
    }
    const QModelIndex target = dropTarget(event->pos());
    if (!target.isValid())
        return;
    event->acceptProposedAction();
    m_drag->setTarget(m_model->groupId(target));
}

void CVirtualTeamTreeView::dropEnded(bool taken, const QString &groupId)
{
    setDropTarget(QModelIndex(), QModelIndex());
    const QStringList dragged = std::exchange(m_dragMembers, QStringList());
    const QModelIndex target = m_model->groupIndex(m_dragTeam, groupId);
    if (!taken)
        return;
    QStringList moved;
    for (const QString &userId : dragged) {
        const QModelIndex member = m_model->memberIndex(m_dragTeam, userId);
        if (member.isValid() && member.parent() != target)
            moved.append(userId);
    }
    if (target.isValid() && !moved.isEmpty())
        m_commands->moveMembersTo(m_dragTeam, groupId, moved);
}

void CVirtualTeamTreeView::paintEvent(QPaintEvent *event)
{
    RowView::paintEvent(event);
    if (!m_dropTarget.isValid())
        return;
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Skin::instance().colors().theme, FrameWidth));
    painter.drawRoundedRect(
        visualRect(m_dropTarget).adjusted(FrameWidth, FrameWidth, -FrameWidth, -FrameWidth),
        FrameRadius, FrameRadius);
}
