// The end of a web request, decoded: transport, status and the envelope that all
// services share ("code", 0 for success, payload in "data").
#pragma once

#include <QByteArray>
#include <QString>

#include <json/value.h>

class QNetworkReply;

// Where a log line says it comes from.
struct SourceLocation
{
    const char *file = "";
    int line = 0;
};
#define HERE (SourceLocation{__FILE__, __LINE__})

struct ServiceReply
{
    static constexpr int NoCode = -1;

    bool ok = false;      // transport, status, JSON and code are all fine
    bool arrived = false; // transport and status are; `error` is then of the JSON
    int status = 0;       // HTTP; 0: there was no answer
    int code = NoCode;    // the service's; 0 = success, NoCode: there was no envelope
    QString error;        // of the transport or the JSON, for the log
    QByteArray body;
    Json::Value root; // the whole object
    // "data"; an empty object when it is missing or null.
    const Json::Value &data() const;

    // Reads the reply; a transport failure is logged at level 5 with the caller's
    // location.
    static ServiceReply of(QNetworkReply *reply, SourceLocation caller);
    // Pure: the envelope of a reply that arrived.
    static ServiceReply decode(const QByteArray &body, int status);
};
