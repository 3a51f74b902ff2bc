// One operation of a web service that is a form out and an envelope back: the
// operation is data, and the reply a function.
//
//     ServiceCall::start({"/virtualTeam/quitVirtualTeamUrl", {{"vtId", id}}}, this, HERE,
//                        [this, id](const ServiceReply &reply) {
//                            emit signal_quit(reply.ok, id, reply.code);
//                        });
//
// Whoever reads the QNetworkReply itself connects to the session instead:
//
//     CHttpSession *session = ServiceCall::open(request, this);
#pragma once

#include "http/requestheaders.h"
#include "http/servicereply.h"

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QVector>

#include <functional>
#include <utility>

class CHttpSession;

struct ServiceRequest
{
    const char *key = "";               // of the service's address
    RequestHeaders::Fields fields = {}; // of the form, in order
    // Headers of the service's own, besides the user's authorisation.
    QVector<std::pair<QByteArray, QByteArray>> headers = {};
    // For what runs in bulk: takes part in the limits on requests at a time.
    bool throttled = false;
    qint16 kind = 0;
    int timeout = 0;      // ms; 0: the usual one
    QString address = {}; // of a service without a key
    bool isPage = false;  // asked for by its address alone, without a form
};

class ServiceCall : public QObject
{
    Q_OBJECT

public:
    using Done = std::function<void(const ServiceReply &)>;

    // Sends at once; `done` is called exactly once, never inside this call, and not
    // when `context` is gone by then. The request itself goes on without it: who
    // closes a window has still sent what it said. The call deletes itself;
    // deleting it earlier ends the request without a word.
    static ServiceCall *start(const ServiceRequest &request, QObject *context,
                              SourceLocation caller, const Done &done);

    // The same request, sent by a session that the caller owns and connects to. An
    // empty address ends it with an error.
    static CHttpSession *open(const ServiceRequest &request, QObject *parent);

    // The same, by a session that goes on when whoever asked is gone: it deletes itself
    // after its signal, or without one when the application quits.
    static CHttpSession *openAlone(const ServiceRequest &request);

    // A session with the user's authorisation and the headers, time-out and limits of
    // the request; nothing is sent.
    static CHttpSession *session(const ServiceRequest &request, QObject *parent);

private:
    ServiceCall(QObject *context, SourceLocation caller, const Done &done);
    void finish(const ServiceReply &reply);

    QPointer<QObject> m_context;
    SourceLocation m_caller;
    Done m_done;
};
