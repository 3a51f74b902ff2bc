#include "virtualteam/virtualteamsearchresultlistview.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/skinmenu.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/paneactions.h"
#include "virtualteam/teamsearchmodel.h"
#include "virtualteam/virtualteamsearchresultdelegate.h"

#include <QContextMenuEvent>

#include <utility>

VirtualTeamSearchResultListView::VirtualTeamSearchResultListView(SearchBox *box,
                                                                 TeamSearchModel *model,
                                                                 QWidget *parent)
    : FoundList(box, model, TeamRowRole::Name, parent), m_model(model)
{
    setObjectName(QStringLiteral("VirtualTeamSearchResultListView"));
    setItemDelegate(new VirtualTeamSearchResultDelegate(this));
    setSelectionMode(SingleSelection);
    connect(this, &RowView::activatedRow, this, &VirtualTeamSearchResultListView::choose);
    makeMenu();
}

void VirtualTeamSearchResultListView::choose(const QModelIndex &index)
{
    if (!index.isValid()) {
        LOG_ERROR("item is null");
        return;
    }
    const TeamHit hit = m_model->at(index.row());
    emit memberChosen(hit.vtId, hit.member.userId);
    emit signal_expendVirtualTeam(hit.vtId);
}

// --- Menu --------------------------------------------------------------------------

void VirtualTeamSearchResultListView::makeMenu()
{
    m_menu = new SkinMenu(QStringLiteral("teamSearchMenu"), this);
    for (const char *key : {"invitechat", "viewdetail", "locateFound"})
        m_menu->addKey(key);
    connect(m_menu, &QMenu::triggered, this, &VirtualTeamSearchResultListView::selectAction);
}

void VirtualTeamSearchResultListView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    const QPoint position = menuPosition(*event);
    const QModelIndex index = indexAt(position);
    if (!index.isValid())
        return;
    const TeamHit &hit = m_model->at(index.row());
    m_menuTeam = hit.vtId;
    m_menuUser = hit.member.userId;
    const bool isOwn = m_menuUser == ctx().userId();
    const PaneActions *actions = paneActions();
    m_menu->action("invitechat")->setVisible(!isOwn && ctx().hasRight(ApplicationContext::Chat));
    m_menu->action("viewdetail")->setVisible(actions && actions->canOpenContactDetail());
    popUp(m_menu, position);
}

// Each the last thing that is done: the host may take the view away in answer.
void VirtualTeamSearchResultListView::selectAction(QAction *action)
{
    const QString team = m_menuTeam;
    const QString user = m_menuUser;
    PaneActions *actions = paneActions();
    if (action == m_menu->action("locateFound")) {
        emit memberChosen(team, user);
        emit signal_expendVirtualTeam(team);
    } else if (action == m_menu->action("invitechat")) {
        FriendUIEventProcess::openChat(makeJid(user), MessageData::Person);
    } else if (actions && action == m_menu->action("viewdetail")) {
        if (user == ctx().userId())
            actions->openOwnDetail();
        else
            actions->openContactDetail(makeJid(user));
    }
}

// --- Mouse -------------------------------------------------------------------------

void VirtualTeamSearchResultListView::mousePressEvent(QMouseEvent *event)
{
    m_pressedRow = event->button() == Qt::LeftButton ? indexAt(event->pos()) : QModelIndex();
    FoundList::mousePressEvent(event);
}

void VirtualTeamSearchResultListView::mouseReleaseEvent(QMouseEvent *event)
{
    const QPersistentModelIndex pressed = std::exchange(m_pressedRow, QPersistentModelIndex());
    FoundList::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && pressed.isValid() && pressed == indexAt(event->pos()))
        choose(pressed);
}

// The first of the two clicks has led to the team.
void VirtualTeamSearchResultListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
}
