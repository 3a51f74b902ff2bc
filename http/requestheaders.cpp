#include "http/requestheaders.h"

#include "common/context.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QNetworkCookie>
#include <QNetworkCookieJar>
#include <QSslConfiguration>
#include <QSslSocket>

#include <algorithm>

namespace RequestHeaders {
namespace {

// Windows asks its own authorities whatever list it is given. Qt's list of them all is
// packed and unpacked again for each connection, which takes longer than the handshake.
bool systemKnowsItsAuthorities()
{
    static const bool schannel =
        QSslSocket::sslLibraryVersionString().startsWith(QLatin1String("Secure Channel"));
    return schannel;
}

// Reading the authorities costs more than a request: once for each state of the
// file, and even the state is looked at once a second only.
const QSslConfiguration &verification()
{
    static QString loadedFile;
    static QDateTime loadedTime;
    static QSslConfiguration loaded;
    static QElapsedTimer sinceLook;
    constexpr qint64 LookInterval = 1000; // ms
    const QString file = ctx().caFile();
    if (!loaded.isNull() && file == loadedFile && !sinceLook.hasExpired(LookInterval))
        return loaded;
    sinceLook.start();
    const QDateTime time = file.isEmpty() ? QDateTime() : QFileInfo(file).lastModified();
    if (!loaded.isNull() && file == loadedFile && time == loadedTime)
        return loaded;
    loaded = QSslConfiguration::defaultConfiguration();
    loaded.setPeerVerifyMode(QSslSocket::VerifyPeer);
    loaded.setProtocol(QSsl::TlsV1_2OrLater);
    if (systemKnowsItsAuthorities())
        loaded.setCaCertificates({});
    if (!file.isEmpty())
        loaded.addCaCertificates(file);
    loadedFile = file;
    loadedTime = time;
    return loaded;
}

bool fitsIntoHeader(const QByteArray &value)
{
    return std::none_of(value.begin(), value.end(), [](char c) {
        const auto byte = uchar(c);
        return byte < 0x20 || byte == 0x7f || byte == ';';
    });
}

} // namespace

bool isLoginCookie(const QByteArray &name)
{
    return name == AuthIdCookie || name == TicketCookie || name == RememberMeCookie;
}

void complete(QNetworkRequest *request)
{
    // Most requests are complete already, and setting what is set costs a copy.
    const QVariant policy = request->attribute(QNetworkRequest::RedirectPolicyAttribute);
    if (!policy.isValid() || policy.toInt() != QNetworkRequest::ManualRedirectPolicy)
        request->setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                              QNetworkRequest::ManualRedirectPolicy);
    if (!request->hasRawHeader("User-Agent"))
        request->setRawHeader("User-Agent", "PcClient");
    // Naming an encoding oneself keeps Qt from unpacking: a small reply must not
    // become a large one in memory.
    if (request->rawHeader("Accept-Encoding") != "identity")
        request->setRawHeader("Accept-Encoding", "identity");
    if (request->url().scheme() == QLatin1String("https") &&
        request->sslConfiguration() != verification())
        request->setSslConfiguration(verification());
}

QNetworkRequest request(const QUrl &url)
{
    QNetworkRequest made(url);
    complete(&made);
    return made;
}

QNetworkRequest formRequest(const QUrl &url)
{
    QNetworkRequest made = request(url);
    made.setHeader(QNetworkRequest::ContentTypeHeader,
                   QStringLiteral("application/x-www-form-urlencoded"));
    return made;
}

QByteArray basicAuthorization()
{
    const QString user = ctx().userId();
    const QString password = ctx().password();
    if (user.isEmpty() || password.isEmpty())
        return QByteArray();
    const QByteArray digest =
        QCryptographicHash::hash(password.toLatin1(), QCryptographicHash::Md5).toHex();
    return "Basic " + (user.toUtf8() + ':' + digest).toBase64();
}

QString formBody(const Fields &fields)
{
    QByteArray body;
    for (const auto &[name, value] : fields) {
        if (!body.isEmpty())
            body += '&';
        body += name;
        body += '=';
        body += QUrl::toPercentEncoding(value);
    }
    return QString::fromLatin1(body);
}

void storeLoginCookies(QNetworkCookieJar *jar, const QUrl &url, const LoginCookies &cookies)
{
    dropLoginCookies(jar, url);
    const auto add = [&](const char *name, const QString &value) {
        const QByteArray bytes = value.toLatin1();
        if (bytes.isEmpty() || !fitsIntoHeader(bytes))
            return;
        QNetworkCookie cookie(name, bytes);
        cookie.setPath(QStringLiteral("/"));
        cookie.setHttpOnly(true);
        cookie.setSecure(url.scheme() == QLatin1String("https"));
        cookie.normalize(url); // for this host and no other
        jar->insertCookie(cookie);
    };
    add(AuthIdCookie, cookies.authId);
    add(TicketCookie, cookies.ticket);
    add(RememberMeCookie, cookies.rememberMe);
}

void dropLoginCookies(QNetworkCookieJar *jar, const QUrl &url)
{
    const QList<QNetworkCookie> held = jar->cookiesForUrl(url);
    for (const QNetworkCookie &cookie : held)
        if (isLoginCookie(cookie.name()))
            jar->deleteCookie(cookie);
}

} // namespace RequestHeaders
