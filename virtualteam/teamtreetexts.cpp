#include "virtualteam/teamtreetexts.h"

#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "controls/outsidemark.h"
#include "controls/presencetext.h"
#include "virtualteam/companynames.h"

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

QString TeamTreeTexts::foreignCompany(const CVirtualTeamMemberInfo &member)
{
    return displayText(CompanyNames::instance().foreign(member));
}

QString TeamTreeTexts::outside(const CVirtualTeamMemberInfo &member)
{
    return isExternal(makeJid(member.userId)) ? outsideText() : QString();
}

QVariant TeamTreeTexts::person(const CVirtualTeamMemberInfo &record, int role)
{
    switch (role) {
    case TeamRowRole::Id:
        return record.userId;
    case TeamRowRole::Photo:
        return record.photoName;
    case TeamRowRole::Role:
        return record.role;
    case TeamRowRole::Duty:
        return displayText(record.duty);
    case TeamRowRole::Company:
        return foreignCompany(record);
    case TeamRowRole::Kind:
        return int(TeamRowKind::Member);
    default:
        return QVariant();
    }
}

QVariant TeamTreeTexts::member(const TeamTreeMember &member, int role)
{
    const CVirtualTeamMemberInfo &record = member.record;
    switch (role) {
    case Qt::DisplayRole:
    case TeamRowRole::Name:
        return displayText(record.shownName());
    case Qt::ToolTipRole: {
        QStringList lines{record.shownName(), record.duty, foreignCompany(record), outside(record)};
        lines.removeAll(QString());
        return toolTipText(lines.join(QLatin1Char('\n')));
    }
    case Qt::AccessibleTextRole: {
        QStringList parts{
            displayText(record.shownName()), roleText(record.role), displayText(record.duty),
            foreignCompany(record),          outside(record),       presenceText(record.presence)};
        parts.removeAll(QString());
        return parts.join(QStringLiteral(", "));
    }
    case TeamRowRole::Presence:
        return QVariant::fromValue(record.presence);
    case TeamRowRole::SortKey:
        return QString(QString::number(member.stand.rank) + QLatin1Char('|') + member.stand.key);
    default:
        return person(record, role);
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
