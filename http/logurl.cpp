#include "http/logurl.h"

#include "common/logging.h"

#include <algorithm>

namespace {

bool isSecretName(const QString &name)
{
    static const char *const words[] = {"ticket", "token",  "passw",   "pwd", "auth",
                                        "tgc",    "secret", "session", "sign"};
    return std::any_of(std::begin(words), std::end(words), [&name](const char *word) {
        return name.contains(QLatin1String(word), Qt::CaseInsensitive);
    });
}

QString maskedQuery(const QString &query)
{
    QStringList items = query.split(QLatin1Char('&'));
    for (QString &item : items) {
        const int equals = item.indexOf(QLatin1Char('='));
        if (equals > 0 && isSecretName(item.left(equals)))
            item = item.left(equals + 1) + logSecret(item.mid(equals + 1));
    }
    return items.join(QLatin1Char('&'));
}

} // namespace

QString logUrl(const QUrl &url)
{
    if (!url.hasQuery())
        return logText(url.toString(QUrl::RemoveUserInfo));
    QUrl shown = url;
    shown.setQuery(maskedQuery(url.query(QUrl::FullyEncoded)));
    return logText(shown.toString(QUrl::RemoveUserInfo));
}

QString logSecret(const QString &secret)
{
    // Never all of it, however short.
    return (secret.size() > 4 ? secret.left(4) : QString()) + QStringLiteral("***");
}
