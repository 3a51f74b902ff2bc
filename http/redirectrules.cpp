#include "http/redirectrules.h"

namespace RedirectRules {
namespace {

bool isHttp(const QUrl &url)
{
    return url.scheme() == QLatin1String("http");
}

bool isHttps(const QUrl &url)
{
    return url.scheme() == QLatin1String("https");
}

int portOf(const QUrl &url)
{
    return url.port(isHttps(url) ? 443 : 80);
}

} // namespace

bool isSamePlace(const QUrl &known, const QUrl &url)
{
    if (known.host().isEmpty() || known.host() != url.host())
        return false;
    if (known.scheme() == url.scheme())
        return portOf(known) == portOf(url);
    return isHttp(known) && isHttps(url) && portOf(known) == 80 && portOf(url) == 443;
}

Hop judge(const QUrl &first, const QUrl &from, const QUrl &location, int hops, int maximumHops,
          bool (*isServiceHost)(const QUrl &))
{
    Hop hop;
    hop.url = from.resolved(location);
    hop.url.setUserInfo(QString());
    if (hops >= maximumHops)
        hop.refusal = QNetworkReply::TooManyRedirectsError;
    else if (!location.isValid() || !hop.url.isValid() || hop.url.host().isEmpty() ||
             !(isHttp(hop.url) || isHttps(hop.url)))
        hop.refusal = QNetworkReply::ProtocolUnknownError;
    else if (isHttps(from) && isHttp(hop.url))
        hop.refusal = QNetworkReply::InsecureRedirectError;
    else
        hop.trusted = isSamePlace(first, hop.url) || isServiceHost(hop.url);
    return hop;
}

} // namespace RedirectRules
