// Reading JSON that a server sent: nothing throws, whatever the text holds. A
// missing member or one of another kind yields the fallback; "3" reads as 3, 1 and
// "true" as true, 3 as "3".
#pragma once

#include <QByteArray>
#include <QString>

#include <json/value.h>

namespace JsonReader {

// Nesting beyond this is refused.
constexpr int MaximumDepth = 200;

// False, with a reason in *error, unless the text is one JSON object. A byte order
// mark is skipped; anything behind the object is an error.
bool parse(const QByteArray &utf8, Json::Value *root, QString *error = nullptr);

// Members of an object. `object` may be any value; NUL characters are dropped.
QString text(const Json::Value &object, const char *key, const QString &fallback = QString());
qint64 integer(const Json::Value &object, const char *key, qint64 fallback = 0);
bool flag(const Json::Value &object, const char *key, bool fallback = false);
bool has(const Json::Value &object, const char *key); // present and not null
// An empty array or object instead of anything else. The reference lives as long
// as `object` does.
const Json::Value &array(const Json::Value &object, const char *key);
const Json::Value &object(const Json::Value &object, const char *key);

// A value that is no member, such as an element of an array.
QString toText(const Json::Value &value, const QString &fallback = QString());
qint64 toInteger(const Json::Value &value, qint64 fallback = 0);
qint32 toInt32(const Json::Value &value, qint32 fallback = 0); // also for what does not fit
bool toFlag(const Json::Value &value, bool fallback = false);

} // namespace JsonReader
