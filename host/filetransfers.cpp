#include "host/filetransfers.h"

#include "host/messagingcore.h"
#include "messages/messagebody.h"

#include <QFileInfo>

#include <algorithm>

namespace {
constexpr int TickMs = 100;
}

FileTransfers::FileTransfers(MessagingCore *core, QObject *parent) : QObject(parent), m_core(core)
{
    m_ticker.setInterval(TickMs);
    connect(&m_ticker, &QTimer::timeout, this, &FileTransfers::advance);
}

void FileTransfers::setDuration(int milliseconds)
{
    m_duration = qMax(1, milliseconds);
    m_ticker.setInterval(qBound(1, m_duration / 10, TickMs));
}

void FileTransfers::start(const QString &jid, MessageData::Kind kind, const QString &fileName,
                          qint64 size)
{
    Transfer transfer{jid, kind, QFileInfo(fileName).fileName(), size, {}};
    transfer.since.start();
    m_running.append(transfer);
    m_ticker.start();
    emit changed();
}

int FileTransfers::cancel(const QString &jid)
{
    const int before = m_running.size();
    m_running.erase(std::remove_if(m_running.begin(), m_running.end(),
                                   [&](const Transfer &each) { return each.jid == jid; }),
                    m_running.end());
    if (m_running.size() != before)
        emit changed();
    return before - m_running.size();
}

void FileTransfers::cancelAll()
{
    m_running.clear();
    emit changed();
}

bool FileTransfers::isRunning(const QString &jid) const
{
    return std::any_of(m_running.begin(), m_running.end(),
                       [&](const Transfer &each) { return each.jid == jid; });
}

QString FileTransfers::currentFile() const
{
    return m_running.isEmpty() ? QString() : m_running.first().fileName;
}

QString FileTransfers::currentJid() const
{
    return m_running.isEmpty() ? QString() : m_running.first().jid;
}

int FileTransfers::percent() const
{
    qint64 passed = 0;
    for (const Transfer &transfer : m_running)
        passed += qMin<qint64>(m_duration, transfer.since.elapsed());
    return m_running.isEmpty() ? 0 : int(passed * 100 / (qint64(m_duration) * m_running.size()));
}

void FileTransfers::advance()
{
    QVector<Transfer> done;
    for (int i = m_running.size() - 1; i >= 0; --i) {
        if (m_running.at(i).since.hasExpired(m_duration))
            done.prepend(m_running.takeAt(i));
    }
    for (const Transfer &transfer : qAsConst(done))
        finish(transfer);
    if (m_running.isEmpty())
        m_ticker.stop();
    emit changed();
}

void FileTransfers::finish(const Transfer &transfer)
{
    MessageBody message;
    message.kind = MessageBody::File;
    message.name = transfer.fileName;
    message.size = transfer.size;
    m_core->sendMessage(transfer.jid, transfer.kind, writeMessageBody(message));
}
