#include "virtualteam/teamservicetable.h"

#include "http/jsonreader.h"
#include "virtualteam/companynames.h"
#include "virtualteam/teamrecordreader.h"

namespace {
using Operation = CHttpVirtualTeamOperation;
using Field = QString (*)(const TeamArguments &);

constexpr Field team = [](const TeamArguments &a) { return a.vtId; };
constexpr Field group = [](const TeamArguments &a) { return a.groupId; };
constexpr Field people = [](const TeamArguments &a) { return a.members.join(QLatin1Char(',')); };
constexpr Field entered = [](const TeamArguments &a) { return a.text; };
constexpr Field reason = [](const TeamArguments &a) { return a.reason; };
constexpr Field decision = [](const TeamArguments &a) {
    return a.agrees ? QStringLiteral("1") : QStringLiteral("0");
};

// Many services tell a company by its code alone, some by its name as well.
CVirtualTeamMemberInfo heard(const CVirtualTeamMemberInfo &member)
{
    CompanyNames::instance().learn(member.companyCode, member.companyName);
    return member;
}

QList<CVirtualTeamMemberInfo> heard(const QList<CVirtualTeamMemberInfo> &members)
{
    CompanyNames::instance().learn(members);
    return members;
}

CVirtualTeamInfo heard(const CVirtualTeamInfo &info)
{
    CompanyNames::instance().learn(info.companyCode, info.companyName);
    CompanyNames::instance().learn(info.members);
    return info;
}

// --- What several signals have in common ---------------------------------------------

template <auto Signal> void tellGroup(Operation &q, const TeamArguments &a, const TeamOutcome &o)
{
    emit(q.*Signal)(a.vtId, a.groupId, o.ok);
}

template <auto Signal> void tellAdmins(Operation &q, const TeamArguments &a, const TeamOutcome &o)
{
    emit(q.*Signal)(a.vtId, a.members, o.ok, o.code);
}

template <auto Signal> void tellDecision(Operation &q, const TeamArguments &a, const TeamOutcome &o)
{
    emit(q.*Signal)(o.ok, a.vtId, a.agrees, !a.agrees);
}

void tellPersonalInfo(Operation &q, const TeamArguments &a, const TeamOutcome &o)
{
    emit q.signal_ModifyVirtualTeamPersonalInfoFinish(a.vtId, a.members.value(0), o.ok);
}

// A team that waits for its approval may have no id yet.
void tellCreated(Operation &q, const TeamArguments &, const TeamOutcome &o)
{
    const QString id = JsonReader::text(o.data, "vtId");
    const bool isPending = o.ok && (id.isEmpty() || JsonReader::flag(o.data, "audit"));
    emit q.signal_CreatVirtualTeamFinish(o.ok, id, isPending ? Operation::PendingCode : o.code);
}

} // namespace

const Operation::Service Operation::Service::Teams{
    "/virtualTeam/getMyVirtualTeamUrl", "CHttpVirtualTeamOperation::getMyVirtualTeam()",
    "CHttpVirtualTeamOperation::slot_GetMyVirtualTeamFinish()",
    &Operation::slot_GetMyVirtualTeamFinish,
    [](Operation &q, const TeamArguments &, const TeamOutcome &o) {
        emit q.signal_GetMyVirtualTeamFinish(o.ok, TeamRecordReader::teams(o.data));
    }};

const Operation::Service Operation::Service::SearchMember{
    "/virtualTeam/searchVirtualTeamMemberUrl",
    "CHttpVirtualTeamOperation::searchVirtualTeamMember()",
    "CHttpVirtualTeamOperation::slot_SearchMemberFinish()",
    &Operation::slot_SearchMemberFinish,
    [](Operation &q, const TeamArguments &, const TeamOutcome &o) {
        emit q.signal_SearchVirtualTeamMemberFinish(o.ok, o.code,
                                                    heard(TeamRecordReader::member(o.data)));
    },
    {{"key", entered}}};

const Operation::Service Operation::Service::Create{
    "/virtualTeam/getCreatVirtualTeamUrl",
    "CHttpVirtualTeamOperation::creatVirtualTeam()",
    "CHttpVirtualTeamOperation::slot_CreatVirtualTeamFinish()",
    &Operation::slot_CreatVirtualTeamFinish,
    &tellCreated,
    {{"members", people}, {"vtName", entered}, {"reason", reason}}};

const Operation::Service Operation::Service::Invite{
    "/virtualTeam/inviteVirtualTeamUrl",
    "CHttpVirtualTeamOperation::inviteVirtualTeam()",
    "CHttpVirtualTeamOperation::slot_InviteVirtualTeamFinish()",
    &Operation::slot_InviteVirtualTeamFinish,
    [](Operation &q, const TeamArguments &, const TeamOutcome &o) {
        emit q.signal_InviteVirtualTeamFinish(o.ok, o.code);
    },
    {{"vtId", team}, {"members", people}, {"reason", reason}}};

const Operation::Service Operation::Service::Audit{
    "/virtualTeam/auditingVirtualTeamUrl",
    "CHttpVirtualTeamOperation::auditingVirtualTeam()",
    "CHttpVirtualTeamOperation::slot_AuditingVirtualTeamFinish()",
    &Operation::slot_AuditingVirtualTeamFinish,
    &tellDecision<&Operation::signal_AuditingVirtualTeamFinish>,
    {{"vtId", team}, {"member", people}, {"flag", decision}}};

const Operation::Service Operation::Service::CreateDetail{
    "/virtualTeam/getVirtualTeamCreatDetailUrl",
    "CHttpVirtualTeamOperation::getVirtualTeamCreatDetail()",
    "CHttpVirtualTeamOperation::slot_GetVirtualTeamCreatDetailFinish()",
    &Operation::slot_GetVirtualTeamCreatDetailFinish,
    [](Operation &q, const TeamArguments &, const TeamOutcome &o) {
        emit q.signal_GetVirtualTeamCreatDetailFinish(o.ok,
                                                      heard(TeamRecordReader::detail(o.data)));
    },
    {{"vtId", team}, {"member", people}}};

const Operation::Service Operation::Service::JoinDetail{
    "/virtualTeam/getVirtualTeamJoinDetailUrl",
    "CHttpVirtualTeamOperation::getVirtualTeamJoinDetail()",
    "CHttpVirtualTeamOperation::slot_GetVirtualTeamJoinDetailFinish()",
    &Operation::slot_GetVirtualTeamJoinDetailFinish,
    [](Operation &q, const TeamArguments &, const TeamOutcome &o) {
        emit q.signal_GetVirtualTeamJoinDetailFinish(o.ok, heard(TeamRecordReader::detail(o.data)));
    },
    {{"vtId", team}}};

const Operation::Service Operation::Service::AnswerInvitation{
    "/virtualTeam/responseJoinVirtualTeamRequestUrl",
    "CHttpVirtualTeamOperation::responseJoinVirtualTeamRequest()",
    "CHttpVirtualTeamOperation::slot_ResponseJoinVirtualTeamRequestFinish()",
    &Operation::slot_ResponseJoinVirtualTeamRequestFinish,
    &tellDecision<&Operation::signal_ResponseJoinVirtualTeamRequestFinish>,
    {{"vtId", team}, {"agree", decision}}};

const Operation::Service Operation::Service::Structure{
    "/virtualTeam/getVirtualTeamStructureUrl",
    "CHttpVirtualTeamOperation::getVirtualTeamStructure()",
    "CHttpVirtualTeamOperation::slot_GetVirtualTeamStructureFinish()",
    &Operation::slot_GetVirtualTeamStructureFinish,
    [](Operation &q, const TeamArguments &a, const TeamOutcome &o) {
        emit q.signal_GetVirtualTeamStructureFinish(o.ok, a.vtId, a.groupId,
                                                    TeamRecordReader::groups(o.data),
                                                    heard(TeamRecordReader::members(o.data)));
    },
    {{"vtId", team}, {"pgId", group}}};

const Operation::Service Operation::Service::AddMembers{
    "/virtualTeam/addVirtualTeamMembersUrl",
    "CHttpVirtualTeamOperation::addVirtualTeamMembers()",
    "CHttpVirtualTeamOperation::slot_AddVirtualTeamMembersFinish()",
    &Operation::slot_AddVirtualTeamMembersFinish,
    &tellGroup<&Operation::signal_AddVirtualTeamMembersFinish>,
    {{"vtId", team}, {"groupId", group}, {"members", people}}};

const Operation::Service Operation::Service::DeleteMembers{
    "/virtualTeam/deleteVirtualTeamMemberUrl",
    "CHttpVirtualTeamOperation::deleteVirtualTeamMember()",
    "CHttpVirtualTeamOperation::slot_DeleteVirtualTeamMemberFinish()",
    &Operation::slot_DeleteVirtualTeamMemberFinish,
    [](Operation &q, const TeamArguments &a, const TeamOutcome &o) {
        emit q.signal_deleteVirtualTeamMemberFinish(a.vtId, o.ok);
    },
    {{"vtId", team}, {"members", people}}};

const Operation::Service Operation::Service::Quit{
    "/virtualTeam/quitVirtualTeamUrl",
    "CHttpVirtualTeamOperation::quitVirtualTeam()",
    "CHttpVirtualTeamOperation::slot_QuitVirtualTeamFinish()",
    &Operation::slot_QuitVirtualTeamFinish,
    [](Operation &q, const TeamArguments &a, const TeamOutcome &o) {
        emit q.signal_QuitVirtualTeamFinish(a.vtId, o.ok, o.code);
    },
    {{"vtId", team}}};

const Operation::Service Operation::Service::Dissolve{
    "/virtualTeam/dissolveVirtualTeamUrl",
    "CHttpVirtualTeamOperation::dissolveVirtualTeam()",
    "CHttpVirtualTeamOperation::slot_DissolveVirtualTeamFinish()",
    &Operation::slot_DissolveVirtualTeamFinish,
    [](Operation &q, const TeamArguments &a, const TeamOutcome &o) {
        emit q.signal_DissolveVirtualTeamFinish(a.vtId, o.ok, o.code);
    },
    {{"vtId", team}}};

const Operation::Service Operation::Service::Rename{
    "/virtualTeam/modifyVirtualTeamNameUrl",
    "CHttpVirtualTeamOperation::modifyVirtualTeamName()",
    "CHttpVirtualTeamOperation::slot_ModifyVirtualTeamNameFinish()",
    &Operation::slot_ModifyVirtualTeamNameFinish,
    [](Operation &q, const TeamArguments &a, const TeamOutcome &o) {
        emit q.signal_ModifyVirtualTeamNameFinish(a.vtId, o.ok);
    },
    {{"vtId", team}, {"vtName", entered}}};

const Operation::Service Operation::Service::ChangeNickName{
    "/virtualTeam/modifyVirtualTeamPersonalInfoUrl",
    "CHttpVirtualTeamOperation::modifyVirtualTeamNickName()",
    "CHttpVirtualTeamOperation::slot_ModifyVirtualTeamPersonalInfoFinish()",
    &Operation::slot_ModifyVirtualTeamPersonalInfoFinish,
    &tellPersonalInfo,
    {{"vtId", team}, {"member", people}, {"nickName", entered}}};

const Operation::Service Operation::Service::ChangeDuty{
    "/virtualTeam/modifyVirtualTeamPersonalInfoUrl",
    "CHttpVirtualTeamOperation::modifyVirtualTeamDuty()",
    "CHttpVirtualTeamOperation::slot_ModifyVirtualTeamPersonalInfoFinish()",
    &Operation::slot_ModifyVirtualTeamPersonalInfoFinish,
    &tellPersonalInfo,
    {{"vtId", team}, {"member", people}, {"duty", entered}}};

const Operation::Service Operation::Service::MemberInfo{
    nullptr,
    "CHttpVirtualTeamOperation::getVirtualTeamMemberInfo()",
    "CHttpVirtualTeamOperation::slot_GetVirtualTeamMemberInfoFinish()",
    &Operation::slot_GetVirtualTeamMemberInfoFinish,
    [](Operation &q, const TeamArguments &, const TeamOutcome &o) {
        emit q.signal_GetVirtualTeamMemberInfoFinish(o.ok, heard(TeamRecordReader::member(o.data)));
    },
    {{"vtId", team}, {"member", people}}};

const Operation::Service Operation::Service::GrantAuthority{
    "/virtualTeam/grantVirtualTeamAuthorityUrl",
    "CHttpVirtualTeamOperation::grantVirtualTeamAuthority()",
    "CHttpVirtualTeamOperation::slot_GrantVirtualTeamAuthorityFinish()",
    &Operation::slot_GrantVirtualTeamAuthorityFinish,
    [](Operation &q, const TeamArguments &a, const TeamOutcome &o) {
        QString vtId = a.vtId;
        emit q.signal_GrantVirtualTeamAuthorityFinish(o.ok, vtId);
    },
    {{"vtId", team}, {"member", people}}};

const Operation::Service Operation::Service::FuzzySearch{
    "/virtualTeam/fuzzySearchVirtualTeamMemberUrl",
    "CHttpVirtualTeamOperation::fuzzySearchVirtualTeamMember()",
    "CHttpVirtualTeamOperation::slot_FuzzySearchVirtualTeamMemberFinish()",
    &Operation::slot_FuzzySearchVirtualTeamMemberFinish,
    [](Operation &q, const TeamArguments &a, const TeamOutcome &o) {
        emit q.signal_GetFuzzySearchFinish(o.ok, a.vtId, a.text,
                                           heard(TeamRecordReader::members(o.data)));
    },
    {{"vtId", team}, {"key", entered}}};

const Operation::Service Operation::Service::RenameGroup{
    "/virtualTeam/modifyVirtualTeamGroupUrl",
    "CHttpVirtualTeamOperation::modifyVirtualTeamGroup()",
    "CHttpVirtualTeamOperation::slot_modifyVirtualTeamGroupFinish()",
    &Operation::slot_modifyVirtualTeamGroupFinish,
    &tellGroup<&Operation::signal_modifyVirtualTeamGroupFinish>,
    {{"vtId", team}, {"groupId", group}, {"groupName", entered}}};

const Operation::Service Operation::Service::AddGroup{
    "/virtualTeam/addVirtualTeamGroupUrl",
    "CHttpVirtualTeamOperation::addVirtualTeamGroup()",
    "CHttpVirtualTeamOperation::slot_addVirtualTeamGroup()",
    &Operation::slot_addVirtualTeamGroup,
    [](Operation &q, const TeamArguments &a, const TeamOutcome &o) {
        emit q.signal_addVirtualTeamGroup(a.vtId, a.groupId, JsonReader::text(o.data, "groupId"),
                                          o.ok);
    },
    {{"vtId", team}, {"pgId", group}, {"groupName", entered}}};

const Operation::Service Operation::Service::DeleteGroup{
    "/virtualTeam/deleteVirtualTeamGroupUrl",
    "CHttpVirtualTeamOperation::deleteVirtualTeamGroup()",
    "CHttpVirtualTeamOperation::slot_deleteVirtualTeamGroup()",
    &Operation::slot_deleteVirtualTeamGroup,
    [](Operation &q, const TeamArguments &a, const TeamOutcome &o) {
        emit q.signal_deleteVirtualTeamGroupFinish(a.vtId, a.groupId, o.ok, o.code);
    },
    {{"vtId", team}, {"groupId", group}}};

const Operation::Service Operation::Service::MoveMembers{
    "/virtualTeam/transferVirtualTeamMemberUrl",
    "CHttpVirtualTeamOperation::transferVirtualTeamMember()",
    "CHttpVirtualTeamOperation::slot_transferVirtualTeamMember()",
    &Operation::slot_transferVirtualTeamMember,
    &tellGroup<&Operation::signal_transferVirtualTeamMemberFinish>,
    {{"vtId", team}, {"groupId", group}, {"members", people}}};

const Operation::Service Operation::Service::Members{
    "/virtualTeam/getVirtualTeamMembersUrl",
    "CHttpVirtualTeamOperation::getVirtualTeamMembers()",
    "CHttpVirtualTeamOperation::slot_getVirtualTeamMembers()",
    &Operation::slot_getVirtualTeamMembers,
    [](Operation &q, const TeamArguments &a, const TeamOutcome &o) {
        emit q.siganal_getVirtualTeamMembersFinish(a.vtId, heard(TeamRecordReader::members(o.data)),
                                                   o.ok);
    },
    {{"vtId", team}}};

const Operation::Service Operation::Service::SetAdmins{
    "/virtualTeam/setVirtualTeamAdminUrl",
    "CHttpVirtualTeamOperation::setVirtualTeamAdmin()",
    "CHttpVirtualTeamOperation::slot_setVirtualTeamAdmin()",
    &Operation::slot_setVirtualTeamAdmin,
    &tellAdmins<&Operation::signal_setVirtualTeamAdminFinish>,
    {{"vtId", team}, {"members", people}}};

const Operation::Service Operation::Service::AddAdmins{
    "/virtualTeam/addVirtualTeamAdminUrl",
    "CHttpVirtualTeamOperation::addVirtualTeamAdmin()",
    "CHttpVirtualTeamOperation::slot_addVirtualTeamAdmin()",
    &Operation::slot_addVirtualTeamAdmin,
    &tellAdmins<&Operation::signal_addVirtualTeamAdminFinish>,
    {{"vtId", team}, {"members", people}}};

const Operation::Service Operation::Service::DeleteAdmins{
    "/virtualTeam/deleteVirtualTeamAdminUrl",
    "CHttpVirtualTeamOperation::deleteVirtualTeamAdmin()",
    "CHttpVirtualTeamOperation::slot_deleteVirtualTeamAdmin()",
    &Operation::slot_deleteVirtualTeamAdmin,
    &tellAdmins<&Operation::signal_deleteVirtualTeamAdminFinish>,
    {{"vtId", team}, {"members", people}}};
