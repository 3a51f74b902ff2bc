#include "http/transfersession.h"

#include "http/chttpsession.h"

#include <QHttpMultiPart>

#include <limits>

namespace {
// In a quoted parameter of a part's head, as browsers write it.
QByteArray quoted(const QString &text)
{
    QByteArray bytes = text.toUtf8();
    bytes.replace('"', "%22").replace('\r', "%0D").replace('\n', "%0A");
    return '"' + bytes + '"';
}
} // namespace

TransferSession::TransferSession(QObject *parent) : QObject(parent)
{
    m_stall.setSingleShot(true);
    m_stall.setInterval(StallTimeout);
    connect(&m_stall, &QTimer::timeout, this, [this] {
        if (m_session)
            m_session->cancel();
    });
}

CHttpSession *TransferSession::open(const ServiceRequest &request, const Done &done)
{
    stop();
    m_session = ServiceCall::session(request, this);
    m_session->setTimeout(request.throttled ? StallTimeout : std::numeric_limits<int>::max());
    m_watched = !request.throttled;
    moved();
    connect(m_session, &CHttpSession::signal_finished, this, [this, done](QNetworkReply *reply) {
        m_stall.stop();
        m_session->deleteLater();
        m_session = nullptr;
        done(reply);
    });
    connect(m_session, &CHttpSession::signal_uploadProgress, this,
            [this](qint64 sent, qint64 total) {
                moved();
                emit uploadProgress(sent, total);
            });
    connect(m_session, &CHttpSession::signal_downloadProgress, this,
            [this](qint64 received, qint64 total) {
                moved();
                emit downloadProgress(received, total);
            });
    connect(m_session, &CHttpSession::signal_readyRead, this, [this](QNetworkReply *reply) {
        moved();
        emit readyRead(reply);
    });
    return m_session;
}

void TransferSession::postParts(const QString &address, QHttpMultiPart *parts,
                                const ServiceRequest &request, const Done &done)
{
    open(request, done)->postParts(RequestHeaders::request(QUrl(address)), parts);
}

void TransferSession::get(const QString &address, qint64 maximumSize, const ServiceRequest &request,
                          const Done &done)
{
    CHttpSession *session = open(request, done);
    session->setMaximumReply(maximumSize);
    session->get(RequestHeaders::request(QUrl(address)));
}

void TransferSession::stop()
{
    m_stall.stop();
    if (!m_session)
        return;
    // Not deleted at once: this may be a slot of one of its signals.
    m_session->disconnect(this);
    m_session->cancel();
    m_session->deleteLater();
    m_session = nullptr;
}

void TransferSession::moved()
{
    if (m_watched)
        m_stall.start();
}

QHttpPart FileForm::textPart(const char *name, const QByteArray &value)
{
    QHttpPart part;
    part.setRawHeader("Content-Disposition",
                      "form-data; name=" + quoted(QString::fromLatin1(name)));
    part.setBody(value);
    return part;
}

QHttpPart FileForm::filePart(const QString &fileName)
{
    QHttpPart part;
    part.setRawHeader("Content-Disposition",
                      "form-data; name=\"file\"; filename=" + quoted(fileName));
    part.setRawHeader("Content-Type", "application/octet-stream");
    return part;
}
