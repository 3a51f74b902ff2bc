#include "controls/validationtext.h"

namespace {
bool isWide(QChar c)
{
    return c.unicode() >= 0x4E00 && c.unicode() <= 0x9FA5;
}
} // namespace

int ValidationText::weightedLength(const QString &text)
{
    int length = 0;
    for (const QChar c : text)
        length += isWide(c) ? 2 : 1;
    return length;
}

ValidationText::Cut ValidationText::excess(const QString &text, int cursor)
{
    const int tooMuch = weightedLength(text) - MaximumLength;
    if (tooMuch <= 0)
        return {};
    const int end = cursor > 0 && cursor <= text.size() ? cursor : text.size();
    const int count = qMin(tooMuch % 2 == 0 ? tooMuch / 2 : tooMuch, end);
    Cut cut{end - count, count};
    // Neither half of a pair stays behind.
    if (cut.from > 0 && text.at(cut.from).isLowSurrogate() &&
        text.at(cut.from - 1).isHighSurrogate()) {
        --cut.from;
        ++cut.count;
    }
    if (end < text.size() && text.at(end).isLowSurrogate() && text.at(end - 1).isHighSurrogate())
        ++cut.count;
    return cut;
}
