#include "controls/signtextedit.h"

#include "controls/skin.h"
#include "controls/skinmenu.h"

#include <QContextMenuEvent>
#include <QTextCursor>

SignTextEdit::SignTextEdit(QWidget *parent) : QTextEdit(parent)
{
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setFont(skinFont(13));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    followSkinAsField(this);
}

void SignTextEdit::removeAll()
{
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.removeSelectedText();
}

void SignTextEdit::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    const bool writable = !isReadOnly();
    const bool hasSelection = textCursor().hasSelection();
    const bool hasText = !document()->isEmpty();
    // The texts are the same in every language.
    auto *menu = new SkinMenu(QStringLiteral("textMenu"), this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const char *text, bool enabled, void (SignTextEdit::*does)()) {
        QAction *action = menu->addAction(QString::fromUtf8(text));
        action->setEnabled(enabled);
        connect(action, &QAction::triggered, this, does);
    };
    add("剪切(&T)", writable && hasSelection, &QTextEdit::cut);
    add("复制(&C)", hasSelection, &QTextEdit::copy);
    add("粘贴(&P)", writable && canPaste(), &QTextEdit::paste);
    add("清空", writable && hasText, &SignTextEdit::removeAll);
    add("全选", hasText, &QTextEdit::selectAll);
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? viewport()->mapToGlobal(cursorRect().bottomLeft()) : event->globalPos());
}
