// Asks the ticket service where it would send a browser of the user who is logged
// in. Not a CHttpSession: that one would go there itself and use up the ticket in
// the address. Deletes itself after signal_finished().
#pragma once

#include "http/cmonitorlogger.h"
#include "http/requestheaders.h"

#include <QNetworkAccessManager>
#include <QObject>

class RealLinkRequest : public QObject
{
    Q_OBJECT

public:
    static constexpr int Timeout = 10000; // ms

    explicit RealLinkRequest(QObject *parent = nullptr);

    // The address of a service key; an empty one fails.
    void start(const QString &address);

signals:
    // http or https only; empty: failed. Not inside start().
    void signal_finished(const QString &link);

private:
    void replyFinished(QNetworkReply *reply);
    void finish(const QString &link);

    QNetworkAccessManager m_manager;
    RequestHeaders::LoginCookies m_sent;
    RequestTiming m_timing;
};
