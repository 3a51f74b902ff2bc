// Files on their way to people and rooms. Nothing is read or sent anywhere: a
// transfer takes its time, and then the conversation has a file message.
#pragma once

#include "hostapi/roomrecords.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QVector>

class MessagingCore;

class FileTransfers : public QObject
{
    Q_OBJECT

public:
    // The core is not owned and outlives this object.
    explicit FileTransfers(MessagingCore *core, QObject *parent = nullptr);

    // How long each takes, in ms, at least 1; 20,000 at first.
    void setDuration(int milliseconds);

    // `fileName` may have a path, which is not passed on; `size` in bytes, 0 = unknown.
    void start(const QString &jid, MessageData::Kind kind, const QString &fileName, qint64 size);
    // Those with `jid`; how many there were.
    int cancel(const QString &jid);
    void cancelAll();

    bool isRunning(const QString &jid) const;
    int count() const { return m_running.size(); }
    QString currentFile() const; // the one that began first; empty without any
    QString currentJid() const;
    int percent() const; // of all together, 0 to 100

signals:
    void changed(); // begun, ended, cancelled, or some way on

private:
    struct Transfer
    {
        QString jid;
        MessageData::Kind kind;
        QString fileName;
        qint64 size;
        QElapsedTimer since;
    };
    void advance();
    void finish(const Transfer &transfer);

    MessagingCore *m_core;
    QVector<Transfer> m_running;
    QTimer m_ticker;
    int m_duration = 20000;
};
