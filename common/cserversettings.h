// The state of the connection to the servers, shared by host and plug-in.
#pragma once

#include <QObject>
#include <QPair>

class CServerSettings : public QObject
{
    Q_OBJECT

public:
    explicit CServerSettings(QObject *parent = nullptr) : QObject(parent) {}

    // Whether the messaging server is connected. True until told otherwise.
    bool connected() const { return m_connected; }
    void setConnected(bool connected) { m_connected = connected; }

    // Lowest and highest file-transfer port; 0 = any.
    QPair<qint32, qint32> transferPorts() const { return m_transferPorts; }
    void setTransferPorts(qint32 low, qint32 high) { m_transferPorts = {low, high}; }

    // Lowest and highest call port; 0 = any.
    QPair<qint32, qint32> callPorts() const { return m_callPorts; }
    void setCallPorts(qint32 low, qint32 high) { m_callPorts = {low, high}; }

    // Whether the server demands encrypted transfers.
    bool encryptedTransfers() const { return m_encryptedTransfers; }

private:
    bool m_connected = true;
    QPair<qint32, qint32> m_transferPorts{0, 0};
    QPair<qint32, qint32> m_callPorts{0, 0};
    bool m_encryptedTransfers = false;
};
