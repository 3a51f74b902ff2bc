#include "backend/reply.h"

#include <json/json.h>

#include <cstring>

std::string jsonLine(const Json::Value &value)
{
    Json::StreamWriterBuilder writer;
    writer["indentation"] = "";
    writer["emitUTF8"] = true;
    return Json::writeString(writer, value);
}

Reply Reply::code(int code)
{
    Json::Value root(Json::objectValue);
    root["code"] = code;
    return json(root);
}

Reply Reply::data(const Json::Value &data)
{
    Json::Value root(Json::objectValue);
    root["code"] = ReplyCode::Done;
    root["data"] = data;
    return json(root);
}

Reply Reply::json(const Json::Value &value)
{
    return text(jsonLine(value));
}

Reply Reply::text(std::string json)
{
    Reply reply;
    reply.body = std::move(json);
    return reply;
}

Reply Reply::ofStatus(int status)
{
    Reply reply;
    reply.status = status;
    reply.type.clear();
    return reply;
}

Reply Reply::bytes(const QByteArray &content, const char *type)
{
    Reply reply;
    reply.type = type;
    reply.body = content.toStdString();
    return reply;
}

Reply Reply::ofFile(const QString &file, const char *type)
{
    Reply reply;
    reply.type = type;
    reply.file = file;
    return reply;
}

Reply Reply::fileResult(const Json::Value &result)
{
    Json::Value root(Json::objectValue);
    root["SNRetCode"] = "0";
    root["SNRetMsg"] = "";
    root["result"] = result;
    return json(root);
}

Reply Reply::fileError(const char *code, const char *message)
{
    Json::Value root(Json::objectValue);
    root["SNRetCode"] = "1";
    root["SNRetMsg"] = message;
    root["errorCode"] = code;
    return json(root);
}

Reply &&Reply::with(const std::string &header, const std::string &value) &&
{
    headers.emplace_back(header, value);
    return std::move(*this);
}

void JsonText::comma()
{
    if (!m_out.empty() && !std::strchr("{[:", m_out.back()))
        m_out += ',';
}

void JsonText::quote(const char *bytes, size_t size)
{
    static constexpr char hex[] = "0123456789abcdef";
    m_out += '"';
    for (size_t i = 0; i < size; ++i) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        if (c == '"' || c == '\\') {
            m_out += '\\';
            m_out += char(c);
        } else if (c < 0x20) {
            m_out += "\\u00";
            m_out += hex[c >> 4];
            m_out += hex[c & 15];
        } else {
            m_out += char(c);
        }
    }
    m_out += '"';
}

void JsonText::name(const char *name)
{
    comma();
    quote(name, std::strlen(name));
    m_out += ':';
}

JsonText &JsonText::open(char bracket)
{
    comma();
    m_out += bracket;
    return *this;
}

JsonText &JsonText::open(const char *memberName, char bracket)
{
    name(memberName);
    m_out += bracket;
    return *this;
}

JsonText &JsonText::close(char bracket)
{
    m_out += bracket;
    return *this;
}

JsonText &JsonText::member(const char *memberName, const QString &value)
{
    const QByteArray bytes = value.toUtf8();
    name(memberName);
    quote(bytes.constData(), size_t(bytes.size()));
    return *this;
}

JsonText &JsonText::member(const char *memberName, const char *value)
{
    name(memberName);
    quote(value, std::strlen(value));
    return *this;
}

JsonText &JsonText::member(const char *memberName, qint64 value)
{
    name(memberName);
    m_out += std::to_string(value);
    return *this;
}

JsonText &JsonText::flag(const char *memberName, bool value)
{
    name(memberName);
    m_out += value ? "true" : "false";
    return *this;
}

JsonText &JsonText::element(const QString &value)
{
    const QByteArray bytes = value.toUtf8();
    comma();
    quote(bytes.constData(), size_t(bytes.size()));
    return *this;
}

JsonText &JsonText::rawMember(const char *memberName, const std::string &json)
{
    name(memberName);
    m_out += json;
    return *this;
}

JsonText &JsonText::raw(const std::string &json)
{
    comma();
    m_out += json;
    return *this;
}
