#include "virtualteam/cvirtualteampage.h"

#include "common/context.h"
#include "common/logging.h"
#include "controls/searchbox.h"
#include "virtualteam/companynames.h"
#include "virtualteam/cvirtualteamtreeview.h"
#include "virtualteam/dialogs/cvirtualteamwidgetcreat.h"
#include "virtualteam/teamloader.h"
#include "virtualteam/teammessages.h"
#include "virtualteam/teamsearchpage.h"
#include "virtualteam/teamtreemodel.h"

#include <QApplication>
#include <QStackedWidget>

#include <algorithm>
#include <utility>

namespace {

bool isSameTeam(const CVirtualTeamSimpleInfo &a, const CVirtualTeamSimpleInfo &b)
{
    return a.vtId == b.vtId && a.vtName == b.vtName;
}

} // namespace

// --- Loading -----------------------------------------------------------------------

void CVirtualTeamPage::start()
{
    if (m_started)
        return;
    m_started = true;
    m_owner = ctx().ownJid();
    reload(true);
}

// What the user sees stays until somebody else logs in.
void CVirtualTeamPage::stop()
{
    m_reloadDue.stop();
    m_dueTeams.clear();
    m_failed = m_failed || !m_known;
    m_quest.end();
    m_questFailed = false;
    const auto levels = m_loader->stop();
    for (const Level &level : levels)
        slot_getVirtualTeamStructureFinish(false, level.first, level.second, {}, {});
    showState();
}

void CVirtualTeamPage::startAnew()
{
    stop();
    m_started = false;
    if (m_owner != ctx().ownJid()) {
        m_failedLevels.clear();
        m_wantedTeam.clear();
        m_searchBox->clear();
        m_known = false;
        m_failed = false;
        m_tree->teams()->clear();
        followTeams();
    }
    if (isVisible())
        start();
}

void CVirtualTeamPage::reconnected()
{
    if (!m_started)
        return;
    const QSet<Level> levels = std::exchange(m_failedLevels, {});
    if (m_failed && !m_loader->isLoadingTeams())
        reload(false);
    for (const Level &level : levels)
        slot_getMembers(level.first, level.second);
}

void CVirtualTeamPage::reload(bool withLevels)
{
    QSet<Level> levels;
    if (withLevels) {
        levels = std::exchange(m_failedLevels, {});
        for (const CVirtualTeamSimpleInfo &team : qAsConst(m_told))
            m_dueTeams.insert(team.vtId);
    }
    const QSet<QString> due = std::exchange(m_dueTeams, {});
    for (const QString &team : due) {
        m_loader->repeatLevels(team);
        const auto open = m_tree->expireClosedLevels(team);
        for (const Level &level : open)
            levels.insert(level);
    }
    if (isOnline()) {
        m_loader->loadTeams();
    } else {
        LOG_DEBUG("offline: the teams cannot be loaded");
        slot_getMyVirtualTeamFinish(false, {});
    }
    for (const Level &level : qAsConst(levels))
        slot_getMembers(level.first, level.second);
    showState();
}

void CVirtualTeamPage::reloadSoon()
{
    if (m_started && !m_reloadDue.isActive())
        m_reloadDue.start();
}

void CVirtualTeamPage::slot_refreshVirtualTeam()
{
    LOG_SCOPE("CVirtualTeamPage::slot_refreshVirtualTeam()");
    if (!TeamMessages::mayRequest(this, "isOfflinePleaseLogin"))
        return;
    m_reloadDue.stop();
    m_questFailed = false;
    if (m_started)
        reload(true);
    else
        start();
}

void CVirtualTeamPage::slot_refreshVirtualTeamById(const QString &vtId)
{
    LOG_SCOPE("CVirtualTeamPage::slot_refreshVirtualTeamById(const QString& vtId)");
    if (m_started)
        m_dueTeams.insert(vtId);
    reloadSoon();
}

void CVirtualTeamPage::slot_getMyVirtualTeamFinish(bool ok, QList<CVirtualTeamSimpleInfo> teams)
{
    LOG_SCOPE("CVirtualTeamPage::slot_getMyVirtualTeamFinish(bool bSuccess, "
              "QList<CVirtualTeamSimpleInfo> teams)");
    m_failed = !ok;
    if (ok) {
        m_known = true;
        m_tree->teams()->setTeams(teams);
        followTeams();
    } else {
        LOG_ERROR("the teams could not be loaded");
    }
    showState();
    if (!ok || m_wantedTeam.isEmpty())
        return;
    if (m_tree->teams()->teamIndex(m_wantedTeam).isValid()) {
        m_tree->expandTeam(std::exchange(m_wantedTeam, {}));
        // Not from who types elsewhere by now.
        const QWidget *focus = QApplication::focusWidget();
        if (isAncestorOf(focus) && focus != m_searchBox)
            m_tree->setFocus(Qt::OtherFocusReason);
    } else if (!m_loader->isLoadingTeams()) {
        // Nor is a newer list on its way.
        LOG_DEBUG("there is no team " << logText(m_wantedTeam));
        m_wantedTeam.clear();
    }
}

void CVirtualTeamPage::slot_getMembers(QString vtId, QString pgId)
{
    LOG_SCOPE("CVirtualTeamPage::slot_getMembers(QString vtId, QString pgId)");
    if (!m_tree->teams()->groupIndex(vtId, pgId).isValid()) {
        LOG_DEBUG("item is null");
        return;
    }
    if (!isOnline()) {
        slot_getVirtualTeamStructureFinish(false, vtId, pgId, {}, {});
        return;
    }
    if (m_tree->teams()->childrenState(vtId, pgId) != TeamChildren::Loaded)
        m_tree->teams()->setChildrenState(vtId, pgId, TeamChildren::Loading);
    m_loader->loadLevel(vtId, pgId);
}

void CVirtualTeamPage::slot_getVirtualTeamStructureFinish(bool ok, QString vtId, QString pgId,
                                                          QList<CVirtualTeamSimpleInfo> groups,
                                                          QList<CVirtualTeamMemberInfo> members)
{
    LOG_SCOPE("CVirtualTeamPage::slot_getVirtualTeamStructureFinish(bool bSuccess, QString vtId, "
              "QString pgId, QList<CVirtualTeamSimpleInfo> groups, QList<CVirtualTeamMemberInfo> "
              "members)");
    TeamTreeModel *teams = m_tree->teams();
    if (vtId == m_quest.vtId())
        m_quest.answered(pgId);
    if (ok) {
        m_failedLevels.remove({vtId, pgId});
        if (teams->setLevel(vtId, pgId, groups, members))
            CompanyNames::instance().find(vtId, members);
        revealWanted();
        showState();
        return;
    }
    if (!teams->groupIndex(vtId, pgId).isValid()) {
        LOG_DEBUG("item is null");
        return;
    }
    LOG_ERROR("a level of the team " << logText(vtId) << " could not be loaded");
    m_failedLevels.insert({vtId, pgId});
    // What is known stays.
    if (teams->childrenState(vtId, pgId) != TeamChildren::Loaded)
        teams->setChildrenState(vtId, pgId, TeamChildren::Failed);
    revealWanted();
    showState();
}

bool CVirtualTeamPage::isOutOfDate() const
{
    if (!m_known || m_loader->isLoadingTeams())
        return false;
    // A level without rows says by itself that it failed.
    const TeamTreeModel *teams = m_tree->teams();
    const auto hasRows = [teams](const Level &level) {
        const QModelIndex group = teams->groupIndex(level.first, level.second);
        return group.isValid() && teams->kind(teams->index(0, 0, group)) != TeamRowKind::Failed;
    };
    return m_failed || std::any_of(m_failedLevels.cbegin(), m_failedLevels.cend(), hasRows);
}

// --- What others are told ------------------------------------------------------------

void CVirtualTeamPage::followTeams()
{
    m_followDue.stop();
    const TeamTreeModel *model = m_tree->teams();
    QList<CVirtualTeamSimpleInfo> teams;
    const QStringList ids = model->teamIds();
    for (const QString &id : ids)
        teams.append(model->team(model->teamIndex(id)));
    if (std::equal(teams.cbegin(), teams.cend(), m_told.cbegin(), m_told.cend(), isSameTeam))
        return;
    m_told = teams;
    if (teams.isEmpty())
        m_searchBox->clear();
    m_searchPage->setTeams(teams);
    showState();
    emit teamsKnown(teams);
}

void CVirtualTeamPage::locateTeam(const QString &vtId)
{
    endQuest();
    m_searchBox->clear();
    if (m_started && m_tree->teams()->teamIndex(vtId).isValid()) {
        m_tree->expandTeam(vtId);
        m_tree->setFocus(Qt::OtherFocusReason);
        return;
    }
    m_wantedTeam = vtId;
    if (!m_started)
        start();
    else if (!m_loader->isLoadingTeams())
        reload(false);
}

// --- What the user does ----------------------------------------------------------------

void CVirtualTeamPage::slot_creatVirtualTeam()
{
    LOG_SCOPE("CVirtualTeamPage::slot_creatVirtualTeam()");
    if (m_createDialog) {
        m_createDialog->present();
        return;
    }
    if (!TeamMessages::mayRequest(this, "isOfflinePleaseLogin"))
        return;
    m_createDialog = new CVirtualTeamWidgetCreat(this);
    connect(m_createDialog, &CVirtualTeamWidgetCreat::teamCreated, this,
            [this](const QString &vtId, bool pending) {
                if (!pending)
                    m_wantedTeam = vtId;
                reload(false);
            });
    m_createDialog->present();
}

void CVirtualTeamPage::slot_searchTextChanged(const QString &text)
{
    if (!text.isEmpty())
        endQuest();
    m_searchText = text.simplified();
    m_searchPage->setText(m_searchText);
    showState();
}

void CVirtualTeamPage::leaveSearch()
{
    m_searchBox->clear();
    slot_searchTextChanged(QString());
    if (m_pages->currentWidget() == m_listPage)
        m_tree->setFocus(Qt::OtherFocusReason);
}

void CVirtualTeamPage::slot_expendVirtualTeam(QString vtId)
{
    LOG_SCOPE("CVirtualTeamPage::slot_expendVirtualTeam(QString vtId)");
    leaveSearch();
    m_sinceLed.start();
    if (!m_tree->teams()->teamIndex(vtId).isValid()) {
        LOG_DEBUG("item is null");
        endQuest();
        return;
    }
    m_tree->expandTeam(vtId);
    revealWanted();
}

// --- The way to a member ---------------------------------------------------------------

void CVirtualTeamPage::revealWanted()
{
    if (!m_quest.isUnderWay())
        return;
    const TeamTreeModel &teams = *m_tree->teams();
    const QModelIndex team = teams.teamIndex(m_quest.vtId());
    // Somebody who has gone on is not called back.
    const bool isThere = team.isValid() && m_tree->currentIndex() == team;
    if (!isThere || !m_tree->isExpanded(team) || !isOnline()) {
        endQuest();
        return;
    }
    const QModelIndex member = m_quest.member(teams);
    if (member.isValid()) {
        endQuest();
        m_tree->reveal(member);
        return;
    }
    const QString vtId = m_quest.vtId();
    const QStringList groups = m_quest.next(teams);
    for (const QString &groupId : groups)
        slot_getMembers(vtId, groupId);
    if (!m_quest.isUnderWay()) {
        LOG_DEBUG("the member is in no group of the team " << logText(vtId));
        m_questFailed = true;
    }
    showState();
}

void CVirtualTeamPage::endQuest()
{
    const bool saysSo = std::exchange(m_questFailed, false);
    if (!m_quest.isUnderWay() && !saysSo)
        return;
    m_quest.end();
    showState();
}

bool CVirtualTeamPage::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonDblClick:
        // The first of the two clicks was on a hit, where the tree stands by now.
        if (m_sinceLed.isValid() && !m_sinceLed.hasExpired(QApplication::doubleClickInterval()))
            return true;
        endQuest();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
    case QEvent::Wheel:
        endQuest();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}
