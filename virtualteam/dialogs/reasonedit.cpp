#include "virtualteam/dialogs/reasonedit.h"

#include "controls/slimscrollbar.h"
#include "virtualteam/dialogs/reasontext.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QSignalBlocker>
#include <QTextCursor>

ReasonEdit::ReasonEdit(QWidget *parent) : SignTextEdit(parent)
{
    setObjectName(QStringLiteral("reasonEdit"));
    useSlimScrollBar(this);
    connect(this, &QTextEdit::textChanged, this, &ReasonEdit::cut);
}

void ReasonEdit::cut()
{
    QString text = toPlainText();
    {
        const QSignalBlocker blocker(this); // each removal is a change of the text, too
        for (;;) {
            QTextCursor cursor = textCursor();
            const ReasonText::Cut excess =
                ReasonText::excess(text, cursor.position(), MaximumLength);
            if (excess.count == 0)
                break;
            cursor.setPosition(excess.from);
            cursor.setPosition(excess.from + excess.count, QTextCursor::KeepAnchor);
            cursor.removeSelectedText();
            text = toPlainText();
        }
    }
    emit lengthChanged(text.size());
}

// What the user adds is cut before it is there: to undo the cutting would bring back
// what is too much, and that would be cut again for ever. A whole book that is pasted
// would take seconds besides.

int ReasonEdit::room() const
{
    const QTextCursor cursor = textCursor();
    const int selected = cursor.selectionEnd() - cursor.selectionStart();
    return MaximumLength - (document()->characterCount() - 1 - selected);
}

void ReasonEdit::keyPressEvent(QKeyEvent *event)
{
    const bool isLineEnd = event->matches(QKeySequence::InsertParagraphSeparator) ||
                           event->matches(QKeySequence::InsertLineSeparator);
    const QString text = event->text();
    const bool isText = !event->modifiers().testFlag(Qt::ControlModifier) && !text.isEmpty() &&
                        (text.at(0).isPrint() || text.at(0).isSurrogate());
    if (isLineEnd || isText) {
        const int length = isLineEnd ? 1 : text.size();
        if (length > room()) {
            event->accept();
            return;
        }
    }
    SignTextEdit::keyPressEvent(event);
}

void ReasonEdit::inputMethodEvent(QInputMethodEvent *event)
{
    QInputMethodEvent fitting(event->preeditString(), event->attributes());
    fitting.setCommitString(
        ReasonText::start(event->commitString(), room() + event->replacementLength()),
        event->replacementStart(), event->replacementLength());
    SignTextEdit::inputMethodEvent(&fitting);
    event->setAccepted(fitting.isAccepted());
}

bool ReasonEdit::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasText();
}

void ReasonEdit::insertFromMimeData(const QMimeData *source)
{
    QTextCursor cursor = textCursor();
    cursor.insertText(ReasonText::start(source->text(), room()));
    setTextCursor(cursor);
    ensureCursorVisible();
}
