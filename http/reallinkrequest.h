// Asks the ticket service where it would send a browser of the user who is logged
// in. Not a CHttpSession: that one would go there itself and use up the ticket in
// the address. Deletes itself after signal_finished().
#pragma once

#include "http/cmonitorlogger.h"
#include "http/managerpool.h"
#include "http/requestheaders.h"

#include <QObject>
#include <QPointer>

class QNetworkReply;

class RealLinkRequest : public QObject
{
    Q_OBJECT

public:
    static constexpr int Timeout = 10000;               // ms
    static constexpr qint64 MaximumReply = 1024 * 1024; // bytes

    explicit RealLinkRequest(QObject *parent = nullptr);
    ~RealLinkRequest() override;

    // The address of a service key; an empty one fails.
    void start(const QString &address);

signals:
    // http or https only; empty: failed. Not inside start().
    void signal_finished(const QString &link);

private:
    void replyFinished();
    void finish(const QString &link);

    ManagerLease m_manager;
    QPointer<QNetworkReply> m_reply;
    RequestHeaders::LoginCookies m_sent;
    RequestTiming m_timing;
};
