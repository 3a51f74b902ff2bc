// The middle of the window: the open chats as tabs, a welcome page without any.
#pragma once

#include "hostapi/roomrecords.h"

#include <QStackedWidget>

class ChatPage;
class MessagingCore;
class QLabel;
class QTabWidget;

class ChatArea : public QStackedWidget
{
    Q_OBJECT

public:
    // The core is not owned.
    explicit ChatArea(MessagingCore *core, QWidget *parent = nullptr);

    // Shows the chat with `jid`, opened when it is not yet.
    ChatPage *open(const QString &jid, MessageData::Kind kind);
    ChatPage *pageOf(const QString &jid) const;
    ChatPage *currentPage() const;
    int count() const;

signals:
    // A message came for a conversation that is not open.
    void messageMissed(const QString &sender);

protected:
    void changeEvent(QEvent *event) override;

private:
    QWidget *buildWelcome();
    void take(bool received, const MessageData &message);
    void close(int index);
    void showTitle(int index, bool unread);
    void retranslate();

    MessagingCore *m_core;
    QTabWidget *m_tabs;
    QLabel *m_welcomeTitle;
    QLabel *m_welcomeText;
};
