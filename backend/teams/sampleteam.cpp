#include "backend/teams/sampleteam.h"

#include "backend/eventlog.h"
#include "backend/teams/teamstore.h"

namespace {
// Everybody but the owner, up to a number.
QStringList others(const People &people, const QString &owner, int count)
{
    const int inCompany = people.company().people();
    QStringList uids;
    for (int i = 0; i < inCompany + people.departmentSize() && uids.size() < count; ++i) {
        const QString uid =
            i < inCompany ? SampleCompany::uid(i) : People::largeDepartmentUid(i - inCompany);
        if (uid != owner)
            uids.append(uid);
    }
    return uids;
}
} // namespace

QString SampleTeam::name()
{
    return QString::fromUtf8("大型团队");
}

qint64 SampleTeam::make(Transaction &transaction, const People &people) const
{
    const std::optional<User> user = people.find(owner);
    const QStringList uids = others(people, owner, members - 1);
    if (!user || uids.size() < members - 1)
        return 0;
    TeamStore store(transaction);
    Team team;
    team.name = name();
    team.creator = owner;
    team.company = user->companyCode;
    team.creation = Decision::Agreed;
    const qint64 id = store.addTeam(team);
    store.addMembers(id, {owner}, 0, TeamRole::Owner);
    if (groups == 0)
        store.addMembers(id, uids, 0, TeamRole::Member);
    for (int i = 0; i < groups; ++i) {
        const QString groupName = QString::fromUtf8("分组 %1").arg(i + 1);
        const qint64 group = store.addGroup(id, {0, 0, groupName, 1});
        QStringList share;
        for (int at = i; at < uids.size(); at += groups)
            share.append(uids.at(at));
        store.addMembers(id, share, group, TeamRole::Member);
    }
    EventLog(transaction).tellMembers(id, owner);
    return id;
}
