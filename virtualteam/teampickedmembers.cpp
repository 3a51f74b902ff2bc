// What TeamCommands does with the people that were picked in the host's picker.
#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/tipbox.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teamcommands.h"
#include "virtualteam/teammessages.h"

#include <algorithm>

void TeamCommands::addPicked(const QString &vtId, const QString &groupId,
                             const QStringList &userIds)
{
    Pick pick;
    pick.groupId = groupId;
    for (const QString &id : userIds)
        pick.userIds.append(jidUser(id));
    pick.userIds.removeAll(QString());
    pick.userIds.removeAll(ctx().userId());
    pick.userIds.removeDuplicates();
    if (pick.userIds.isEmpty() || !TeamMessages::mayRequest(m_view))
        return;
    const QList<Pick> waiting = m_picks.value(vtId);
    const auto isSame = [&pick](const Pick &other) {
        return other.groupId == pick.groupId && other.userIds == pick.userIds;
    };
    if (std::any_of(waiting.begin(), waiting.end(), isSame))
        return; // the host says it twice
    if (waiting.size() >= MostPicks) {
        TipBox::tell(m_view, QObject::tr("teamBusy"));
        return;
    }
    m_picks[vtId].append(pick);
    sendPicked(vtId);
}

void TeamCommands::keepPicksOf(const QStringList &vtIds)
{
    const QStringList teams = m_picks.keys();
    for (const QString &vtId : teams) {
        if (!vtIds.contains(vtId))
            m_picks.remove(vtId);
    }
}

void TeamCommands::sendPicked(const QString &vtId)
{
    if (isBusy(vtId) || !m_picks.contains(vtId))
        return;
    const Pick pick = m_picks.value(vtId).first();
    // One that has begun ends with its result, whatever becomes of its requests.
    if (pick.done == 0 && !TeamMessages::mayRequest(m_view)) {
        m_picks.remove(vtId);
        return;
    }
    Operation *operation = begin(vtId);
    connect(operation, &Operation::signal_AddVirtualTeamMembersFinish, this,
            [this, operation](const QString &, const QString &, bool ok) {
                portionEnded(operation, ok);
            });
    operation->addVirtualTeamMembers(vtId, pick.groupId, pick.portion());
}

// The next portion goes as soon as this operation has gone.
void TeamCommands::portionEnded(const Operation *operation, bool ok)
{
    const auto picks = m_picks.find(operation->vtId());
    // The team has gone, and may be there anew with another pick.
    if (picks == m_picks.end() || picks->first().portion() != operation->memberIds())
        return;
    Pick &pick = picks->first();
    if (ok) {
        pick.done += operation->memberIds().size();
        pick.failed += operation->failNumber();
        if (pick.done < pick.userIds.size())
            return;
    }
    const Pick ended = picks->takeFirst();
    if (picks->isEmpty())
        m_picks.erase(picks);
    pickEnded(operation, ended, ok);
}

void TeamCommands::pickEnded(const Operation *operation, const Pick &pick, bool ok)
{
    if (pick.done == 0) {
        failed(operation, TeamMessages::failed());
        return;
    }
    const int missing = pick.failed + pick.userIds.size() - pick.done;
    if (missing > 0)
        TipBox::tell(m_view, QObject::tr("teamMembersNotAdded").arg(missing));
    if (!ok)
        checkOutdated(operation);
    emit levelChanged(operation->vtId(), pick.groupId);
    emit teamsChanged(); // it has more members now
}
