// The records of the roster: contacts, groups, presence, profiles.
#pragma once

#include "hostapi/recordstream.h"

#include <QMetaType>
#include <QString>

// What the messaging server knows of a contact.
struct CRosterInfoData
{
    QString jid = QStringLiteral("");
    QString remark = QStringLiteral("");
    QString groupId = QStringLiteral("");
    QString groupName = QStringLiteral("");
    QString subscription = QStringLiteral("");

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.jid, r.remark, r.groupId, r.groupName, r.subscription);
    }
};

// One contact as the lists show it. Two contacts are the same when their jid is.
struct FriendData : CRosterInfoData
{
    QString nickName = QStringLiteral("");
    QString headPath = QStringLiteral(""); // local picture file, or empty
    qint32 onJob = 1;                      // 0: the person has left the company
    QString account = QStringLiteral("");
    QString companyCode = QStringLiteral("");
    qint32 outside = 0; // 1: an external contact
    QString sign = QStringLiteral("");
    QString spell = QStringLiteral("");

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tuple_cat(CRosterInfoData::fieldsOf(r),
                              std::tie(r.nickName, r.headPath, r.onJob, r.account, r.companyCode,
                                       r.outside, r.sign, r.spell));
    }
    friend bool operator==(const FriendData &a, const FriendData &b) { return a.jid == b.jid; }
};

struct GroupData
{
    QString id;
    QString name;

    template <class Self> static auto fieldsOf(Self &r) { return std::tie(r.id, r.name); }
    friend bool operator==(const GroupData &a, const GroupData &b) { return sameFields(a, b); }
};

// Where a contact can be reached. Both members zero = offline.
struct PresenceData
{
    enum ePcShowType : qint32
    {
        Offline = 0,
        Available = 1,
        Away = 2,
        ExtendedAway = 3,
        DoNotDisturb = 4,
        FreeForChat = 5
    };
    enum MobileDevice : qint32
    {
        NoMobile = 0,
        Android = 1,
        Ios = 2
    };

    ePcShowType pcShow = Offline;
    qint32 mobile = NoMobile;

    bool isOnline() const { return pcShow != Offline || mobile != NoMobile; }

    template <class Self> static auto fieldsOf(Self &r) { return std::tie(r.pcShow, r.mobile); }
    friend bool operator==(const PresenceData &a, const PresenceData &b)
    {
        return sameFields(a, b);
    }
};

// A user's profile.
struct VcardInfo
{
    QString jid, userName, photoName, nickName, sign;
    qint32 status = 0;
    QString sex, bday, locality;
    qint32 empStatus = 0;
    qint32 orgCount = 0;
    QString employeeCode, duty, mobile, otherPhone, personalMobile, email, orgId, orgName,
        companyName;
    qint32 isAdmin = 0;
    QString leaderId;
    qint32 version = 0;
    QString leaderName;

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.jid, r.userName, r.photoName, r.nickName, r.sign, r.status, r.sex, r.bday,
                        r.locality, r.empStatus, r.orgCount, r.employeeCode, r.duty, r.mobile,
                        r.otherPhone, r.personalMobile, r.email, r.orgId, r.orgName, r.companyName,
                        r.isAdmin, r.leaderId, r.version, r.leaderName);
    }
    friend bool operator==(const VcardInfo &a, const VcardInfo &b) { return sameFields(a, b); }
};

struct SearchFriendResultData
{
    QString jid, name, nickName, photoName, companyName;

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.jid, r.name, r.nickName, r.photoName, r.companyName);
    }
};

Q_DECLARE_METATYPE(CRosterInfoData)
Q_DECLARE_METATYPE(FriendData)
Q_DECLARE_METATYPE(GroupData)
Q_DECLARE_METATYPE(PresenceData)
Q_DECLARE_METATYPE(PresenceData::ePcShowType)
Q_DECLARE_METATYPE(VcardInfo)
Q_DECLARE_METATYPE(SearchFriendResultData)
