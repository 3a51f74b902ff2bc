#include "backend/webserver.h"

#include "backend/certificate.h"
#include "backend/connections.h"
#include "backend/dispatcher.h"

#include <httplib.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace {
// A connection that is kept open occupies a thread, and a client keeps a handful.
constexpr size_t Threads = 128;
constexpr time_t KeepAlive = 15; // s
constexpr size_t RequestsPerConnection = 1000000;
constexpr time_t ReadTimeout = 30;                  // s
constexpr size_t MaximumPayload = 80 * 1024 * 1024; // bytes
constexpr size_t LongestPath = 1024;                // characters
constexpr int Backlog = 128;

X509 *certificateFrom(const QByteArray &pem)
{
    BIO *bio = BIO_new_mem_buf(pem.constData(), pem.size());
    X509 *certificate = PEM_read_bio_X509(bio, nullptr, nullptr, nullptr);
    BIO_free(bio);
    return certificate;
}

EVP_PKEY *keyFrom(const QByteArray &pem)
{
    BIO *bio = BIO_new_mem_buf(pem.constData(), pem.size());
    EVP_PKEY *key = PEM_read_bio_PrivateKey(bio, nullptr, nullptr, nullptr);
    BIO_free(bio);
    return key;
}

std::unique_ptr<httplib::SSLServer> makeServer(const KeyPair &pair)
{
    X509 *certificate = certificateFrom(pair.certificate);
    EVP_PKEY *key = keyFrom(pair.key);
    std::unique_ptr<httplib::SSLServer> server;
    if (certificate && key)
        server = std::make_unique<httplib::SSLServer>(certificate, key);
    X509_free(certificate);
    EVP_PKEY_free(key);
    return server;
}
} // namespace

struct WebServer::Private
{
    // Outlives the server, whose connections it follows.
    Connections connections;
    std::unique_ptr<httplib::SSLServer> server;
    std::thread thread;
    std::atomic<bool> hasEnded{false};
    int port = -1;

    void setUp();
    bool answerEarly(const Dispatcher &dispatcher, const httplib::Request &request,
                     httplib::Response *response);
};

void WebServer::Private::setUp()
{
    SSL_CTX_set_min_proto_version(server->ssl_context(), TLS1_2_VERSION);
    connections.follow(server->ssl_context());
    server->new_task_queue = [] { return new httplib::ThreadPool(Threads); };
    server->set_tcp_nodelay(true);
    server->set_keep_alive_max_count(RequestsPerConnection);
    server->set_keep_alive_timeout(KeepAlive);
    server->set_read_timeout(ReadTimeout);
    server->set_write_timeout(ReadTimeout);
    server->set_payload_max_length(MaximumPayload);
}

WebServer::WebServer() : d(new Private) {}

WebServer::~WebServer()
{
    stop();
}

int WebServer::port() const
{
    return d->port;
}

bool WebServer::open(const KeyPair &certificate, int port, QString *problem)
{
    d->server = makeServer(certificate);
    if (!d->server || !d->server->is_valid()) {
        *problem = QStringLiteral("the certificate cannot be used");
        d->server.reset();
        return false;
    }
    d->setUp();
    // Not the library's option, with which two servers share one port unnoticed.
    socket_t listening = INVALID_SOCKET;
    d->server->set_socket_options([&listening](socket_t socket) {
        const int yes = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, reinterpret_cast<const char *>(&yes),
                   sizeof yes);
        listening = socket;
    });
    const bool isAny = port == 0;
    const bool isBound = isAny ? (port = d->server->bind_to_any_port("127.0.0.1")) > 0
                               : d->server->bind_to_port("127.0.0.1", port);
    if (!isBound) {
        *problem = QStringLiteral("the port is not free");
        d->server.reset();
        return false;
    }
    // The library's queue holds five.
    ::listen(listening, Backlog);
    d->port = port;
    return true;
}

// A request that the dispatcher answers without a body: the library would wait for
// one until the connection ends.
bool WebServer::Private::answerEarly(const Dispatcher &dispatcher, const httplib::Request &request,
                                     httplib::Response *response)
{
    const bool isPost = request.method == "POST";
    if (isPost && request.path.size() > LongestPath) {
        Connections::close(request.ssl); // deep recursion in the library's router
        return true;
    }
    if (isPost && (request.has_header("Content-Length") || request.has_header("Transfer-Encoding")))
        return false;
    if (!isPost && request.method != "GET" && request.method != "HEAD") {
        response->status = 405;
        response->set_header("Connection", "close"); // a body, if any, stays unread
        return true;
    }
    if (!dispatcher.answer(request, nullptr, response))
        Connections::close(request.ssl);
    return true;
}

void WebServer::run(const Dispatcher &dispatcher)
{
    using httplib::Request;
    using httplib::Response;
    using Handled = httplib::Server::HandlerResponse;
    d->server->set_pre_routing_handler(
        [this, &dispatcher](const Request &request, Response &response) {
            Connections::acknowledge(request.ssl);
            return d->answerEarly(dispatcher, request, &response) ? Handled::Handled
                                                                  : Handled::Unhandled;
        });
    d->server->Post(".*", [&dispatcher](const Request &request, Response &response,
                                        const httplib::ContentReader &reader) {
        if (!dispatcher.answer(request, &reader, &response))
            Connections::close(request.ssl);
    });
    d->hasEnded = false;
    d->thread = std::thread([this] {
        d->server->listen_after_bind();
        d->hasEnded = true;
    });
    while (!d->server->is_running()) // until then it cannot be stopped
        std::this_thread::yield();
}

void WebServer::stop()
{
    if (!d->server)
        return;
    d->server->stop();
    // A connection may be on its way in while the others are ended.
    while (d->thread.joinable() && !d->hasEnded) {
        d->connections.closeAll();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    if (d->thread.joinable())
        d->thread.join();
    d->server.reset();
    d->port = -1;
}
