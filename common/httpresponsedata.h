// The end of a transfer or another single web request, as it travels in signals.
#pragma once

#include "hostapi/recordstream.h"

#include <QByteArray>
#include <QMetaType>
#include <QString>

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

Q_DECLARE_METATYPE(HttpResponseData)
