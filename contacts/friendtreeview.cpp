#include "contacts/friendtreeview.h"

#include "common/desktopshortcut.h"
#include "common/logging.h"
#include "contacts/friendcommands.h"
#include "contacts/friendtreedelegate.h"
#include "contacts/friendtreemodel.h"
#include "contacts/grouplabel.h"
#include "contacts/grouplabels.h"
#include "controls/mydrag.h"
#include "controls/typefinder.h"
#include "http/fileservices.h"

#include <QKeyEvent>

namespace {
constexpr int GroupTimeOutMs = 10000;
} // namespace

FriendTreeView::FriendTreeView(FriendTreeModel *model, bool inner, QWidget *parent)
    : RowView(model, FriendTreeRole::Name, parent),
      m_model(model),
      m_inner(inner),
      m_commands(new FriendCommands(model, inner, this)),
      m_labels(new GroupLabels(this))
{
    setObjectName(QStringLiteral("FriendTreeView"));
    setItemDelegate(new FriendTreeDelegate(this));
    setSelectionMode(ExtendedSelection);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDragDropMode(DragDrop);
    setDropIndicatorShown(false);
    setAutoScroll(true);
    setUpMenus();

    m_groupTimeOut.setSingleShot(true);
    m_groupTimeOut.setInterval(GroupTimeOutMs);

    connect(&PictureFiles::instance(), &PictureFiles::ready, viewport(),
            QOverload<>::of(&QWidget::update));
    connect(&m_groupTimeOut, &QTimer::timeout, this, &FriendTreeView::slot_loadGroupTimeOut);
    connect(this, &RowView::orderHeld, model, &FriendTreeModel::setOrderFrozen);
    connect(this, &RowView::activatedRow, this, &FriendTreeView::activate);
    connect(this, &QTreeView::clicked, this, &FriendTreeView::slot_click);
    connect(this, &QTreeView::expanded, this, &FriendTreeView::slot_expanded);
    connect(this, &QTreeView::collapsed, this, &FriendTreeView::slot_collapsed);
    connect(model, &FriendTreeModel::groupOfContactChanged, this, &FriendTreeView::leaveClosedGroup,
            Qt::QueuedConnection);
    connect(m_labels, &GroupLabels::labelMade, this, [this](GroupLabel *label) {
        connect(label, &GroupLabel::signal_clickgroup, this, &FriendTreeView::slot_clickLabel);
        connect(label, &GroupLabel::signal_mousepress, this, &FriendTreeView::slot_labelpress);
        connect(label, &GroupLabel::signal_contextMenu, this, &FriendTreeView::slot_contextMenu);
        connect(label, &GroupLabel::signal_dropPos, this, &FriendTreeView::slot_dropEvent);
    });
}

FriendTreeView::~FriendTreeView()
{
    // The drag's event loop goes on using it.
    if (m_drag) {
        m_drag->setParent(nullptr);
        QDrag::cancel();
    }
}

// --- Layout ------------------------------------------------------------------

void FriendTreeView::doItemsLayout()
{
    RowView::doItemsLayout();
    m_labels->sync();
}

void FriendTreeView::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                 const QVector<int> &roles)
{
    RowView::dataChanged(topLeft, bottomRight, roles);
    for (int row = topLeft.row(); row <= bottomRight.row() && !topLeft.parent().isValid(); ++row) {
        if (GroupLabel *label = m_labels->labelOf(m_model->index(row, 0)))
            label->refresh();
    }
}

void FriendTreeView::resizeEvent(QResizeEvent *event)
{
    RowView::resizeEvent(event);
    m_labels->sync();
}

void FriendTreeView::scrollContentsBy(int dx, int dy)
{
    RowView::scrollContentsBy(dx, dy);
    m_labels->sync();
}

void FriendTreeView::leaveClosedGroup()
{
    const QModelIndex group = currentIndex().parent();
    if (group.isValid() && !isExpanded(group))
        selectionModel()->setCurrentIndex(group, QItemSelectionModel::ClearAndSelect);
}

void FriendTreeView::slot_expanded(QModelIndex expandedIndex)
{
    LOG_SCOPE("FriendTreeView::slot_expanded(QModelIndex expandedIndex)");
    m_labels->sync();
    emit signal_isexpand(true, expandedIndex.data(FriendTreeRole::Name).toString());
}

void FriendTreeView::slot_collapsed(QModelIndex collapsedIndex)
{
    LOG_SCOPE("FriendTreeView::slot_collapsed(QModelIndex collapsedIndex)");
    m_labels->sync();
    emit signal_isexpand(false, collapsedIndex.data(FriendTreeRole::Name).toString());
}

// --- Selection and activation ------------------------------------------------

bool FriendTreeView::isGroup(const QModelIndex &index) const
{
    return index.isValid() && !index.parent().isValid();
}

QStringList FriendTreeView::selectedContacts() const
{
    QStringList jids;
    const QModelIndexList rows = selectionModel()->selectedRows();
    for (const QModelIndex &row : rows) {
        if (!isGroup(row))
            jids.append(row.data(FriendTreeRole::Id).toString());
    }
    return jids;
}

void FriendTreeView::slot_click(QModelIndex index)
{
    LOG_SCOPE("FriendTreeView::slot_click(QModelIndex index)");
    finder()->clear();
    if (index.isValid() && !isGroup(index))
        emit signal_stopactive(index.data(FriendTreeRole::Id).toString());
}

void FriendTreeView::activate(const QModelIndex &index)
{
    if (isGroup(index)) {
        setExpanded(index, !isExpanded(index));
        return;
    }
    if (!index.isValid())
        return;
    const QString jid = index.data(FriendTreeRole::Id).toString();
    emit signal_stopactive(jid);
    m_commands->openChat(jid);
}

void FriendTreeView::slot_labelpress()
{
    LOG_SCOPE("FriendTreeView::slot_labelpress()");
    const auto *label = qobject_cast<GroupLabel *>(sender());
    if (!label || !label->index().isValid())
        return;
    setFocus(Qt::MouseFocusReason);
    finder()->clear();
    selectionModel()->setCurrentIndex(label->index(), QItemSelectionModel::ClearAndSelect);
}

void FriendTreeView::slot_clickLabel()
{
    LOG_SCOPE("FriendTreeView::slot_clickLabel()");
    const auto *label = qobject_cast<GroupLabel *>(sender());
    if (label && label->index().isValid())
        activate(label->index());
}

void FriendTreeView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    RowView::currentChanged(current, previous);
    m_labels->showStates();
    emit signal_selectionChanged(current);
}

void FriendTreeView::selectionChanged(const QItemSelection &selected,
                                      const QItemSelection &deselected)
{
    RowView::selectionChanged(selected, deselected);
    m_labels->showStates();
}

void FriendTreeView::focusInEvent(QFocusEvent *event)
{
    RowView::focusInEvent(event);
    m_labels->showStates();
}

void FriendTreeView::focusOutEvent(QFocusEvent *event)
{
    RowView::focusOutEvent(event);
    m_labels->showStates();
}

// --- Keys --------------------------------------------------------------------

void FriendTreeView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex current = currentIndex();
    const QString id = current.data(FriendTreeRole::Id).toString();
    switch (event->key()) {
    case Qt::Key_F2:
        if (isGroup(current))
            m_commands->renameGroup(id);
        else if (current.isValid())
            m_commands->changeRemark(id);
        return;
    case Qt::Key_Delete:
        if (isGroup(current))
            m_commands->deleteGroup(id);
        else
            m_commands->deleteContacts(selectedContacts());
        return;
    default:
        RowView::keyPressEvent(event);
    }
}

// --- Loading -----------------------------------------------------------------

void FriendTreeView::waitForGroups()
{
    m_groupTimeOut.start();
    emit waitingForGroups(true);
}

void FriendTreeView::groupsArrived()
{
    m_groupTimeOut.stop();
    emit waitingForGroups(false);
}

void FriendTreeView::slot_getGroupAgain()
{
    LOG_SCOPE("FriendTreeView::slot_getGroupAgain()");
    waitForGroups();
    m_commands->refreshGroups();
}

void FriendTreeView::slot_loadGroupTimeOut()
{
    LOG_SCOPE("FriendTreeView::slot_loadGroupTimeOut()");
    emit signal_loadGroupTimeOut();
}

void FriendTreeView::setHideOffline(bool hide)
{
    m_hideOffline = hide;
}

void FriendTreeView::slot_signShow()
{
    LOG_SCOPE("FriendTreeView::slot_signShow()");
    showCard(currentIndex());
}

QString FriendTreeView::cardJid(const QModelIndex &index) const
{
    return isGroup(index) ? QString() : index.data(FriendTreeRole::Id).toString();
}

void FriendTreeView::slot_unsubscribeServiceFinished(QString strServiceCode, QString strGroupID,
                                                     bool bSuccess)
{
    // Service numbers have a page of their own; no row of this tree is one.
    LOG_DEBUG("FriendTreeView::slot_unsubscribeServiceFinished "
              << logText(strServiceCode) << " " << logText(strGroupID)
              << (bSuccess ? " true" : " false"));
}

// --- Desktop shortcuts ---------------------------------------------------------

void FriendTreeView::BuildShortCutToDesk(QString frdjid)
{
    LOG_SCOPE("FriendTreeView::BuildShortCutToDesk(QString frdjid)");
    if (!DesktopShortcut::create(frdjid))
        LOG_ERROR("the desktop shortcut of " << logText(frdjid) << " could not be made");
}

void FriendTreeView::RemoveShortCut(QString frdjid)
{
    LOG_SCOPE("FriendTreeView::RemoveShortCut(QString frdjid)");
    if (!DesktopShortcut::remove(frdjid))
        LOG_DEBUG("there is no desktop shortcut of " << logText(frdjid));
}
