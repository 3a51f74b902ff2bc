#include "bench/support/countingserver.h"

#include <QTcpSocket>
#include <QTimer>

CountingServer::CountingServer(const QByteArray &contentType, const QByteArray &body, int delay)
    : m_reply("HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Type: " + contentType +
              "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body),
      m_delay(delay)
{
    m_server.listen(QHostAddress::LocalHost);
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
        while (QTcpSocket *socket = m_server.nextPendingConnection())
            serve(socket);
    });
}

QUrl CountingServer::url() const
{
    return QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(m_server.serverPort()));
}

void CountingServer::serve(QTcpSocket *socket)
{
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
        if (!socket->readAll().contains("\r\n\r\n"))
            return; // no request of the client is longer than a packet
        ++m_requests;
        m_mostAtOnce = qMax(m_mostAtOnce, ++m_open);
        QTimer::singleShot(m_delay, socket, [this, socket] {
            --m_open;
            socket->write(m_reply);
            socket->disconnectFromHost();
        });
    });
}
