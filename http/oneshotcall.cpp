#include "http/oneshotcall.h"

#include "common/logging.h"
#include "http/chttpsession.h"

#include <utility>

OneShotCall::OneShotCall(QObject *parent) : QObject(parent), m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(Timeout);
    connect(&m_timer, &QTimer::timeout, this, &OneShotCall::ranOut);
}

CHttpSession *OneShotCall::start(const ServiceRequest &request)
{
    if (std::exchange(m_hasStarted, true)) {
        LOG_ERROR("one request per operation");
        return nullptr;
    }
    ServiceRequest timed = request;
    timed.timeout = Timeout;
    m_session = ServiceCall::openAlone(timed);
    m_timer.start();
    return m_session;
}

bool OneShotCall::end()
{
    m_timer.stop();
    return !std::exchange(m_hasEnded, true);
}

// A redirect gives the session more time, but not the operation.
void OneShotCall::timeOut()
{
    if (m_session && !m_hasEnded)
        m_session->slot_timeout();
}
