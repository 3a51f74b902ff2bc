#include "virtualteam/dialogs/chosenmemberlist.h"

#include "common/displaytext.h"
#include "virtualteam/teamroles.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <utility>

ChosenMemberList::ChosenMemberList(QWidget *parent)
    : CVirtualTeamMemberListView(MemberListDelegate::Removable, parent)
{
    setObjectName(QStringLiteral("chosenMembers"));
}

QModelIndex ChosenMemberList::crossAt(const QPoint &position) const
{
    const QModelIndex row = indexAt(position);
    const bool isOnCross =
        row.isValid() &&
        MemberListDelegate::crossArea(visualRect(row), layoutDirection()).contains(position);
    return isOnCross ? row : QModelIndex();
}

void ChosenMemberList::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete && !event->isAutoRepeat() && currentIndex().isValid()) {
        emit signal_deleteItem(currentIndex().data(TeamRowRole::Id).toString());
        return;
    }
    CVirtualTeamMemberListView::keyPressEvent(event);
}

void ChosenMemberList::mousePressEvent(QMouseEvent *event)
{
    m_pressedCross = event->button() == Qt::LeftButton ? crossAt(event->pos()) : QModelIndex();
    CVirtualTeamMemberListView::mousePressEvent(event);
}

// A second quick click is meant for the cross of the row that has moved up.
void ChosenMemberList::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (crossAt(event->pos()).isValid())
        mousePressEvent(event);
    else
        CVirtualTeamMemberListView::mouseDoubleClickEvent(event);
}

void ChosenMemberList::mouseReleaseEvent(QMouseEvent *event)
{
    CVirtualTeamMemberListView::mouseReleaseEvent(event);
    const QPersistentModelIndex pressed = std::exchange(m_pressedCross, QPersistentModelIndex());
    if (pressed.isValid() && crossAt(event->pos()) == pressed)
        emit signal_deleteItem(pressed.data(TeamRowRole::Id).toString());
}

void ChosenMemberList::mouseMoveEvent(QMouseEvent *event)
{
    const bool isOnCross = crossAt(event->pos()).isValid();
    viewport()->setCursor(isOnCross ? Qt::PointingHandCursor : Qt::ArrowCursor);
    viewport()->update();
    CVirtualTeamMemberListView::mouseMoveEvent(event);
}

bool ChosenMemberList::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        if (crossAt(help->pos()).isValid()) {
            QToolTip::showText(help->globalPos(), QObject::tr("removeMember"), viewport());
            return true;
        }
    }
    return CVirtualTeamMemberListView::viewportEvent(event);
}
