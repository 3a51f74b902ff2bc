// Life in the sample company: every so often a few contacts come, go or step away,
// and somebody writes. The same seed gives the same course of events.
#pragma once

#include "hostapi/roomrecords.h"

#include <QObject>
#include <QTimer>

class EmbeddedCore;

class PresenceSimulator : public QObject
{
    Q_OBJECT

public:
    // `core` must outlive the simulator. Nothing happens before start().
    PresenceSimulator(EmbeddedCore *core, quint64 seed, QObject *parent = nullptr);

    // Every `milliseconds` (at least 1), `people` contacts change at once; 2,000
    // and 3 at first.
    void setPresenceRate(int milliseconds, int people);
    // Every `milliseconds` somebody writes; 0, as at first: nobody does.
    void setMessageRate(int milliseconds);
    // Whether people, rooms and channels answer what the user writes to them, after 1.2
    // seconds; on at first.
    void setReplies(bool replies);
    void start();
    void stop();
    bool isRunning() const { return m_running; }

    // One step at once, for tests and for a lever in the host.
    void changePresence(int people);
    void receiveMessage();

private:
    quint64 next();
    QString bodyFrom(const QString &jid);
    void writeInRoom();
    void answerInRoom(const QString &roomJid);
    void writeAsService();
    void answerAsChannel(const QString &id);
    void writeAsContact();
    void replyTo(bool received, const MessageData &message);

    EmbeddedCore *m_core;
    quint64 m_state;
    QTimer m_presenceTimer, m_messageTimer;
    int m_people = 3;
    bool m_replies = true;
    bool m_running = false;
};
