// What every request of the client carries, and how the log-in cookies get into it
// and out of its reply. Shared by all who send.
#pragma once

#include <QNetworkRequest>
#include <QString>
#include <QVector>

#include <utility>

class QNetworkCookieJar;

namespace RequestHeaders {

// A request to the address with the client's user agent, without compression, with
// redirects left to the caller, and with peers verified against the system's and
// the host's certificate authorities.
QNetworkRequest request(const QUrl &url);
// The same, with the content type of a form.
QNetworkRequest formRequest(const QUrl &url);
// Puts the user agent and the refusal of compression where they are missing, and
// leaves redirects to the caller, whatever the request says. Its verification of
// peers becomes that of request().
void complete(QNetworkRequest *request);

// "Basic ..." for the user who is logged in; empty without user or password.
QByteArray basicAuthorization();

// name=value&..., each value percent-encoded as a whole ("," and "+" too).
using Fields = QVector<std::pair<const char *, QString>>;
QString formBody(const Fields &fields);

// The names of the log-in cookies.
constexpr char AuthIdCookie[] = "imAuthId";
constexpr char TicketCookie[] = "IMTGC";
constexpr char RememberMeCookie[] = "im_ids_r_me";

bool isLoginCookie(const QByteArray &name);

// The log-in cookies of one request, as they were sent.
struct LoginCookies
{
    QString authId, ticket, rememberMe;
};

// Puts the passport's cookies for this address into the jar, out of the reach of
// scripts, and removes those of the same names first. A value that could break a header is left
// out.
LoginCookies storeLoginCookies(QNetworkCookieJar *jar, const QUrl &url);
// The same with these values.
void storeLoginCookies(QNetworkCookieJar *jar, const QUrl &url, const LoginCookies &cookies);
// Removes them only: for an address that may not see them.
void dropLoginCookies(QNetworkCookieJar *jar, const QUrl &url);
// Hands the cookies that the jar holds for this address to the passport, except
// those that are still as they were sent: the passport may have got newer ones
// while the request ran.
void takeLoginCookies(const QNetworkCookieJar *jar, const QUrl &url, const LoginCookies &sent = {});

} // namespace RequestHeaders
