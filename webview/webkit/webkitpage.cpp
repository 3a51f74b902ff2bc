#include "webview/webkit/webkitpage.h"

#include "webview/embeddedbrowser.h"

#include <QNetworkRequest>
#include <QWebFrame>
#include <QWebSettings>

namespace {
using Settings = QWebSettings;

constexpr Settings::WebAttribute Forbidden[] = {
    Settings::JavascriptEnabled,
    Settings::JavaEnabled,
    Settings::PluginsEnabled,
    Settings::JavascriptCanOpenWindows,
    Settings::JavascriptCanCloseWindows,
    Settings::JavascriptCanAccessClipboard,
    Settings::DeveloperExtrasEnabled,
    Settings::OfflineStorageDatabaseEnabled,
    Settings::OfflineWebApplicationCacheEnabled,
    Settings::LocalStorageEnabled,
    Settings::LocalContentCanAccessRemoteUrls,
    Settings::LocalContentCanAccessFileUrls,
    Settings::DnsPrefetchEnabled,
    Settings::HyperlinkAuditingEnabled,
    Settings::NotificationsEnabled,
    Settings::WebGLEnabled,
    Settings::WebAudioEnabled,
    Settings::MediaEnabled,
    Settings::MediaSourceEnabled,
    Settings::FullScreenSupportEnabled,
    Settings::AcceleratedCompositingEnabled,
    Settings::ErrorPageEnabled,
};

void harden(QWebSettings *settings)
{
    for (const Settings::WebAttribute attribute : Forbidden)
        settings->setAttribute(attribute, false);
    settings->setAttribute(Settings::PrivateBrowsingEnabled, true);
    settings->setAttribute(Settings::XSSAuditingEnabled, true);
    settings->setAttribute(Settings::WebSecurityEnabled, true);
    settings->setThirdPartyCookiePolicy(Settings::AlwaysBlockThirdPartyCookies);
    Settings::setMaximumPagesInCache(0);
    constexpr int mostKept = 4 * 1024 * 1024; // bytes, in memory
    Settings::setObjectCacheCapacities(0, 0, mostKept);
}
} // namespace

WebKitPage::WebKitPage(QNetworkAccessManager *network, BrowserListener *listener, QObject *parent)
    : QWebPage(parent), m_listener(listener)
{
    harden(settings());
    setNetworkAccessManager(network);
    setForwardUnsupportedContent(false);
    connect(this, &QWebPage::featurePermissionRequested, this,
            [this](QWebFrame *frame, QWebPage::Feature feature) {
                setFeaturePermission(frame, feature, PermissionDeniedByUser);
            });
}

void WebKitPage::noteInput()
{
    m_sinceInput.start();
}

bool WebKitPage::acceptNavigationRequest(QWebFrame *frame, const QNetworkRequest &request,
                                         NavigationType type)
{
    constexpr int withInput = 1000; // ms
    const QUrl url = request.url();
    if (type == NavigationTypeLinkClicked) {
        if (m_sinceInput.isValid() && !m_sinceInput.hasExpired(withInput))
            m_listener->linkPressed(url);
        m_sinceInput.invalidate();
        return false;
    }
    if (frame && frame != mainFrame()) // empty ones have no address of the network
        return url.scheme() == QLatin1String("about") || url.scheme() == QLatin1String("http") ||
               url.scheme() == QLatin1String("https");
    return frame && m_listener->mayLead(url);
}

QWebPage *WebKitPage::createWindow(WebWindowType)
{
    return nullptr;
}

QObject *WebKitPage::createPlugin(const QString &, const QUrl &, const QStringList &,
                                  const QStringList &)
{
    return nullptr;
}

// Choosing several files is one.
bool WebKitPage::supportsExtension(Extension) const
{
    return false;
}

QString WebKitPage::chooseFile(QWebFrame *, const QString &)
{
    return QString();
}
