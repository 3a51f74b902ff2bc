#include "virtualteam/cvirtualteamtreeview.h"

#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/mydrag.h"
#include "controls/typefinder.h"
#include "virtualteam/cvirtualteamtreedelegate.h"
#include "virtualteam/teamcommands.h"
#include "virtualteam/teamtreemodel.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

#include <utility>

namespace {
constexpr int OpenDelay = 700; // ms, of what is dragged over
} // namespace

CVirtualTeamTreeView::CVirtualTeamTreeView(QWidget *parent)
    : RowView(new TeamTreeModel, TeamRowRole::Name, parent),
      m_model(static_cast<TeamTreeModel *>(model())),
      m_commands(new TeamCommands(this))
{
    setObjectName(QStringLiteral("CVirtualTeamTreeView"));
    setAccessibleName(QObject::tr("virtureteam"));
    m_model->setParent(this);
    setItemDelegate(new CVirtualTeamTreeDelegate(this));
    setSelectionMode(ExtendedSelection);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDragDropMode(DragDrop);
    setDropIndicatorShown(false);
    setAutoScroll(true);
    m_openTimer.setSingleShot(true);
    m_openTimer.setInterval(OpenDelay);
    buildMenus();

    connect(&m_openTimer, &QTimer::timeout, this, [this] {
        if (m_toBeOpened.isValid())
            setExpanded(m_toBeOpened, true);
    });
    connect(this, &RowView::orderHeld, m_model, &TeamTreeModel::setOrderFrozen);
    connect(this, &RowView::activatedRow, this, &CVirtualTeamTreeView::activate);
    connect(this, &QTreeView::expanded, this, &CVirtualTeamTreeView::opened);
    connect(this, &QTreeView::clicked, this, [this](const QModelIndex &index) {
        finder()->clear();
        if (m_model->kind(index) == TeamRowKind::Failed)
            request(index.parent());
    });
    connect(m_model, &QAbstractItemModel::rowsMoved, this, &CVirtualTeamTreeView::leaveClosedBranch,
            Qt::QueuedConnection);
    followHub();
    followCommands();
}

CVirtualTeamTreeView::~CVirtualTeamTreeView()
{
    // The drag's event loop goes on using it.
    if (m_drag) {
        m_drag->setParent(nullptr);
        QDrag::cancel();
    }
}

// --- Loading -------------------------------------------------------------------------

void CVirtualTeamTreeView::opened(const QModelIndex &index)
{
    const QString vtId = m_model->team(index).vtId;
    const QString groupId = m_model->groupId(index);
    switch (m_model->childrenState(vtId, groupId)) {
    case TeamChildren::Loading:
        break;
    case TeamChildren::Loaded:
        if (m_model->isStale(vtId, groupId))
            request(index);
        break;
    case TeamChildren::NotAsked:
    case TeamChildren::Failed:
        request(index);
        break;
    }
}

void CVirtualTeamTreeView::request(const QModelIndex &group)
{
    const QString vtId = m_model->team(group).vtId;
    const QString groupId = m_model->groupId(group);
    m_model->setChildrenState(vtId, groupId, TeamChildren::Loading);
    emit signal_GetMembers(vtId, groupId);
}

void CVirtualTeamTreeView::expandTeam(const QString &vtId)
{
    const QPersistentModelIndex team = m_model->teamIndex(vtId);
    if (!team.isValid()) {
        LOG_ERROR("item is null");
        return;
    }
    setExpanded(team, true);
    reveal(team);
}

QList<QPair<QString, QString>> CVirtualTeamTreeView::expireClosedLevels(const QString &vtId)
{
    QList<QPair<QString, QString>> levels;
    m_model->expire(vtId);
    const QStringList groups = m_model->askedGroups(vtId);
    for (const QString &groupId : groups) {
        QModelIndex group = m_model->groupIndex(vtId, groupId);
        while (group.isValid() && isExpanded(group))
            group = group.parent();
        if (!group.isValid())
            levels.append({vtId, groupId});
    }
    return levels;
}

// The arrow keys go on from the level's own row when the row that told of it goes.
void CVirtualTeamTreeView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    const QModelIndex current = currentIndex();
    switch (m_model->kind(current)) {
    case TeamRowKind::Loading:
    case TeamRowKind::Failed:
    case TeamRowKind::Empty:
        if (current.isValid() && parent.isValid() && current.parent() == parent) {
            // A row that loads cannot be selected, though its level was opened from it.
            const QModelIndexList selected = selectionModel()->selectedRows();
            const bool isOnly = selected.isEmpty() || selected == QModelIndexList{current};
            selectionModel()->setCurrentIndex(parent, isOnly ? QItemSelectionModel::ClearAndSelect
                                                             : QItemSelectionModel::NoUpdate);
        }
        break;
    case TeamRowKind::Team:
    case TeamRowKind::Group:
    case TeamRowKind::Member:
        break;
    }
    RowView::rowsAboutToBeRemoved(parent, start, end);
}

void CVirtualTeamTreeView::leaveClosedBranch()
{
    QModelIndex closed;
    for (QModelIndex above = currentIndex().parent(); above.isValid(); above = above.parent()) {
        if (!isExpanded(above))
            closed = above;
    }
    if (closed.isValid())
        selectionModel()->setCurrentIndex(closed, QItemSelectionModel::ClearAndSelect);
}

void CVirtualTeamTreeView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        setAccessibleName(QObject::tr("virtureteam"));
        viewport()->update();
    }
    RowView::changeEvent(event);
}

// --- Keys and pointer ------------------------------------------------------------------

void CVirtualTeamTreeView::activate(const QModelIndex &index)
{
    switch (m_model->kind(index)) {
    case TeamRowKind::Team:
    case TeamRowKind::Group:
        toggle(index);
        break;
    case TeamRowKind::Member:
        openChatWith(index);
        break;
    case TeamRowKind::Failed:
        request(index.parent());
        break;
    case TeamRowKind::Loading:
    case TeamRowKind::Empty:
        break;
    }
}

QString CVirtualTeamTreeView::cardJid(const QModelIndex &index) const
{
    return m_model->kind(index) == TeamRowKind::Member
               ? makeJid(index.data(TeamRowRole::Id).toString())
               : QString();
}

bool CVirtualTeamTreeView::isOnCaret(const QModelIndex &index, QPoint pos) const
{
    using Delegate = CVirtualTeamTreeDelegate;
    const TeamRowKind kind = m_model->kind(index);
    return (kind == TeamRowKind::Team || kind == TeamRowKind::Group) &&
           Delegate::caretArea(visualRect(index), Delegate::depth(index), layoutDirection())
               .contains(pos);
}

bool CVirtualTeamTreeView::isOnSetting(const QModelIndex &index, QPoint pos) const
{
    return m_model->kind(index) == TeamRowKind::Team &&
           CVirtualTeamTreeDelegate::settingArea(visualRect(index), layoutDirection())
               .contains(pos);
}

void CVirtualTeamTreeView::mousePressEvent(QMouseEvent *event)
{
    finder()->clear();
    const QModelIndex index = indexAt(event->pos());
    const bool onCaret = isOnCaret(index, event->pos());
    m_pressTaken =
        event->button() == Qt::LeftButton && (onCaret || isOnSetting(index, event->pos()));
    if (!m_pressTaken) {
        RowView::mousePressEvent(event);
    } else if (onCaret) {
        toggle(index);
    } else {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        const QRect area =
            CVirtualTeamTreeDelegate::settingArea(visualRect(index), layoutDirection());
        openSettingMenu(index, QPoint(area.left(), area.bottom() + 1));
    }
}

void CVirtualTeamTreeView::mouseReleaseEvent(QMouseEvent *event)
{
    // The row under the pointer may be another one by now.
    if (!std::exchange(m_pressTaken, false))
        RowView::mouseReleaseEvent(event);
}

void CVirtualTeamTreeView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    // The first of the two clicks has done it, also on a row that was to be retried.
    const bool isDone = isOnCaret(index, event->pos()) || isOnSetting(index, event->pos()) ||
                        m_model->kind(index) == TeamRowKind::Loading;
    if (event->button() != Qt::LeftButton || !isDone)
        RowView::mouseDoubleClickEvent(event);
}

void CVirtualTeamTreeView::mouseMoveEvent(QMouseEvent *event)
{
    // The base class would take the move for a selection.
    if (m_pressTaken || m_dragDue)
        return;
    RowView::mouseMoveEvent(event);
    // The setting button shows whether the pointer is on it.
    if (event->buttons() == Qt::NoButton)
        viewport()->update(visualRect(indexAt(event->pos())));
}

void CVirtualTeamTreeView::keyPressEvent(QKeyEvent *event)
{
    // With "*" the base class would open, and so ask for, everything below at once.
    if (event->key() != Qt::Key_Asterisk && !runKey(event->key()))
        RowView::keyPressEvent(event);
}

void CVirtualTeamTreeView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    const QPoint pos = menuPosition(*event);
    openMenu(indexAt(pos), pos);
}

bool CVirtualTeamTreeView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const QModelIndex index = indexAt(help->pos());
        if (isOnSetting(index, help->pos())) {
            QToolTip::showText(
                help->globalPos(), toolTipText(QObject::tr("setting")), viewport(),
                CVirtualTeamTreeDelegate::settingArea(visualRect(index), layoutDirection()));
            return true;
        }
    }
    return RowView::viewportEvent(event);
}
