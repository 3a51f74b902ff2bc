#include "virtualteam/dialogs/reasonedit.h"

#include "controls/skin.h"
#include "controls/slimscrollbar.h"
#include "virtualteam/dialogs/reasontext.h"

#include <QMimeData>
#include <QSignalBlocker>
#include <QTextCursor>

ReasonEdit::ReasonEdit(QWidget *parent) : QPlainTextEdit(parent)
{
    setObjectName(QStringLiteral("reasonEdit"));
    setTabChangesFocus(true);
    setFont(skinFont(13));
    useSlimScrollBar(this);
    followSkinAsField(this);
    connect(this, &QPlainTextEdit::textChanged, this, &ReasonEdit::cut);
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
            // Undone together with what made the text too long.
            cursor.joinPreviousEditBlock();
            cursor.setPosition(excess.from);
            cursor.setPosition(excess.from + excess.count, QTextCursor::KeepAnchor);
            cursor.removeSelectedText();
            cursor.endEditBlock();
            text = toPlainText();
        }
    }
    emit lengthChanged(text.size());
}

bool ReasonEdit::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasText();
}

// What is too much would be laid out only to be cut again: for a whole book that takes
// seconds.
void ReasonEdit::insertFromMimeData(const QMimeData *source)
{
    QTextCursor cursor = textCursor();
    const int selected = cursor.selectionEnd() - cursor.selectionStart();
    const int room = MaximumLength - (document()->characterCount() - 1 - selected);
    cursor.insertText(ReasonText::start(source->text(), room));
    setTextCursor(cursor);
    ensureCursorVisible();
}
