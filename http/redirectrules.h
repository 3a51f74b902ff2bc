// Whether the client follows a redirect, and what it may carry there.
#pragma once

#include <QNetworkReply>
#include <QUrl>

namespace RedirectRules {

struct Hop
{
    // NoError: it is followed.
    QNetworkReply::NetworkError refusal = QNetworkReply::NoError;
    // Cookies, authorisation and headers of a service's own may go along.
    bool trusted = false;
    QUrl url; // absolute, without user information

    bool isFollowed() const { return refusal == QNetworkReply::NoError; }
};

// `first` is the address that the request was made for, `from` the one that
// answered, `location` where it points to, `hops` the number of redirects followed
// so far. `isServiceHost` tells whether an address is one that the client knows.
Hop judge(const QUrl &first, const QUrl &from, const QUrl &location, int hops, int maximumHops,
          bool (*isServiceHost)(const QUrl &));

// The same scheme, host and port; or the same host, both ports being the usual
// ones, with encryption added.
bool isSamePlace(const QUrl &known, const QUrl &url);

} // namespace RedirectRules
