#include "host/chat/messagetext.h"

#include "common/displaytext.h"
#include "messages/messagebody.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

namespace {

constexpr int MaximumText = 20000; // characters

QString told(const char *text)
{
    return QCoreApplication::translate("ChatView", text);
}

QString sizeText(qint64 bytes)
{
    return bytes > 0 ? QLocale::c().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat)
                     : QString();
}

QString lengthText(int seconds)
{
    return seconds > 0 ? QStringLiteral("%1:%2")
                             .arg(seconds / 60)
                             .arg(seconds % 60, 2, 10, QLatin1Char('0'))
                       : QString();
}

QString placeText(const MessageBody &message)
{
    if (message.latitude == 0 && message.longitude == 0)
        return QString();
    return QStringLiteral("%1, %2")
        .arg(message.latitude, 0, 'f', 4)
        .arg(message.longitude, 0, 'f', 4);
}

// The first line in brackets and what it tells, then the lines that are not empty.
QString lines(const QString &head, QStringList below)
{
    below.removeAll(QString());
    below.prepend(head);
    return below.join(QLatin1Char('\n'));
}

QString headOf(const char *label, const QStringList &parts)
{
    QStringList shown{QLatin1Char('[') + told(label) + QLatin1Char(']')};
    for (const QString &part : parts) {
        if (!part.isEmpty())
            shown.append(part);
    }
    return shown.join(QLatin1Char(' '));
}

QString shortened(const QString &text)
{
    if (text.size() <= MaximumText)
        return text;
    return text.left(MaximumText) + QLatin1Char(' ') +
           told(QT_TRANSLATE_NOOP("ChatView", "(shortened)"));
}

QString mergedText(const MessageBody &message)
{
    QStringList below;
    for (const MessageBody &part : message.parts)
        below.append(
            QStringLiteral("  %1: %2").arg(displayText(part.sender), messageSummary(part)));
    if (message.partCount > message.parts.size())
        below.append(QStringLiteral("  …"));
    return lines(
        headOf(QT_TRANSLATE_NOOP("ChatView", "Chat history"), {displayText(message.title)}), below);
}

QString textOf(const MessageBody &message)
{
    const QString name = displayText(message.name), title = displayText(message.title);
    switch (message.kind) {
    case MessageBody::Text:
        return message.text;
    case MessageBody::Picture:
        return lines(headOf(QT_TRANSLATE_NOOP("ChatView", "Picture"), {name}),
                     {message.text, message.url});
    case MessageBody::File:
        return lines(headOf(QT_TRANSLATE_NOOP("ChatView", "File"), {name, sizeText(message.size)}),
                     {message.text, message.url});
    case MessageBody::Voice:
        return lines(headOf(QT_TRANSLATE_NOOP("ChatView", "Voice"), {lengthText(message.seconds)}),
                     {message.text});
    case MessageBody::Location:
        return lines(headOf(QT_TRANSLATE_NOOP("ChatView", "Location"), {name}),
                     {message.text, placeText(message)});
    case MessageBody::Link:
        return lines(headOf(QT_TRANSLATE_NOOP("ChatView", "Link"), {title}),
                     {message.text, message.url});
    case MessageBody::Merged:
        return mergedText(message);
    case MessageBody::Service:
        return lines(headOf(QT_TRANSLATE_NOOP("ChatView", "Service message"), {title}),
                     {message.text, message.url});
    case MessageBody::WorkGroup:
        return name.isEmpty() ? message.text
                              : lines(QLatin1Char('[') + name + QLatin1Char(']'), {message.text});
    case MessageBody::Recalled:
    case MessageBody::Unknown:
        break;
    }
    return messageSummary(message);
}

} // namespace

QString messageText(const QString &body)
{
    return shortened(textOf(readMessageBody(body)));
}
