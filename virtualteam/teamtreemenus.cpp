// The menus of the team tree and the keys that stand for their entries.
#include "common/context.h"
#include "common/logging.h"
#include "virtualteam/cvirtualteamtreeview.h"
#include "virtualteam/teamcommands.h"
#include "virtualteam/teammenu.h"
#include "virtualteam/teamrules.h"
#include "virtualteam/teamtreemodel.h"

namespace {

struct TeamCommand
{
    TeamAction action;
    void (TeamCommands::*command)(const CVirtualTeamSimpleInfo &);
};

struct SelectionCommand
{
    TeamAction action;
    void (TeamCommands::*command)(const TeamSelection &);
};

constexpr TeamCommand teamCommands[] = {
    {TeamAction::InviteCompany, &TeamCommands::inviteCompany},
    {TeamAction::Rename, &TeamCommands::renameTeam},
    {TeamAction::Leave, &TeamCommands::quit},
    {TeamAction::Dissolve, &TeamCommands::dissolve},
    {TeamAction::TransferAuthority, &TeamCommands::transferAuthority},
    {TeamAction::ChooseAdministrators, &TeamCommands::setAdministrators},
};
constexpr SelectionCommand selectionCommands[] = {
    {TeamAction::AddGroup, &TeamCommands::addGroup},
    {TeamAction::RenameGroup, &TeamCommands::renameGroup},
    {TeamAction::DeleteGroup, &TeamCommands::deleteGroup},
    {TeamAction::SetAdministrator, &TeamCommands::toggleAdministrator},
    {TeamAction::EditNickName, &TeamCommands::editNickName},
    {TeamAction::EditPost, &TeamCommands::editPost},
    {TeamAction::DeleteMember, &TeamCommands::deleteMembers},
    {TeamAction::DeleteMembers, &TeamCommands::deleteMembers},
    {TeamAction::MoveMembers, &TeamCommands::moveMembers},
    {TeamAction::Chat, &TeamCommands::openChat},
    {TeamAction::GroupChat, &TeamCommands::createGroupChat},
    {TeamAction::ViewProfile, &TeamCommands::viewDetail},
};

} // namespace

void CVirtualTeamTreeView::buildMenus()
{
    m_orgMenu = new TeamMenu(TeamMenu::Group, this);
    m_empMenu = new TeamMenu(TeamMenu::Member, this);
    m_multipMenu = new TeamMenu(TeamMenu::Several, this);
    m_settingMenu = new TeamMenu(TeamMenu::Setting, this);
    connect(m_orgMenu, &QMenu::triggered, this, &CVirtualTeamTreeView::slot_orgMenuClicked);
    connect(m_empMenu, &QMenu::triggered, this, &CVirtualTeamTreeView::slot_empMenuClicked);
    connect(m_multipMenu, &QMenu::triggered, this, &CVirtualTeamTreeView::slot_multipMenuClicked);
    connect(m_settingMenu, &QMenu::triggered, this, &CVirtualTeamTreeView::slot_settingMenuClicked);
    connect(m_commands, &TeamCommands::busyChanged, this, [this](const QString &vtId) {
        if (vtId != m_menuSubject.vtId)
            return;
        for (TeamMenu *menu : {m_orgMenu, m_empMenu, m_multipMenu, m_settingMenu})
            menu->setBusy(m_commands->isBusy(vtId));
    });
}

// --- What a menu is about ----------------------------------------------------------

TeamSubject CVirtualTeamTreeView::subjectOf(const QModelIndex &index, bool withSelection) const
{
    TeamSubject subject;
    subject.vtId = m_model->team(index).vtId;
    if (m_model->kind(index) != TeamRowKind::Member) {
        subject.groupId = m_model->groupId(index);
        return subject;
    }
    subject.members.append({subject.vtId, m_model->member(index).userId});
    if (!withSelection)
        return subject;
    const QModelIndexList selected = selectionModel()->selectedRows();
    for (const QModelIndex &row : selected) {
        const TeamSubject::Member member{m_model->team(row).vtId, m_model->member(row).userId};
        if (m_model->kind(row) == TeamRowKind::Member && !subject.members.contains(member))
            subject.members.append(member);
    }
    return subject;
}

TeamSelection CVirtualTeamTreeView::selectionOf(const TeamSubject &subject) const
{
    TeamSelection selection;
    selection.team = m_model->team(m_model->teamIndex(subject.vtId));
    if (subject.members.isEmpty()) {
        const QModelIndex group = m_model->groupIndex(subject.vtId, subject.groupId);
        selection.groupId = subject.groupId;
        if (subject.groupId != rootGroupId())
            selection.groupName = m_model->group(group).vtName;
        selection.level = m_model->level(group);
        return selection;
    }
    for (const auto &[vtId, userId] : subject.members) {
        const QModelIndex row = m_model->memberIndex(vtId, userId);
        if (!row.isValid())
            continue;
        selection.members.append(m_model->member(row));
        selection.groupId = m_model->groupId(row);
        if (vtId != subject.vtId) // nobody leads people of several teams
            selection.team.role = TeamRole::Member;
    }
    return selection;
}

bool CVirtualTeamTreeView::isThere(const TeamSubject &subject) const
{
    if (subject.members.isEmpty())
        return m_model->groupIndex(subject.vtId, subject.groupId).isValid();
    for (const auto &[vtId, userId] : subject.members) {
        if (m_model->memberIndex(vtId, userId).isValid())
            return true;
    }
    return false;
}

TeamActions CVirtualTeamTreeView::actionsFor(const TeamSubject &subject) const
{
    const TeamSelection selection = selectionOf(subject);
    if (!subject.members.isEmpty())
        return TeamRules::forMembers(selection, ctx().userId());
    TeamActions actions = TeamRules::forGroup(selection);
    if (subject.groupId == rootGroupId())
        actions |= TeamRules::forSettings(selection.team);
    return actions;
}

// --- Showing -----------------------------------------------------------------------

void CVirtualTeamTreeView::openMenu(const QModelIndex &index, const QPoint &position)
{
    TeamMenu *menu = nullptr;
    switch (m_model->kind(index)) {
    case TeamRowKind::Team:
    case TeamRowKind::Group:
        menu = m_orgMenu;
        break;
    case TeamRowKind::Member:
        menu = m_empMenu;
        break;
    case TeamRowKind::Loading:
    case TeamRowKind::Failed:
    case TeamRowKind::Empty:
        return;
    }
    const TeamSubject subject = subjectOf(index, true);
    if (subject.members.size() > 1)
        menu = m_multipMenu;
    m_empMenu->setDemotes(m_model->member(index).role == TeamRole::SubAdministrator);
    showMenu(menu, subject, position);
}

void CVirtualTeamTreeView::openSettingMenu(const QModelIndex &team, const QPoint &position)
{
    if (team.isValid())
        showMenu(m_settingMenu, subjectOf(team, false), position);
}

void CVirtualTeamTreeView::showMenu(TeamMenu *menu, const TeamSubject &subject,
                                    const QPoint &position)
{
    m_menuSubject = subject;
    menu->offer(actionsFor(subject), m_commands->isBusy(subject.vtId));
    if (!menu->isEmpty())
        popUp(menu, position);
}

// --- Choosing ----------------------------------------------------------------------

void CVirtualTeamTreeView::slot_orgMenuClicked(QAction *action)
{
    LOG_SCOPE("CVirtualTeamTreeView::slot_orgMenuClicked(QAction* action)");
    run(TeamMenu::actionOf(action), m_menuSubject);
}

void CVirtualTeamTreeView::slot_empMenuClicked(QAction *action)
{
    LOG_SCOPE("CVirtualTeamTreeView::slot_empMenuClicked(QAction* action)");
    const TeamAction chosen = TeamMenu::actionOf(action);
    const CVirtualTeamMemberInfo member = selectionOf(m_menuSubject).members.value(0);
    const bool isSub = member.role == TeamRole::SubAdministrator;
    // Somebody else was quicker: the entry does not say any more what would happen.
    if (chosen == TeamAction::SetAdministrator && isThere(m_menuSubject) &&
        isSub != m_empMenu->demotes())
        m_commands->refuse();
    else
        run(chosen, m_menuSubject);
}

void CVirtualTeamTreeView::slot_multipMenuClicked(QAction *action)
{
    LOG_SCOPE("CVirtualTeamTreeView::slot_multipMenuClicked(QAction* action)");
    run(TeamMenu::actionOf(action), m_menuSubject);
}

void CVirtualTeamTreeView::slot_settingMenuClicked(QAction *action)
{
    LOG_SCOPE("CVirtualTeamTreeView::slot_settingMenuClicked(QAction* action)");
    run(TeamMenu::actionOf(action), m_menuSubject);
}

void CVirtualTeamTreeView::openChatWith(const QModelIndex &member)
{
    if (m_model->kind(member) == TeamRowKind::Member)
        run(TeamAction::Chat, subjectOf(member, false));
}

// A row that was taken out of the selection stays the current one, but is not what the
// user sees as chosen.
QModelIndex CVirtualTeamTreeView::rowOfKeys() const
{
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() || selected.contains(currentIndex()) ? currentIndex()
                                                                   : selected.first();
}

bool CVirtualTeamTreeView::runKey(int key)
{
    const QModelIndex index = rowOfKeys();
    if (!index.isValid() || (key != Qt::Key_Delete && key != Qt::Key_F2))
        return false;
    const bool deletes = key == Qt::Key_Delete;
    const TeamSubject subject = subjectOf(index, deletes);
    switch (m_model->kind(index)) {
    case TeamRowKind::Team:
        if (!deletes)
            run(TeamAction::Rename, subject);
        else if (m_model->team(index).role == TeamRole::Owner)
            run(TeamAction::Dissolve, subject);
        else
            run(TeamAction::Leave, subject);
        break;
    case TeamRowKind::Group:
        run(deletes ? TeamAction::DeleteGroup : TeamAction::RenameGroup, subject);
        break;
    case TeamRowKind::Member:
        if (!deletes)
            run(TeamAction::EditNickName, subject);
        else
            run(subject.members.size() > 1 ? TeamAction::DeleteMembers : TeamAction::DeleteMember,
                subject);
        break;
    case TeamRowKind::Loading:
    case TeamRowKind::Failed:
    case TeamRowKind::Empty:
        return false;
    }
    return true;
}

void CVirtualTeamTreeView::run(TeamAction action, const TeamSubject &subject)
{
    if (!isThere(subject)) {
        LOG_ERROR("item is null");
        return;
    }
    const TeamSelection selection = selectionOf(subject);
    if (action == TeamAction::DeleteMembers && selection.members.size() == 1)
        action = TeamAction::DeleteMember; // the others have gone meanwhile
    if (!actionsFor(subject).testFlag(action)) {
        // By a key, or the own role has changed while the menu was open.
        if (action != TeamAction::Chat && action != TeamAction::GroupChat)
            m_commands->refuse();
        return;
    }
    // Nothing may come behind a command: the host may end this view inside it.
    if (action == TeamAction::AddMember) {
        m_commands->addMembers(selection, m_model->loadedMembers(subject.vtId));
        return;
    }
    for (const TeamCommand &entry : teamCommands) {
        if (entry.action == action) {
            (m_commands->*entry.command)(selection.team);
            return;
        }
    }
    for (const SelectionCommand &entry : selectionCommands) {
        if (entry.action == action) {
            (m_commands->*entry.command)(selection);
            return;
        }
    }
}
