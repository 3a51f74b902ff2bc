#include "host/webservices.h"

#include "host/hostcontext.h"
#include "host/serviceaddressfile.h"

WebServices::WebServices(HostContext *context, const Options &options, QObject *parent)
    : QObject(parent), m_context(context), m_options(options)
{
    connect(&m_session, &WebSession::stateChanged, this, &WebServices::followSession);
    m_context->setPassport(m_session.passport());
    if (m_options.source != Found)
        return;
    m_found = std::make_unique<BackendSource>(m_options.found, this);
    connect(m_found.get(), &BackendSource::ready, this, [this] { use(m_found->address()); });
    connect(m_found.get(), &BackendSource::lost, this, [this](const QString &reason) {
        withdraw();
        m_problem = reason;
        setState(Starting);
        emit note(reason);
    });
    connect(m_found.get(), &BackendSource::failed, this, &WebServices::fail);
}

WebServices::~WebServices()
{
    stop();
    m_context->setPassport(nullptr);
}

void WebServices::start()
{
    m_problem.clear();
    switch (m_options.source) {
    case None:
        return;
    case Found:
        if (m_found->hasBackend()) {
            use(m_found->address());
            return;
        }
        setState(Starting);
        m_found->start();
        return;
    case Named:
        if (m_options.named.password.isEmpty())
            fail(tr("There is no password for the web services."));
        else
            use(m_options.named);
        return;
    }
}

void WebServices::stop()
{
    withdraw();
    if (m_found)
        m_found->stop();
    setState(Off);
}

void WebServices::use(const BackendAddress &address)
{
    m_address = address;
    // The certificate first: whoever sees the address may use it at once.
    m_context->setWebAccess(m_address.caFile, m_address.password);
    QString problem;
    if (ServiceAddressFile::write(ServiceAddressFile::in(m_context->applicationFolder()),
                                  m_address.address, &problem))
        m_session.logIn(m_context->userId(), m_address.password);
    else
        fail(problem);
}

void WebServices::withdraw()
{
    // A file that this object has not written may be in use by another host.
    if (m_address.address.isEmpty())
        return;
    m_address = BackendAddress();
    ServiceAddressFile::clear(ServiceAddressFile::in(m_context->applicationFolder()));
    m_context->setWebAccess(QString(), QString());
    const QSignalBlocker quiet(m_session);
    m_session.logOut();
}

void WebServices::fail(const QString &problem)
{
    withdraw();
    m_problem = problem;
    setState(Failed);
    emit note(problem);
}

void WebServices::setState(State state)
{
    m_state = state;
    emit changed();
}

void WebServices::followSession()
{
    m_problem = m_session.problem();
    switch (m_session.state()) {
    case WebSession::LoggedOut:
        return;
    case WebSession::LoggingIn:
        setState(LoggingIn);
        return;
    case WebSession::LoggedIn:
        setState(Ready);
        return;
    case WebSession::Waiting:
        setState(Unreachable);
        return;
    case WebSession::Refused:
        setState(Failed);
        emit note(m_problem);
        return;
    }
}

QString WebServices::stateText() const
{
    switch (m_state) {
    case Off:
        return tr("web services: off");
    case Starting:
        return tr("web services: starting");
    case LoggingIn:
        return tr("web services: logging in");
    case Ready:
        return tr("web services: logged in");
    case Unreachable:
        return tr("web services: trying again");
    case Failed:
        return tr("web services: not available");
    }
    return QString();
}
