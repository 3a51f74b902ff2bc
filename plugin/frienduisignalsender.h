// The plug-in's signal hub: everything that arrives from the host, and every
// change that one view makes and another must see, is a signal of this object.
#pragma once

#include "hostapi/hostrecords.h"
#include "plugin/sessionrecords.h"
#include "plugin/sharedrecords.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

// One per process, made at the first use and never destroyed. Emitted on the GUI
// thread only. The odd spellings are part of the names.
//
// Connect with pointers to members. The two signals with reference parameters
// lend the emitter's variables: connect directly, never queued, and do not
// modify them, because the next receiver would see the change.
//
// An inner flag tells the roster's contacts (true) from the external contacts.
class FriendUISignalSender : public QObject
{
    Q_OBJECT

public:
    static FriendUISignalSender *instance();

    // Registers, under the names that a queued or string connection looks for,
    // every record that a signal carries. Called by the constructor; may be
    // called again.
    static void registerMetaTypes();

signals:
    // Contacts and roster groups.
    void signal_addFriend(QString friendJid);
    void signal_addAllFriend(QList<FriendData> infoList);
    void signal_addFriendFail(QString friendJid);
    void signal_delFriend(QString friendJid);
    void signal_delOutsideFriend(QString friendJid);
    void signal_delFriendFail(QString friendJid, bool bInnerGroup);
    void signal_clearFriend(QString friendJid);
    void signal_delStranger(QString frdjid);
    void signal_updateFriendPresence(QMap<QString, PresenceData> presencDataMap);
    void signal_requestAddFriend(QString friendJid, QString statusText, QString time = QString());
    void signal_addsucess(QString jid, bool isaddsucess, QString time);
    void signal_BatchAddFriendFial(QStringList listUids);
    void signal_addGroup(QString strGroupId, QString groupName, bool bIsSuccess, bool bInnerGroup);
    void signal_addAllGroup(QList<GroupData> &groupList, bool bInnerGroup = true);
    void signal_delGroup(bool bSuccess, QString strGroupId, bool bInnerGroup);
    void signal_changeGroupName(QString groupid, QString strNewName, bool bIsSuccess,
                                bool bInnerGroup);
    void signal_moveitem(bool bSuccess, QString frdjid, QString oldgroupId, QString newgroupId,
                         bool bInnerGroup = true);
    void signal_hidealloff(bool bNeedhide, bool bInnerGroup = true);
    void signal_getGroupFail();
    void signal_doalloffline();
    void signal_notifyFriendRemarkName(QString strJid, QString strName);
    void signal_notifyCooperate(QMap<QString, bool> mapCooperateRelation);
    void signal_configreceived(QString userjid, QString userconfig, QString strMoveToGpName,
                               QString strDisplayName = QString(), bool bNeedOpenDilog = false);

    // Profiles and heads.
    void signal_FriendVcardInfo(QString jid, VcardInfo info);
    void signal_FriendFullVcardInfo(QString jid, VcardInfo info);
    void signal_EmployeeInfo(QString jid, VcardInfo info);
    void signal_GetVcardFail(QString jid);
    void signal_GetVcardSuccessNoChange(QString username);
    void signal_UpdateFrdHead(QString jid, QString imagePath);
    void signal_ConfirmedResultByJidReceived(QString jid, QMap<QString, QString> results);
    void signal_SearchFriendRecv(QList<SearchFriendResultData> results, int count);
    void signal_myProfileRecv();
    void signal_myStatusChanged();
    void signal_openLeaderDetail(QString jid);

    // Latest contacts and sessions.
    // The newest entry of a conversation that the user has seen: nothing is unread
    // there. An empty content or time leaves what is known.
    void signal_updateLatestContact(QString &strContactJid, QString &strLastContent,
                                    QString &strLastTime);
    void signal_latestFriend(bool received, MessageData message);
    void signal_removelatest(QString jid);
    void signal_clearlatest();
    // The host's sessions have changed: which are pinned is to be asked again.
    void signal_latestSessionReceived();
    // The conversation is being opened: nothing is unread there any more.
    void signal_paintDelegateMsgCount(QString strjid);
    void siganl_recvMissingCall();
    void siganl_delMissingCall();

    // Group chats.
    void signal_addMuc(MucData data, bool add);
    void signal_roomSubjectChanged(QString roomJid, QString roomSubject, QString strModifier);
    void signal_updateRoomMembers(QString member, QString roomJid);
    void signal_setForbiddenIcon(QString roomJid, bool isForbidden);
    void signal_deleteMucRoon(QString roomjid);
    void signal_removedRoom(QString roomJid);
    void signal_roomIsNull();
    // A value that the host made up arrives as it is: check it before use.
    void siganl_mucClassifyChanged(QString strRoomJid, MucData::MucClassify iClassify);
    void signal_showAllRoom(bool bShowAllRoom);
    void signal_localMucAdded(QString strRoomJid, QString strSource);
    void signal_mucChatHeadChanged(QString strRoomJid, QString strHeadPath);

    // Organisation, virtual teams, service numbers, channels.
    void signal_locateFrdOrgStructureShow();
    void signal_refreshOrganization();
    void signal_position_orgstruct(QString strUid, bool bIsOrg);
    void signal_addMembersToVirtualTeam(QString strVirtualId, QStringList strListUserIds,
                                        int nGroupId);
    void signal_position_virtualTeam(bool bRefresh);
    void signal_refresh_virtualTeam(QString strVirtualId);
    void signal_notifySubServiceNum(QString strCode, QString strGroupID, bool bSuccess,
                                    QString strErrorCode);
    void signal_notifyCancelSubServiceNum(QString strCode, QString strGroupID, bool bSuccess);
    void signal_notifyDownloadServiceIconResult(QString strAppCode, QString strIconPath);
    void signal_notifyServiceNumData(CServiceNumData serviceNumData);
    void signal_notifyAddServiceNum(QList<CServiceNumData> serviceNumList);
    void signal_notifyUpdateServiceNum(QString strJid, CServiceNumData serviceData);
    void signal_notifyUpdateApplication(CApplicationData appData);
    void signal_notifyGetMyAPPFail();
    void signal_notifyAddChannel(CSChannelData channelData);
    void signal_notifyRemoveChannel(QString strChannelID);
    void signal_notifyUpdateChannelHead(QString strChannelId, QString strIconPath);
    void signal_OpenCSChannel(QString strChannelId);

    // Session and window.
    void signal_isConnected(bool connected);
    void signal_login();
    void signal_logout();
    void signal_SkinChange(SysUIData skindata);
    void signal_notifyWindowsSize();

private:
    FriendUISignalSender();
};
