#include "contacts/latest/latestview.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "contacts/latest/latestdelegate.h"
#include "contacts/latest/latestmodel.h"
#include "contacts/latest/latestroles.h"
#include "controls/skinmenu.h"
#include "controls/tipbox.h"
#include "http/fileservices.h"
#include "http/httpmgr.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduisignalsender.h"
#include "plugin/paneactions.h"

#include <QContextMenuEvent>

namespace {
MessageData::Kind kindOf(const QModelIndex &index)
{
    return MessageData::Kind(index.data(LatestRole::Kind).toInt());
}

QString jidOf(const QModelIndex &index)
{
    return index.data(LatestRole::Id).toString();
}
} // namespace

LatestView::LatestView(LatestModel *model, QWidget *parent)
    : RowView(model, LatestRole::Name, parent), m_model(model)
{
    setObjectName(QStringLiteral("LatestView"));
    setItemDelegate(new LatestDelegate(this));
    setUpMenu();
    connect(&PictureFiles::instance(), &PictureFiles::ready, viewport(),
            QOverload<>::of(&QWidget::update));
    connect(this, &RowView::orderHeld, this, [model](bool held) { model->setOrderFrozen(held); });
    connect(this, &RowView::activatedRow, this, &LatestView::slot_openChat);
}

void LatestView::setUpMenu()
{
    m_menu = new SkinMenu(QStringLiteral("latestMenu"), this);
    m_menu->addKey("invitechat");
    m_menu->addKey("setGroupToppest");
    m_menu->addKey("cancelGroupToppest");
    m_settingMenu = m_menu->addSubMenu("messageSetting");
    m_settingMenu->addKey("reciveremind")->setCheckable(true);
    m_settingMenu->addKey("recivenoremind")->setCheckable(true);
    m_menu->addSeparator();
    m_menu->addKey("viewdetail");
    m_menu->addKey("locateEntry");
    m_menu->addSeparator();
    m_menu->addKey("removeLatest");
    m_menu->addKey("clearLatest");
    connect(m_menu, &QMenu::triggered, this, &LatestView::slot_menuClick);
    connect(m_settingMenu, &QMenu::triggered, this, &LatestView::slot_messageSetting);
}

void LatestView::prepareMenu(const QModelIndex &index)
{
    m_menuJid = jidOf(index);
    const bool pinned = index.data(LatestRole::Pinned).toBool();
    const MessageData::Kind kind = kindOf(index);
    const PaneActions *actions = paneActions();
    m_menu->action("invitechat")->setVisible(ctx().hasRight(ApplicationContext::Chat));
    m_menu->action("setGroupToppest")->setVisible(!pinned);
    m_menu->action("cancelGroupToppest")->setVisible(pinned);
    m_settingMenu->menuAction()->setVisible(kind == MessageData::Room);
    const bool silent = ctx().sessionNotify(m_menuJid) != 0;
    for (const char *key : {"reciveremind", "recivenoremind"})
        m_settingMenu->action(key)->setEnabled(isOnline());
    m_settingMenu->action("reciveremind")->setChecked(!silent);
    m_settingMenu->action("recivenoremind")->setChecked(silent);
    m_menu->action("viewdetail")->setVisible(kind == MessageData::Person && actions);
    m_menu->action("viewdetail")->setEnabled(actions && actions->canOpenContactDetail());
    // Not a group chat that the user has left, whose conversation stays.
    MucData room;
    const bool isThere = kind != MessageData::Room || ctx().mucData(m_menuJid, &room);
    m_menu->action("locateEntry")->setEnabled(actions && isThere);
}

void LatestView::contextMenuEvent(QContextMenuEvent *event)
{
    const QPoint place = menuPosition(*event);
    const QModelIndex index = indexAt(place);
    if (!index.isValid())
        return;
    prepareMenu(index);
    popUp(m_menu, place);
}

void LatestView::keyPressEvent(QKeyEvent *event)
{
    const QString jid = jidOf(currentIndex());
    if (event->key() == Qt::Key_Delete && !jid.isEmpty()) {
        emit FriendUISignalSender::instance()->signal_removelatest(jid);
        return;
    }
    RowView::keyPressEvent(event);
}

QString LatestView::cardJid(const QModelIndex &index) const
{
    return kindOf(index) == MessageData::Person ? jidOf(index) : QString();
}

void LatestView::slot_openChat(const QModelIndex &index)
{
    LOG_SCOPE("LatestView::slot_openChat(const QModelIndex &index)");
    if (index.isValid() && ctx().hasRight(ApplicationContext::Chat))
        FriendUIEventProcess::openChat(jidOf(index), kindOf(index));
}

void LatestView::slot_menuClick(QAction *action)
{
    LOG_SCOPE("LatestView::slot_menuClick(QAction* action)");
    if (action == m_menu->action("clearLatest")) {
        askToClear();
        return;
    }
    // By the jid: the row may have moved, or gone, while the menu was open.
    const QString jid = m_menuJid;
    const QModelIndex index = m_model->indexOf(jid);
    if (!index.isValid()) {
        LOG_DEBUG("the conversation of the menu is gone");
        return;
    }
    PaneActions *actions = paneActions();
    FriendUISignalSender *hub = FriendUISignalSender::instance();
    if (action == m_menu->action("invitechat")) {
        slot_openChat(index);
    } else if (action == m_menu->action("setGroupToppest") ||
               action == m_menu->action("cancelGroupToppest")) {
        FriendUIEventProcess::pinConversation(jid, action == m_menu->action("setGroupToppest"));
    } else if (action == m_menu->action("viewdetail") && actions) {
        actions->openContactDetail(jid);
    } else if (action == m_menu->action("locateEntry")) {
        locate(index);
    } else if (action == m_menu->action("removeLatest")) {
        emit hub->signal_removelatest(jid);
    }
}

void LatestView::slot_messageSetting(QAction *action)
{
    LOG_SCOPE("LatestView::slot_messageSetting(QAction* action)");
    // The mark follows the answer, not the click.
    action->setChecked(!action->isChecked());
    if (isOnline())
        HttpMgr::instance()->setSessionMsgConfig(m_menuJid,
                                                 action == m_settingMenu->action("recivenoremind"));
}

void LatestView::askToClear()
{
    TipBox::ask(this, QObject::tr("confirmClearLatest"),
                [] { emit FriendUISignalSender::instance()->signal_clearlatest(); });
}

void LatestView::locate(const QModelIndex &index)
{
    PaneActions *actions = paneActions();
    if (!actions)
        return;
    const QString jid = jidOf(index);
    FriendData contact;
    switch (kindOf(index)) {
    case MessageData::Person:
        if (ctx().friendData(jid, &contact))
            actions->locateContact(jid);
        else
            actions->locateInOrganisation(jidUser(jid), false);
        break;
    case MessageData::Room:
        actions->locateRoom(jid);
        break;
    case MessageData::ServiceNumber:
        actions->openServiceNumber(jidUser(jid));
        break;
    case MessageData::Channel:
        actions->locateChannel(jid);
        break;
    case MessageData::System:
        break;
    }
}
