#include "contacts/search/searchhighlight.h"

#include <QStringList>

#include <algorithm>

namespace {
constexpr int FewestDigits = 4;

bool isPhoneSign(QChar c)
{
    return c.isSpace() || QStringLiteral("+-()./").contains(c);
}

// In the digits that every writing system has for 0 to 9.
QString digitsOf(const QString &text)
{
    QString digits;
    for (const QChar c : text) {
        if (c.isDigit())
            digits.append(QLatin1Char(char('0' + c.digitValue())));
    }
    return digits;
}

SearchMarks merged(SearchMarks marks)
{
    std::sort(marks.begin(), marks.end());
    SearchMarks result;
    for (const SearchMark &mark : qAsConst(marks)) {
        if (result.isEmpty() || mark.first > result.last().first + result.last().second) {
            result.append(mark);
            continue;
        }
        const int end = qMax(result.last().first + result.last().second, mark.first + mark.second);
        result.last().second = end - result.last().first;
    }
    return result;
}
} // namespace

SearchHighlight::SearchHighlight(const QString &typed)
{
    const QString plain = typed.simplified();
    const QStringList words = plain.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &word : words)
        m_words.emplace_back(word);
    const bool isNumber = std::all_of(plain.begin(), plain.end(),
                                      [](QChar c) { return c.isDigit() || isPhoneSign(c); });
    const QString digits = isNumber ? digitsOf(plain) : QString();
    if (digits.size() >= FewestDigits)
        m_digits = digits;
}

SearchMarks SearchHighlight::marks(const QString &text, std::vector<int> *missing) const
{
    SearchMarks found;
    for (int i = 0; i < wordCount(); ++i) {
        const TextMatch match = m_words.at(size_t(i)).match(text);
        if (match.kind == TextMatch::None)
            continue;
        if (match.length > 0)
            found.append({match.start, match.length});
        if (missing)
            missing->erase(std::remove(missing->begin(), missing->end(), i), missing->end());
    }
    return merged(found);
}

MarkedText SearchHighlight::phone(const QString &phones) const
{
    if (m_digits.isEmpty())
        return {};
    const QStringList numbers = phones.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &number : numbers) {
        const int at = digitsOf(number).indexOf(m_digits);
        if (at < 0)
            continue;
        int digit = 0;
        int first = -1;
        for (int i = 0; i < number.size(); ++i) {
            if (!number.at(i).isDigit())
                continue;
            if (digit == at)
                first = i;
            if (++digit == at + m_digits.size())
                return {number, {{first, i - first + 1}}};
        }
    }
    return {};
}
