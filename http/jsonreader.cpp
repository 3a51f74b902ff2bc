#include "http/jsonreader.h"

#include <QLocale>

#include <json/reader.h>

#include <cmath>
#include <cstring>
#include <exception>
#include <limits>
#include <memory>

namespace {
const Json::Value emptyArray(Json::arrayValue);
const Json::Value emptyObject(Json::objectValue);

// Null for a missing member, and for a value that has no members at all: asking
// that one would throw.
const Json::Value *member(const Json::Value &object, const char *key)
{
    return object.isObject() ? object.find(key, key + std::strlen(key)) : nullptr;
}

QByteArray bytesOf(const Json::Value &string)
{
    const char *begin = nullptr;
    const char *end = nullptr;
    string.getString(&begin, &end);
    return QByteArray::fromRawData(begin, int(end - begin));
}

QString fromString(const Json::Value &string)
{
    const QByteArray bytes = bytesOf(string);
    QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    if (std::memchr(bytes.constData(), 0, size_t(bytes.size())))
        text.remove(QChar::Null);
    return text;
}

bool isWhole(double number)
{
    constexpr double limit = 9007199254740992.0; // whole numbers up to here are exact
    return std::abs(number) <= limit && std::trunc(number) == number;
}

// The kind of the surrogate that is escaped at a place: 'h' or 'l'; 0 for anything else.
char surrogateAt(const QByteArray &text, int at)
{
    if (text.mid(at, 2) != "\\u")
        return 0;
    const ushort unit = text.mid(at + 2, 4).toUShort(nullptr, 16);
    return QChar::isHighSurrogate(unit) ? 'h' : QChar::isLowSurrogate(unit) ? 'l' : 0;
}

// The parser refuses the whole reply for half a pair, which a service leaves where it
// has cut somebody's name.
QByteArray withoutHalfPairs(QByteArray text)
{
    constexpr int Escape = 6; // bytes
    for (int at = text.indexOf('\\'); at >= 0; at = text.indexOf('\\', at)) {
        const char kind = surrogateAt(text, at);
        if (kind == 'h' && surrogateAt(text, at + Escape) == 'l') {
            at += 2 * Escape;
        } else if (kind) {
            text.replace(at, Escape, "\\ufffd");
            at += Escape;
        } else {
            at += 2;
        }
    }
    return text;
}

bool parseText(const QByteArray &text, Json::Value *root, std::string *error)
{
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    builder["stackLimit"] = JsonReader::MaximumDepth;
    builder["rejectDupKeys"] = false;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    return reader->parse(text.constData(), text.constData() + text.size(), root, error);
}
} // namespace

bool JsonReader::parse(const QByteArray &utf8, Json::Value *root, QString *error)
{
    const bool isMarked = utf8.startsWith("\xef\xbb\xbf");
    const QByteArray text =
        isMarked ? QByteArray::fromRawData(utf8.constData() + 3, utf8.size() - 3) : utf8;
    std::string reason;
    bool ok = false;
    try {
        ok = parseText(text, root, &reason);
        if (!ok && text.contains("\\u"))
            ok = parseText(withoutHalfPairs(text), root, &reason);
        if (ok && !root->isObject()) {
            ok = false;
            reason = "not an object";
        }
    } catch (const std::exception &exception) { // nesting, for one
        ok = false;
        reason = exception.what();
    }
    if (!ok) {
        *root = Json::Value(Json::objectValue);
        if (error)
            *error = QString::fromStdString(reason).simplified();
    }
    return ok;
}

QString JsonReader::text(const Json::Value &object, const char *key, const QString &fallback)
{
    const Json::Value *value = member(object, key);
    return value ? toText(*value, fallback) : fallback;
}

qint64 JsonReader::integer(const Json::Value &object, const char *key, qint64 fallback)
{
    const Json::Value *value = member(object, key);
    return value ? toInteger(*value, fallback) : fallback;
}

bool JsonReader::flag(const Json::Value &object, const char *key, bool fallback)
{
    const Json::Value *value = member(object, key);
    return value ? toFlag(*value, fallback) : fallback;
}

bool JsonReader::has(const Json::Value &object, const char *key)
{
    const Json::Value *value = member(object, key);
    return value && !value->isNull();
}

const Json::Value &JsonReader::array(const Json::Value &object, const char *key)
{
    const Json::Value *value = member(object, key);
    return value && value->isArray() ? *value : emptyArray;
}

const Json::Value &JsonReader::object(const Json::Value &object, const char *key)
{
    const Json::Value *value = member(object, key);
    return value && value->isObject() ? *value : emptyObject;
}

QString JsonReader::toText(const Json::Value &value, const QString &fallback)
{
    switch (value.type()) {
    case Json::stringValue:
        return fromString(value);
    case Json::intValue:
        return QString::number(value.asInt64());
    case Json::uintValue:
        return QString::number(value.asUInt64());
    case Json::realValue:
        return isWhole(value.asDouble())
                   ? QString::number(qint64(value.asDouble()))
                   : QString::number(value.asDouble(), 'g', QLocale::FloatingPointShortest);
    case Json::booleanValue:
        return value.asBool() ? QStringLiteral("true") : QStringLiteral("false");
    case Json::nullValue:
    case Json::arrayValue:
    case Json::objectValue:
        break;
    }
    return fallback;
}

qint64 JsonReader::toInteger(const Json::Value &value, qint64 fallback)
{
    switch (value.type()) {
    case Json::intValue:
        return value.asInt64();
    case Json::uintValue:
        return value.isInt64() ? value.asInt64() : fallback;
    case Json::realValue:
        return isWhole(value.asDouble()) ? qint64(value.asDouble()) : fallback;
    case Json::booleanValue:
        return value.asBool() ? 1 : 0;
    case Json::stringValue: {
        bool isNumber = false;
        const qint64 number = bytesOf(value).trimmed().toLongLong(&isNumber);
        return isNumber ? number : fallback;
    }
    case Json::nullValue:
    case Json::arrayValue:
    case Json::objectValue:
        break;
    }
    return fallback;
}

qint32 JsonReader::toInt32(const Json::Value &value, qint32 fallback)
{
    using Limits = std::numeric_limits<qint32>;
    const qint64 read = toInteger(value, fallback);
    return read >= Limits::min() && read <= Limits::max() ? qint32(read) : fallback;
}

bool JsonReader::toFlag(const Json::Value &value, bool fallback)
{
    if (value.isString()) {
        const QByteArray word = bytesOf(value).trimmed().toLower();
        if (word == "true")
            return true;
        if (word == "false")
            return false;
    }
    // No number that is written as a text or otherwise is its own opposite.
    const qint64 number = toInteger(value, -1);
    return number == 0 || number == 1 ? number == 1 : fallback;
}
