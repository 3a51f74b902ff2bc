#include "servicenum/servicenumfinder.h"

#include "common/context.h"
#include "common/logging.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/chttpservicenum.h"

ServiceNumFinder::ServiceNumFinder(QObject *parent) : QObject(parent)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    connect(&m_delay, &QTimer::timeout, this, &ServiceNumFinder::send);
    connect(FriendUISignalSender::instance(), &FriendUISignalSender::signal_isConnected, this,
            [this](bool connected) {
                if (connected && (m_state == Offline || m_state == Failed))
                    begin();
            });
}

void ServiceNumFinder::setText(const QString &text)
{
    m_text = text;
    begin();
}

void ServiceNumFinder::retry()
{
    begin();
}

void ServiceNumFinder::stop()
{
    m_delay.stop();
    drop();
    setState(Idle);
}

void ServiceNumFinder::begin()
{
    if (!isOnline()) {
        stop();
        setState(Offline);
        return;
    }
    if (!m_running)
        send();
    else if (!m_delay.isActive())
        m_delay.start();
    setState(Searching);
}

void ServiceNumFinder::send()
{
    m_delay.stop();
    drop();
    auto *operation = new CHttpServiceNum(this);
    m_running = operation;
    connect(operation, &CHttpServiceNum::signal_searchServiceNum, this,
            [this](const QString &text, const QString &, const QString &,
                   QList<CServiceNumData> &numbers, bool ok) { arrived(text, numbers, ok); });
    operation->searchServiceNum(m_text);
}

// Its answer would be about another text.
void ServiceNumFinder::drop()
{
    if (!m_running)
        return;
    m_running->disconnect(this);
    m_running->deleteLater();
    m_running.clear();
}

void ServiceNumFinder::arrived(const QString &text, const QList<CServiceNumData> &numbers, bool ok)
{
    m_running.clear();
    if (text != m_text) {
        send();
        return;
    }
    if (ok)
        emit found(text, numbers);
    else
        LOG_ERROR("the service numbers could not be searched");
    setState(ok ? Done : Failed);
}

void ServiceNumFinder::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged();
}
