// Records that travel inside the plug-in: in hub signals, in queued connections
// and in variants. Records of the host's events are in hostapi/hostrecords.h.
#pragma once

#include "common/httpresponsedata.h"
#include "hostapi/recordstream.h"

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

Q_DECLARE_METATYPE(DBFriendData)
Q_DECLARE_METATYPE(ChatSummaryData)
