// The middle of the window: the open chats as tabs, a welcome page without any.
#pragma once

#include "hostapi/roomrecords.h"

#include <QStackedWidget>
#include <QTimer>

#include <functional>

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
    // Tells the file with the icon of a service number; empty: it has none.
    using PictureOf = std::function<QString(const QString &jid)>;
    void setPictures(const PictureOf &pictureOf) { m_pictureOf = pictureOf; }
    int count() const;

signals:
    // A message came for a conversation that is not open.
    void messageMissed(const QString &sender);
    // The conversation is on the screen, up to this newest message. Told at the end of
    // the turn of the event loop, once for all messages that came in it.
    void conversationRead(const MessageData &newest);
    void sendFileWanted(const QString &jid, int kind);

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QWidget *buildWelcome();
    void take(bool received, const MessageData &message);
    void close(int index);
    void showTitle(int index, bool unread);
    void tellRead();
    void retranslate();

    MessagingCore *m_core;
    PictureOf m_pictureOf;
    QTimer m_readTimer;
    QTabWidget *m_tabs;
    QLabel *m_welcomeTitle;
    QLabel *m_welcomeText;
};
