#include "virtualteam/teamsearch.h"

#include "common/context.h"
#include "common/logging.h"
#include "plugin/frienduisignalsender.h"
#include "virtualteam/httpvirtualteamoperation.h"

#include <QSet>

#include <utility>

namespace {
using Operation = CHttpVirtualTeamOperation;
}

TeamSearch::TeamSearch(QObject *parent) : QObject(parent)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    connect(&m_delay, &QTimer::timeout, this, &TeamSearch::ask);
    connect(FriendUISignalSender::instance(), &FriendUISignalSender::signal_isConnected, this,
            [this](bool connected) {
                if (connected && m_state == Offline)
                    begin();
            });
}

void TeamSearch::setTeams(const QStringList &teams)
{
    const QStringList before = std::exchange(m_teams, teams);
    const QSet<QString> there(teams.cbegin(), teams.cend());
    for (const QString &team : before) {
        if (!there.contains(team))
            drop(team);
    }
    if (m_state == Idle || m_state == Offline)
        return;
    const QSet<QString> known(before.cbegin(), before.cend());
    for (const QString &team : teams) {
        if (!known.contains(team))
            m_waiting.append(team);
    }
    // What is about to begin finds them.
    if (!m_delay.isActive())
        ask();
}

void TeamSearch::setText(const QString &text)
{
    m_text = text;
    begin();
}

void TeamSearch::begin()
{
    m_delay.stop();
    m_waiting.clear();
    m_failed.clear();
    const QStringList running = m_running.keys();
    for (const QString &team : running)
        drop(team);
    if (m_text.isEmpty()) {
        setState(Idle);
    } else if (!isOnline()) {
        setState(Offline);
    } else {
        m_waiting = m_teams;
        m_delay.start();
        setState(Searching);
    }
}

// Its answer would be about another text, or a team that has gone.
void TeamSearch::drop(const QString &vtId)
{
    m_waiting.removeAll(vtId);
    m_failed.removeAll(vtId);
    if (Operation *operation = m_running.take(vtId)) {
        operation->disconnect(this);
        operation->deleteLater();
    }
}

void TeamSearch::retry()
{
    if (m_failed.isEmpty())
        return;
    m_waiting = std::exchange(m_failed, {});
    ask();
}

void TeamSearch::ask()
{
    while (m_running.size() < AtATime && !m_waiting.isEmpty()) {
        const QString team = m_waiting.takeFirst();
        auto *operation = new Operation(this);
        m_running.insert(team, operation);
        connect(
            operation, &Operation::signal_GetFuzzySearchFinish, this,
            [this, team](bool ok, const QString &, const QString &,
                         const QList<CVirtualTeamMemberInfo> &hits) { arrived(team, ok, hits); });
        operation->fuzzySearchVirtualTeamMember(team, m_text);
    }
    if (!m_running.isEmpty())
        setState(Searching);
    else if (m_failed.isEmpty())
        setState(Done);
    else
        setState(m_failed.size() < m_teams.size() ? SomeFailed : Failed);
}

void TeamSearch::arrived(const QString &vtId, bool ok, QList<CVirtualTeamMemberInfo> hits)
{
    m_running.remove(vtId);
    if (!ok) {
        LOG_ERROR("the team " << logText(vtId) << " could not be searched");
        m_failed.append(vtId);
        hits.clear();
    } else if (hits.size() > MostHits) {
        LOG_ERROR("the team " << logText(vtId) << " has more hits than anybody reads");
        hits.erase(hits.begin() + MostHits, hits.end());
    }
    emit answered(vtId, hits);
    ask();
}

void TeamSearch::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged();
}
