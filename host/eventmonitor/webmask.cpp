#include "host/eventmonitor/webmask.h"

#include "host/eventmonitor/payloaddecoder.h"

#include <QRegularExpression>
#include <QUrl>

namespace {
constexpr int LongestAddress = 1000; // characters
constexpr int LongestText = 500;
constexpr int LongestInput = 8000;

// What stands between the scheme and the path may hold a password; "?" and "#"
// begin what may hold tickets. By hand, since a broken address must be masked too.
QString maskedAddress(QString address)
{
    address = address.section(QLatin1Char('#'), 0, 0);
    const int query = address.indexOf(QLatin1Char('?'));
    if (query >= 0)
        address = address.left(query) + QString::fromUtf8("?…");
    const int scheme = address.indexOf(QLatin1String("://"));
    const int begin = scheme < 0 ? 0 : scheme + 3;
    int end = address.indexOf(QLatin1Char('/'), begin);
    if (end < 0)
        end = address.size();
    const int at = address.lastIndexOf(QLatin1Char('@'), end - 1);
    if (at >= begin)
        address.remove(begin, at + 1 - begin);
    return address;
}
} // namespace

QString WebMask::address(const QString &address)
{
    return maskedAddress(address.left(LongestInput).simplified()).left(LongestAddress);
}

QString WebMask::text(const QString &text)
{
    static const QRegularExpression url(QStringLiteral("[A-Za-z][A-Za-z0-9+.-]*://[^\\s\"'<>]+"));
    static const QRegularExpression value(
        QStringLiteral("([\\w.-]+)(\\s*[=:]\\s*)((?:Basic|Bearer)\\s+\\S+|[^\\s;,&]+)"));
    const QString line = text.left(LongestInput).simplified();
    QString masked;
    int from = 0;
    for (auto matches = url.globalMatch(line); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        masked += line.midRef(from, match.capturedStart() - from);
        masked += maskedAddress(match.captured());
        from = match.capturedEnd();
    }
    masked += line.midRef(from);

    QString result;
    from = 0;
    for (auto matches = value.globalMatch(masked); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        if (!PayloadDecoder::isSecret(match.captured(1)))
            continue;
        result += masked.midRef(from, match.capturedStart(3) - from);
        result += QLatin1String("***");
        from = match.capturedEnd();
    }
    return (result + masked.midRef(from)).left(LongestText);
}
