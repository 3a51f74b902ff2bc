#include "virtualteam/httpvirtualteamoperation.h"

#include "common/logging.h"
#include "http/chttpsession.h"
#include "http/jsonreader.h"
#include "http/oneshotcall.h"
#include "http/serviceaddresses.h"
#include "virtualteam/teamservicetable.h"

#include <limits>

namespace {

// The service of member details has no address of its own in the settings: it is
// where the list of teams is.
QString memberInfoAddress()
{
    QUrl url(ServiceAddresses::address("/virtualTeam/getMyVirtualTeamUrl"));
    if (!url.isValid() || url.host().isEmpty())
        return QString();
    const QString path = url.path(QUrl::FullyEncoded);
    const int center = qMax(0, path.indexOf(QLatin1String("/center/")));
    url.setPath(path.left(center) + QLatin1String("/center/vt/getVirtualTeamMemberDetail.do"),
                QUrl::TolerantMode);
    return url.toString(QUrl::RemoveQuery | QUrl::RemoveFragment | QUrl::FullyEncoded);
}

} // namespace

struct CHttpVirtualTeamOperation::Private
{
    explicit Private(QObject *operation) : call(operation) {}

    TeamArguments arguments;
    OneShotCall call;
    int code = 0;
    int failNumber = 0;
};

CHttpVirtualTeamOperation::CHttpVirtualTeamOperation(QObject *parent)
    : QObject(parent), d(std::make_unique<Private>(this))
{
    connect(&d->call, &OneShotCall::ranOut, this, &CHttpVirtualTeamOperation::slot_ReplyTimeOut);
}

CHttpVirtualTeamOperation::~CHttpVirtualTeamOperation() = default;

void CHttpVirtualTeamOperation::start(const Service &service, const TeamArguments &arguments)
{
    LOG_SCOPE(service.request);
    ServiceRequest request;
    if (service.key)
        request.key = service.key;
    else
        request.address = memberInfoAddress();
    for (const Service::Field &field : service.fields)
        if (field.name)
            request.fields.append({field.name, field.value(arguments)});
    CHttpSession *session = d->call.start(request);
    if (!session)
        return;
    d->arguments = arguments;
    connect(session, &CHttpSession::signal_finished, this, service.slot);
}

void CHttpVirtualTeamOperation::finish(const Service &service, QNetworkReply *reply)
{
    LOG_SCOPE(service.reply);
    if (!reply || !d->call.end())
        return;
    const ServiceReply answer = ServiceReply::of(reply, HERE);
    const bool isJson = answer.arrived && answer.error.isEmpty();
    if (answer.arrived && !isJson)
        LOG_ERROR("JsonString prase error!");
    const int code = isJson ? answer.code : 0;
    static const Json::Value nothing(Json::objectValue);
    const Json::Value &data = answer.ok ? answer.data() : nothing;
    d->code = code;
    d->failNumber = int(qBound<qint64>(0, JsonReader::integer(data, "failNumber"),
                                       std::numeric_limits<int>::max()));
    if (d->failNumber > 0)
        LOG_WARN("failNumber=" << QString::number(d->failNumber));
    deleteLater();
    // Who is told may delete this, and go on with what it was told.
    const TeamArguments arguments = d->arguments;
    service.tell(*this, arguments, {answer.ok, code, data});
}

// The session ends the request, and hands over a reply that says so.
void CHttpVirtualTeamOperation::slot_ReplyTimeOut()
{
    LOG_SCOPE("CHttpVirtualTeamOperation::slot_ReplyTimeOut()");
    d->call.timeOut();
}

QString CHttpVirtualTeamOperation::vtId() const
{
    return d->arguments.vtId;
}

QString CHttpVirtualTeamOperation::groupId() const
{
    return d->arguments.groupId;
}

QStringList CHttpVirtualTeamOperation::memberIds() const
{
    return d->arguments.members;
}

QString CHttpVirtualTeamOperation::text() const
{
    return d->arguments.text;
}

int CHttpVirtualTeamOperation::resultCode() const
{
    return d->code;
}

int CHttpVirtualTeamOperation::failNumber() const
{
    return d->failNumber;
}

// --- Requests and their replies --------------------------------------------------------

void CHttpVirtualTeamOperation::getMyVirtualTeam()
{
    start(Service::Teams, {});
}

void CHttpVirtualTeamOperation::slot_GetMyVirtualTeamFinish(QNetworkReply *reply)
{
    finish(Service::Teams, reply);
}

void CHttpVirtualTeamOperation::searchVirtualTeamMember(const QString &key)
{
    start(Service::SearchMember, {{}, {}, {}, key});
}

void CHttpVirtualTeamOperation::slot_SearchMemberFinish(QNetworkReply *reply)
{
    finish(Service::SearchMember, reply);
}

void CHttpVirtualTeamOperation::creatVirtualTeam(const QStringList &members, const QString &vtName,
                                                 const QString &reason)
{
    start(Service::Create, {{}, {}, members, vtName, reason});
}

void CHttpVirtualTeamOperation::slot_CreatVirtualTeamFinish(QNetworkReply *reply)
{
    finish(Service::Create, reply);
}

void CHttpVirtualTeamOperation::inviteVirtualTeam(const QString &vtId, const QStringList &members,
                                                  const QString &reason)
{
    start(Service::Invite, {vtId, {}, members, {}, reason});
}

void CHttpVirtualTeamOperation::slot_InviteVirtualTeamFinish(QNetworkReply *reply)
{
    finish(Service::Invite, reply);
}

void CHttpVirtualTeamOperation::auditingVirtualTeam(const QString &vtId, const QString &member,
                                                    bool agree)
{
    start(Service::Audit, {vtId, {}, {member}, {}, {}, agree});
}

void CHttpVirtualTeamOperation::slot_AuditingVirtualTeamFinish(QNetworkReply *reply)
{
    finish(Service::Audit, reply);
}

void CHttpVirtualTeamOperation::getVirtualTeamCreatDetail(const QString &vtId,
                                                          const QString &member)
{
    start(Service::CreateDetail, {vtId, {}, {member}});
}

void CHttpVirtualTeamOperation::slot_GetVirtualTeamCreatDetailFinish(QNetworkReply *reply)
{
    finish(Service::CreateDetail, reply);
}

void CHttpVirtualTeamOperation::getVirtualTeamJoinDetail(const QString &vtId)
{
    start(Service::JoinDetail, {vtId});
}

void CHttpVirtualTeamOperation::slot_GetVirtualTeamJoinDetailFinish(QNetworkReply *reply)
{
    finish(Service::JoinDetail, reply);
}

void CHttpVirtualTeamOperation::responseJoinVirtualTeamRequest(const QString &vtId, bool agree)
{
    start(Service::AnswerInvitation, {vtId, {}, {}, {}, {}, agree});
}

void CHttpVirtualTeamOperation::slot_ResponseJoinVirtualTeamRequestFinish(QNetworkReply *reply)
{
    finish(Service::AnswerInvitation, reply);
}

void CHttpVirtualTeamOperation::getVirtualTeamStructure(const QString &vtId, const QString &pgId)
{
    start(Service::Structure, {vtId, pgId});
}

void CHttpVirtualTeamOperation::slot_GetVirtualTeamStructureFinish(QNetworkReply *reply)
{
    finish(Service::Structure, reply);
}

void CHttpVirtualTeamOperation::addVirtualTeamMembers(const QString &vtId, const QString &groupId,
                                                      const QStringList &members)
{
    start(Service::AddMembers, {vtId, groupId, members});
}

void CHttpVirtualTeamOperation::slot_AddVirtualTeamMembersFinish(QNetworkReply *reply)
{
    finish(Service::AddMembers, reply);
}

void CHttpVirtualTeamOperation::deleteVirtualTeamMember(const QString &vtId,
                                                        const QStringList &members)
{
    start(Service::DeleteMembers, {vtId, {}, members});
}

void CHttpVirtualTeamOperation::slot_DeleteVirtualTeamMemberFinish(QNetworkReply *reply)
{
    finish(Service::DeleteMembers, reply);
}

void CHttpVirtualTeamOperation::quitVirtualTeam(const QString &vtId)
{
    start(Service::Quit, {vtId});
}

void CHttpVirtualTeamOperation::slot_QuitVirtualTeamFinish(QNetworkReply *reply)
{
    finish(Service::Quit, reply);
}

void CHttpVirtualTeamOperation::dissolveVirtualTeam(const QString &vtId)
{
    start(Service::Dissolve, {vtId});
}

void CHttpVirtualTeamOperation::slot_DissolveVirtualTeamFinish(QNetworkReply *reply)
{
    finish(Service::Dissolve, reply);
}

void CHttpVirtualTeamOperation::modifyVirtualTeamName(const QString &vtId, const QString &vtName)
{
    start(Service::Rename, {vtId, {}, {}, vtName});
}

void CHttpVirtualTeamOperation::slot_ModifyVirtualTeamNameFinish(QNetworkReply *reply)
{
    finish(Service::Rename, reply);
}

void CHttpVirtualTeamOperation::modifyVirtualTeamNickName(const QString &vtId,
                                                          const QString &member,
                                                          const QString &nickName)
{
    start(Service::ChangeNickName, {vtId, {}, {member}, nickName});
}

void CHttpVirtualTeamOperation::slot_ModifyVirtualTeamPersonalInfoFinish(QNetworkReply *reply)
{
    finish(Service::ChangeNickName, reply);
}

void CHttpVirtualTeamOperation::modifyVirtualTeamDuty(const QString &vtId, const QString &member,
                                                      const QString &duty)
{
    start(Service::ChangeDuty, {vtId, {}, {member}, duty});
}

void CHttpVirtualTeamOperation::getVirtualTeamMemberInfo(const QString &vtId, const QString &member)
{
    start(Service::MemberInfo, {vtId, {}, {member}});
}

void CHttpVirtualTeamOperation::slot_GetVirtualTeamMemberInfoFinish(QNetworkReply *reply)
{
    finish(Service::MemberInfo, reply);
}

void CHttpVirtualTeamOperation::grantVirtualTeamAuthority(const QString &vtId,
                                                          const QString &member)
{
    start(Service::GrantAuthority, {vtId, {}, {member}});
}

void CHttpVirtualTeamOperation::slot_GrantVirtualTeamAuthorityFinish(QNetworkReply *reply)
{
    finish(Service::GrantAuthority, reply);
}

void CHttpVirtualTeamOperation::fuzzySearchVirtualTeamMember(const QString &vtId,
                                                             const QString &key)
{
    start(Service::FuzzySearch, {vtId, {}, {}, key});
}

void CHttpVirtualTeamOperation::slot_FuzzySearchVirtualTeamMemberFinish(QNetworkReply *reply)
{
    finish(Service::FuzzySearch, reply);
}

void CHttpVirtualTeamOperation::modifyVirtualTeamGroup(const QString &vtId, const QString &groupId,
                                                       const QString &groupName)
{
    start(Service::RenameGroup, {vtId, groupId, {}, groupName});
}

void CHttpVirtualTeamOperation::slot_modifyVirtualTeamGroupFinish(QNetworkReply *reply)
{
    finish(Service::RenameGroup, reply);
}

void CHttpVirtualTeamOperation::addVirtualTeamGroup(const QString &vtId, const QString &pgId,
                                                    const QString &groupName)
{
    start(Service::AddGroup, {vtId, pgId, {}, groupName});
}

void CHttpVirtualTeamOperation::slot_addVirtualTeamGroup(QNetworkReply *reply)
{
    finish(Service::AddGroup, reply);
}

void CHttpVirtualTeamOperation::deleteVirtualTeamGroup(const QString &vtId, const QString &groupId)
{
    start(Service::DeleteGroup, {vtId, groupId});
}

void CHttpVirtualTeamOperation::slot_deleteVirtualTeamGroup(QNetworkReply *reply)
{
    finish(Service::DeleteGroup, reply);
}

void CHttpVirtualTeamOperation::transferVirtualTeamMember(const QString &vtId,
                                                          const QString &groupId,
                                                          const QStringList &members)
{
    start(Service::MoveMembers, {vtId, groupId, members});
}

void CHttpVirtualTeamOperation::slot_transferVirtualTeamMember(QNetworkReply *reply)
{
    finish(Service::MoveMembers, reply);
}

void CHttpVirtualTeamOperation::getVirtualTeamMembers(const QString &vtId)
{
    start(Service::Members, {vtId});
}

void CHttpVirtualTeamOperation::slot_getVirtualTeamMembers(QNetworkReply *reply)
{
    finish(Service::Members, reply);
}

void CHttpVirtualTeamOperation::setVirtualTeamAdmin(const QString &vtId, const QStringList &members)
{
    start(Service::SetAdmins, {vtId, {}, members});
}

void CHttpVirtualTeamOperation::slot_setVirtualTeamAdmin(QNetworkReply *reply)
{
    finish(Service::SetAdmins, reply);
}

void CHttpVirtualTeamOperation::addVirtualTeamAdmin(const QString &vtId, const QStringList &members)
{
    start(Service::AddAdmins, {vtId, {}, members});
}

void CHttpVirtualTeamOperation::slot_addVirtualTeamAdmin(QNetworkReply *reply)
{
    finish(Service::AddAdmins, reply);
}

void CHttpVirtualTeamOperation::deleteVirtualTeamAdmin(const QString &vtId,
                                                       const QStringList &members)
{
    start(Service::DeleteAdmins, {vtId, {}, members});
}

void CHttpVirtualTeamOperation::slot_deleteVirtualTeamAdmin(QNetworkReply *reply)
{
    finish(Service::DeleteAdmins, reply);
}
