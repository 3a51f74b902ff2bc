// The records of group chats and chat messages.
#pragma once

#include "hostapi/recordstream.h"

#include <QMetaType>
#include <QString>

struct MucData
{
    enum MucClassify : qint32
    {
        LocalRoom = 0,
        AddressBookRoom = 1,
        PreferredRoom = 2
    };

    QString roomJid;
    QString roomName;
    QString memberCount; // decimal text; empty = unknown
    QString headImage;
    MucClassify classify = LocalRoom;
    QString ownerJid, managerJid, createTime, version;
    QString topsigntype, topsigndate, noticesubject, noticecontent;
    bool localExist = true;
    bool isExist = true;
    bool isOpenBarCode = false;
    bool isOpenJoinValidate = false;
    bool isAutoRelease = false;
    bool isOpenWaterMark = false;
    bool isInnerMuc = true;
    QString companyCode;
    bool forbidden = false; // muted for this user

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.roomJid, r.roomName, r.memberCount, r.headImage, r.classify, r.ownerJid,
                        r.managerJid, r.createTime, r.version, r.topsigntype, r.topsigndate,
                        r.noticesubject, r.noticecontent, r.localExist, r.isExist, r.isOpenBarCode,
                        r.isOpenJoinValidate, r.isAutoRelease, r.isOpenWaterMark, r.isInnerMuc,
                        r.companyCode, r.forbidden);
    }
};

struct MucTopicInfoData
{
    QString roomJid, topic, modifier, time;

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.roomJid, r.topic, r.modifier, r.time);
    }
};

struct MucMemberData
{
    QString jid, name;
    qint32 role = 0; // 0 member, 1 manager, 2 owner

    template <class Self> static auto fieldsOf(Self &r) { return std::tie(r.jid, r.name, r.role); }
};

struct MessageData
{
    enum Kind : qint32
    {
        Person = 0,
        Room = 1,
        ServiceNumber = 2,
        Channel = 3,
        System = 4
    };

    QString sessionJid;
    QString fromJid, toJid;
    QString body;
    QString time; // yyyy-MM-dd hh:mm:ss, local time
    Kind kind = Person;
    QString displayName, icon, appKey;

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.sessionJid, r.fromJid, r.toJid, r.body, r.time, r.kind, r.displayName,
                        r.icon, r.appKey);
    }
};

Q_DECLARE_METATYPE(MucData)
Q_DECLARE_METATYPE(MucData::MucClassify)
Q_DECLARE_METATYPE(MucTopicInfoData)
Q_DECLARE_METATYPE(MucMemberData)
Q_DECLARE_METATYPE(MessageData)
