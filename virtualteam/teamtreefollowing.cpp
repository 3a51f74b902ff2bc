// What the team tree hears of: the hub's news of people, and what the commands did.
#include "common/context.h"
#include "common/logging.h"
#include "controls/avatarstore.h"
#include "http/fileservices.h"
#include "plugin/frienduisignalsender.h"
#include "virtualteam/companynames.h"
#include "virtualteam/cvirtualteamtreeview.h"
#include "virtualteam/teamcommands.h"
#include "virtualteam/teamtreemodel.h"

void CVirtualTeamTreeView::followHub()
{
    using Hub = FriendUISignalSender;
    Hub *hub = Hub::instance();
    const auto repaint = [this] { viewport()->update(); };
    connect(hub, &Hub::signal_updateFriendPresence, m_model, &TeamTreeModel::setPresence);
    connect(hub, &Hub::signal_UpdateFrdHead, this, [repaint](const QString &, const QString &file) {
        AvatarStore::instance().refresh(file);
        repaint();
    });
    connect(hub, &Hub::signal_isConnected, this, repaint);
    connect(&PictureFiles::instance(), &PictureFiles::ready, this, repaint);
    connect(&CompanyNames::instance(), &CompanyNames::learned, this, repaint);
    connect(hub, &Hub::signal_addMembersToVirtualTeam, this,
            [this](const QString &vtId, const QStringList &userIds, int groupId) {
                if (groupId < 0 || !m_model->teamIndex(vtId).isValid()) {
                    LOG_ERROR("item is null");
                    return;
                }
                m_commands->addPicked(vtId, QString::number(groupId), userIds);
                emit signal_addMembersToVirtualTeam(vtId, userIds, groupId);
            });
}

void CVirtualTeamTreeView::followCommands()
{
    using Commands = TeamCommands;
    using View = CVirtualTeamTreeView;
    connect(m_commands, &Commands::teamsChanged, this, &View::teamsChanged);
    connect(m_commands, &Commands::levelChanged, this, &View::refreshLevel);
    connect(m_commands, &Commands::teamOutdated, this, &View::refreshTeam);
    connect(m_commands, &Commands::teamLeft, this, [this](const QString &vtId) {
        m_model->removeTeam(vtId);
        emit teamsChanged();
    });
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, [this](const QModelIndex &parent) {
        if (!parent.isValid())
            m_commands->keepPicksOf(m_model->teamIds());
    });
    connect(m_commands, &Commands::teamRenamed, m_model, &TeamTreeModel::setTeamName);
    connect(m_commands, &Commands::teamRenamed, this, &View::signal_updateVirtualTeamName);
    connect(m_commands, &Commands::groupRenamed, m_model, &TeamTreeModel::setGroupName);
    connect(m_commands, &Commands::groupRenamed, this, &View::signal_updateVirtualTeamGroupName);
    connect(m_commands, &Commands::groupDeleted, m_model, &TeamTreeModel::removeGroup);
    connect(m_commands, &Commands::groupAdded, this, &View::groupAdded);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &View::revealAdded,
            Qt::QueuedConnection);
    connect(m_commands, &Commands::nickNameChanged, m_model, &TeamTreeModel::setNickName);
    connect(m_commands, &Commands::nickNameChanged, this, &View::signal_updateVirtualTeamNickName);
    connect(m_commands, &Commands::postChanged, m_model, &TeamTreeModel::setDuty);
    connect(m_commands, &Commands::postChanged, this, &View::signal_updateVirtualTeamPostName);
    connect(m_commands, &Commands::membersDeleted, this, &View::slot_deleteVirtualTeamMemberFinish);
    connect(m_commands, &Commands::membersMoved, m_model, &TeamTreeModel::moveMembers);
    connect(m_commands, &Commands::administratorsChanged, this,
            [this](const QString &vtId, const QStringList &added, const QStringList &removed) {
                for (const QString &userId : added)
                    m_model->setRole(vtId, userId, TeamRole::SubAdministrator);
                for (const QString &userId : removed)
                    m_model->setRole(vtId, userId, TeamRole::Member);
                emit signal_addAdminFinish(vtId, added, removed);
            });
    connect(m_commands, &Commands::authorityGranted, this,
            [this](const QString &vtId, const QString &userId) {
                // Who hands it over is an ordinary member from then on.
                m_model->setRole(vtId, ctx().userId(), TeamRole::Member);
                m_model->setRole(vtId, userId, TeamRole::Owner);
                m_model->setTeamRole(vtId, TeamRole::Member);
                emit teamsChanged();
            });
}

void CVirtualTeamTreeView::slot_deleteVirtualTeamMemberFinish(const QString &vtId,
                                                              const QStringList &userIds)
{
    LOG_SCOPE("CVirtualTeamTreeView::slot_deleteVirtualTeamMemberFinish(const QString& vtId, "
              "const QStringList& userIds)");
    for (const QString &userId : userIds) {
        if (!m_model->removeMember(vtId, userId))
            LOG_ERROR(" entry fun CVirtualTeamTreeView::slot_deleteVirtualTeamMemberFinish::"
                      "delUser user not exist");
    }
}

void CVirtualTeamTreeView::refreshLevel(const QString &vtId, const QString &groupId)
{
    const QModelIndex group = m_model->groupIndex(vtId, groupId);
    if (!group.isValid() || m_model->childrenState(vtId, groupId) == TeamChildren::NotAsked)
        return;
    if (isExpanded(group))
        emit signal_GetMembers(vtId, groupId);
    else
        m_model->expireLevel(vtId, groupId);
}

void CVirtualTeamTreeView::refreshTeam(const QString &vtId)
{
    const auto levels = expireClosedLevels(vtId);
    for (const auto &level : levels)
        emit signal_GetMembers(level.first, level.second);
}

void CVirtualTeamTreeView::groupAdded(const QString &vtId, const QString &pgId,
                                      const QString &groupId, const QString &name)
{
    m_model->addGroup(vtId, pgId, groupId, name);
    const QPersistentModelIndex parent = m_model->groupIndex(vtId, pgId);
    if (!parent.isValid())
        return;
    setExpanded(parent, true);
    const QModelIndex group = m_model->groupIndex(vtId, groupId);
    if (group.isValid()) {
        reveal(group);
    } else {
        m_added.vtId = vtId;
        m_added.groupId = groupId;
    }
}

// Its level was not there when it was made.
void CVirtualTeamTreeView::revealAdded()
{
    if (m_added.vtId.isEmpty())
        return;
    const QModelIndex group = m_model->groupIndex(m_added.vtId, m_added.groupId);
    if (!group.isValid())
        return;
    m_added = TeamSubject();
    // Somebody who has gone on is not called back.
    if (currentIndex() == group.parent())
        reveal(group);
}
