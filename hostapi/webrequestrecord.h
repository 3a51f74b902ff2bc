// One finished web request, as the host's monitor shows it. Holds nothing secret:
// the address is without query, fragment and user information.
#pragma once

#include <QString>

struct WebRequestRecord
{
    QString method;      // "GET", "POST"
    QString address;     // scheme, host, port, path
    QString time;        // start, yyyy-MM-dd hh:mm:ss.zzz, local time
    qint32 status = 0;   // HTTP status; 0: no answer
    qint64 duration = 0; // milliseconds from sending to the last byte or the failure
    qint64 sent = 0;     // bytes of the body
    qint64 received = 0; // bytes of the body
    QString error;       // empty: none
};
