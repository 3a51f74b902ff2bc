// What a service answers. Most are JSON with a code: 0 for success, payload in
// "data".
#pragma once

#include <QByteArray>
#include <QString>

#include <string>
#include <utility>
#include <vector>

namespace Json {
class Value;
}

namespace ReplyCode {
constexpr int Done = 0;
constexpr int Illegal = 10001; // unknown user, team, group or id; malformed field
constexpr int NoRight = 10002;
constexpr int Blocked = 10003;  // by the state of things
constexpr int Personal = 10004; // an account without company
} // namespace ReplyCode

struct Reply
{
    int status = 200;
    std::string type = "application/json; charset=utf-8";
    std::string body;
    QString file; // instead of the body
    std::vector<std::pair<std::string, std::string>> headers;
    bool isRoutine = false; // not worth a line in the log

    static Reply code(int code);
    static Reply data(const Json::Value &data);  // with code 0
    static Reply json(const Json::Value &value); // as it is
    static Reply text(std::string json);         // JSON that is written already
    static Reply ofStatus(int status);           // without content
    static Reply bytes(const QByteArray &content, const char *type);

    static Reply ofFile(const QString &file, const char *type); // 404 when it is gone

    // The envelope of the file services: "0" and the result, or "1" and an error.
    static Reply fileResult(const Json::Value &result);
    static Reply fileError(const char *code, const char *message);

    Reply &&with(const std::string &header, const std::string &value) &&;
};

// JSON in one line, UTF-8.
std::string jsonLine(const Json::Value &value);

// Writes JSON member by member, for replies of many thousand elements. A comma is put
// where one is due.
class JsonText
{
public:
    explicit JsonText(std::string *out) : m_out(*out) {}

    JsonText &open(char bracket); // '{' or '['
    JsonText &open(const char *name, char bracket);
    JsonText &close(char bracket); // '}' or ']'
    JsonText &member(const char *name, const QString &value);
    JsonText &member(const char *name, const char *value);
    JsonText &member(const char *name, qint64 value);
    JsonText &flag(const char *name, bool value);
    JsonText &element(const QString &value); // of an array
    JsonText &raw(const std::string &json);  // elements that are written already
    JsonText &rawMember(const char *name, const std::string &json);

private:
    void comma();
    void name(const char *name);
    void quote(const char *bytes, size_t size);

    std::string &m_out;
};
