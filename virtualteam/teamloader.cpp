#include "virtualteam/teamloader.h"

#include "virtualteam/httpvirtualteamoperation.h"

#include <utility>

namespace {
using Operation = CHttpVirtualTeamOperation;
}

void TeamLoader::loadTeams()
{
    if (m_list) {
        m_listAgain = true;
        return;
    }
    sendList();
    emit loadingTeamsChanged(true);
}

void TeamLoader::sendList()
{
    m_list = new Operation(this);
    connect(m_list, &Operation::signal_GetMyVirtualTeamFinish, this,
            [this](bool ok, const QList<CVirtualTeamSimpleInfo> &teams) {
                m_list = nullptr;
                if (std::exchange(m_listAgain, false))
                    sendList();
                else
                    emit loadingTeamsChanged(false);
                emit teamsLoaded(ok, teams);
            });
    m_list->getMyVirtualTeam();
}

void TeamLoader::loadLevel(const QString &vtId, const QString &pgId)
{
    const Level level(vtId, pgId);
    if (m_levels.contains(level))
        m_levelsAgain.insert(level);
    else if (!m_waiting.contains(level))
        m_waiting.append(level);
    sendLevels();
}

void TeamLoader::repeatLevels(const QString &vtId)
{
    for (auto running = m_levels.cbegin(); running != m_levels.cend(); ++running) {
        if (running.key().first == vtId)
            m_levelsAgain.insert(running.key());
    }
}

void TeamLoader::sendLevels()
{
    while (m_levels.size() < LevelsAtATime && !m_waiting.isEmpty()) {
        const Level level = m_waiting.takeFirst();
        auto *operation = new Operation(this);
        m_levels.insert(level, operation);
        connect(operation, &Operation::signal_GetVirtualTeamStructureFinish, this,
                [this, level](bool ok, const QString &, const QString &,
                              const QList<CVirtualTeamSimpleInfo> &groups,
                              const QList<CVirtualTeamMemberInfo> &members) {
                    levelEnded(level);
                    emit levelLoaded(ok, level.first, level.second, groups, members);
                });
        operation->getVirtualTeamStructure(level.first, level.second);
    }
}

void TeamLoader::levelEnded(const Level &level)
{
    m_levels.remove(level);
    if (m_levelsAgain.remove(level))
        m_waiting.append(level);
    sendLevels();
}

QList<TeamLoader::Level> TeamLoader::stop()
{
    m_listAgain = false;
    m_levelsAgain.clear();
    const QList<Level> levels = std::exchange(m_waiting, {}) + m_levels.keys();
    QList<Operation *> running = m_levels.values();
    m_levels.clear();
    const bool wasLoading = m_list;
    if (m_list)
        running.append(std::exchange(m_list, nullptr));
    for (Operation *operation : qAsConst(running)) {
        operation->disconnect(this);
        operation->deleteLater();
    }
    if (wasLoading)
        emit loadingTeamsChanged(false);
    return levels;
}
