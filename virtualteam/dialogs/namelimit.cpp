#include "virtualteam/dialogs/namelimit.h"

#include <QLineEdit>

namespace {

// The place of the first surrogate without its partner, -1 when there is none.
int loneSurrogate(const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (!text.at(i).isSurrogate())
            continue;
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (!isPair)
            return i;
        ++i;
    }
    return -1;
}

} // namespace

void limitLength(QLineEdit *line, int length)
{
    line->setMaxLength(length);
    QObject::connect(line, &QLineEdit::textChanged, line, [line](const QString &text) {
        // Below the limit the other half may be the next thing that is typed.
        const int at = text.size() < line->maxLength() ? -1 : loneSurrogate(text);
        if (at < 0)
            return;
        const int cursor = line->cursorPosition();
        QString whole = text;
        line->setText(whole.remove(at, 1));
        line->setCursorPosition(cursor > at ? cursor - 1 : cursor);
    });
}

QString asName(const QString &text)
{
    QString name = text;
    for (int at = loneSurrogate(name); at >= 0; at = loneSurrogate(name))
        name.remove(at, 1);
    for (QChar &c : name) {
        if (c.category() == QChar::Other_Control)
            c = QLatin1Char(' ');
    }
    return name.trimmed();
}
