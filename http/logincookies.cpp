// The part of the request headers that knows the passport, which itself sends
// requests.
#include "common/context.h"
#include "http/cpassportloginserver.h"
#include "http/requestheaders.h"

#include <QNetworkCookie>
#include <QNetworkCookieJar>

namespace RequestHeaders {

LoginCookies storeLoginCookies(QNetworkCookieJar *jar, const QUrl &url)
{
    LoginCookies sent;
    if (const CPassportLoginServer *passport = ctx().passport())
        sent = {passport->authId(), passport->ticket(), passport->rememberMe()};
    storeLoginCookies(jar, url, sent);
    return sent;
}

void takeLoginCookies(const QNetworkCookieJar *jar, const QUrl &url, const LoginCookies &sent)
{
    CPassportLoginServer *passport = ctx().passport();
    if (!passport)
        return;
    // Of several with one name the last counts: longer paths come first.
    LoginCookies held = sent;
    const QList<QNetworkCookie> cookies = jar->cookiesForUrl(url);
    for (const QNetworkCookie &cookie : cookies) {
        const QString value = QString::fromLatin1(cookie.value());
        if (cookie.name() == AuthIdCookie)
            held.authId = value;
        else if (cookie.name() == TicketCookie)
            held.ticket = value;
        else if (cookie.name() == RememberMeCookie)
            held.rememberMe = value;
    }
    if (held.authId != sent.authId)
        passport->setAuthId(held.authId);
    if (held.ticket != sent.ticket)
        passport->setTicket(held.ticket);
    if (held.rememberMe != sent.rememberMe)
        passport->setRememberMe(held.rememberMe);
}

} // namespace RequestHeaders
