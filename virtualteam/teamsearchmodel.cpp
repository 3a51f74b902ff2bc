#include "virtualteam/teamsearchmodel.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "controls/presencetext.h"

#include <algorithm>

namespace {

constexpr int FewestDigits = 3; // that look like a part of a number

QString nameOf(const CVirtualTeamMemberInfo &member)
{
    const QString shown = displayText(member.shownName());
    const QString own = displayText(member.name);
    return own.isEmpty() || own == shown ? shown : shown + QStringLiteral(" (%1)").arg(own);
}

PresenceData presenceOf(const CVirtualTeamMemberInfo &member)
{
    const PresenceData heard = ctx().presence(makeJid(member.userId));
    return heard.isOnline() ? heard : member.presence;
}

QString digitsOf(const QString &text)
{
    QString digits;
    for (const QChar letter : text) {
        if (letter.isDigit())
            digits += letter;
    }
    return digits;
}

} // namespace

// --- Rows ------------------------------------------------------------------------

template <class Condition> void TeamSearchModel::removeIf(const Condition &isGone)
{
    for (int last = m_hits.size() - 1; last >= 0; --last) {
        if (!isGone(m_hits.at(last)))
            continue;
        int first = last;
        while (first > 0 && isGone(m_hits.at(first - 1)))
            --first;
        beginRemoveRows(QModelIndex(), first, last);
        m_hits.remove(first, last - first + 1);
        endRemoveRows();
        last = first;
    }
}

void TeamSearchModel::setTeams(const QList<CVirtualTeamSimpleInfo> &teams)
{
    m_teams.clear();
    for (const CVirtualTeamSimpleInfo &team : teams)
        m_teams.insert(team.vtId, {displayText(team.vtName), m_teams.size()});
    removeIf([this](const TeamHit &hit) { return !m_teams.contains(hit.vtId); });
    showAnew();
}

void TeamSearchModel::setText(const QString &text)
{
    const bool narrows = !m_text.isEmpty() && text.startsWith(m_text);
    m_text = text;
    if (narrows)
        showAnew();
    else
        removeIf([](const TeamHit &) { return true; });
}

int TeamSearchModel::rowAfter(const QString &vtId) const
{
    const int place = m_teams.value(vtId).place;
    const auto isBehind = [&](const TeamHit &hit) { return m_teams.value(hit.vtId).place > place; };
    return int(std::find_if(m_hits.begin(), m_hits.end(), isBehind) - m_hits.begin());
}

void TeamSearchModel::setHits(const QString &vtId, const QList<CVirtualTeamMemberInfo> &hits,
                              bool atEnd)
{
    QHash<QString, CVirtualTeamMemberInfo> found;
    QVector<TeamHit> added;
    for (const CVirtualTeamMemberInfo &member : hits) {
        if (member.userId.isEmpty() || found.contains(member.userId))
            continue;
        found.insert(member.userId, member);
        added.append({vtId, member});
    }
    removeIf(
        [&](const TeamHit &hit) { return hit.vtId == vtId && !found.contains(hit.member.userId); });
    for (TeamHit &hit : m_hits) {
        if (hit.vtId == vtId)
            hit.member = found.take(hit.member.userId);
    }
    showAnew();
    const auto hasRow = [&](const TeamHit &hit) { return !found.contains(hit.member.userId); };
    added.erase(std::remove_if(added.begin(), added.end(), hasRow), added.end());
    if (added.isEmpty() || !m_teams.contains(vtId))
        return;
    const int row = atEnd ? m_hits.size() : rowAfter(vtId);
    beginInsertRows(QModelIndex(), row, row + added.size() - 1);
    m_hits = m_hits.mid(0, row) + added + m_hits.mid(row);
    endInsertRows();
}

void TeamSearchModel::setPresence(const QMap<QString, PresenceData> &presence)
{
    for (TeamHit &hit : m_hits) {
        const auto news = presence.constFind(makeJid(hit.member.userId));
        if (news != presence.constEnd())
            hit.member.presence = *news;
    }
    showAnew();
}

void TeamSearchModel::showAnew()
{
    if (!m_hits.isEmpty())
        emit dataChanged(index(0), index(m_hits.size() - 1));
}

// --- What a row tells --------------------------------------------------------------

int TeamSearchModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_hits.size();
}

QString TeamSearchModel::secondLine(const TeamHit &hit) const
{
    QStringList parts{m_teams.value(hit.vtId).name, displayText(hit.member.duty),
                      displayText(hit.member.companyName)};
    parts.removeAll(QString());
    return parts.join(QString::fromUtf8(" · "));
}

// Who was found by the name needs no number beside it.
QString TeamSearchModel::foundMobile(const CVirtualTeamMemberInfo &member) const
{
    const QString typed = digitsOf(m_text);
    const bool isFound = typed.size() >= FewestDigits && digitsOf(member.mobile).contains(typed);
    return isFound ? displayText(member.mobile) : QString();
}

QVariant TeamSearchModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const TeamHit &hit = m_hits.at(index.row());
    const CVirtualTeamMemberInfo &member = hit.member;
    switch (role) {
    case Qt::DisplayRole:
    case TeamRowRole::Name:
        return nameOf(member);
    case TeamRowRole::Id:
        return member.userId;
    case TeamRowRole::Photo:
        return member.photoName;
    case TeamRowRole::Role:
        return member.role;
    case TeamRowRole::Presence:
        return QVariant::fromValue(presenceOf(member));
    case TeamRowRole::SortKey:
        return index.row();
    case TeamRowRole::Duty:
        return displayText(member.duty);
    case TeamRowRole::Company:
        return displayText(member.companyName);
    case TeamRowRole::Kind:
        return int(TeamRowKind::Member);
    case TeamHitRole::Second:
        return secondLine(hit);
    case TeamHitRole::Mobile:
        return foundMobile(member);
    case Qt::ToolTipRole:
        return toolTipText(nameOf(member) + QLatin1Char('\n') + secondLine(hit));
    case Qt::AccessibleTextRole: {
        QStringList spoken{nameOf(member)};
        if (isOnline())
            spoken.append(presenceText(presenceOf(member)));
        return (spoken + QStringList{secondLine(hit), foundMobile(member)})
            .join(QStringLiteral(", "));
    }
    default:
        return QVariant();
    }
}
