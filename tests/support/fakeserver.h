// A web server that does what a test tells it, on the loopback address and in the
// test's own event loop. It records every request.
//
//     FakeServer server;
//     server.reply("/a.do", FakeReply::json(R"({"code":0})"));
//     ...send a request to server.url("/a.do")...
//     QCOMPARE(server.requests().size(), 1);
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QQueue>
#include <QUrl>
#include <QVector>

#include <functional>
#include <memory>
#include <utility>

namespace TestCertificates {
struct KeyPair;
}

struct FakeRequest
{
    QByteArray method;
    QByteArray path; // with the query
    QVector<std::pair<QByteArray, QByteArray>> headers;
    QByteArray body;
    int connection = 0; // counted from 0: the same for requests that shared one

    QByteArray header(const char *name) const; // the first of that name, any case
    bool hasHeader(const char *name) const;
    // The value of a cookie; null when it was not sent.
    QByteArray cookie(const char *name) const;
};

struct FakeReply
{
    int status = 200;
    QVector<std::pair<QByteArray, QByteArray>> headers;
    QByteArray body;

    QByteArray raw; // when not empty: all that is sent, as it stands
    int delay = 0;  // ms before the first byte
    // Not answered before FakeServer::release(), which a delay then follows.
    bool held = false;
    qint64 dropAfter = -1; // closes the connection after so many bytes of the whole
    int byteInterval = 0;  // ms between single bytes; 0: all at once

    static FakeReply of(int status, const QByteArray &body = QByteArray());
    static FakeReply json(const QByteArray &body);
    static FakeReply redirect(int status, const QByteArray &location);
    static FakeReply verbatim(const QByteArray &bytes); // then closes
    FakeReply &header(const QByteArray &name, const QByteArray &value);
    FakeReply &after(int milliseconds);
    FakeReply &onRelease();
    FakeReply &dropped(qint64 afterBytes);
    FakeReply &trickled(int milliseconds);
};

class FakeServer : public QObject
{
    Q_OBJECT

public:
    // Listens at once, on a free port.
    explicit FakeServer(QObject *parent = nullptr);
    // The same with TLS.
    explicit FakeServer(const TestCertificates::KeyPair &tls, QObject *parent = nullptr);
    ~FakeServer() override;

    // The host may be another name of the loopback address.
    QUrl url(const QString &path = QStringLiteral("/"),
             const QString &host = QStringLiteral("127.0.0.1")) const;

    // What requests for a path (without its query) get: the replies given for it,
    // one after the other, the last one again and again.
    void reply(const QByteArray &path, const FakeReply &reply);
    void reply(const QByteArray &path, const QVector<FakeReply> &replies);
    // For paths without replies of their own; 404 when nothing is set.
    void replyElsewhere(const std::function<FakeReply(const FakeRequest &)> &handler);

    const QVector<FakeRequest> &requests() const; // in the order of arrival
    int count(const QByteArray &path) const;      // requests for a path, without query
    FakeRequest last() const;                     // fails the test when there was none
    void forget();                                // the requests so far

    int connections() const; // made so far
    int unanswered() const;  // requests that have no complete reply yet
    int mostUnanswered() const;

    void release();          // answers what is held now
    void release(int count); // the oldest so many
    void stop();             // drops every connection and refuses new ones
    void restart();          // listens again on the same port

private:
    struct Connection;
    struct Private;
    void arrived(Connection *connection);
    std::unique_ptr<Private> d;
};
