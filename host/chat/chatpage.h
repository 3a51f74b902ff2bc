// A plain chat with one person, room, service number or channel.
#pragma once

#include "hostapi/roomrecords.h"

#include <QWidget>

class ChatView;
class MessagingCore;
class QLabel;
class QLayout;
class QPlainTextEdit;
class QPushButton;

class ChatPage : public QWidget
{
    Q_OBJECT

public:
    // The core is not owned. Its newest messages of the conversation are shown.
    ChatPage(MessagingCore *core, const QString &jid, MessageData::Kind kind,
             QWidget *parent = nullptr);

    QString jid() const { return m_jid; }
    QString title() const; // never empty
    void addMessage(const MessageData &message);
    void addNote(const QString &text);
    void focusInput();
    // Beside the title; a file without a picture shows none.
    void setPicture(const QString &file);

    // What to call somebody: remark, nick name, else the jid's user part.
    static QString nameOf(const MessagingCore &core, const QString &jid);

signals:
    void titleChanged();
    void sendFileWanted(const QString &jid, int kind);

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void send();
    void loadHistory();
    void retranslate();
    void showState();
    void showRights();
    QString roomState() const;
    QString channelState() const;
    void sendLink();
    void connectCore();
    QLayout *buildFoot();

    MessagingCore *m_core;
    const QString m_jid;
    const MessageData::Kind m_kind;
    QLabel *m_picture;
    QLabel *m_title;
    QLabel *m_state;
    QLabel *m_oneWay; // in the place of the input
    ChatView *m_view;
    QPlainTextEdit *m_input;
    QPushButton *m_send;
    QPushButton *m_sendFile;
    QPushButton *m_sendLink;
};
