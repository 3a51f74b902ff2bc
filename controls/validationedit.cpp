#include "controls/validationedit.h"

#include "controls/validationtext.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QRegularExpression>

namespace {
QString withoutLineEnds(QString text)
{
    static const QRegularExpression lineEnd(QStringLiteral("\r\n|[\r\n\u2028\u2029]"));
    return text.replace(lineEnd, QStringLiteral(" "));
}
} // namespace

ValidationEdit::ValidationEdit(QWidget *parent) : SignTextEdit(parent)
{
    setObjectName(QStringLiteral("validationEdit"));
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFixedHeight(3 * fontMetrics().lineSpacing() + 2 * frameWidth());
}

QString ValidationEdit::validation() const
{
    return withoutLineEnds(toPlainText());
}

bool ValidationEdit::cutExcess()
{
    QTextCursor cursor = textCursor();
    const ValidationText::Cut cut = ValidationText::excess(toPlainText(), cursor.position());
    if (cut.count == 0)
        return false;
    cursor.setPosition(cut.from);
    cursor.setPosition(cut.from + cut.count, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    setTextCursor(cursor);
    return true;
}

void ValidationEdit::insertFromMimeData(const QMimeData *source)
{
    insertPlainText(withoutLineEnds(source->text()));
}

void ValidationEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit confirmed(); // whoever hears it may destroy this
        return;
    }
    SignTextEdit::keyPressEvent(event);
}
