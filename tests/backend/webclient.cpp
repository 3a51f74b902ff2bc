#include "tests/backend/webclient.h"

#include "backend/backend.h"

#include <QCryptographicHash>
#include <QUrl>

#include <httplib.h>
#include <json/reader.h>

namespace {
std::string encoded(const std::string &value)
{
    return QUrl::toPercentEncoding(QString::fromStdString(value)).toStdString();
}

Json::Value parsed(const std::string &text)
{
    Json::CharReaderBuilder builder;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    Json::Value value;
    if (text.empty() || !reader->parse(text.data(), text.data() + text.size(), &value, nullptr))
        return Json::Value::nullSingleton();
    return value;
}
} // namespace

std::string md5Of(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex().toStdString();
}

int Answer::code() const
{
    return json.isObject() && json["code"].isInt() ? json["code"].asInt() : -1;
}

bool Answer::isOverdue() const
{
    return header("passport.login.flag") == "true";
}

std::string Answer::header(const std::string &name) const
{
    const auto found = headers.find(name);
    return found == headers.end() ? std::string() : found->second;
}

WebClient::WebClient(const BackEnd &backEnd)
{
    // By name: built with MinGW, the library knows no addresses in certificates.
    auto client = std::make_unique<httplib::SSLClient>("localhost", backEnd.port());
    client->set_hostname_addr_map({{"localhost", "127.0.0.1"}});
    client->set_ca_cert_path(backEnd.caFile().toStdString(), std::string());
    client->enable_server_certificate_verification(true);
    client->set_keep_alive(true);
    client->set_tcp_nodelay(true);
    m_client = std::move(client);
}

WebClient::WebClient(int controlPort)
    : m_client(std::make_unique<httplib::ClientImpl>("127.0.0.1", controlPort))
{
}

WebClient::~WebClient() = default;

template <typename Send> Answer WebClient::answer(const Send &send)
{
    httplib::Headers headers;
    std::string jar;
    for (const auto &[name, value] : cookies)
        jar += (jar.empty() ? "" : "; ") + name + '=' + value;
    if (!jar.empty())
        headers.emplace("Cookie", jar);
    if (!authorization.empty())
        headers.emplace("Authorization", authorization);
    const httplib::Result result = send(headers);
    Answer answer;
    if (!result)
        return answer;
    answer.status = result->status;
    answer.body = result->body;
    answer.json = parsed(result->body);
    for (const auto &[name, value] : result->headers) {
        answer.headers.emplace(name, value);
        const size_t equals = value.find('=');
        if (name == "Set-Cookie" && equals != std::string::npos)
            cookies[value.substr(0, equals)] =
                value.substr(equals + 1, value.find(';') - equals - 1);
    }
    return answer;
}

Answer WebClient::logIn(const QString &name, const QString &password)
{
    return post("/ids/login",
                {{"userName", name.toStdString()}, {"password", md5Of(password.toUtf8())}});
}

void WebClient::logIn(const BackEnd &backEnd, const QString &uid)
{
    if (logIn(uid, backEnd.password()).code() != 0)
        qFatal("the log-in failed");
}

Answer WebClient::get(const std::string &target)
{
    return answer([&](const httplib::Headers &headers) { return m_client->Get(target, headers); });
}

Answer WebClient::post(const std::string &path, const Fields &fields)
{
    std::string body;
    for (const auto &[name, value] : fields)
        body += (body.empty() ? "" : "&") + name + '=' + encoded(value);
    return postRaw(path, body);
}

Answer WebClient::postRaw(const std::string &path, const std::string &body)
{
    return answer([&](const httplib::Headers &headers) {
        return m_client->Post(path, headers, body, "application/x-www-form-urlencoded");
    });
}

Answer WebClient::postJson(const std::string &path, const std::string &json)
{
    return answer([&](const httplib::Headers &headers) {
        return m_client->Post(path, headers, json, "application/json");
    });
}

Answer WebClient::upload(const std::string &path, const Fields &fields, const QByteArray &content)
{
    httplib::MultipartFormDataItems items;
    for (const auto &[name, value] : fields)
        items.push_back({name, value, "", ""});
    items.push_back({"file", content.toStdString(), "upload.bin", "application/octet-stream"});
    return answer(
        [&](const httplib::Headers &headers) { return m_client->Post(path, headers, items); });
}
