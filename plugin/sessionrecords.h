// Records of the host's own tables and of its customer service. The pane does
// not read them; they are declared so that they can travel through its hub.
#pragma once

#include "hostapi/recordstream.h"

#include <QMetaType>
#include <QString>

// An application of the user, as stored locally.
struct DBApplicationData
{
    QString appKey, name, icon, url, version;
    bool isBound = false; // bound to a service number

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.appKey, r.name, r.icon, r.url, r.version, r.isBound);
    }
};

// A service number of the user, as stored locally.
struct DBServiceData
{
    QString code, name, icon, version;
    bool isSub = false; // the user has subscribed

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.code, r.name, r.icon, r.version, r.isSub);
    }
};

// A conversation of the host's session list.
struct SessionData
{
    QString sessionJid;
    qint32 kind = 0; // a MessageData::Kind
    QString name, icon, lastContent;
    QString time;      // yyyy-MM-dd hh:mm:ss, local time
    qint32 unread = 0; // number of unread messages

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.sessionJid, r.kind, r.name, r.icon, r.lastContent, r.time, r.unread);
    }
};

struct SessionSettingData
{
    QString sessionJid;
    bool isNotHint = false; // muted
    bool isTop = false;     // pinned

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.sessionJid, r.isNotHint, r.isTop);
    }
};

struct LocalFileData
{
    QString fileId, fileName, localPath;
    qint64 size = 0; // bytes
    QString time;    // yyyy-MM-dd hh:mm:ss, local time

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.fileId, r.fileName, r.localPath, r.size, r.time);
    }
};

// A message that asks for attention until it is confirmed.
struct DingMsgData
{
    QString messageId, senderJid, content;
    QString time; // yyyy-MM-dd hh:mm:ss, local time
    bool isConfirmed = false;

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.messageId, r.senderJid, r.content, r.time, r.isConfirmed);
    }
};

// A message kept by the user.
struct FavoriteData
{
    QString favoriteId, sourceJid, content;
    qint32 kind = 0; // a MessageData::Kind
    QString time;    // yyyy-MM-dd hh:mm:ss, local time

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.favoriteId, r.sourceJid, r.content, r.kind, r.time);
    }
};

// A prepared answer of a customer-service agent.
struct CstSrvQukRplyData
{
    QString replyId, groupName, content;

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.replyId, r.groupName, r.content);
    }
};

// A customer-service agent.
struct AgentData
{
    QString jid, name, workgroup;
    qint32 status = 0; // 0 offline, 1 available

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.jid, r.name, r.workgroup, r.status);
    }
};

Q_DECLARE_METATYPE(DBApplicationData)
Q_DECLARE_METATYPE(DBServiceData)
Q_DECLARE_METATYPE(SessionData)
Q_DECLARE_METATYPE(SessionSettingData)
Q_DECLARE_METATYPE(LocalFileData)
Q_DECLARE_METATYPE(DingMsgData)
Q_DECLARE_METATYPE(FavoriteData)
Q_DECLARE_METATYPE(CstSrvQukRplyData)
Q_DECLARE_METATYPE(AgentData)
