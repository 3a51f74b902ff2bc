#include "virtualteam/dialogs/reasontext.h"

namespace {
// Whether the border before `at` is inside a pair.
bool splitsPair(const QString &text, int at)
{
    return at > 0 && at < text.size() && text.at(at).isLowSurrogate() &&
           text.at(at - 1).isHighSurrogate();
}
} // namespace

ReasonText::Cut ReasonText::excess(const QString &text, int cursor, int limit)
{
    const int tooMuch = text.size() - limit;
    if (tooMuch <= 0)
        return {};
    int end = cursor > 0 && cursor <= text.size() ? cursor : text.size();
    int from = qMax(0, end - tooMuch);
    if (splitsPair(text, from))
        --from;
    if (splitsPair(text, end))
        ++end;
    return {from, end - from};
}

QString ReasonText::start(const QString &text, int room)
{
    const int length = qBound(0, room, text.size());
    return text.left(splitsPair(text, length) ? length - 1 : length);
}
