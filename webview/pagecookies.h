// The cookies of a page: in memory, apart from those of all other requests. The user's
// tickets are among them for the centre server alone, and never for scripts.
#pragma once

#include <QNetworkCookieJar>

class PageCookies : public QNetworkCookieJar
{
    Q_OBJECT

public:
    using QNetworkCookieJar::QNetworkCookieJar;

    QList<QNetworkCookie> cookiesForUrl(const QUrl &url) const override;
};
