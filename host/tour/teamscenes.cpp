#include "host/tour/teamscenes.h"

#include "host/tour/serviceuser.h"
#include "http/jsonreader.h"
#include "sample/samplecompany.h"

namespace {

QString uid(int index)
{
    return SampleCompany::uid(index);
}

QString uids(int first, int count)
{
    QStringList list;
    for (int i = first; i < first + count; ++i)
        list.append(uid(i));
    return list.join(QLatin1Char(','));
}

QString idIn(const Json::Value &data, const char *key)
{
    return JsonReader::text(data, key);
}

// A team of the own user with groups in groups, sub-administrators, posts, and people of
// another company.
void makeOwnTeam(const BackendAddress &services)
{
    ServiceUser owner(services, uid(0));
    const QString id = idIn(owner.team("createVirtualTeam", {{"members", uids(1, 14)},
                                                             {"vtName", TeamScenes::ownTeam()},
                                                             {"reason", QString()}}),
                            "vtId");
    QString parent = QStringLiteral("0");
    int next = 3;
    for (const QString &name : TeamScenes::groups()) {
        parent = idIn(owner.team("addVirtualTeamGroup",
                                 {{"vtId", id}, {"pgId", parent}, {"groupName", name}}),
                      "groupId");
        owner.team("transferVirtualTeamMember",
                   {{"vtId", id}, {"groupId", parent}, {"members", uids(next, 3)}});
        next += 3;
    }
    owner.team("addVirtualTeamGroup",
               {{"vtId", id}, {"pgId", QStringLiteral("0")}, {"groupName", QStringLiteral("QA")}});
    owner.team("setVirtualTeamAdmin", {{"vtId", id}, {"members", uids(2, 2)}});
    owner.team("modifyVirtualTeamMemberInfo",
               {{"vtId", id}, {"member", uid(1)}, {"duty", QString::fromUtf8("产品经理")}});
    const QString guest = QStringLiteral("x000000");
    owner.team("inviteVirtualTeam",
               {{"vtId", id}, {"members", guest}, {"reason", QString::fromUtf8("请加入")}});
    ServiceUser(services, guest)
        .team("confirmJoinVirtualTeam", {{"vtId", id}, {"agree", QStringLiteral("1")}});
}

bool hasTeams(ServiceUser *user)
{
    return !JsonReader::array(user->team("getAllVirtualTeam"), "vt").empty();
}

} // namespace

QString TeamScenes::ownTeam()
{
    return QString::fromUtf8("新产品项目组");
}

QStringList TeamScenes::groups()
{
    return {QString::fromUtf8("开发"), QString::fromUtf8("前端"), QString::fromUtf8("组件库")};
}

void TeamScenes::makeTeams(const BackendAddress &services)
{
    ServiceUser own(services, uid(0));
    if (hasTeams(&own))
        return;
    ServiceUser(services, uid(20))
        .team("createVirtualTeam", {{"members", uids(0, 4)},
                                    {"vtName", QStringLiteral("Release <train>")},
                                    {"reason", QString()}});
    makeOwnTeam(services);
}

void TeamScenes::askApproval(const BackendAddress &services)
{
    ServiceUser colleague(services, uid(30));
    const QString path = QStringLiteral("/center/company/teamApproval.do");
    colleague.call(path, {{"approval", QStringLiteral("1")}, {"approver", uid(0)}});
    colleague.team("createVirtualTeam", {{"members", uids(31, 5)},
                                         {"vtName", QString::fromUtf8("客户满意度")},
                                         {"reason", QString::fromUtf8("收集并改进客户反馈。")}});
    colleague.call(path, {{"approval", QStringLiteral("0")}});
}

void TeamScenes::askToJoin(const BackendAddress &services)
{
    ServiceUser outsider(services, QStringLiteral("x000001"));
    const QString id =
        idIn(outsider.team("createVirtualTeam", {{"members", QStringLiteral("x000004,x000007")},
                                                 {"vtName", QStringLiteral("Joint project")},
                                                 {"reason", QString()}}),
             "vtId");
    outsider.team("inviteVirtualTeam", {{"vtId", id},
                                        {"members", uids(0, 3)},
                                        {"reason", QStringLiteral("Let us build it together.")}});
}
