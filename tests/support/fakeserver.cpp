#include "tests/support/fakeserver.h"

#include "tests/support/tlschannel.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>

#include <algorithm>

namespace {

QByteArray withoutQuery(const QByteArray &path)
{
    const int query = path.indexOf('?');
    return query < 0 ? path : path.left(query);
}

bool sameName(const QByteArray &left, const char *right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

QByteArray bytesOf(const FakeReply &reply)
{
    if (!reply.raw.isEmpty())
        return reply.raw;
    QByteArray bytes = "HTTP/1.1 " + QByteArray::number(reply.status) + " Scripted\r\n";
    bool hasLength = false;
    for (const auto &[name, value] : reply.headers) {
        bytes += name + ": " + value + "\r\n";
        hasLength = hasLength || sameName(name, "Content-Length");
    }
    if (!hasLength)
        bytes += "Content-Length: " + QByteArray::number(reply.body.size()) + "\r\n";
    return bytes + "\r\n" + reply.body;
}

class Listener : public QTcpServer
{
public:
    std::function<void(qintptr)> onConnection;

protected:
    void incomingConnection(qintptr descriptor) override { onConnection(descriptor); }
};

} // namespace

QByteArray FakeRequest::header(const char *name) const
{
    for (const auto &[key, value] : headers)
        if (sameName(key, name))
            return value;
    return QByteArray();
}

bool FakeRequest::hasHeader(const char *name) const
{
    return std::any_of(headers.begin(), headers.end(),
                       [name](const auto &entry) { return sameName(entry.first, name); });
}

QByteArray FakeRequest::cookie(const char *name) const
{
    const QList<QByteArray> cookies = header("Cookie").split(';');
    for (const QByteArray &cookie : cookies) {
        const QByteArray trimmed = cookie.trimmed();
        const int equals = trimmed.indexOf('=');
        if (equals > 0 && trimmed.left(equals) == name)
            return QByteArray("").append(trimmed.mid(equals + 1));
    }
    return QByteArray();
}

FakeReply FakeReply::of(int status, const QByteArray &body)
{
    FakeReply made;
    made.status = status;
    made.body = body;
    return made;
}

FakeReply FakeReply::json(const QByteArray &body)
{
    return of(200, body).header("Content-Type", "application/json; charset=utf-8");
}

FakeReply FakeReply::redirect(int status, const QByteArray &location)
{
    return of(status).header("Location", location);
}

FakeReply FakeReply::verbatim(const QByteArray &bytes)
{
    FakeReply made;
    made.raw = bytes;
    made.dropAfter = bytes.size();
    return made;
}

FakeReply &FakeReply::header(const QByteArray &name, const QByteArray &value)
{
    headers.append({name, value});
    return *this;
}

FakeReply &FakeReply::after(int milliseconds)
{
    delay = milliseconds;
    return *this;
}

FakeReply &FakeReply::onRelease()
{
    held = true;
    return *this;
}

FakeReply &FakeReply::dropped(qint64 afterBytes)
{
    dropAfter = afterBytes;
    return *this;
}

FakeReply &FakeReply::trickled(int milliseconds)
{
    byteInterval = milliseconds;
    return *this;
}

// One connection, its socket and what has arrived of the next request.
struct FakeServer::Connection
{
    QTcpSocket *socket = nullptr; // owned by the server object
    std::unique_ptr<TlsChannel> tls;
    int number = 0;
    QByteArray input;
    bool busy = false;    // its request has no complete reply yet
    QByteArray trickling; // what is still to be sent byte by byte

    QByteArray read() { return tls ? tls->read() : socket->readAll(); }
    void write(const QByteArray &bytes)
    {
        if (tls)
            tls->write(bytes);
        else
            socket->write(bytes);
    }
    // The bytes written so far still go out.
    void close()
    {
        if (tls)
            tls->end();
        socket->disconnectFromHost();
    }
};

struct FakeServer::Private
{
    Listener listener;
    std::unique_ptr<TestCertificates::KeyPair> tls;
    quint16 port = 0;
    QVector<std::shared_ptr<Connection>> open;
    QHash<QByteArray, QQueue<FakeReply>> scripts;
    std::function<FakeReply(const FakeRequest &)> elsewhere;
    QVector<FakeRequest> requests;
    QVector<std::pair<std::weak_ptr<Connection>, FakeReply>> held;
    int connections = 0;
    int mostUnanswered = 0;

    FakeReply replyTo(const FakeRequest &request);
    void send(const std::shared_ptr<Connection> &connection, FakeReply reply);
    void write(const std::shared_ptr<Connection> &connection, const FakeReply &reply);
    void trickle(const std::weak_ptr<Connection> &weak, int interval, bool close);
    bool takeRequest(Connection &connection, FakeRequest *request);
};

FakeServer::FakeServer(QObject *parent) : QObject(parent), d(new Private)
{
    d->listener.onConnection = [this](qintptr descriptor) {
        auto connection = std::make_shared<Connection>();
        connection->number = d->connections++;
        connection->socket = new QTcpSocket(this);
        if (!connection->socket->setSocketDescriptor(descriptor)) {
            delete connection->socket;
            return;
        }
        connection->socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        d->open.append(connection);
        Connection *raw = connection.get();
        connect(raw->socket, &QTcpSocket::readyRead, this, [this, raw] { arrived(raw); });
        connect(raw->socket, &QTcpSocket::disconnected, this, [this, raw] {
            raw->socket->deleteLater();
            const auto gone = std::remove_if(
                d->open.begin(), d->open.end(),
                [raw](const std::shared_ptr<Connection> &each) { return each.get() == raw; });
            d->open.erase(gone, d->open.end());
        });
        if (d->tls)
            raw->tls = std::make_unique<TlsChannel>(raw->socket, *d->tls);
    };
    restart();
}

FakeServer::FakeServer(const TestCertificates::KeyPair &tls, QObject *parent) : FakeServer(parent)
{
    d->tls = std::make_unique<TestCertificates::KeyPair>(tls);
}

FakeServer::~FakeServer()
{
    stop();
}

QUrl FakeServer::url(const QString &path, const QString &host) const
{
    QUrl url(path);
    url.setScheme(d->tls ? QStringLiteral("https") : QStringLiteral("http"));
    url.setHost(host);
    url.setPort(d->port);
    return url;
}

void FakeServer::reply(const QByteArray &path, const FakeReply &reply)
{
    this->reply(path, QVector<FakeReply>{reply});
}

void FakeServer::reply(const QByteArray &path, const QVector<FakeReply> &replies)
{
    QQueue<FakeReply> &script = d->scripts[path];
    script.clear();
    for (const FakeReply &each : replies)
        script.enqueue(each);
}

void FakeServer::replyElsewhere(const std::function<FakeReply(const FakeRequest &)> &handler)
{
    d->elsewhere = handler;
}

const QVector<FakeRequest> &FakeServer::requests() const
{
    return d->requests;
}

int FakeServer::count(const QByteArray &path) const
{
    return int(
        std::count_if(d->requests.begin(), d->requests.end(), [&path](const FakeRequest &request) {
            return withoutQuery(request.path) == path;
        }));
}

FakeRequest FakeServer::last() const
{
    if (!d->requests.isEmpty())
        return d->requests.last();
    QTest::qFail("the server has received no request", __FILE__, __LINE__);
    return FakeRequest();
}

void FakeServer::forget()
{
    d->requests.clear();
    d->mostUnanswered = unanswered();
}

int FakeServer::connections() const
{
    return d->connections;
}

int FakeServer::unanswered() const
{
    return int(std::count_if(d->open.begin(), d->open.end(),
                             [](const std::shared_ptr<Connection> &each) { return each->busy; }));
}

int FakeServer::mostUnanswered() const
{
    return d->mostUnanswered;
}

void FakeServer::release()
{
    release(d->held.size());
}

void FakeServer::release(int count)
{
    for (int i = 0; i < count && !d->held.isEmpty(); ++i) {
        auto [weak, reply] = d->held.takeFirst();
        reply.held = false;
        if (const auto connection = weak.lock())
            d->send(connection, reply);
    }
}

void FakeServer::stop()
{
    d->listener.close();
    d->held.clear();
    const QVector<std::shared_ptr<Connection>> open = std::exchange(d->open, {});
    for (const std::shared_ptr<Connection> &connection : open) {
        connection->socket->disconnect(this);
        connection->socket->abort();
        connection->socket->deleteLater();
    }
}

void FakeServer::restart()
{
    if (!d->listener.listen(QHostAddress::LocalHost, d->port))
        QTest::qFail("the server cannot listen", __FILE__, __LINE__);
    d->port = d->listener.serverPort();
}

void FakeServer::arrived(Connection *raw)
{
    const auto at =
        std::find_if(d->open.begin(), d->open.end(),
                     [raw](const std::shared_ptr<Connection> &each) { return each.get() == raw; });
    if (at == d->open.end())
        return;
    const std::shared_ptr<Connection> connection = *at; // which may end meanwhile
    connection->input += connection->read();
    FakeRequest request;
    while (!connection->busy && d->takeRequest(*connection, &request)) {
        connection->busy = true;
        d->mostUnanswered = std::max(d->mostUnanswered, unanswered());
        d->requests.append(request);
        d->send(connection, d->replyTo(request));
        request = FakeRequest();
    }
}

// The next whole request of a connection, when it is there.
bool FakeServer::Private::takeRequest(Connection &connection, FakeRequest *request)
{
    const int end = connection.input.indexOf("\r\n\r\n");
    if (end < 0)
        return false;
    QList<QByteArray> lines = connection.input.left(end).split('\n');
    const QList<QByteArray> words = lines.takeFirst().trimmed().split(' ');
    request->method = words.value(0);
    request->path = words.value(1);
    for (const QByteArray &line : qAsConst(lines)) {
        const int colon = line.indexOf(':');
        request->headers.append({line.left(colon).trimmed(), line.mid(colon + 1).trimmed()});
    }
    const int length = request->header("Content-Length").toInt();
    if (connection.input.size() < end + 4 + length)
        return false;
    request->body = connection.input.mid(end + 4, length);
    request->connection = connection.number;
    connection.input.remove(0, end + 4 + length);
    return true;
}

FakeReply FakeServer::Private::replyTo(const FakeRequest &request)
{
    const auto script = scripts.find(withoutQuery(request.path));
    if (script != scripts.end())
        return script->size() > 1 ? script->dequeue() : script->head();
    return elsewhere ? elsewhere(request) : FakeReply::of(404);
}

void FakeServer::Private::send(const std::shared_ptr<Connection> &connection, FakeReply reply)
{
    if (reply.held) {
        held.append({connection, reply});
        return;
    }
    if (reply.delay > 0) {
        const int delay = std::exchange(reply.delay, 0);
        const std::weak_ptr<Connection> weak = connection;
        QTimer::singleShot(delay, connection->socket, [this, weak, reply] {
            if (const auto alive = weak.lock())
                send(alive, reply);
        });
        return;
    }
    write(connection, reply);
}

void FakeServer::Private::write(const std::shared_ptr<Connection> &connection,
                                const FakeReply &reply)
{
    QByteArray bytes = bytesOf(reply);
    const bool close = reply.dropAfter >= 0;
    if (close)
        bytes.truncate(int(std::min(reply.dropAfter, qint64(bytes.size()))));
    if (reply.byteInterval > 0) {
        connection->trickling = bytes;
        trickle(connection, reply.byteInterval, close);
        return;
    }
    connection->busy = false;
    connection->write(bytes);
    if (close)
        connection->close();
    else if (!connection->input.isEmpty())
        QTimer::singleShot(0, connection->socket, &QTcpSocket::readyRead);
}

void FakeServer::Private::trickle(const std::weak_ptr<Connection> &weak, int interval, bool close)
{
    const auto connection = weak.lock();
    if (!connection)
        return;
    if (connection->trickling.isEmpty()) {
        connection->busy = false;
        if (close)
            connection->close();
        return;
    }
    connection->write(connection->trickling.left(1));
    connection->trickling.remove(0, 1);
    QTimer::singleShot(interval, connection->socket,
                       [this, weak, interval, close] { trickle(weak, interval, close); });
}
