// The messages of one conversation, to read.
#pragma once

#include <QDialog>

class MessagingCore;

class HistoryWindow : public QDialog
{
    Q_OBJECT

public:
    // The newest 1,000 messages of the conversation. Deletes itself when closed.
    HistoryWindow(const MessagingCore &core, const QString &jid, QWidget *parent = nullptr);
};
