#include "http/requesttext.h"

#include <QRegularExpression>

QString RequestText::address(const QUrl &url)
{
    return url.toString(QUrl::RemoveQuery | QUrl::RemoveFragment | QUrl::RemoveUserInfo);
}

QString RequestText::message(const QString &text)
{
    if (!text.contains(QLatin1String("://")))
        return text;
    static const QRegularExpression user(QStringLiteral("(\\w://)[^/?#\\s]*@"));
    // A query may hold blanks, so that only the words that Qt puts behind the
    // address tell where it ends.
    static const QRegularExpression query(
        QStringLiteral("(\\w://[^?#\\s]*)[?#].*?( - server replied: .*)?$"),
        QRegularExpression::DotMatchesEverythingOption);
    QString result = text;
    result.replace(user, QStringLiteral("\\1"));
    result.replace(query, QStringLiteral("\\1\\2"));
    return result;
}
