#include "host/backendsource.h"

#include "common/logging.h"

BackendSource::BackendSource(const Options &options, QObject *parent)
    : QObject(parent), m_options(options), m_process(options.process, this)
{
    m_look.setInterval(LookMs);
    m_pause.setSingleShot(true);
    connect(&m_look, &QTimer::timeout, this, &BackendSource::look);
    connect(&m_process, &BackendProcess::ready, this, &BackendSource::share);
    connect(&m_process, &BackendProcess::failed, this, &BackendSource::processFailed);
    connect(&m_process, &BackendProcess::restarting, this, [this](const QString &reason) {
        m_notice.withdraw();
        m_address = BackendAddress();
        emit lost(tr("%1 It is started once more.").arg(reason));
    });
}

BackendSource::~BackendSource()
{
    stop();
}

void BackendSource::start()
{
    if (hasBackend() || m_process.isRunning())
        return;
    m_toldFailure = false;
    m_nextPause = LookMs;
    m_pause.stop();
    // Not within this call: whoever calls has not seen the state before.
    QTimer::singleShot(0, this, &BackendSource::look);
    if (!m_options.lookedIn.isEmpty())
        m_look.start();
}

void BackendSource::stop()
{
    m_look.stop();
    m_pause.stop();
    // Whoever sees that the notice has gone may use the back end's folder.
    m_process.stop();
    m_notice.withdraw();
    m_address = BackendAddress();
}

bool BackendSource::findOther(SharedBackend *found) const
{
    for (const QString &folder : m_options.lookedIn) {
        if (BackendNotice::read(folder, found))
            return true;
    }
    return false;
}

void BackendSource::look()
{
    if (m_process.isRunning())
        return;
    SharedBackend other;
    if (findOther(&other)) {
        if (other.address.address != m_address.address)
            join(other.address);
        return;
    }
    if (hasBackend()) {
        m_address = BackendAddress();
        LOG_INFO("the host whose back end was used has ended");
        emit lost(tr("The host whose back end was used has ended."));
    }
    if (m_options.mayStart && !m_pause.isActive())
        launch();
    else if (!m_options.mayStart && !m_toldFailure)
        processFailed(tr("There is no host whose back end could be used; it is waited for."));
}

void BackendSource::join(const BackendAddress &address)
{
    m_address = address;
    m_toldFailure = false;
    LOG_INFO("another host's back end is used, at " << logText(address.address));
    emit ready();
}

void BackendSource::launch()
{
    m_process.start();
}

void BackendSource::share()
{
    m_address = m_process.address();
    m_toldFailure = false;
    m_nextPause = LookMs;
    SharedBackend shared{m_address, m_options.process.people, m_options.process.seed};
    QString problem;
    if (!m_options.shareIn.isEmpty() && !m_notice.publish(m_options.shareIn, shared, &problem))
        LOG_ERROR(logText(problem));
    emit ready();
}

// Of two hosts that start at once, one finds the other's back end a little later.
void BackendSource::processFailed(const QString &reason)
{
    m_notice.withdraw();
    m_address = BackendAddress();
    m_pause.start(m_nextPause);
    m_nextPause = qMin(2 * m_nextPause, LongestPause);
    if (!m_toldFailure)
        emit failed(reason);
    m_toldFailure = true;
}
