#include "webview/webkit/webkitbrowser.h"

#include "webview/webkit/webkitpage.h"

#include <QEvent>
#include <QWebFrame>

WebKitBrowser::WebKitBrowser(QNetworkAccessManager *network, BrowserListener *listener,
                             QWidget *parent)
    : QWebView(parent), m_network(network), m_listener(listener)
{
    // A file that is dropped on a page would be opened.
    setAcceptDrops(false);
    setContextMenuPolicy(Qt::NoContextMenu);
}

// A page of its own each time: the one before may refuse to go, and has a history.
void WebKitBrowser::open(const QUrl &url)
{
    auto *page = new WebKitPage(m_network, m_listener, &m_pages);
    connect(page, &QWebPage::loadFinished, this, [this, page](bool ok) {
        if (page == m_page)
            m_listener->pageFinished(ok);
    });
    WebKitPage *before = m_page;
    m_page = page;
    setPage(page);
    // It may be what this call comes from.
    if (before) {
        before->triggerAction(QWebPage::Stop);
        before->deleteLater();
    }
    load(url);
}

bool WebKitBrowser::event(QEvent *event)
{
    const bool isInput = event->type() == QEvent::MouseButtonPress ||
                         event->type() == QEvent::MouseButtonRelease ||
                         event->type() == QEvent::KeyPress;
    if (isInput && event->spontaneous() && m_page)
        m_page->noteInput();
    return QWebView::event(event);
}

namespace {
// A script without an end would stop the client for ever. The engine is told only this
// way, and reads it when its first script is run.
bool limitScripts()
{
    constexpr char name[] = "JSC_watchdog", milliseconds[] = "2000";
    qputenv(name, milliseconds);
    QWebPage().mainFrame()->evaluateJavaScript(QStringLiteral("0"));
    return qunsetenv(name);
}
} // namespace

#ifdef Q_OS_WIN
#define FRIENDUI_ENTRY extern "C" __declspec(dllexport)
#else
#define FRIENDUI_ENTRY extern "C" __attribute__((visibility("default")))
#endif

FRIENDUI_ENTRY EmbeddedBrowser *friendui_makeBrowser(int version, QNetworkAccessManager *network,
                                                     BrowserListener *listener, QWidget *parent)
{
    if (version != BrowserVersion)
        return nullptr;
    static const bool isLimited = limitScripts();
    Q_UNUSED(isLimited)
    return new WebKitBrowser(network, listener, parent);
}
