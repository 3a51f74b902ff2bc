// The body of a chat message: plain text, or a JSON object that says what was
// sent. docs/message-bodies.md has the format; the host writes with the same code.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

struct MessageBody
{
    enum Kind
    {
        Text,
        Picture,
        File,
        Voice,
        Location,
        Link,
        Merged,    // several messages passed on as one
        Service,   // of a service number
        WorkGroup, // from or to a work group of customer service
        Recalled,  // taken back by who sent it
        Unknown    // of a kind that this client does not know
    };

    // An object of more characters is not looked into: it is text as it stands.
    static constexpr int MaximumObject = 64 * 1024;
    static constexpr int MaximumParts = 200; // of one merged forward
    static constexpr int MaximumDepth = 8;   // of merged forwards inside each other

    Kind kind = Text;
    QString text;        // the text itself, a caption, a description; any length, any content
    QString title;       // of a link, a merged forward, a service message
    QString name;        // of a file, a place, a work group; a name, never a path
    QString url;         // http or https, else empty
    QString sender;      // the name of who wrote it, in a merged forward; who took it back
    QString unknownKind; // the kind's own name, of Unknown
    qint64 size = 0;     // bytes; 0 = unknown
    int seconds = 0;     // of a voice message; 0 = unknown
    double latitude = 0, longitude = 0; // degrees; both 0 = unknown
    int serviceType = 0;                // of Service, the service's own number
    QVector<MessageBody> parts;         // of Merged, in order
    int partCount = 0;                  // of Merged: that there were, at least parts.size()
};

// Never fails: what is not an object with a kind is text as it stands.
MessageBody readMessageBody(const QString &body);

// Text without anything else stays plain text. Of a message that is too long for an
// object the last parts are left out, then the end of the text.
QString writeMessageBody(const MessageBody &message);

// One line that tells what was sent, for lists; a display text in the user's
// language. The time it takes does not grow with the length of plain text.
QString messageSummary(const MessageBody &message);
QString messageSummary(const QString &body);
