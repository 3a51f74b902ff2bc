#include "webview/pagecookies.h"

#include "http/requestheaders.h"
#include "http/serviceaddresses.h"

#include <QNetworkCookie>

#include <algorithm>

// Asked for by the network for each request, and by the browser for its scripts.
QList<QNetworkCookie> PageCookies::cookiesForUrl(const QUrl &url) const
{
    QList<QNetworkCookie> cookies = QNetworkCookieJar::cookiesForUrl(url);
    // Others may have set cookies of these names for themselves.
    cookies.erase(std::remove_if(cookies.begin(), cookies.end(),
                                 [](const QNetworkCookie &cookie) {
                                     return RequestHeaders::isLoginCookie(cookie.name());
                                 }),
                  cookies.end());
    const QUrl center(ServiceAddresses::host(QStringLiteral("center")));
    if (!ServiceAddresses::isSameHost(url, center))
        return cookies;
    QNetworkCookieJar tickets;
    RequestHeaders::storeLoginCookies(&tickets, url);
    return cookies + tickets.cookiesForUrl(url);
}
