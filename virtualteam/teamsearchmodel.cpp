#include "virtualteam/teamsearchmodel.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/textmatch.h"
#include "controls/presencetext.h"
#include "virtualteam/teamtreetexts.h"

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

// Empty unless it can be a part of a number.
QString typedDigits(const QString &text)
{
    const bool hasLetters =
        std::any_of(text.begin(), text.end(), [](QChar letter) { return letter.isLetter(); });
    const QString digits = hasLetters ? QString() : digitsOf(text);
    return digits.size() >= FewestDigits ? digits : QString();
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
                      TeamTreeTexts::foreignCompany(hit.member)};
    parts.removeAll(QString());
    return parts.join(QString::fromUtf8(" · "));
}

// As the service looks for it: anywhere, or by the spelling of Chinese.
MarkedText TeamSearchModel::markedName(const CVirtualTeamMemberInfo &member) const
{
    const QString name = nameOf(member);
    const int at = m_text.isEmpty() ? -1 : name.indexOf(m_text, 0, Qt::CaseInsensitive);
    if (at >= 0)
        return {name, {{at, m_text.size()}}};
    const TextMatch match = TextPattern(m_text).match(name);
    if (match.kind == TextMatch::None)
        return {name, {}};
    return {name, {{match.start, match.length}}};
}

// Who was found by the name needs nothing beside it.
MarkedText TeamSearchModel::foundBeside(const CVirtualTeamMemberInfo &member) const
{
    const QString digits = typedDigits(m_text);
    if (!digits.isEmpty() && digitsOf(member.mobile).contains(digits)) {
        const QString mobile = displayText(member.mobile);
        const int at = mobile.indexOf(m_text);
        // Written with other blanks than it was typed, it is marked as a whole.
        return {mobile, {at >= 0 ? SearchMark(at, m_text.size()) : SearchMark(0, mobile.size())}};
    }
    if (m_text.isEmpty() || !markedName(member).marks.isEmpty())
        return {};
    for (const QString &text : {member.employeeCode, member.userId}) {
        const QString shown = displayText(text);
        const int at = shown.indexOf(m_text, 0, Qt::CaseInsensitive);
        if (at >= 0)
            return {shown, {{at, m_text.size()}}};
    }
    return {};
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
    case TeamRowRole::Presence:
        return QVariant::fromValue(presenceOf(member));
    case TeamRowRole::SortKey:
        return index.row();
    case TeamHitRole::Second:
        return secondLine(hit);
    case TeamHitRole::Beside:
        return QVariant::fromValue(foundBeside(member));
    case TeamHitRole::MarkedName:
        return QVariant::fromValue(markedName(member));
    case Qt::ToolTipRole: {
        QStringList lines{nameOf(member), secondLine(hit), TeamTreeTexts::outside(member)};
        lines.removeAll(QString());
        return toolTipText(lines.join(QLatin1Char('\n')));
    }
    case Qt::AccessibleTextRole: {
        QStringList spoken{nameOf(member)};
        if (isOnline())
            spoken.append(presenceText(presenceOf(member)));
        spoken.append({secondLine(hit), foundBeside(member).text, TeamTreeTexts::outside(member)});
        spoken.removeAll(QString());
        return spoken.join(QStringLiteral(", "));
    }
    default:
        return TeamTreeTexts::person(member, role);
    }
}
