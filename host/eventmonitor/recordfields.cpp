#include "host/eventmonitor/recordfields.h"

#include <QHash>

namespace {

struct RecordText
{
    const char *type;
    const char *fields; // as in the payload texts of the event catalogue
};

constexpr RecordText records[] = {
    {"FriendData",
     "QString jid, QString remark, QString groupId, QString groupName, QString subscription, "
     "QString nickName, QString headPath, int onJob, QString account, QString companyCode, "
     "int outside, QString sign, QString spell"},
    {"GroupData", "QString id, QString name"},
    {"PresenceData", "PcShow pcShow, int mobile"},
    {"VcardInfo",
     "QString jid, QString userName, QString photoName, QString nickName, QString sign, "
     "int status, QString sex, QString bday, QString locality, int empStatus, int orgCount, "
     "QString employeeCode, QString duty, QString mobile, QString otherPhone, "
     "QString personalMobile, QString email, QString orgId, QString orgName, "
     "QString companyName, int isAdmin, QString leaderId, int version, QString leaderName"},
    {"SearchFriendResultData",
     "QString jid, QString name, QString nickName, QString photoName, QString companyName"},
    {"MucData",
     "QString roomJid, QString roomName, QString memberCount, QString headImage, int classify, "
     "QString ownerJid, QString managerJid, QString createTime, QString version, "
     "QString topsigntype, QString topsigndate, QString noticesubject, QString noticecontent, "
     "bool localExist, bool isExist, bool isOpenBarCode, bool isOpenJoinValidate, "
     "bool isAutoRelease, bool isOpenWaterMark, bool isInnerMuc, QString companyCode, "
     "bool forbidden"},
    {"MessageData",
     "QString sessionJid, QString fromJid, QString toJid, QString body, QString time, int kind, "
     "QString displayName, QString icon, QString appKey"},
    {"CSChannelData",
     "QString id, QString name, QString photoName, QString version, QStringList workgroups, "
     "qint64 openTime, qint64 closeTime, int agentForm, int agentOpenSession, "
     "int agentCloseSession, bool enableRobot, bool isAgent, bool isOpen"},
    {"CServiceNumData",
     "QString code, QString name, QString description, QString icon, int subType, "
     "bool isBindApp, bool isSub, bool isInteractive, QString subject, QString contactWay, "
     "bool fold, QString menuList, int status, QString version, bool hasChannel, "
     "CSChannelData channel"},
    {"SysUIData",
     "QString skinName, QString themeColor, QString textColor, QString secondaryColor, "
     "QString hoverColor, QString selectedColor, QString watermarkColor, int alpha"},
};

using Fields = QVector<EventCatalogue::PayloadField>;

const QHash<QString, Fields> &table()
{
    static const QHash<QString, Fields> byType = [] {
        QHash<QString, Fields> map;
        for (const RecordText &record : records) {
            EventInfo row{};
            row.payload = record.fields;
            map.insert(QString::fromLatin1(record.type), EventCatalogue::payloadFields(row));
        }
        return map;
    }();
    return byType;
}

} // namespace

const Fields &RecordFields::of(const QString &recordType)
{
    static const Fields none;
    const auto at = table().constFind(recordType);
    return at == table().constEnd() ? none : *at;
}

QStringList RecordFields::recordTypes()
{
    return table().keys();
}
