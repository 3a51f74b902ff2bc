#include "virtualteam/dialogs/memberchoicemodel.h"

#include "common/cchcharactertopp.h"
#include "common/displaytext.h"
#include "virtualteam/teamroles.h"
#include "virtualteam/teamtreetexts.h"

#include <QSet>

namespace {

MemberPlace placeByRoleAndName(const CVirtualTeamMemberInfo &member)
{
    return {member.role == TeamRole::SubAdministrator ? 0 : 1,
            CChCharacterToPP().toPinyin(member.shownName(), false).toLower()};
}

// What tells people of one nick name apart.
QString whoIs(const CVirtualTeamMemberInfo &member)
{
    QStringList lines{member.shownName(), member.name, member.userId,
                      TeamTreeTexts::outside(member)};
    lines.removeAll(QString());
    lines.removeDuplicates();
    return lines.join(QLatin1Char('\n'));
}

QString spokenText(const MemberChoice &choice)
{
    QStringList parts{
        ::displayText(choice.member.shownName()), TeamTreeTexts::roleText(choice.member.role),
        TeamTreeTexts::foreignCompany(choice.member), TeamTreeTexts::outside(choice.member)};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace

void MemberChoiceModel::setMembers(const QList<CVirtualTeamMemberInfo> &members, Order order)
{
    QSet<QString> present;
    QVector<MemberChoice> choices;
    choices.reserve(members.size());
    for (const CVirtualTeamMemberInfo &member : members) {
        if (member.userId.isEmpty() || present.contains(member.userId))
            continue;
        present.insert(member.userId);
        const MemberPlace place =
            order == AsGiven ? MemberPlace{choices.size(), {}} : placeByRoleAndName(member);
        choices.append({member, place, isChecked(member.userId)});
    }
    QStringList gone;
    forEach([&](const MemberChoice &choice) {
        if (!present.contains(choice.member.userId))
            gone.append(choice.member.userId);
    });
    for (const QString &userId : qAsConst(gone)) {
        m_checkedCount -= isChecked(userId);
        remove(userId);
    }
    putAll(choices);
}

void MemberChoiceModel::setChecked(const QString &userId, bool checked)
{
    const MemberChoice *choice = find(userId);
    if (!choice || choice->checked == checked)
        return;
    m_checkedCount += checked ? 1 : -1;
    change(userId, [checked](MemberChoice &changed) { changed.checked = checked; },
           {TeamRowRole::Checked, Qt::CheckStateRole});
}

bool MemberChoiceModel::isChecked(const QString &userId) const
{
    const MemberChoice *choice = find(userId);
    return choice && choice->checked;
}

QStringList MemberChoiceModel::checkedIds() const
{
    QStringList ids;
    forEach([&ids](const MemberChoice &choice) {
        if (choice.checked)
            ids.append(choice.member.userId);
    });
    ids.sort();
    return ids;
}

void MemberChoiceModel::setFilter(const QString &text)
{
    const TextPattern filter(text.trimmed());
    if (filter.text() == m_filter.text())
        return;
    m_filter = filter;
    rebuild();
}

bool MemberChoiceModel::isShown(const MemberChoice &choice) const
{
    if (m_filter.isEmpty())
        return true;
    const CVirtualTeamMemberInfo &member = choice.member;
    for (const QString *text :
         {&member.nickName, &member.name, &member.userId, &member.employeeCode, &member.mobile}) {
        if (m_filter.match(*text).kind != TextMatch::None)
            return true;
    }
    return false;
}

QVariant MemberChoiceModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return QVariant();
    const MemberChoice &choice = at(index.row());
    const CVirtualTeamMemberInfo &member = choice.member;
    switch (role) {
    case Qt::DisplayRole:
    case TeamRowRole::Name:
        return ::displayText(member.shownName());
    case Qt::ToolTipRole:
        return toolTipText(whoIs(member));
    case Qt::AccessibleTextRole:
        return spokenText(choice);
    case Qt::CheckStateRole:
        return choice.checked ? Qt::Checked : Qt::Unchecked;
    case TeamRowRole::Checked:
        return choice.checked;
    default:
        return TeamTreeTexts::person(member, role);
    }
}
