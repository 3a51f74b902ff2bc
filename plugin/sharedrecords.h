// Records that travel inside the plug-in: in hub signals, in queued connections
// and in variants. Records of the host's events are in hostapi/hostrecords.h.
#pragma once

#include "hostapi/recordstream.h"

#include <QByteArray>
#include <QMetaType>
#include <QString>

// One row of the latest-contacts table. No text is null: a null one would be
// stored as SQL NULL, which the table's queries never list.
struct DBFriendData
{
    QString jid = QStringLiteral("");
    QString displayName = QStringLiteral("");
    QString accountNo = QStringLiteral("");
    QString icon = QStringLiteral(""); // local picture file, or empty
    QString signature = QStringLiteral("");
    QString time = QStringLiteral(""); // yyyy-MM-dd hh:mm:ss, local time
    QString lastContent = QStringLiteral("");
    qint32 onJob = 1; // 0: the person has left the company
    QString appKey = QStringLiteral("");
    QString companyCode = QStringLiteral("");
    QString draft = QStringLiteral("");
    qint32 isSystemNotice = 0;
    QString sender = QStringLiteral("");
    qint16 isTop = 0; // 1: pinned
    QString reservedText = QStringLiteral("");
    qint32 isLocalSession = 0;
    QString reservedText2 = QStringLiteral("");
    qint32 unread = 0; // number of unread messages

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.jid, r.displayName, r.accountNo, r.icon, r.signature, r.time,
                        r.lastContent, r.onJob, r.appKey, r.companyCode, r.draft, r.isSystemNotice,
                        r.sender, r.isTop, r.reservedText, r.isLocalSession, r.reservedText2,
                        r.unread);
    }
};

// One conversation in short.
struct ChatSummaryData
{
    QString jid;
    bool isRoom = false;
    QString lastContent;
    QString time; // yyyy-MM-dd hh:mm:ss, local time
    QString name;

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.jid, r.isRoom, r.lastContent, r.time, r.name);
    }
};

// How an upload, a download or another single web request ended.
struct HttpResponseData
{
    bool ok = false;
    qint32 code = 0; // the service's result code; 0 = success
    QString message; // the service's text for a failure
    QString fileName;
    QString localPath; // where a download was stored
    QByteArray body;

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.ok, r.code, r.message, r.fileName, r.localPath, r.body);
    }
};

Q_DECLARE_METATYPE(DBFriendData)
Q_DECLARE_METATYPE(ChatSummaryData)
Q_DECLARE_METATYPE(HttpResponseData)
