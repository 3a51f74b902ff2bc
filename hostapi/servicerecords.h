// The records of service numbers, customer-service channels and applications.
#pragma once

#include "hostapi/recordstream.h"

#include <QMetaType>
#include <QString>
#include <QStringList>

// A customer-service channel.
struct CSChannelData
{
    QString id = QStringLiteral("");
    QString name = QStringLiteral("");
    QString photoName = QStringLiteral("");
    QString version = QStringLiteral("");
    QStringList workgroups;
    qint64 openTime = 0;  // ms since the epoch; 0 = unknown
    qint64 closeTime = 0; // ms since the epoch; 0 = unknown
    qint32 agentForm = 0;
    qint32 agentOpenSession = 0;
    qint32 agentCloseSession = 0;
    bool enableRobot = false;
    bool isAgent = false;
    bool isOpen = false;

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.id, r.name, r.photoName, r.version, r.workgroups, r.openTime, r.closeTime,
                        r.agentForm, r.agentOpenSession, r.agentCloseSession, r.enableRobot,
                        r.isAgent, r.isOpen);
    }
};

inline bool operator==(const CSChannelData &a, const CSChannelData &b)
{
    return CSChannelData::fieldsOf(a) == CSChannelData::fieldsOf(b);
}

// One service number (a subscription account).
struct CServiceNumData
{
    QString code, name, description, icon;
    qint32 subType = 0;
    bool isBindApp = false;
    bool isSub = false; // the user has subscribed
    bool isInteractive = false;
    QString subject, contactWay;
    bool fold = false;
    QString menuList; // JSON text
    qint32 status = 0;
    QString version;
    bool hasChannel = false;
    CSChannelData channel; // only with hasChannel

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.code, r.name, r.description, r.icon, r.subType, r.isBindApp, r.isSub,
                        r.isInteractive, r.subject, r.contactWay, r.fold, r.menuList, r.status,
                        r.version, r.hasChannel, r.channel);
    }
};

inline bool operator==(const CServiceNumData &a, const CServiceNumData &b)
{
    return CServiceNumData::fieldsOf(a) == CServiceNumData::fieldsOf(b);
}

// An application of the company's application centre.
struct CApplicationData
{
    QString appKey, name, icon, url, version;

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.appKey, r.name, r.icon, r.url, r.version);
    }
};

Q_DECLARE_METATYPE(CSChannelData)
Q_DECLARE_METATYPE(CServiceNumData)
Q_DECLARE_METATYPE(CApplicationData)
