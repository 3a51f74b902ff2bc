// The one request of an object that is one operation of a service: sent once, answered
// once, and ended after its time whatever redirects it goes through.
//
//     CHttpSession *session = m_call.start(request);
//     if (session)
//         connect(session, &CHttpSession::signal_finished, this, &Operation::slot_finished);
//     ...
//     if (reply && m_call.end())
//         ServiceReply::of(reply, HERE)...
//
// What was said is sent whatever becomes of this object. GUI thread only.
#pragma once

#include "http/servicecall.h"

#include <QPointer>
#include <QTimer>

class OneShotCall : public QObject
{
    Q_OBJECT

public:
    static constexpr int Timeout = 10000; // ms, to the end of the reply

    explicit OneShotCall(QObject *parent = nullptr);

    // Null, with a line in the log, when there was a request before. The session deletes
    // itself; its signal never comes inside this call. Of the request only the time-out
    // is ignored.
    CHttpSession *start(const ServiceRequest &request);
    // False when it has ended before: the reply is to be ignored, then.
    bool end();
    // Ends the request now: its session hands over a reply that says so.
    void timeOut();

signals:
    void ranOut(); // of time; timeOut() is left to the receiver

private:
    QPointer<CHttpSession> m_session;
    QTimer m_timer;
    bool m_hasStarted = false;
    bool m_hasEnded = false;
};
