#include "host/chat/chatview.h"

#include "host/chat/messagetext.h"

#include <QEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

namespace {
constexpr int MaximumBlocks = 4000;
// The palette's colour of a line, so that it follows another skin.
constexpr int RoleProperty = QTextFormat::UserProperty + 1;
} // namespace

ChatView::ChatView(QWidget *parent) : QTextEdit(parent)
{
    setReadOnly(true);
    setAcceptRichText(false);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document()->setMaximumBlockCount(MaximumBlocks);
    document()->setDocumentMargin(14);
}

bool ChatView::isAtEnd() const
{
    const QScrollBar *bar = verticalScrollBar();
    return bar->value() >= bar->maximum() - 2;
}

void ChatView::keepAtEnd(bool wasAtEnd)
{
    if (wasAtEnd)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void ChatView::addLine(const QString &text, const QTextCharFormat &format, int topMargin)
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    QTextBlockFormat block;
    block.setTopMargin(topMargin);
    if (document()->isEmpty())
        cursor.setBlockFormat(block);
    else
        cursor.insertBlock(block);
    cursor.insertText(text, format);
}

QTextCharFormat ChatView::coloured(QPalette::ColorRole role) const
{
    QTextCharFormat format;
    format.setProperty(RoleProperty, role);
    format.setForeground(palette().color(role));
    return format;
}

void ChatView::changeEvent(QEvent *event)
{
    QTextEdit::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const QTextFormat format = block.begin().fragment().charFormat();
        if (!format.hasProperty(RoleProperty))
            continue;
        QTextCursor cursor(block);
        cursor.select(QTextCursor::BlockUnderCursor);
        cursor.mergeCharFormat(coloured(QPalette::ColorRole(format.intProperty(RoleProperty))));
    }
}

void ChatView::addMessage(const MessageData &message, const QString &sender, bool isOwn)
{
    const bool wasAtEnd = isAtEnd();
    QTextCharFormat head = coloured(isOwn ? QPalette::Link : QPalette::PlaceholderText);
    head.setFontPointSize(qMax(7.0, font().pointSizeF() * 0.9));
    // Another person's name must not break the line into a forged one.
    addLine(sender.simplified().left(64) + QLatin1String("  ") + message.time, head, 10);
    QTextCharFormat body;
    body.setFontPointSize(font().pointSizeF());
    addLine(messageText(message.body), body, 2);
    keepAtEnd(wasAtEnd);
}

void ChatView::addNote(const QString &text)
{
    const bool wasAtEnd = isAtEnd();
    QTextCharFormat format = coloured(QPalette::PlaceholderText);
    format.setFontItalic(true);
    addLine(text, format, 10);
    keepAtEnd(wasAtEnd);
}
