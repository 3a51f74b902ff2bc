#include "common/displaytext.h"
#include "messages/messagebody.h"

#include <QObject>
#include <QUrl>

namespace {

// "[File] plan.pdf", of a label and the first text that shows anything.
QString labelled(const QString &label, std::initializer_list<QString> texts)
{
    for (const QString &text : texts) {
        const QString shown = displayText(text);
        if (!shown.trimmed().isEmpty())
            return label + QLatin1Char(' ') + shown;
    }
    return label;
}

QString recalled(const QString &sender)
{
    const QString name = displayText(sender);
    if (name.trimmed().isEmpty())
        return QObject::tr("messageRecalled");
    QString sentence = QObject::tr("messageRecalledBy");
    return sentence.replace(QLatin1String("%1"), name);
}

QString duration(int seconds)
{
    return seconds > 0 ? QString::number(seconds) + QLatin1Char('"') : QString();
}

QString ofWorkGroup(const MessageBody &message)
{
    const QString group = displayText(message.name);
    if (group.trimmed().isEmpty())
        return labelled(QObject::tr("messageWorkGroup"), {message.text});
    return labelled(QLatin1Char('[') + group + QLatin1Char(']'), {message.text});
}

} // namespace

QString messageSummary(const MessageBody &message)
{
    switch (message.kind) {
    case MessageBody::Text:
        return displayText(message.text);
    case MessageBody::Picture:
        return labelled(QObject::tr("messagePicture"), {message.text});
    case MessageBody::File:
        return labelled(QObject::tr("messageFile"), {message.name, message.text});
    case MessageBody::Voice:
        return labelled(QObject::tr("messageVoice"), {duration(message.seconds), message.text});
    case MessageBody::Location:
        return labelled(QObject::tr("messageLocation"), {message.name, message.text});
    case MessageBody::Link:
        return labelled(QObject::tr("messageLink"),
                        {message.title, message.text, QUrl(message.url).host()});
    case MessageBody::Merged:
        return labelled(QObject::tr("messageMerged"), {message.title});
    case MessageBody::Service:
        return labelled(QObject::tr("messageService"), {message.title, message.text});
    case MessageBody::WorkGroup:
        return ofWorkGroup(message);
    case MessageBody::Recalled:
        return recalled(message.sender);
    case MessageBody::Unknown:
        return labelled(QObject::tr("messageUnknown"), {message.text});
    }
    return QString();
}

QString messageSummary(const QString &body)
{
    return messageSummary(readMessageBody(body));
}
