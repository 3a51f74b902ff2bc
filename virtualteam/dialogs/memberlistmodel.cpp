#include "virtualteam/dialogs/memberlistmodel.h"

#include "common/displaytext.h"
#include "virtualteam/companynames.h"
#include "virtualteam/teamroles.h"
#include "virtualteam/teamtreetexts.h"

#include <QSet>

namespace {

QString nameOf(const CVirtualTeamMemberInfo &member)
{
    const QString name = displayText(member.shownName());
    return name.isEmpty() ? displayText(member.userId) : name;
}

// What tells people of one name apart: company and number.
QString originOf(const CVirtualTeamMemberInfo &member)
{
    QStringList parts;
    for (const QString &part :
         {CompanyNames::instance().of(member),
          member.employeeCode.isEmpty() ? member.mobile : member.employeeCode}) {
        const QString shown = displayText(part);
        if (!shown.isEmpty())
            parts.append(shown);
    }
    return parts.join(QString::fromUtf8(" · "));
}

QStringList whoIs(const CVirtualTeamMemberInfo &member)
{
    QStringList parts{nameOf(member), originOf(member), TeamTreeTexts::outside(member)};
    parts.removeAll(QString());
    return parts;
}

} // namespace

void MemberListModel::setMembers(const QList<CVirtualTeamMemberInfo> &members)
{
    QSet<QString> stay;
    for (const CVirtualTeamMemberInfo &member : members)
        stay.insert(member.userId);
    const QStringList before = userIds();
    for (const QString &userId : before) {
        if (!stay.contains(userId))
            remove(userId);
    }
    QVector<MemberListRow> rows;
    rows.reserve(members.size());
    for (const CVirtualTeamMemberInfo &member : members) {
        const MemberListRow *known = find(member.userId);
        rows.append({member, known ? known->arrival : ++m_arrivals});
    }
    putAll(rows);
}

void MemberListModel::add(const CVirtualTeamMemberInfo &member)
{
    putNew({member, ++m_arrivals});
}

QStringList MemberListModel::userIds() const
{
    QStringList ids;
    ids.reserve(rowCount());
    for (int row = 0; row < rowCount(); ++row)
        ids.append(at(row).member.userId);
    return ids;
}

QVariant MemberListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const CVirtualTeamMemberInfo &member = at(index.row()).member;
    switch (role) {
    case Qt::DisplayRole:
    case TeamRowRole::Name:
        return nameOf(member);
    case TeamRowRole::Company:
        return originOf(member);
    case TeamRowRole::SortKey:
        return at(index.row()).arrival;
    case Qt::ToolTipRole:
        return toolTipText(whoIs(member).join(QLatin1Char('\n')));
    case Qt::AccessibleTextRole:
        return whoIs(member).join(QStringLiteral(", "));
    default:
        return TeamTreeTexts::person(member, role);
    }
}
