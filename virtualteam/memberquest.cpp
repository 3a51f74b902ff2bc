#include "virtualteam/memberquest.h"

#include "virtualteam/teamtreemodel.h"

#include <QVector>

void MemberQuest::begin(const QString &vtId, const QString &userId)
{
    end();
    m_vtId = vtId;
    m_userId = userId;
}

void MemberQuest::end()
{
    m_vtId.clear();
    m_userId.clear();
    m_asked.clear();
    m_running.clear();
}

QModelIndex MemberQuest::member(const TeamTreeModel &teams) const
{
    return teams.memberIndex(m_vtId, m_userId);
}

// One that failed before may answer now; one that has changed may hold the member.
bool MemberQuest::isWanted(const TeamTreeModel &teams, const QString &groupId) const
{
    if (m_asked.contains(groupId))
        return false;
    const TeamChildren state = teams.childrenState(m_vtId, groupId);
    return state == TeamChildren::NotAsked || state == TeamChildren::Failed ||
           (state == TeamChildren::Loaded && teams.isStale(m_vtId, groupId));
}

QStringList MemberQuest::next(const TeamTreeModel &teams)
{
    QStringList wanted;
    QSet<QString> running = m_running;
    QVector<QModelIndex> levels{teams.teamIndex(m_vtId)};
    for (int i = 0; i < levels.size() && levels.at(i).isValid(); ++i) {
        const QModelIndex level = levels.at(i);
        const QString groupId = teams.groupId(level);
        if (isWanted(teams, groupId))
            wanted.append(groupId);
        else if (teams.childrenState(m_vtId, groupId) == TeamChildren::Loading)
            running.insert(groupId);
        // Sub-groups stand before members.
        for (int row = 0; row < teams.rowCount(level); ++row) {
            const QModelIndex below = teams.index(row, 0, level);
            if (teams.kind(below) != TeamRowKind::Group)
                break;
            levels.append(below);
        }
    }
    const int room = qMin(AtATime - running.size(), MostLevels - m_asked.size());
    wanted = wanted.mid(0, qMax(0, room));
    for (const QString &groupId : qAsConst(wanted)) {
        m_asked.insert(groupId);
        m_running.insert(groupId);
    }
    if (wanted.isEmpty() && running.isEmpty())
        end();
    return wanted;
}
