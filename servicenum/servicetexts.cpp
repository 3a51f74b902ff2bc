#include "servicenum/servicetexts.h"

#include "common/displaytext.h"

#include <QObject>
#include <QStringList>

QString ServiceTexts::name(const CServiceNumData &number)
{
    const QString name = displayText(number.name);
    return name.trimmed().isEmpty() ? displayText(number.code) : name;
}

QString ServiceTexts::line(const CServiceNumData &number)
{
    return displayText(number.description).trimmed();
}

QString ServiceTexts::toolTip(const CServiceNumData &number)
{
    QStringList lines{name(number)};
    const QString description = paragraphText(number.description);
    if (!description.isEmpty())
        lines.append(description);
    return toolTipText(lines.join(QLatin1Char('\n')));
}

QString ServiceTexts::spoken(const CServiceNumData &number, bool isSubscribed, bool isBusy)
{
    QStringList parts{name(number), QObject::tr("kindServiceNumber")};
    parts.append(isBusy         ? QObject::tr("loading")
                 : isSubscribed ? QObject::tr("subscribed")
                                : QObject::tr("notSubscribed"));
    parts.append(line(number));
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

const char *ServiceTexts::refusalKey(const QString &errorText)
{
    return errorText == QLatin1String("1") ? "NoAuthSubscrip" : "subscribeFailed";
}
