#include "messages/messagebody.h"

#include "http/jsonreader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <algorithm>
#include <limits>

namespace {

struct KindName
{
    MessageBody::Kind kind;
    const char *name;
};
constexpr KindName kindNames[] = {
    {MessageBody::Text, "text"},           {MessageBody::Picture, "picture"},
    {MessageBody::File, "file"},           {MessageBody::Voice, "voice"},
    {MessageBody::Location, "location"},   {MessageBody::Link, "link"},
    {MessageBody::Merged, "merged"},       {MessageBody::Service, "service"},
    {MessageBody::WorkGroup, "workgroup"}, {MessageBody::Recalled, "recalled"}};

constexpr int MaximumName = 200; // characters, of what is written as a name or title
constexpr int MaximumUrl = 2048; // characters
constexpr int MaximumSeconds = 24 * 60 * 60;
constexpr int MaximumPartCount = 1000 * 1000; // a number to show, nothing is made of it

MessageBody::Kind kindOf(const QString &name)
{
    for (const KindName &known : kindNames) {
        if (name == QLatin1String(known.name))
            return known.kind;
    }
    return MessageBody::Unknown;
}

QString nameOf(const MessageBody &message)
{
    for (const KindName &known : kindNames) {
        if (message.kind == known.kind)
            return QString::fromLatin1(known.name);
    }
    return message.unknownKind.isEmpty() ? QStringLiteral("unknown") : message.unknownKind;
}

// --- Reading -----------------------------------------------------------------

// Only such an address may be opened: nothing on the machine or in its network
// shares, no other program, and no host hidden behind a name and a password.
QString webAddress(const QString &text)
{
    if (text.size() > MaximumUrl)
        return QString();
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    const bool isWeb =
        url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!url.isValid() || !isWeb || url.host().isEmpty() || !url.userInfo().isEmpty())
        return QString();
    return QString::fromLatin1(url.toEncoded());
}

QString withoutFolders(const QString &path)
{
    const int slash =
        std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
    const QString name = path.mid(slash + 1).trimmed();
    return name == QLatin1String(".") || name == QLatin1String("..") ? QString() : name;
}

int numberWithin(const Json::Value &object, const char *key, int minimum, int maximum)
{
    const qint64 number = JsonReader::integer(object, key);
    return number >= minimum && number <= maximum ? int(number) : 0;
}

void readPlace(const Json::Value &object, MessageBody *message)
{
    bool hasLatitude = false;
    bool hasLongitude = false;
    const double latitude = JsonReader::text(object, "latitude").toDouble(&hasLatitude);
    const double longitude = JsonReader::text(object, "longitude").toDouble(&hasLongitude);
    const auto isWithin = [](double degrees, double limit) {
        return degrees >= -limit && degrees <= limit; // not so for "nan"
    };
    if (hasLatitude && hasLongitude && isWithin(latitude, 90) && isWithin(longitude, 180)) {
        message->latitude = latitude;
        message->longitude = longitude;
    }
}

// Whether the value says of itself what it is.
bool hasKind(const Json::Value &value)
{
    if (!value.isObject())
        return false;
    const Json::Value *type = value.find("type", "type" + 4);
    return type && type->isString() && !JsonReader::toText(*type).isEmpty();
}

MessageBody readObject(const Json::Value &object, int depth);

void readParts(const Json::Value &object, int depth, MessageBody *message)
{
    const Json::Value &parts = JsonReader::array(object, "parts");
    message->partCount = std::max(int(std::min<Json::ArrayIndex>(parts.size(), MaximumPartCount)),
                                  numberWithin(object, "count", 0, MaximumPartCount));
    if (depth >= MessageBody::MaximumDepth)
        return;
    for (const Json::Value &part : parts) {
        if (message->parts.size() == MessageBody::MaximumParts)
            return;
        if (part.isString()) {
            MessageBody text;
            text.text = JsonReader::toText(part);
            message->parts.append(text);
        } else if (part.isObject()) {
            message->parts.append(readObject(part, depth + 1));
        }
    }
}

// An object without a kind is text.
MessageBody readObject(const Json::Value &object, int depth)
{
    MessageBody message;
    const QString kind = JsonReader::text(object, "type");
    message.kind = hasKind(object) ? kindOf(kind) : MessageBody::Text;
    message.text = JsonReader::text(object, "text");
    message.sender = JsonReader::text(object, "sender");
    message.title = JsonReader::text(object, "title");
    message.name = JsonReader::text(object, "name");
    message.url = webAddress(JsonReader::text(object, "url"));
    message.size = std::max<qint64>(JsonReader::integer(object, "size"), 0);
    message.seconds = numberWithin(object, "seconds", 0, MaximumSeconds);
    message.serviceType = numberWithin(object, "serviceType", std::numeric_limits<int>::min(),
                                       std::numeric_limits<int>::max());
    if (message.kind == MessageBody::Unknown)
        message.unknownKind = kind;
    if (message.kind == MessageBody::File || message.kind == MessageBody::Picture)
        message.name = withoutFolders(message.name);
    if (message.kind == MessageBody::Location)
        readPlace(object, &message);
    if (message.kind == MessageBody::Merged)
        readParts(object, depth, &message);
    return message;
}

// Cheap for everything that is no object, above all for text of any length.
bool readKind(const QString &body, Json::Value *object)
{
    return body.startsWith(QLatin1Char('{')) && body.size() <= MessageBody::MaximumObject &&
           JsonReader::parse(body.toUtf8(), object) && hasKind(*object);
}

// --- Writing -----------------------------------------------------------------

void put(QJsonObject *object, const char *key, const QString &value, int maximum)
{
    if (!value.isEmpty())
        object->insert(QLatin1String(key), value.left(maximum));
}

void put(QJsonObject *object, const char *key, double value)
{
    if (value != 0)
        object->insert(QLatin1String(key), value);
}

QJsonObject toObject(const MessageBody &message, int depth)
{
    QJsonObject object;
    put(&object, "type", nameOf(message), MaximumName);
    put(&object, "text", message.text, MessageBody::MaximumObject);
    put(&object, "sender", message.sender, MaximumName);
    put(&object, "title", message.title, MaximumName);
    put(&object, "name", message.name, MaximumName);
    put(&object, "url", webAddress(message.url), MaximumUrl);
    put(&object, "size", double(message.size));
    put(&object, "seconds", message.seconds);
    put(&object, "latitude", message.latitude);
    put(&object, "longitude", message.longitude);
    put(&object, "serviceType", message.serviceType);
    if (message.kind != MessageBody::Merged)
        return object;
    QJsonArray parts;
    const int kept = depth < MessageBody::MaximumDepth
                         ? std::min<int>(message.parts.size(), MessageBody::MaximumParts)
                         : 0;
    for (int i = 0; i < kept; ++i)
        parts.append(toObject(message.parts.at(i), depth + 1));
    object.insert(QLatin1String("parts"), parts);
    const int count = std::max<int>(message.partCount, message.parts.size());
    if (count > kept)
        object.insert(QLatin1String("count"), count);
    return object;
}

// False when there is nothing more that could go.
bool shorten(MessageBody *message)
{
    QVector<MessageBody> &parts = message->parts;
    if (!parts.isEmpty()) {
        message->partCount = std::max<int>(message->partCount, parts.size());
        if (parts.size() > 1 || !shorten(&parts.first()))
            parts.resize(parts.size() / 2);
        return true;
    }
    if (message->text.isEmpty())
        return false;
    message->text.truncate(message->text.size() / 2);
    return true;
}

QString serialized(const MessageBody &message)
{
    return QString::fromUtf8(QJsonDocument(toObject(message, 0)).toJson(QJsonDocument::Compact));
}

bool isOnlyText(const MessageBody &message)
{
    return message.kind == MessageBody::Text && message.sender.isEmpty() &&
           message.title.isEmpty() && message.name.isEmpty() && message.url.isEmpty();
}

} // namespace

MessageBody readMessageBody(const QString &body)
{
    Json::Value object;
    if (readKind(body, &object))
        return readObject(object, 0);
    MessageBody message;
    message.text = body;
    return message;
}

QString writeMessageBody(const MessageBody &message)
{
    if (isOnlyText(message)) {
        Json::Value object;
        if (!readKind(message.text, &object))
            return message.text;
        const QString wrapped = serialized(message);
        // A blank in front is as good where the text has no room in an object.
        return wrapped.size() <= MessageBody::MaximumObject ? wrapped
                                                            : QLatin1Char(' ') + message.text;
    }
    MessageBody shortened = message;
    QString body = serialized(shortened);
    while (body.size() > MessageBody::MaximumObject && shorten(&shortened))
        body = serialized(shortened);
    return body;
}
