#include "backend/textcheck.h"

#include "backend/refusal.h"
#include "backend/reply.h"

#include <QVector>

#include <algorithm>

QString checkedText(const QString &text, int least, int most)
{
    const QString trimmed = text.trimmed();
    const int length = trimmed.size() > 2 * most ? most + 1 : trimmed.toUcs4().size();
    const bool hasControl = std::any_of(trimmed.begin(), trimmed.end(), [](QChar c) {
        return c.category() == QChar::Other_Control && c != QLatin1Char('\n');
    });
    const bool isOneLine = most > LongestName || !trimmed.contains(QLatin1Char('\n'));
    if (length < least || length > most || hasControl || !isOneLine)
        throw Refusal(ReplyCode::Illegal);
    return trimmed;
}
