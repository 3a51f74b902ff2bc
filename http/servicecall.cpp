#include "http/servicecall.h"

#include "common/logging.h"
#include "http/chttpsession.h"
#include "http/serviceaddresses.h"

#include <QCoreApplication>
#include <QTimer>

namespace {
// What is still on its way then must not outlive the network's threads.
void endWithApplication(QObject *object)
{
    QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, object,
                     [object] { delete object; });
}

QString addressOf(const ServiceRequest &request)
{
    return request.address.isEmpty() ? ServiceAddresses::address(request.key) : request.address;
}

void send(CHttpSession *session, const QString &address, const ServiceRequest &request)
{
    if (request.isPage)
        session->get(RequestHeaders::request(QUrl(address)));
    else
        session->post(RequestHeaders::formRequest(QUrl(address)),
                      RequestHeaders::formBody(request.fields));
}
} // namespace

ServiceCall::ServiceCall(QObject *context, SourceLocation caller, const Done &done)
    : QObject(QCoreApplication::instance()), m_context(context), m_caller(caller), m_done(done)
{
    endWithApplication(this);
}

CHttpSession *ServiceCall::session(const ServiceRequest &request, QObject *parent)
{
    auto *session = new CHttpSession(parent);
    session->setThrottled(request.throttled);
    session->setRequestKind(request.kind);
    session->setTimeout(request.timeout);
    const QByteArray authorization = RequestHeaders::basicAuthorization();
    if (!authorization.isEmpty())
        session->addRawHeader("Authorization", authorization);
    for (const auto &[name, value] : request.headers)
        session->addRawHeader(name, value);
    return session;
}

CHttpSession *ServiceCall::open(const ServiceRequest &request, QObject *parent)
{
    CHttpSession *opened = session(request, parent);
    send(opened, addressOf(request), request);
    return opened;
}

CHttpSession *ServiceCall::openAlone(const ServiceRequest &request)
{
    CHttpSession *opened = open(request, QCoreApplication::instance());
    endWithApplication(opened);
    connect(opened, &CHttpSession::signal_finished, opened, &QObject::deleteLater);
    return opened;
}

ServiceCall *ServiceCall::start(const ServiceRequest &request, QObject *context,
                                SourceLocation caller, const Done &done)
{
    auto *call = new ServiceCall(context, caller, done);
    const QString address = addressOf(request);
    if (address.isEmpty()) {
        LogLine(LogError, caller.file, caller.line)
            << "the service " << request.key << " has no address";
        QTimer::singleShot(0, call, [call] {
            ServiceReply none;
            none.error = QStringLiteral("no address");
            call->finish(none);
        });
        return call;
    }
    CHttpSession *sender = session(request, call);
    connect(sender, &CHttpSession::signal_finished, call, [call](QNetworkReply *reply) {
        call->finish(ServiceReply::of(reply, call->m_caller));
    });
    send(sender, address, request);
    return call;
}

// Last of all the callback: it may start another call or end the context.
void ServiceCall::finish(const ServiceReply &reply)
{
    const Done done = std::move(m_done);
    deleteLater();
    if (m_context && done)
        done(reply);
}
