// A web server in the program's own event loop that answers everything alike and counts.
#pragma once

#include <QByteArray>
#include <QTcpServer>
#include <QUrl>

class CountingServer
{
public:
    // Each request is answered after so many ms.
    CountingServer(const QByteArray &contentType, const QByteArray &body, int delay);

    QUrl url() const; // ends with "/"
    int requests() const { return m_requests; }
    int mostAtOnce() const { return m_mostAtOnce; }

private:
    void serve(QTcpSocket *socket);

    QTcpServer m_server;
    QByteArray m_reply;
    int m_delay;
    int m_requests = 0;
    int m_open = 0;
    int m_mostAtOnce = 0;
};
