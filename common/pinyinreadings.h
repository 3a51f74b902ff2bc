// How a Chinese character may be read: as the pinyin table has it, and in the other
// readings that occur in names and surnames.
#pragma once

#include <QStringView>

class PinyinReadings
{
public:
    static constexpr int Most = 4;

    // Of the character at `index`; `first` is where the name begins, and with it its
    // surname. Empty for everything but a Chinese character with a known reading.
    PinyinReadings(QStringView text, int index, int first = 0);

    // Whether a character has readings that the pinyin table does not tell.
    static bool hasMore(QChar character);

    // Capitals, as in the table. Static data.
    const QStringView *begin() const { return m_readings; }
    const QStringView *end() const { return m_readings + m_count; }

private:
    void addOthers(QStringView text, int index, int first);

    QStringView m_readings[Most];
    int m_count = 0;
};
