// A text as it is compared with what somebody has typed: without case, width,
// diacritics and invisible controls, every unit with its kind and the place in the
// text that it came from. Needs no memory of its own.
#pragma once

#include <QStringView>

class FoldedText
{
public:
    static constexpr int MaximumLength = 64; // units of the text that count

    enum Kind : quint8
    {
        Separator,
        Letter,
        Digit,
        Chinese
    };

    explicit FoldedText(QStringView text);

    int size() const { return m_size; }
    QStringView text() const { return QStringView(m_units, m_size); }
    ushort at(int i) const { return m_units[i]; }
    Kind kind(int i) const { return m_kinds[i]; }

    bool hasChinese() const { return m_hasChinese; }

    // Behind the separators at the beginning; 0 when there is nothing else.
    int first() const { return m_first; }
    // A word begins behind a separator, and where the script changes.
    bool isWordStart(int i) const
    {
        return m_kinds[i] != Separator && (i == 0 || m_kinds[i] != m_kinds[i - 1]);
    }
    // Each Chinese character is a syllable.
    bool isStart(int i) const { return m_kinds[i] == Chinese || isWordStart(i); }

    // Where the unit stands in the text as it was given, and where it ends there.
    int sourceStart(int i) const { return m_isPlain ? i : m_starts[i]; }
    int sourceEnd(int i) const { return m_isPlain ? i + 1 : m_ends[i]; }

private:
    bool addPlain(QStringView text);
    void addDecomposed(QStringView text);
    void add(QStringView units, int sourceStart, int sourceEnd);

    int m_size = 0;
    int m_first = 0;
    bool m_hasChinese = false;
    bool m_isPlain = true; // the units stand where they stood
    ushort m_units[MaximumLength];
    Kind m_kinds[MaximumLength];
    quint8 m_starts[MaximumLength];
    quint8 m_ends[MaximumLength];
};
