#include "tests/virtualteam/teamcases.h"

namespace {
using Op = CHttpVirtualTeamOperation;

QString textOf(bool flag)
{
    return flag ? QStringLiteral("1") : QStringLiteral("0");
}
QString textOf(int number)
{
    return QString::number(number);
}
QString textOf(qint64 number)
{
    return QString::number(number);
}
QString textOf(const QString &text)
{
    return text;
}
QString textOf(const QStringList &texts)
{
    return texts.join(QLatin1Char('+'));
}
QString textOf(const CVirtualTeamSimpleInfo &team)
{
    return QStringLiteral("%1:%2:%3:%4").arg(team.vtId, team.vtName).arg(team.role).arg(team.count);
}
// What is there of it, and its role and presence unless they are the usual ones.
QString textOf(const CVirtualTeamMemberInfo &m)
{
    QStringList texts{m.userId,      m.nickName,    m.name,         m.photoName, m.duty,
                      m.companyCode, m.companyName, m.employeeCode, m.mobile,    m.email};
    texts.removeAll(QString());
    if (m.role != TeamRole::Member)
        texts.append(QStringLiteral("r%1").arg(m.role));
    if (m.presence.isOnline())
        texts.append(QStringLiteral("p%1%2").arg(m.presence.pcShow).arg(m.presence.mobile));
    return texts.join(QLatin1Char(':'));
}
template <class Record> QString textOf(const QList<Record> &records)
{
    QStringList texts;
    for (const Record &record : records)
        texts.append(textOf(record));
    return QLatin1Char('[') + texts.join(QLatin1Char(' ')) + QLatin1Char(']');
}
QString textOf(const CVirtualTeamInfo &info)
{
    return QStringList{info.vtId,
                       info.vtName,
                       info.userId,
                       info.nickName,
                       info.creatorEmployeeCode,
                       info.companyCode,
                       info.companyName,
                       info.orgName,
                       info.photoName,
                       info.mobile,
                       info.reason,
                       textOf(info.audited),
                       textOf(info.members)}
        .join(QLatin1Char(':'));
}

using Told = std::function<void(const QString &)>;

template <class... Args> void watch(Op *operation, void (Op::*signal)(Args...), const Told &told)
{
    QObject::connect(operation, signal, operation, [told](Args... args) {
        told(QStringList{textOf(args)...}.join(QLatin1Char('|')));
    });
}

const QByteArray Detail =
    R"({"vtId":"vt7","vtName":"项目","userId":"u2","nickName":"李四","creatorEmployeeCode":"E2",)"
    R"("companyCode":"C2","companyName":"乙","photoName":"p.png","mobile":"139","reason":"r",)"
    R"("audited":true,"orgName":"部","members":[{"userId":"u3","nickName":"王五",)"
    R"("employeeCode":"E3","companyCode":"C1","companyName":"甲","photoName":"q","mobile":"138"}]})";
const QByteArray Members =
    R"({"group":[{"groupId":7,"groupName":"前端"}],"members":[{"userId":"u2","nickName":"李四",)"
    R"("photoName":"u2.png","companyCode":"C1","duty":"测试","role":"1",)"
    R"("presence":{"av":true,"show":"away","pt":"android","rsc":"pc"}},{"userId":"u3","role":2}]})";

const QString Id = QStringLiteral("vt7");
const QString Group = QStringLiteral("12");
const QString User = QStringLiteral("u2");
const QStringList Users{User, QStringLiteral("u+3")};
// What a form must not be misled by.
const QString Text = QString::fromUtf8("a&vtId=9+b 项,%");
const QByteArray Form = "a%26vtId%3D9%2Bb%20%E9%A1%B9%2C%25";
const QByteArray UsersForm = "u2%2Cu%2B3";
} // namespace

void watchAll(Op *operation, const Told &told)
{
    const auto all = [&](auto... signal) { (watch(operation, signal, told), ...); };
    all(&Op::signal_GetMyVirtualTeamFinish, &Op::signal_SearchVirtualTeamMemberFinish,
        &Op::signal_CreatVirtualTeamFinish, &Op::signal_InviteVirtualTeamFinish,
        &Op::signal_AuditingVirtualTeamFinish, &Op::signal_GetVirtualTeamCreatDetailFinish,
        &Op::signal_GetVirtualTeamJoinDetailFinish,
        &Op::signal_ResponseJoinVirtualTeamRequestFinish, &Op::signal_GetVirtualTeamStructureFinish,
        &Op::signal_AddVirtualTeamMembersFinish, &Op::signal_deleteVirtualTeamMemberFinish,
        &Op::signal_QuitVirtualTeamFinish, &Op::signal_DissolveVirtualTeamFinish,
        &Op::signal_ModifyVirtualTeamNameFinish, &Op::signal_ModifyVirtualTeamPersonalInfoFinish,
        &Op::signal_GetVirtualTeamMemberInfoFinish, &Op::signal_GrantVirtualTeamAuthorityFinish,
        &Op::signal_GetFuzzySearchFinish, &Op::signal_modifyVirtualTeamGroupFinish,
        &Op::signal_addVirtualTeamGroup, &Op::signal_deleteVirtualTeamGroupFinish,
        &Op::signal_transferVirtualTeamMemberFinish, &Op::siganal_getVirtualTeamMembersFinish,
        &Op::signal_setVirtualTeamAdminFinish, &Op::signal_addVirtualTeamAdminFinish,
        &Op::signal_deleteVirtualTeamAdminFinish);
}

const QVector<TeamCase> &teamCases()
{
    static const QVector<TeamCase> cases{
        {"teams", "getAllVirtualTeam", [](Op *o) { o->getMyVirtualTeam(); }, "",
         R"({"vt":[{"vtId":"1","vtName":"A&B","role":2,"count":5},{"vtId":2,"count":"3"}]})",
         "1|[1:A&B:2:5 2::0:3]", "0|[]", "slot_GetMyVirtualTeamFinish"},
        {"search member", "searchMember", [](Op *o) { o->searchVirtualTeamMember(Text); },
         "key=" + Form,
         R"({"userId":"u3","name":"王五","companyCode":"C2","companyName":"乙","photoName":"p",)"
         R"("mobile":"139"})",
         "1|0|u3:王五:p:C2:乙:139", "0|%1|", "slot_SearchMemberFinish"},
        {"create", "createVirtualTeam", [](Op *o) { o->creatVirtualTeam(Users, Text, Text); },
         "members=" + UsersForm + "&vtName=" + Form + "&reason=" + Form,
         R"({"vtId":"1002","audit":false})", "1|1002|0", "0||%1", "slot_CreatVirtualTeamFinish"},
        {"create, pending", "createVirtualTeam",
         [](Op *o) { o->creatVirtualTeam({}, QString(), QString()); }, "members=&vtName=&reason=",
         R"({"vtId":"1002","audit":true})", "1|1002|1", "0||%1", "slot_CreatVirtualTeamFinish"},
        {"create, no id yet", "createVirtualTeam",
         [](Op *o) { o->creatVirtualTeam({User}, Text, QString()); },
         "members=u2&vtName=" + Form + "&reason=", "null", "1||1", "0||%1",
         "slot_CreatVirtualTeamFinish"},
        {"invite", "inviteVirtualTeam", [](Op *o) { o->inviteVirtualTeam(Id, Users, Text); },
         "vtId=vt7&members=" + UsersForm + "&reason=" + Form, "{}", "1|0", "0|%1",
         "slot_InviteVirtualTeamFinish"},
        {"approve", "auditVirtualTeam", [](Op *o) { o->auditingVirtualTeam(Id, User, true); },
         "vtId=vt7&member=u2&flag=1", "{}", "1|vt7|1|0", "0|vt7|1|0",
         "slot_AuditingVirtualTeamFinish"},
        {"refuse", "auditVirtualTeam", [](Op *o) { o->auditingVirtualTeam(Id, User, false); },
         "vtId=vt7&member=u2&flag=0", "{}", "1|vt7|0|1", "0|vt7|0|1",
         "slot_AuditingVirtualTeamFinish"},
        {"creation detail", "auditVirtualTeamDetail",
         [](Op *o) { o->getVirtualTeamCreatDetail(Id, User); }, "vtId=vt7&member=u2", Detail,
         "1|vt7:项目:u2:李四:E2:C2:乙:部:p.png:139:r:1:[u3:王五:q:C1:甲:E3:138]",
         "0|:::::::::::0:[]", "slot_GetVirtualTeamCreatDetailFinish"},
        {"join detail", "joinVirtualTeamStatus", [](Op *o) { o->getVirtualTeamJoinDetail(Id); },
         "vtId=vt7", Detail,
         "1|vt7:项目:u2:李四:E2:C2:乙:部:p.png:139:r:1:[u3:王五:q:C1:甲:E3:138]",
         "0|:::::::::::0:[]", "slot_GetVirtualTeamJoinDetailFinish"},
        {"join", "confirmJoinVirtualTeam",
         [](Op *o) { o->responseJoinVirtualTeamRequest(Id, true); }, "vtId=vt7&agree=1", "{}",
         "1|vt7|1|0", "0|vt7|1|0", "slot_ResponseJoinVirtualTeamRequestFinish"},
        {"do not join", "confirmJoinVirtualTeam",
         [](Op *o) { o->responseJoinVirtualTeamRequest(Id, false); }, "vtId=vt7&agree=0", "{}",
         "1|vt7|0|1", "0|vt7|0|1", "slot_ResponseJoinVirtualTeamRequestFinish"},
        {"structure", "getVirtualTeamGroup",
         [](Op *o) { o->getVirtualTeamStructure(Id, rootGroupId()); }, "vtId=vt7&pgId=0", Members,
         "1|vt7|0|[7:前端:0:0]|[u2:李四:u2.png:测试:C1:r1:p21 u3:r2]", "0|vt7|0|[]|[]",
         "slot_GetVirtualTeamStructureFinish"},
        {"add members", "batchAddVirtualTeamMember",
         [](Op *o) { o->addVirtualTeamMembers(Id, Group, Users); },
         "vtId=vt7&groupId=12&members=" + UsersForm, R"({"failNumber":1})", "vt7|12|1", "vt7|12|0",
         "slot_AddVirtualTeamMembersFinish"},
        {"delete members", "deleteVirtualTeamMember",
         [](Op *o) { o->deleteVirtualTeamMember(Id, Users); }, "vtId=vt7&members=" + UsersForm,
         "{}", "vt7|1", "vt7|0", "slot_DeleteVirtualTeamMemberFinish"},
        {"quit", "quitVirtualTeam", [](Op *o) { o->quitVirtualTeam(Text); }, "vtId=" + Form, "{}",
         "a&vtId=9+b 项,%|1|0", "a&vtId=9+b 项,%|0|%1", "slot_QuitVirtualTeamFinish"},
        {"dissolve", "dissolveVirtualTeam", [](Op *o) { o->dissolveVirtualTeam(Id); }, "vtId=vt7",
         "{}", "vt7|1|0", "vt7|0|%1", "slot_DissolveVirtualTeamFinish"},
        {"rename", "modifyVirtualTeamInfo", [](Op *o) { o->modifyVirtualTeamName(Id, Text); },
         "vtId=vt7&vtName=" + Form, "{}", "vt7|1", "vt7|0", "slot_ModifyVirtualTeamNameFinish"},
        {"nick name", "modifyVirtualTeamMemberInfo",
         [](Op *o) { o->modifyVirtualTeamNickName(Id, User, Text); },
         "vtId=vt7&member=u2&nickName=" + Form, "{}", "vt7|u2|1", "vt7|u2|0",
         "slot_ModifyVirtualTeamPersonalInfoFinish"},
        {"post", "modifyVirtualTeamMemberInfo",
         [](Op *o) { o->modifyVirtualTeamDuty(Id, User, QString()); }, "vtId=vt7&member=u2&duty=",
         "{}", "vt7|u2|1", "vt7|u2|0", "slot_ModifyVirtualTeamPersonalInfoFinish"},
        {"member detail", "getVirtualTeamMemberDetail",
         [](Op *o) { o->getVirtualTeamMemberInfo(Id, User); }, "vtId=vt7&member=u2",
         R"({"userId":"u2","nickName":"李四","companyName":"乙","photoName":"p","duty":"测",)"
         R"("role":1,"mobile":"139","email":"a@b"})",
         "1|u2:李四:p:测:乙:139:a@b:r1", "0|", "slot_GetVirtualTeamMemberInfoFinish"},
        {"grant", "grantVirtualTeamAuthority",
         [](Op *o) { o->grantVirtualTeamAuthority(Id, User); }, "vtId=vt7&member=u2", "{}", "1|vt7",
         "0|vt7", "slot_GrantVirtualTeamAuthorityFinish"},
        {"fuzzy search", "fuzzySearchVirtualTeamMember",
         [](Op *o) { o->fuzzySearchVirtualTeamMember(Id, Text); }, "vtId=vt7&key=" + Form, Members,
         "1|vt7|a&vtId=9+b 项,%|[u2:李四:u2.png:测试:C1:r1:p21 u3:r2]", "0|vt7|a&vtId=9+b 项,%|[]",
         "slot_FuzzySearchVirtualTeamMemberFinish"},
        {"rename group", "modifyVirtualTeamGroup",
         [](Op *o) { o->modifyVirtualTeamGroup(Id, Group, Text); },
         "vtId=vt7&groupId=12&groupName=" + Form, "{}", "vt7|12|1", "vt7|12|0",
         "slot_modifyVirtualTeamGroupFinish"},
        {"add group", "addVirtualTeamGroup", [](Op *o) { o->addVirtualTeamGroup(Id, Group, Text); },
         "vtId=vt7&pgId=12&groupName=" + Form, R"({"groupId":8})", "vt7|12|8|1", "vt7|12||0",
         "slot_addVirtualTeamGroup"},
        {"delete group", "deleteVirtualTeamGroup",
         [](Op *o) { o->deleteVirtualTeamGroup(Id, Group); }, "vtId=vt7&groupId=12", "{}",
         "vt7|12|1|0", "vt7|12|0|%1", "slot_deleteVirtualTeamGroup"},
        {"move members", "transferVirtualTeamMember",
         [](Op *o) { o->transferVirtualTeamMember(Id, Group, Users); },
         "vtId=vt7&groupId=12&members=" + UsersForm, "{}", "vt7|12|1", "vt7|12|0",
         "slot_transferVirtualTeamMember"},
        {"members", "getMembers", [](Op *o) { o->getVirtualTeamMembers(Id); }, "vtId=vt7",
         R"({"members":[{"userId":"u2","nickName":"李","name":"李四","photoName":"p",)"
         R"("companyCode":"C1","role":1}]})",
         "vt7|[u2:李:李四:p:C1:r1]|1", "vt7|[]|0", "slot_getVirtualTeamMembers"},
        {"set administrators", "setVirtualTeamAdmin", [](Op *o) { o->setVirtualTeamAdmin(Id, {}); },
         "vtId=vt7&members=", "{}", "vt7||1|0", "vt7||0|%1", "slot_setVirtualTeamAdmin"},
        {"add administrators", "addVirtualTeamAdmin",
         [](Op *o) { o->addVirtualTeamAdmin(Id, Users); }, "vtId=vt7&members=" + UsersForm, "{}",
         "vt7|u2+u+3|1|0", "vt7|u2+u+3|0|%1", "slot_addVirtualTeamAdmin"},
        {"delete administrators", "deleteVirtualTeamAdmin",
         [](Op *o) { o->deleteVirtualTeamAdmin(Id, Users); }, "vtId=vt7&members=" + UsersForm, "{}",
         "vt7|u2+u+3|1|0", "vt7|u2+u+3|0|%1", "slot_deleteVirtualTeamAdmin"},
    };
    return cases;
}
