#include "webview/webkit/webkitbrowser.h"

#include "webview/webkit/webkitpage.h"

#include <QEvent>

WebKitBrowser::WebKitBrowser(QNetworkAccessManager *network, BrowserListener *listener,
                             QWidget *parent)
    : QWebView(parent), m_network(network), m_listener(listener)
{
    // A file that is dropped on a page would be opened.
    setAcceptDrops(false);
    setContextMenuPolicy(Qt::NoContextMenu);
}

// A page that goes while it loads says that it has finished, which is nobody's any more.
WebKitBrowser::~WebKitBrowser()
{
    m_page.clear();
    const QObjectList pages = m_pages.children();
    qDeleteAll(pages);
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

#ifdef Q_OS_WIN
#define FRIENDUI_ENTRY extern "C" __declspec(dllexport)
#else
#define FRIENDUI_ENTRY extern "C" __attribute__((visibility("default")))
#endif

FRIENDUI_ENTRY EmbeddedBrowser *friendui_makeBrowser(int version, QNetworkAccessManager *network,
                                                     BrowserListener *listener, QWidget *parent)
{
    return version == BrowserVersion ? new WebKitBrowser(network, listener, parent) : nullptr;
}
