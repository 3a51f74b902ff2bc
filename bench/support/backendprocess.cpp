#include "bench/support/backendprocess.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpSocket>

BackEndProcess::BackEndProcess()
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(FRIENDUI_BACKEND),
                    {QStringLiteral("--data"), m_folder.path(), QStringLiteral("--people"),
                     QStringLiteral("100"), QStringLiteral("--control-port"), QStringLiteral("0"),
                     QStringLiteral("--quiet"), QStringLiteral("--end-with-stdin")});
    while (!m_process.canReadLine())
        if (!m_process.waitForReadyRead(60000))
            return;
    const QJsonObject served = QJsonDocument::fromJson(m_process.readLine()).object();
    m_address = QUrl(served.value(QStringLiteral("address")).toString());
    m_controlPort = served.value(QStringLiteral("controlPort")).toInt();
    m_caFile = served.value(QStringLiteral("caFile")).toString();
}

BackEndProcess::~BackEndProcess()
{
    m_process.closeWriteChannel();
    if (!m_process.waitForFinished(10000))
        m_process.kill();
}

QUrl BackEndProcess::url(const QString &path) const
{
    return m_address.resolved(QUrl(path));
}

bool BackEndProcess::delay(const QString &path, int milliseconds)
{
    const QJsonObject rule{{QStringLiteral("path"), path},
                           {QStringLiteral("delayMs"), milliseconds}};
    return control(QStringLiteral("/_ctl/rule"),
                   QJsonDocument(rule).toJson(QJsonDocument::Compact));
}

bool BackEndProcess::control(const QString &command, const QByteArray &json)
{
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), quint16(m_controlPort));
    if (!socket.waitForConnected(5000))
        return false;
    socket.write("POST " + command.toLatin1() +
                 " HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: close\r\n"
                 "Content-Type: application/json\r\nContent-Length: " +
                 QByteArray::number(json.size()) + "\r\n\r\n" + json);
    return socket.waitForReadyRead(5000) && socket.readAll().startsWith("HTTP/1.1 200");
}
