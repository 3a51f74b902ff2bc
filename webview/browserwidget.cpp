#include "webview/browserwidget.h"

#include "common/logging.h"
#include "http/requesttext.h"
#include "http/serviceaddresses.h"
#include "webview/browsermodule.h"

bool BrowserWidget::isAvailable()
{
    return BrowserModule::load() != nullptr;
}

BrowserWidget::BrowserWidget(QWidget *parent)
    : QWidget(parent), m_browser(BrowserModule::load()(BrowserVersion, &m_network, this, this))
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(DefaultTimeout);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        LOG_ERROR("the page was not there in time: " << logText(RequestText::address(m_url)));
        end(m_network.hasArrived());
    });
    // Another page may have been opened since.
    const auto failed = [this] {
        if (m_network.hasFailed())
            end(false);
    };
    connect(&m_network, &PageNetwork::pageFailed, this, failed, Qt::QueuedConnection);
    if (m_browser)
        setFocusProxy(m_browser->widget());
}

// The browser first: it still uses the network.
BrowserWidget::~BrowserWidget()
{
    if (m_browser)
        delete m_browser->widget();
}

void BrowserWidget::setTimeout(int milliseconds)
{
    m_timer.setInterval(milliseconds);
}

void BrowserWidget::open(const QUrl &url)
{
    m_url = url;
    m_isLoading = true;
    ++m_opened;
    m_network.begin(url);
    m_timer.start();
    if (m_browser && ServiceAddresses::isWebAddress(url))
        m_browser->open(url);
    else
        QTimer::singleShot(0, this, [this, page = m_opened] {
            if (page == m_opened)
                end(false);
        });
}

void BrowserWidget::pageFinished(bool ok)
{
    // The browser may tell it while it is asked to open the page, and of its error page
    // that it is there.
    QTimer::singleShot(0, this, [this, ok, page = m_opened] {
        if (page == m_opened)
            end(ok && m_network.hasArrived());
    });
}

void BrowserWidget::end(bool ok)
{
    if (!m_isLoading)
        return;
    m_isLoading = false;
    m_timer.stop();
    if (m_browser)
        m_browser->stop();
    emit finished(ok);
}

void BrowserWidget::linkPressed(const QUrl &url)
{
    // Who hears of it may close the window with the browser in it.
    QTimer::singleShot(0, this, [this, url] { emit linkClicked(url); });
}

// Within the service that the page is of, not to anybody's page under its name.
bool BrowserWidget::mayLead(const QUrl &url)
{
    const bool may =
        ServiceAddresses::isWebAddress(url) &&
        (ServiceAddresses::isSameHost(url, m_url) || ServiceAddresses::isServiceHost(url));
    if (!may)
        LOG_ERROR("a page leads away: " << logText(RequestText::address(url)));
    return may;
}

void BrowserWidget::resizeEvent(QResizeEvent *)
{
    if (m_browser)
        m_browser->widget()->setGeometry(rect());
}
