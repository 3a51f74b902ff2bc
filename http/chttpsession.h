// One web request from admission to its final reply: it waits for its turn, carries
// the log-in, follows redirects, and ends in exactly one signal_finished(), never
// inside the call that started it.
//
//     auto *session = new CHttpSession(this);
//     connect(session, &CHttpSession::signal_finished, this, [=](QNetworkReply *reply) {
//         const ServiceReply result = ServiceReply::of(reply); // http/servicereply.h
//         session->deleteLater();
//     });
//     session->post(RequestHeaders::formRequest(url), body);
//
// One request per session. Deleting a session ends its request without a signal;
// use deleteLater() inside the slot. GUI thread only.
#pragma once

#include <QByteArray>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QObject>
#include <QPointer>
#include <QSslError>
#include <QTimer>

#include <memory>

class QHttpMultiPart;

class CHttpSession : public QObject
{
    Q_OBJECT

public:
    static constexpr int DefaultTimeout = 10000;                    // ms
    static constexpr qint64 DefaultMaximumReply = 16 * 1024 * 1024; // bytes
    static constexpr int MaximumRedirects = 20;
    // With all its redirects a request ends after this many time-outs, whether bytes
    // still arrive or not.
    static constexpr int DeadlineFactor = 3;
    static constexpr qint16 PictureKind = 15; // pictures and icons, limited by themselves

    explicit CHttpSession(QObject *parent = nullptr);
    ~CHttpSession() override;

    // Milliseconds from the moment the request is sent to the last byte of its reply,
    // anew for each redirect; values <= 0 are ignored. Bytes that arrive do not
    // prolong it: a server that sends one a second runs out of time, too.
    void setTimeout(int milliseconds);
    int timeout() const;
    // Whether the request takes part in the limits on requests at a time.
    void setThrottled(bool throttled);
    bool isThrottled() const;
    void setRequestKind(qint16 kind);
    qint16 requestKind() const;
    // A larger reply is cut off and fails, as does one that is packed or has
    // thousands of headers. Bytes.
    void setMaximumReply(qint64 bytes);
    // A header of the service's own, sent with the request and to service hosts on
    // redirects.
    void addRawHeader(const QByteArray &name, const QByteArray &value);
    // Send through the process-wide manager, whose cookies all such sessions share,
    // instead of one that is the session's alone while it runs.
    void setSharedManager(bool shared);

    void post(const QNetworkRequest &request, const QString &body);
    void get(const QNetworkRequest &request);
    // Like post(), never throttled.
    void postWithRedirectRaw(const QNetworkRequest &request, const QString &body);
    // A form with files; the session takes ownership. Never redirected.
    void postParts(const QNetworkRequest &request, QHttpMultiPart *parts);
    // Ends the request: signal_finished() comes with an OperationCanceledError.
    void cancel();

    bool isWaiting() const; // for its turn

signals:
    // The reply is finished, failed or not, and lives until control returns to the
    // event loop. A request that ran out of time, was cancelled or never sent has
    // a reply with that error and no status.
    void signal_finished(QNetworkReply *reply);
    // Bytes; total is -1 while it is unknown. For those who connect before sending.
    void signal_uploadProgress(qint64 sent, qint64 total);
    void signal_downloadProgress(qint64 received, qint64 total);
    // The reply's headers or more of its body are there, for who stores it while
    // it arrives.
    void signal_readyRead(QNetworkReply *reply);

public slots:
    void replyFinished();
    void slot_sslErrors(QList<QSslError> errors);
    void slot_timeout();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
