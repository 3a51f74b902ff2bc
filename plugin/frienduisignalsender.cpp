#include "plugin/frienduisignalsender.h"

FriendUISignalSender *FriendUISignalSender::instance()
{
    // Views disconnect while the process ends, so the hub outlives them all.
    static FriendUISignalSender *const hub = new FriendUISignalSender;
    return hub;
}

FriendUISignalSender::FriendUISignalSender()
{
    registerMetaTypes();
}

void FriendUISignalSender::registerMetaTypes()
{
    qRegisterMetaType<FriendData>("FriendData");
    qRegisterMetaType<QList<FriendData>>("QList<FriendData>");
    qRegisterMetaType<DBFriendData>("DBFriendData");
    qRegisterMetaType<ChatSummaryData>("ChatSummaryData");
    qRegisterMetaType<CSChannelData>("CSChannelData");
    qRegisterMetaType<DBApplicationData>("DBApplicationData");
    qRegisterMetaType<DBServiceData>("DBServiceData");
    qRegisterMetaType<SessionData>("SessionData");
    qRegisterMetaType<SessionSettingData>("SessionSettingData");
    qRegisterMetaType<LocalFileData>("LocalFileData");
    qRegisterMetaType<DingMsgData>("DingMsgData");
    qRegisterMetaType<FavoriteData>("FavoriteData");
    qRegisterMetaType<CstSrvQukRplyData>("CstSrvQukRplyData");
    qRegisterMetaType<AgentData>("AgentData");
    qRegisterMetaType<QList<AgentData>>("QList<AgentData>");
    qRegisterMetaType<HttpResponseData>("HttpResponseData");
    qRegisterMetaType<VcardInfo>("VcardInfo");
    qRegisterMetaType<GroupData>("GroupData");
    qRegisterMetaType<QList<GroupData>>("QList<GroupData>");
    qRegisterMetaType<CRosterInfoData>("CRosterInfoData");
    qRegisterMetaType<PresenceData>("PresenceData");
    qRegisterMetaType<PresenceData::ePcShowType>("PresenceData::ePcShowType");
    qRegisterMetaType<QMap<QString, PresenceData>>("QMap<QString,PresenceData>");
    qRegisterMetaType<QMap<QString, bool>>("QMap<QString,bool>");
    qRegisterMetaType<QMap<QString, QString>>("QMap<QString,QString>");
    qRegisterMetaType<MucData>("MucData");
    qRegisterMetaType<MucData::MucClassify>("MucData::MucClassify");
    qRegisterMetaType<MucTopicInfoData>("MucTopicInfoData");
    qRegisterMetaType<MucMemberData>("MucMemberData");
    qRegisterMetaType<QList<MucMemberData>>("QList<MucMemberData>");
    qRegisterMetaType<CServiceNumData>("CServiceNumData");
    qRegisterMetaType<QList<CServiceNumData>>("QList<CServiceNumData>");
    qRegisterMetaType<CApplicationData>("CApplicationData");
    qRegisterMetaType<MessageData>("MessageData");
    qRegisterMetaType<SearchFriendResultData>("SearchFriendResultData");
    qRegisterMetaType<QList<SearchFriendResultData>>("QList<SearchFriendResultData>");
    qRegisterMetaType<SysUIData>("SysUIData");
}
