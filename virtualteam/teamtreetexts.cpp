#include "virtualteam/teamtreetexts.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "controls/presencetext.h"

namespace {
// The company of people of another one than the user's; its code when the service tells
// no name.
QString foreignCompany(const CVirtualTeamMemberInfo &member)
{
    const QString own = ctx().companyCode();
    if (own.isEmpty() || member.companyCode.isEmpty() || member.companyCode == own)
        return QString();
    return displayText(member.companyName.isEmpty() ? member.companyCode : member.companyName);
}
} // namespace

QString TeamTreeTexts::roleText(int role)
{
    if (role == TeamRole::Owner)
        return QObject::tr("teamOwner");
    return role == TeamRole::SubAdministrator ? QObject::tr("teamSubAdministrator") : QString();
}

QString TeamTreeTexts::countText(int members)
{
    return members > 0 ? QObject::tr("teamMemberCount").arg(members) : QString();
}

QVariant TeamTreeTexts::member(const TeamTreeMember &member, int role)
{
    const CVirtualTeamMemberInfo &record = member.record;
    switch (role) {
    case Qt::DisplayRole:
    case TeamRowRole::Name:
        return displayText(record.shownName());
    case Qt::ToolTipRole: {
        QStringList lines{record.shownName(), record.duty, foreignCompany(record)};
        lines.removeAll(QString());
        return toolTipText(lines.join(QLatin1Char('\n')));
    }
    case Qt::AccessibleTextRole: {
        QStringList parts{displayText(record.shownName()), roleText(record.role),
                          displayText(record.duty), foreignCompany(record),
                          presenceText(record.presence)};
        parts.removeAll(QString());
        return parts.join(QStringLiteral(", "));
    }
    case TeamRowRole::Id:
        return record.userId;
    case TeamRowRole::Photo:
        return record.photoName;
    case TeamRowRole::Role:
        return record.role;
    case TeamRowRole::Presence:
        return QVariant::fromValue(record.presence);
    case TeamRowRole::SortKey:
        return QString(QString::number(member.stand.rank) + QLatin1Char('|') + member.stand.key);
    case TeamRowRole::Duty:
        return displayText(record.duty);
    case TeamRowRole::Company:
        return foreignCompany(record);
    default:
        return QVariant();
    }
}

QVariant TeamTreeTexts::branch(const TeamTreeBranch &branch, int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case TeamRowRole::Name:
        return displayText(branch.info.vtName);
    case Qt::AccessibleTextRole: {
        QStringList parts{displayText(branch.info.vtName), countText(branch.info.count)};
        parts.removeAll(QString());
        return parts.join(QStringLiteral(", "));
    }
    case Qt::ToolTipRole:
        return toolTipText(branch.info.vtName);
    case TeamRowRole::Id:
        return branch.info.vtId;
    case TeamRowRole::Role:
        return branch.info.role;
    case TeamRowRole::Count:
        return branch.kind == TeamRowKind::Team ? QVariant(branch.info.count) : QVariant();
    default:
        return QVariant();
    }
}

QVariant TeamTreeTexts::placeholder(TeamRowKind kind, int role)
{
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole && role != Qt::ToolTipRole)
        return QVariant();
    if (kind == TeamRowKind::Loading)
        return QObject::tr("loading");
    return kind == TeamRowKind::Failed ? QObject::tr("loadErrorAndCrazyRetry")
                                       : QObject::tr("teamGroupEmpty");
}
