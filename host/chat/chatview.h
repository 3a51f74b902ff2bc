// Shows the messages of one conversation, oldest first. Bodies and names are put
// in as plain text.
#pragma once

#include "hostapi/roomrecords.h"

#include <QTextEdit>

class ChatView : public QTextEdit
{
    Q_OBJECT

public:
    explicit ChatView(QWidget *parent = nullptr);

    // `sender` is what to call the message's author.
    void addMessage(const MessageData &message, const QString &sender, bool isOwn);
    // A line of the program's own, such as a failure.
    void addNote(const QString &text);

protected:
    void changeEvent(QEvent *event) override;

private:
    QTextCharFormat coloured(QPalette::ColorRole role) const;
    void addLine(const QString &text, const QTextCharFormat &format, int topMargin);
    void keepAtEnd(bool wasAtEnd);
    bool isAtEnd() const;
};
