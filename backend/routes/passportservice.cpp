// Logging in, and exchanging the long-lived ticket for a fresh auth id.
#include "backend/call.h"
#include "backend/context.h"
#include "backend/routes/routes.h"

#include <QCryptographicHash>
#include <QUrl>

#include <json/value.h>
#include <openssl/crypto.h>

#include <algorithm>

namespace {

std::string cookieHeader(const char *name, const QString &value)
{
    return std::string(name) + '=' + value.toStdString() + "; Path=/; HttpOnly; Secure";
}

// Whether the digest is that of the password, in a time that tells nothing.
bool isPassword(const QString &digest, const QString &password)
{
    const QByteArray wanted =
        QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Md5).toHex();
    const QByteArray given = digest.toUtf8();
    return given.size() == wanted.size() &&
           CRYPTO_memcmp(given.constData(), wanted.constData(), size_t(wanted.size())) == 0;
}

Reply logIn(const Call &call, BackEndContext &context)
{
    const QString uid = context.people.uidOfLogin(call.form.required("userName"));
    if (!isPassword(call.form.required("password"), context.password) || uid.isEmpty())
        return Reply::code(ReplyCode::Illegal);
    Sessions &sessions = context.sessions;
    Json::Value answer(Json::objectValue);
    answer["code"] = ReplyCode::Done;
    answer["userId"] = uid.toStdString();
    return Reply::json(answer)
        .with("Set-Cookie", cookieHeader(Cookie::AuthId, sessions.issue(Sessions::AuthId, uid)))
        .with("Set-Cookie", cookieHeader(Cookie::Ticket, sessions.issue(Sessions::LongTicket, uid)))
        .with("Set-Cookie",
              cookieHeader(Cookie::RememberMe, sessions.issue(Sessions::RememberMe, uid)));
}

// Where the exchange leads: an absolute web address, letter by letter as it was
// given; else the centre.
std::string targetOf(const Call &call, const BackEndContext &context)
{
    const QString text = call.form.text("service");
    const bool isPrintable = std::all_of(text.begin(), text.end(), [](QChar c) {
        return c > QLatin1Char(' ') && c.unicode() < 0x7f;
    });
    const QUrl target(text, QUrl::StrictMode);
    const bool isWeb =
        target.scheme() == QLatin1String("https") || target.scheme() == QLatin1String("http");
    if (isPrintable && target.isValid() && isWeb && !target.host().isEmpty())
        return text.toStdString();
    return context.address.toStdString() + "/center/";
}

Reply exchange(const Call &call, BackEndContext &context)
{
    const QString ticket = QString::fromStdString(call.cookie(Cookie::Ticket));
    const Caller holder = context.sessions.find(Sessions::LongTicket, ticket);
    if (holder.state != Caller::LoggedIn) {
        Reply page = Reply::bytes("<!DOCTYPE html><title>Log in</title><p>Please log in.</p>",
                                  "text/html; charset=utf-8");
        return std::move(page).with("passport.login.flag", "true");
    }
    const QString authId = context.sessions.issue(Sessions::AuthId, holder.uid);
    return Reply::ofStatus(302)
        .with("Location", targetOf(call, context))
        .with("Set-Cookie", cookieHeader(Cookie::AuthId, authId));
}

} // namespace

void addPassportServices(Services *services, BackEndContext &context)
{
    services->post("/ids/login", Services::Open,
                   [&context](const Call &call) { return logIn(call, context); });
    services->get("/ids/login", Services::Open,
                  [&context](const Call &call) { return exchange(call, context); });
    const auto needsNoCode = [](const Call &) { return Reply::data(Json::Value(false)); };
    services->get("/ids/needVerifyCode", Services::Open, needsNoCode);
    services->post("/ids/needVerifyCode", Services::Open, needsNoCode);
    services->get("/center/", Services::Open, [](const Call &) {
        return Reply::bytes("<!DOCTYPE html><title>Centre</title><p>Welcome.</p>",
                            "text/html; charset=utf-8");
    });
}
