#include "backend/dispatcher.h"

#include "backend/context.h"
#include "backend/levers.h"

#include <httplib.h>
#include <openssl/crypto.h>

#include <QCryptographicHash>
#include <QFile>

#include <chrono>

namespace {
constexpr size_t MaximumForm = 2 * 1024 * 1024; // bytes
constexpr size_t MaximumParts = 64;
constexpr size_t FilePiece = 256 * 1024; // bytes
constexpr char OverdueFlag[] = "passport.login.flag";

std::string queryOf(const httplib::Request &request)
{
    const size_t mark = request.target.find('?');
    if (mark == std::string::npos)
        return {};
    return request.target.substr(mark + 1, request.target.find('#', mark) - mark - 1);
}

// As one word of a log line.
std::string printable(std::string path)
{
    for (char &c : path) {
        if (c <= ' ' || c == 0x7f)
            c = '?';
    }
    return path.substr(0, 200);
}

bool sameBytes(const QByteArray &left, const QByteArray &right)
{
    return left.size() == right.size() &&
           CRYPTO_memcmp(left.constData(), right.constData(), size_t(left.size())) == 0;
}

Reply refusal(Services::Access access)
{
    if (access == Services::Files)
        return Reply::fileError("E02", "not logged in");
    return access == Services::Content ? Reply::ofStatus(403) : Reply::code(ReplyCode::Illegal);
}

// Sends the file piece by piece, so that a large one needs no memory.
void sendFile(const Reply &reply, httplib::Response *response)
{
    const auto file = std::make_shared<QFile>(reply.file);
    if (!file->open(QIODevice::ReadOnly)) {
        response->status = 404;
        return;
    }
    const auto provide = [file](size_t offset, size_t length, httplib::DataSink &sink) {
        const qint64 most = qint64(std::min(length, FilePiece));
        const QByteArray piece = file->seek(qint64(offset)) ? file->read(most) : QByteArray();
        return !piece.isEmpty() && sink.write(piece.constData(), size_t(piece.size()));
    };
    response->set_content_provider(size_t(file->size()), reply.type, provide);
}

void fill(const Reply &reply, httplib::Response *response)
{
    response->status = reply.status;
    if (!reply.file.isEmpty())
        sendFile(reply, response);
    else if (!reply.type.empty())
        response->set_header("Content-Type", reply.type);
    for (const auto &[name, value] : reply.headers)
        response->set_header(name, value);
    response->body = reply.body;
}
} // namespace

struct Dispatcher::Body
{
    Call call;
    std::string text;
    std::vector<SeenRequest::Part> seenParts;
    bool isWhole = true; // it came to its end and could be read
    bool isTooLarge = false;
};

Dispatcher::Dispatcher(const Services &services, BackEndContext &context, Levers &levers,
                       const Log &log)
    : m_services(services), m_context(context), m_levers(levers), m_log(log)
{
}

// The readers take in the whole body also when it is of no use: what stayed unread
// would be taken for the connection's next request.
void Dispatcher::readPlain(const httplib::ContentReader &reader, Body *body)
{
    body->isWhole = reader([body](const char *bytes, size_t size) {
        if (body->text.size() + size > MaximumForm)
            body->isTooLarge = true;
        else
            body->text.append(bytes, size);
        return true;
    });
    body->call.form = FormBody::parse(body->text);
}

void Dispatcher::readMultipart(const httplib::ContentReader &reader, Body *body)
{
    std::vector<UploadedPart> parts;
    body->isWhole = reader(
        [&](const httplib::MultipartFormData &header) {
            if (parts.size() < MaximumParts)
                parts.push_back({header.name, header.filename, {}, false});
            else
                body->isTooLarge = true;
            return true;
        },
        [&](const char *bytes, size_t size) {
            if (parts.empty() || body->isTooLarge)
                return true;
            UploadedPart &part = parts.back();
            part.isCutOff = part.isCutOff || part.content.size() + int(size) > Call::MaximumPart;
            if (!part.isCutOff)
                part.content.append(bytes, int(size));
            return true;
        });
    for (UploadedPart &part : parts) {
        part.isCutOff = part.isCutOff || !body->isWhole;
        const bool isFile = !part.fileName.empty();
        const std::string text = isFile ? std::string() : part.content.toStdString();
        body->seenParts.push_back({part.name, part.fileName, size_t(part.content.size()), text});
        if (isFile)
            body->call.parts.push_back(std::move(part));
        else
            body->call.form.set(part.name, text);
    }
}

Caller Dispatcher::basicCaller(const std::string &authorization) const
{
    const QByteArray header = QByteArray::fromStdString(authorization);
    if (!header.startsWith("Basic "))
        return {};
    const QByteArray text = QByteArray::fromBase64(header.mid(6));
    const int colon = text.indexOf(':');
    if (colon < 0)
        return {};
    const QByteArray password = m_context.password.toUtf8();
    const QByteArray digest = QCryptographicHash::hash(password, QCryptographicHash::Md5).toHex();
    const QByteArray given = text.mid(colon + 1);
    if (!sameBytes(given, password) && !sameBytes(given, digest))
        return {};
    const QString uid = m_context.people.uidOfLogin(QString::fromUtf8(text.left(colon)));
    return uid.isEmpty() ? Caller{} : Caller{Caller::LoggedIn, uid};
}

Caller Dispatcher::callerOf(const httplib::Request &request, const Call &call) const
{
    const std::string ticket = call.cookie(Cookie::AuthId);
    if (ticket.empty())
        return basicCaller(request.get_header_value("Authorization"));
    return m_context.sessions.find(Sessions::AuthId, QString::fromStdString(ticket));
}

Reply Dispatcher::checked(const Services::Service &service, const Call &call) const
{
    if (service.access == Services::Open || call.caller.state == Caller::LoggedIn)
        return service.handler(call);
    if (service.access == Services::Organisation) {
        return Reply::ofStatus(302).with("Location",
                                         m_context.address.toStdString() + "/ids/login");
    }
    if (call.caller.state == Caller::Expired)
        return service.handler(call).with(OverdueFlag, "true");
    return refusal(service.access).with(OverdueFlag, "true");
}

Reply Dispatcher::replyFor(const httplib::Request &request, Body *body) const
{
    const std::string method = request.method == "HEAD" ? "GET" : request.method;
    const Services::Service *service = m_services.find(method, request.path);
    if (!service)
        return Reply::ofStatus(404);
    if (body->isTooLarge)
        return Reply::ofStatus(413);
    try {
        body->call.caller = callerOf(request, body->call);
        return checked(*service, body->call);
    } catch (const IllegalField &) {
        return service->access == Services::Files ? Reply::fileError("E01", "illegal field")
                                                  : Reply::code(ReplyCode::Illegal);
    } catch (const std::exception &error) {
        if (m_log)
            m_log("failed " + printable(request.path) + ": " + error.what());
        return Reply::ofStatus(500);
    }
}

void Dispatcher::record(const httplib::Request &request, const Body &body) const
{
    SeenRequest seen;
    seen.method = request.method;
    seen.path = request.path;
    seen.query = queryOf(request);
    seen.body = body.text;
    seen.parts = body.seenParts;
    for (const auto &[name, value] : request.headers) {
        // What the server adds itself.
        if (name.compare(0, 7, "REMOTE_") != 0 && name.compare(0, 6, "LOCAL_") != 0)
            seen.headers.emplace_back(name, value);
    }
    m_levers.record(std::move(seen));
}

Reply Dispatcher::scripted(const Rule &rule, const httplib::Request &request, Body *body) const
{
    Reply reply;
    if (rule.replacesService()) {
        reply.status = rule.status != 0 ? rule.status : 200;
        reply.body = rule.body.value_or("");
    } else {
        reply = replyFor(request, body);
    }
    for (const auto &[name, value] : rule.headers) {
        if (name == "Content-Type")
            reply.type = value;
        else
            reply.headers.emplace_back(name, value);
    }
    return reply;
}

bool Dispatcher::answer(const httplib::Request &request, const httplib::ContentReader *reader,
                        httplib::Response *response) const
{
    const auto begun = std::chrono::steady_clock::now();
    Body body;
    body.call.cookies = request.get_header_value("Cookie");
    if (reader && request.is_multipart_form_data())
        readMultipart(*reader, &body);
    else if (reader)
        readPlain(*reader, &body);
    else
        body.call.form = FormBody::parse(queryOf(request));
    record(request, body);
    body.isTooLarge = body.isTooLarge || (!body.isWhole && response->status == 413);

    const std::optional<Rule> rule = m_levers.take(request.path);
    if (rule && rule->delayMs > 0)
        m_levers.pause(rule->delayMs);
    const bool isDropped = rule && rule->drop;
    bool isRoutine = false;
    if (!isDropped) {
        const Reply reply = rule ? scripted(*rule, request, &body) : replyFor(request, &body);
        isRoutine = reply.isRoutine;
        fill(reply, response);
    }
    if (m_log && !isRoutine) {
        const std::chrono::duration<double, std::milli> taken =
            std::chrono::steady_clock::now() - begun;
        const std::string result = isDropped ? "dropped" : std::to_string(response->status);
        m_log(request.method + ' ' + printable(request.path) + ' ' + result + ' ' +
              std::to_string(int(taken.count())) + " ms");
    }
    return !isDropped;
}
