// The menus of the friend tree and its drag and drop.
#include "common/context.h"
#include "common/desktopshortcut.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "contacts/friendcommands.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreeview.h"
#include "contacts/grouplabels.h"
#include "controls/mydrag.h"
#include "controls/tipbox.h"
#include "plugin/frienduisignalsender.h"
#include "plugin/paneactions.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScrollBar>

// --- Building ------------------------------------------------------------------

void FriendTreeView::setUpMenus()
{
    m_groupMenu = creatCommonGroupMenu();
    m_contactMenu = creatCommonSigaleMenu();
    m_nullMenu = creatNullGroupMenu();
    m_selectMoreMenu = creatSelectMoreMenu();
    verticalScrollBar()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(verticalScrollBar(), &QWidget::customContextMenuRequested, this,
            &FriendTreeView::slot_vScrollBarContextMenu);
}

SkinMenu *FriendTreeView::creatCommonGroupMenu()
{
    auto *menu = new SkinMenu(QStringLiteral("commonGroupMenu"), this);
    menu->addKey("newgroup");
    menu->addKey("delMuc");
    menu->addKey("renameMuc");
    menu->addSeparator();
    menu->addKey("createMuc");
    menu->addKey("sendFile");
    menu->addSeparator();
    menu->addKey("sendemail");
    connect(menu, &QMenu::triggered, this, &FriendTreeView::groupMenuClick);
    return menu;
}

SkinMenu *FriendTreeView::creatCommonSigaleMenu()
{
    auto *menu = new SkinMenu(QStringLiteral("commonSingleMenu"), this);
    menu->addKey("invitechat");
    menu->addKey("sendFile");
    connect(menu->addKey("sendemail"), &QAction::triggered, this, &FriendTreeView::slot_sendMail);
    menu->addKey("msgrecord");
    menu->addKey("viewdetail");
    menu->addKey(m_inner ? "delFriend" : "deleteMyFriend");
    menu->addKey("changeRemarkName");
    if (!m_inner)
        menu->addKey("addToBlacklist");
    menu->addSeparator();
    m_moveMenu = menu->addSubMenu("moveToGroup");
    menu->addKey("createDesktopShortcut");
    menu->addKey("removeDesktopShortcut");
    connect(menu, &QMenu::triggered, this, &FriendTreeView::menuClick);
    connect(m_moveMenu, &QMenu::triggered, this, &FriendTreeView::FriendMove);
    return menu;
}

SkinMenu *FriendTreeView::creatNullGroupMenu()
{
    auto *menu = new SkinMenu(QStringLiteral("nullGroupMenu"), this);
    menu->addKey("newgroup");
    menu->addKey("onlyShowOnlineUser")->setCheckable(true);
    menu->addKey("refreshFriendList");
    menu->addSeparator();
    menu->addKey("expandAll");
    menu->addKey("collapseAll");
    connect(menu, &QMenu::triggered, this, &FriendTreeView::slot_nullmenu);
    return menu;
}

SkinMenu *FriendTreeView::creatSelectMoreMenu()
{
    auto *menu = new SkinMenu(QStringLiteral("selectMoreMenu"), this);
    menu->addKey("createMuc");
    menu->addKey("sendFile");
    menu->addKey("sendemail");
    connect(menu, &QMenu::triggered, this, &FriendTreeView::slot_dMenu);
    return menu;
}

// --- Showing -------------------------------------------------------------------

void FriendTreeView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    slot_contextMenu(menuPosition(*event));
}

void FriendTreeView::slot_contextMenu(QPoint pos)
{
    LOG_SCOPE("FriendTreeView::slot_contextMenu(QPoint pos)");
    const QModelIndex index = indexAt(pos);
    const QStringList contacts = selectedContacts();
    if (!index.isValid()) {
        m_nullMenu->action("onlyShowOnlineUser")->setChecked(m_hideOffline);
        popUp(m_nullMenu, pos);
    } else if (isGroup(index)) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        prepareGroupMenu(index.data(FriendTreeRole::Id).toString());
        popUp(m_groupMenu, pos);
    } else if (contacts.size() > 1) {
        popUp(m_selectMoreMenu, pos);
    } else {
        prepareContactMenu(index.data(FriendTreeRole::Id).toString());
        popUp(m_contactMenu, pos);
    }
}

void FriendTreeView::slot_vScrollBarContextMenu(QPoint pos)
{
    LOG_SCOPE("FriendTreeView::slot_vScrollBarContextMenu(QPoint pos)");
    m_nullMenu->action("onlyShowOnlineUser")->setChecked(m_hideOffline);
    popUp(m_nullMenu, viewport()->mapFromGlobal(verticalScrollBar()->mapToGlobal(pos)));
}

void FriendTreeView::prepareGroupMenu(const QString &groupId)
{
    m_menuGroup = groupId;
    const bool editable = m_commands->isGroupEditable(groupId);
    m_groupMenu->action("delMuc")->setEnabled(editable);
    m_groupMenu->action("renameMuc")->setEnabled(editable);
    QStringList others = m_model->contactsOfGroup(groupId);
    others.removeAll(ctx().ownJid());
    for (const char *key : {"createMuc", "sendFile", "sendemail"})
        m_groupMenu->action(key)->setEnabled(!others.isEmpty());
}

void FriendTreeView::prepareContactMenu(const QString &jid)
{
    m_menuContact = jid;
    const bool other = jid != ctx().ownJid();
    for (const char *key : {"invitechat", "sendFile", "sendemail"})
        m_contactMenu->action(key)->setEnabled(other);
    m_contactMenu->action(m_inner ? "delFriend" : "deleteMyFriend")->setEnabled(other);
    m_contactMenu->action("changeRemarkName")->setEnabled(other);
    const PaneActions *actions = paneActions();
    m_contactMenu->action("viewdetail")->setEnabled(actions && actions->canOpenContactDetail());
    const bool hasShortcut = DesktopShortcut::exists(jid);
    m_contactMenu->action("createDesktopShortcut")->setVisible(!hasShortcut);
    m_contactMenu->action("removeDesktopShortcut")->setVisible(hasShortcut);
    m_moveMenu->menuAction()->setEnabled(other);
    fillMoveMenu(jid);
}

void FriendTreeView::fillMoveMenu(const QString &jid)
{
    m_moveMenu->clear();
    const QString own = m_model->groupOf(jid);
    const QList<GroupData> groups = m_model->groups();
    for (const GroupData &group : groups) {
        QAction *action = m_moveMenu->addAction(menuText(displayText(group.name)));
        action->setData(group.id);
        action->setEnabled(group.id != own);
    }
}

// --- Choosing ------------------------------------------------------------------

void FriendTreeView::groupMenuClick(QAction *action)
{
    LOG_SCOPE("FriendTreeView::groupMenuClick(QAction* action)");
    if (action == m_groupMenu->action("newgroup")) {
        m_commands->createGroup();
        return;
    }
    // The group may have been deleted while its menu was open.
    if (!m_model->hasGroup(m_menuGroup)) {
        LOG_DEBUG("the group of the menu is gone");
        return;
    }
    const QStringList contacts = m_model->contactsOfGroup(m_menuGroup);
    if (action == m_groupMenu->action("delMuc"))
        m_commands->deleteGroup(m_menuGroup);
    else if (action == m_groupMenu->action("renameMuc"))
        m_commands->renameGroup(m_menuGroup);
    else if (action == m_groupMenu->action("createMuc"))
        m_commands->createGroupChat(contacts);
    else if (action == m_groupMenu->action("sendFile"))
        m_commands->sendFile(contacts);
    else if (action == m_groupMenu->action("sendemail"))
        m_commands->writeMail(contacts);
}

void FriendTreeView::menuClick(QAction *action)
{
    LOG_SCOPE("FriendTreeView::menuClick(QAction* action)");
    if (!m_model->hasContact(m_menuContact)) {
        LOG_DEBUG("the contact of the menu is gone");
        return;
    }
    // "sendemail" has a connection of its own, to slot_sendMail().
    if (action == m_contactMenu->action("invitechat"))
        m_commands->openChat(m_menuContact);
    else if (action == m_contactMenu->action("sendFile"))
        m_commands->sendFile({m_menuContact});
    else if (action == m_contactMenu->action("msgrecord"))
        m_commands->openHistory(m_menuContact);
    else if (action == m_contactMenu->action("viewdetail"))
        m_commands->viewDetail(m_menuContact);
    else if (action == m_contactMenu->action(m_inner ? "delFriend" : "deleteMyFriend"))
        m_commands->deleteContact(m_menuContact);
    else if (action == m_contactMenu->action("changeRemarkName"))
        m_commands->changeRemark(m_menuContact);
    else if (!m_inner && action == m_contactMenu->action("addToBlacklist"))
        m_commands->blacklist(m_menuContact);
    else if (action == m_contactMenu->action("createDesktopShortcut"))
        BuildShortCutToDesk(m_menuContact);
    else if (action == m_contactMenu->action("removeDesktopShortcut"))
        RemoveShortCut(m_menuContact);
}

void FriendTreeView::slot_sendMail(bool)
{
    LOG_SCOPE("FriendTreeView::slot_sendMail(bool b)");
    if (m_model->hasContact(m_menuContact))
        m_commands->writeMail({m_menuContact});
}

void FriendTreeView::slot_nullmenu(QAction *action)
{
    LOG_SCOPE("FriendTreeView::slot_nullmenu(QAction* action)");
    if (action == m_nullMenu->action("newgroup")) {
        m_commands->createGroup();
    } else if (action == m_nullMenu->action("onlyShowOnlineUser")) {
        m_hideOffline = !m_hideOffline;
        emit FriendUISignalSender::instance()->signal_hidealloff(m_hideOffline, m_inner);
    } else if (action == m_nullMenu->action("refreshFriendList")) {
        slot_getGroupAgain();
    } else if (action == m_nullMenu->action("expandAll")) {
        emit signal_expandContact(true);
    } else if (action == m_nullMenu->action("collapseAll")) {
        emit signal_expandContact(false);
    }
}

void FriendTreeView::slot_dMenu(QAction *action)
{
    LOG_SCOPE("FriendTreeView::slot_dMenu(QAction* action)");
    const QStringList contacts = selectedContacts();
    if (action == m_selectMoreMenu->action("createMuc"))
        m_commands->createGroupChat(contacts);
    else if (action == m_selectMoreMenu->action("sendFile"))
        m_commands->sendFile(contacts);
    else if (action == m_selectMoreMenu->action("sendemail"))
        m_commands->writeMail(contacts);
}

void FriendTreeView::FriendMove(QAction *action)
{
    LOG_SCOPE("FriendTreeView::FriendMove(QAction* action)");
    m_commands->moveContacts({m_menuContact}, action->data().toString());
}

// --- Drag and drop -------------------------------------------------------------

QModelIndex FriendTreeView::groupAt(QPoint pos) const
{
    const QModelIndex index = indexAt(pos);
    return isGroup(index) ? index : index.parent();
}

void FriendTreeView::startDrag(Qt::DropActions)
{
    m_dragItems = selectedContacts();
    m_dragItems.removeAll(ctx().ownJid());
    if (m_dragItems.isEmpty())
        return;
    // Not from inside the mouse event: the view may be destroyed before the drag
    // ends, and the base class goes on with the event.
    m_dragDue = true;
    QMetaObject::invokeMethod(this, &FriendTreeView::runDrag, Qt::QueuedConnection);
}

void FriendTreeView::runDrag()
{
    m_dragDue = false;
    if (m_drag || !(QGuiApplication::mouseButtons() & Qt::LeftButton))
        return;
    m_drag = new MyDrag(this);
    m_drag->showPeople(currentIndex().data().toString(), m_dragItems.size());
    connect(m_drag, &MyDrag::signal_dropEnd, this, &FriendTreeView::slot_dropend);
    updateHold();
    const QPointer<FriendTreeView> alive(this);
    m_drag->run();
    if (alive) {
        m_drag = nullptr;
        updateHold();
    }
}

void FriendTreeView::mouseMoveEvent(QMouseEvent *event)
{
    // The base class would take the move for a selection.
    if (!m_dragDue)
        QTreeView::mouseMoveEvent(event);
}

void FriendTreeView::dragEnterEvent(QDragEnterEvent *event)
{
    if (MyDrag::isFrom(event, viewport()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void FriendTreeView::dragMoveEvent(QDragMoveEvent *event)
{
    // The base class scrolls near the edges; what it thinks of the drop is not asked.
    QTreeView::dragMoveEvent(event);
    const QModelIndex target = groupAt(event->pos());
    m_labels->setDropTarget(target);
    if (target.isValid() && MyDrag::isFrom(event, viewport()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void FriendTreeView::dragLeaveEvent(QDragLeaveEvent *event)
{
    m_labels->setDropTarget(QModelIndex());
    QTreeView::dragLeaveEvent(event);
}

void FriendTreeView::dropEvent(QDropEvent *event)
{
    m_labels->setDropTarget(QModelIndex());
    if (!MyDrag::isFrom(event, viewport())) {
        LOG_DEBUG("event->source() == 0");
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    slot_dropEvent(event->pos());
}

void FriendTreeView::slot_dropEvent(QPoint pos)
{
    LOG_SCOPE("FriendTreeView::slot_dropEvent(QPoint pos)");
    if (m_dragItems.isEmpty() || !m_drag) {
        LOG_DEBUG("m_dragitem is null");
        return;
    }
    const QModelIndex target = groupAt(pos);
    if (target.isValid())
        m_drag->setTarget(target.data(FriendTreeRole::Id).toString());
}

void FriendTreeView::slot_dropend(bool candrag, QString parameter)
{
    LOG_SCOPE("FriendTreeView::slot_dropend(bool candrag, QString parameter)");
    const QStringList contacts = std::exchange(m_dragItems, QStringList());
    m_labels->setDropTarget(QModelIndex());
    if (candrag)
        m_commands->moveContacts(contacts, parameter);
}
