// The records of virtual teams, as the team services tell them.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QList>
#include <QMetaType>
#include <QString>

namespace TeamRole {
// Any other number is an ordinary member's, too.
constexpr qint32 Member = 0;
constexpr qint32 SubAdministrator = 1;
constexpr qint32 Owner = 2;

constexpr bool isAdministrator(qint32 role)
{
    return role == SubAdministrator || role == Owner;
}
} // namespace TeamRole

namespace TeamLimits {
constexpr int Name = 16;         // characters of a team's, sub-group's, nick or post name
constexpr int Reason = 100;      // characters
constexpr int GroupLevels = 10;  // the team itself is level 0
constexpr int FewestMembers = 2; // of a new team, its creator not counted
} // namespace TeamLimits

// What most services mean by a code; TeamMessages knows what is special to one.
namespace TeamCode {
constexpr int Unknown = 10001;    // there is no such team, group or member for the user
constexpr int NotAllowed = 10002; // in the user's role
constexpr int Blocked = 10003;    // by how things stand, such as a decision that was taken
} // namespace TeamCode

// The id of a team's topmost group, which is the team itself.
inline QString rootGroupId()
{
    return QStringLiteral("0");
}

// A team of the user, or a sub-group of a team's structure; then id and name are the
// group's and the rest is not told.
struct CVirtualTeamSimpleInfo
{
    QString vtId, vtName;
    qint32 role = TeamRole::Member; // the user's own
    qint32 count = 0;               // members
};

struct CVirtualTeamMemberInfo
{
    QString userId;         // a uid, as everywhere
    QString nickName, name; // in the team; of the person
    QString photoName;      // at the file service
    QString duty;           // the post in the team
    QString companyCode, companyName;
    QString employeeCode, mobile, email;
    qint32 role = TeamRole::Member;
    PresenceData presence;

    // What the person is called in the team.
    const QString &shownName() const
    {
        return !nickName.isEmpty() ? nickName : !name.isEmpty() ? name : userId;
    }
};

// A team that is to be created, or an invitation to join one.
struct CVirtualTeamInfo
{
    QString vtId, vtName;
    // Of the creator or the inviter; orgName with an invitation only.
    QString userId, nickName, creatorEmployeeCode, companyCode, companyName, orgName, photoName,
        mobile;
    QString reason;
    bool audited = false; // it was decided already
    QList<CVirtualTeamMemberInfo> members;
};

Q_DECLARE_METATYPE(CVirtualTeamSimpleInfo)
Q_DECLARE_METATYPE(CVirtualTeamMemberInfo)
Q_DECLARE_METATYPE(CVirtualTeamInfo)
