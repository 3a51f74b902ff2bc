// A client of the back end as the tests need it: verifies the certificate, keeps the
// cookies that it is given, follows no redirects.
#pragma once

#include <QByteArray>
#include <QString>

#include <json/value.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class BackEnd;

namespace httplib {
class ClientImpl;
}

struct Answer
{
    int status = 0; // 0: there was none
    std::string body;
    Json::Value json; // null when the body is none
    std::multimap<std::string, std::string> headers;

    int code() const; // -1: none
    bool isOverdue() const;
    std::string header(const std::string &name) const;
};

class WebClient
{
public:
    using Fields = std::vector<std::pair<std::string, std::string>>;

    explicit WebClient(const BackEnd &backEnd);
    // Of the control port: plain HTTP.
    explicit WebClient(int controlPort);
    ~WebClient();

    Answer logIn(const QString &name, const QString &password);
    // Logs in as a sample user.
    void logIn(const BackEnd &backEnd, const QString &uid);

    Answer get(const std::string &target);
    Answer post(const std::string &path, const Fields &fields);
    Answer postRaw(const std::string &path, const std::string &body);
    Answer postJson(const std::string &path, const std::string &json);
    Answer upload(const std::string &path, const Fields &fields, const QByteArray &content);

    std::map<std::string, std::string> cookies;
    std::string authorization; // the header; empty: none

private:
    template <typename Send> Answer answer(const Send &send);

    std::unique_ptr<httplib::ClientImpl> m_client;
};

// Of a text or bytes, in lower-case hexadecimal digits.
std::string md5Of(const QByteArray &bytes);
