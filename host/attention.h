// Asks for the user's attention in the task bar while no window of the program is active:
// when a message arrives, unless its conversation is muted, and when a notice does. The
// asking ends when the window is activated.
#pragma once

#include <QObject>

#include <functional>

class MessagingCore;
class Notices;
class QWidget;

class Attention : public QObject
{
    Q_OBJECT

public:
    using IsMuted = std::function<bool(const QString &jid)>;
    struct Parts
    {
        MessagingCore *core;
        Notices *notices;
        IsMuted isMuted;
    };

    // Belongs to the window whose entry in the task bar it is. The parts outlive it.
    Attention(const Parts &parts, QWidget *window);

signals:
    void asked();

private:
    void ask();

    QWidget *m_window;
    int m_unread = 0; // notices
};
