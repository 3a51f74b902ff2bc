#include "host/attention.h"

#include "host/messagingcore.h"
#include "host/windows/notices.h"

#include <QApplication>

#include <utility>

Attention::Attention(const Parts &parts, QWidget *window)
    : QObject(window), m_window(window), m_unread(parts.notices->unread())
{
    connect(parts.core, &MessagingCore::messageReceived, this,
            [this, isMuted = parts.isMuted](bool received, const MessageData &message) {
                if (received && !isMuted(message.sessionJid))
                    ask();
            });
    const Notices *notices = parts.notices;
    connect(notices, &Notices::countsChanged, this, [this, notices] {
        const int before = std::exchange(m_unread, notices->unread());
        if (m_unread > before)
            ask();
    });
}

void Attention::ask()
{
    if (QApplication::activeWindow())
        return;
    QApplication::alert(m_window);
    emit asked();
}
