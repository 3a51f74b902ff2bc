// One operation of the team services: makes one request, ends in exactly one signal,
// never inside the call that started it, and is deleted after that.
//
//     auto *operation = new CHttpVirtualTeamOperation(this);
//     connect(operation, &CHttpVirtualTeamOperation::signal_QuitVirtualTeamFinish, this,
//             [=](const QString &vtId, bool ok, int code) { ... });
//     operation->quitVirtualTeam(vtId);
//
// A request whose object is destroyed before was sent nevertheless. The slots of its
// signals find what else is known of it in sender(). GUI thread only.
#pragma once

#include "virtualteam/teamrecords.h"

#include <QObject>
#include <QStringList>

#include <memory>

class QNetworkReply;
struct TeamArguments;

class CHttpVirtualTeamOperation : public QObject
{
    Q_OBJECT

public:
    // The code of signal_CreatVirtualTeamFinish, with ok, for a team that waits for
    // its approval.
    static constexpr int PendingCode = 1;

    explicit CHttpVirtualTeamOperation(QObject *parent = nullptr);
    ~CHttpVirtualTeamOperation() override;

    // --- Teams ------------------------------------------------------------------
    void getMyVirtualTeam();
    void creatVirtualTeam(const QStringList &members, const QString &vtName, const QString &reason);
    void inviteVirtualTeam(const QString &vtId, const QStringList &members, const QString &reason);
    void modifyVirtualTeamName(const QString &vtId, const QString &vtName);
    void quitVirtualTeam(const QString &vtId);
    void dissolveVirtualTeam(const QString &vtId);

    // --- Approval and invitation ------------------------------------------------
    // `member`: who asked for the team.
    void getVirtualTeamCreatDetail(const QString &vtId, const QString &member);
    void auditingVirtualTeam(const QString &vtId, const QString &member, bool agree);
    void getVirtualTeamJoinDetail(const QString &vtId);
    void responseJoinVirtualTeamRequest(const QString &vtId, bool agree);

    // --- Structure ----------------------------------------------------------------
    // One level: what is directly below the group.
    void getVirtualTeamStructure(const QString &vtId, const QString &pgId);
    void addVirtualTeamGroup(const QString &vtId, const QString &pgId, const QString &groupName);
    void modifyVirtualTeamGroup(const QString &vtId, const QString &groupId,
                                const QString &groupName);
    void deleteVirtualTeamGroup(const QString &vtId, const QString &groupId);

    // --- Members ------------------------------------------------------------------
    // By account or mobile number, among all people; the code is the signal's second.
    void searchVirtualTeamMember(const QString &key);
    void fuzzySearchVirtualTeamMember(const QString &vtId, const QString &key);
    void getVirtualTeamMembers(const QString &vtId); // of all groups
    void getVirtualTeamMemberInfo(const QString &vtId, const QString &member);
    void addVirtualTeamMembers(const QString &vtId, const QString &groupId,
                               const QStringList &members);
    void deleteVirtualTeamMember(const QString &vtId, const QStringList &members);
    void transferVirtualTeamMember(const QString &vtId, const QString &groupId,
                                   const QStringList &members);
    void modifyVirtualTeamNickName(const QString &vtId, const QString &member,
                                   const QString &nickName);
    void modifyVirtualTeamDuty(const QString &vtId, const QString &member, const QString &duty);

    // --- Roles --------------------------------------------------------------------
    void grantVirtualTeamAuthority(const QString &vtId, const QString &member);
    void setVirtualTeamAdmin(const QString &vtId, const QStringList &members); // no others
    void addVirtualTeamAdmin(const QString &vtId, const QStringList &members);
    void deleteVirtualTeamAdmin(const QString &vtId, const QStringList &members);

    // --- What the request was about ------------------------------------------------
    QString vtId() const;
    QString groupId() const; // of the group, or of the parent of a new one
    QStringList memberIds() const;
    QString text() const; // the new name, nick name or post
    // The service's code: 0 for success and when there was no answer. A signal's `ok`
    // is to be looked at first.
    int resultCode() const;
    int failNumber() const; // how many could not be added

signals:
    void signal_GetMyVirtualTeamFinish(bool ok, QList<CVirtualTeamSimpleInfo> teams);
    void signal_SearchVirtualTeamMemberFinish(bool ok, qint64 code, CVirtualTeamMemberInfo member);
    void signal_CreatVirtualTeamFinish(bool ok, QString vtId, int code);
    void signal_InviteVirtualTeamFinish(bool ok, int code);
    // The last two are what was decided, also when ok is false.
    void signal_AuditingVirtualTeamFinish(bool ok, const QString &vtId, bool agreed, bool refused);
    void signal_GetVirtualTeamCreatDetailFinish(bool ok, CVirtualTeamInfo info);
    void signal_GetVirtualTeamJoinDetailFinish(bool ok, CVirtualTeamInfo info);
    void signal_ResponseJoinVirtualTeamRequestFinish(bool ok, const QString &vtId, bool agreed,
                                                     bool refused);
    void signal_GetVirtualTeamStructureFinish(bool ok, QString vtId, QString pgId,
                                              QList<CVirtualTeamSimpleInfo> groups,
                                              QList<CVirtualTeamMemberInfo> members);
    void signal_AddVirtualTeamMembersFinish(const QString &vtId, const QString &groupId, bool ok);
    void signal_deleteVirtualTeamMemberFinish(const QString &vtId, bool ok);
    void signal_QuitVirtualTeamFinish(const QString &vtId, bool ok, int code);
    void signal_DissolveVirtualTeamFinish(const QString &vtId, bool ok, int code);
    void signal_ModifyVirtualTeamNameFinish(QString vtId, bool ok);
    void signal_ModifyVirtualTeamPersonalInfoFinish(QString vtId, QString member, bool ok);
    void signal_GetVirtualTeamMemberInfoFinish(bool ok, CVirtualTeamMemberInfo member);
    void signal_GrantVirtualTeamAuthorityFinish(bool ok, QString &vtId);
    void signal_GetFuzzySearchFinish(bool ok, QString vtId, QString key,
                                     QList<CVirtualTeamMemberInfo> hits);
    void signal_modifyVirtualTeamGroupFinish(const QString &vtId, const QString &groupId, bool ok);
    void signal_addVirtualTeamGroup(const QString &vtId, const QString &pgId,
                                    const QString &groupId, bool ok);
    void signal_deleteVirtualTeamGroupFinish(const QString &vtId, const QString &groupId, bool ok,
                                             int code);
    void signal_transferVirtualTeamMemberFinish(const QString &vtId, const QString &groupId,
                                                bool ok);
    void siganal_getVirtualTeamMembersFinish(const QString &vtId,
                                             QList<CVirtualTeamMemberInfo> members, bool ok);
    void signal_setVirtualTeamAdminFinish(const QString &vtId, const QStringList &members, bool ok,
                                          int code);
    void signal_addVirtualTeamAdminFinish(const QString &vtId, const QStringList &members, bool ok,
                                          int code);
    void signal_deleteVirtualTeamAdminFinish(const QString &vtId, const QStringList &members,
                                             bool ok, int code);

private slots:
    // Ends a request that was not answered in time as one that failed.
    void slot_ReplyTimeOut();
    void slot_GetMyVirtualTeamFinish(QNetworkReply *reply);
    void slot_SearchMemberFinish(QNetworkReply *reply);
    void slot_CreatVirtualTeamFinish(QNetworkReply *reply);
    void slot_InviteVirtualTeamFinish(QNetworkReply *reply);
    void slot_AuditingVirtualTeamFinish(QNetworkReply *reply);
    void slot_GetVirtualTeamCreatDetailFinish(QNetworkReply *reply);
    void slot_GetVirtualTeamJoinDetailFinish(QNetworkReply *reply);
    void slot_ResponseJoinVirtualTeamRequestFinish(QNetworkReply *reply);
    void slot_GetVirtualTeamStructureFinish(QNetworkReply *reply);
    void slot_AddVirtualTeamMembersFinish(QNetworkReply *reply);
    void slot_DeleteVirtualTeamMemberFinish(QNetworkReply *reply);
    void slot_QuitVirtualTeamFinish(QNetworkReply *reply);
    void slot_DissolveVirtualTeamFinish(QNetworkReply *reply);
    void slot_ModifyVirtualTeamNameFinish(QNetworkReply *reply);
    void slot_ModifyVirtualTeamPersonalInfoFinish(QNetworkReply *reply);
    void slot_GetVirtualTeamMemberInfoFinish(QNetworkReply *reply);
    void slot_GrantVirtualTeamAuthorityFinish(QNetworkReply *reply);
    void slot_FuzzySearchVirtualTeamMemberFinish(QNetworkReply *reply);
    void slot_modifyVirtualTeamGroupFinish(QNetworkReply *reply);
    void slot_addVirtualTeamGroup(QNetworkReply *reply);
    void slot_deleteVirtualTeamGroup(QNetworkReply *reply);
    void slot_transferVirtualTeamMember(QNetworkReply *reply);
    void slot_getVirtualTeamMembers(QNetworkReply *reply);
    void slot_setVirtualTeamAdmin(QNetworkReply *reply);
    void slot_addVirtualTeamAdmin(QNetworkReply *reply);
    void slot_deleteVirtualTeamAdmin(QNetworkReply *reply);

private:
    struct Service;
    struct Private;
    void start(const Service &service, const TeamArguments &arguments);
    void finish(const Service &service, QNetworkReply *reply);
    std::unique_ptr<Private> d;
};
