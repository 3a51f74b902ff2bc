#include "common/pinyinreadings.h"

#include "common/cchcharactertopp.h"

#include <algorithm>
#include <array>

namespace {
#include "common/pinyinreadings.inc"

struct Reading
{
    char16_t character = 0;
    char16_t next = 0; // that has to follow; 0: whatever does
    bool isSurname = false;
    char16_t length = 0;
    char16_t text[6] = {};
};

constexpr bool isLetter(char16_t c)
{
    return c >= u'a' && c <= u'z';
}

constexpr size_t countIn(const char16_t *list)
{
    size_t count = 0;
    for (; *list != 0; ++list)
        count += isLetter(list[0]) && !isLetter(list[1]);
    return count;
}
constexpr size_t Count = countIn(anywhere) + countIn(ofNames) + countIn(ofSurnames);
using Readings = std::array<Reading, Count>;

// Puts what the list says in front of the `count` readings, and keeps them in order.
constexpr size_t insert(Readings *readings, size_t count, const char16_t *list, bool isSurname)
{
    while (*list != 0) {
        Reading reading;
        reading.isSurname = isSurname;
        reading.character = *list++;
        if (!isLetter(*list))
            reading.next = *list++;
        while (isLetter(*list))
            reading.text[reading.length++] = char16_t(*list++ - u'a' + u'A');
        size_t at = count++;
        for (; at > 0 && (*readings)[at - 1].character > reading.character; --at)
            (*readings)[at] = (*readings)[at - 1];
        (*readings)[at] = reading;
    }
    return count;
}

constexpr Readings makeReadings()
{
    Readings readings{};
    size_t count = insert(&readings, 0, anywhere, false);
    count = insert(&readings, count, ofNames, false);
    insert(&readings, count, ofSurnames, true);
    return readings;
}
constexpr Readings readings = makeReadings();

constexpr char16_t FirstCharacter = 0x4E00;
constexpr char16_t LastCharacter = 0x9FFF;
static_assert(readings[0].character >= FirstCharacter);
static_assert(readings[Count - 1].character <= LastCharacter);

// One bit for each character, so that most of them need no search.
constexpr auto makeKnown()
{
    std::array<quint64, (LastCharacter - FirstCharacter) / 64 + 1> known{};
    for (const Reading &reading : readings) {
        const int place = reading.character - FirstCharacter;
        known[size_t(place / 64)] |= quint64(1) << place % 64;
    }
    return known;
}
constexpr auto known = makeKnown();
} // namespace

PinyinReadings::PinyinReadings(QStringView text, int index, int first)
{
    const QStringView usual = CChCharacterToPP::syllable(text.at(index));
    if (!usual.isEmpty())
        m_readings[m_count++] = usual;
    if (hasMore(text.at(index)))
        addOthers(text, index, first);
}

bool PinyinReadings::hasMore(QChar character)
{
    const int place = character.unicode() - FirstCharacter;
    return place >= 0 && character.unicode() <= LastCharacter &&
           (known[size_t(place / 64)] >> place % 64 & 1) != 0;
}

void PinyinReadings::addOthers(QStringView text, int index, int first)
{
    const char16_t character = text.at(index).unicode();
    const char16_t next = index + 1 < text.size() ? text.at(index + 1).unicode() : 0;
    auto at = std::lower_bound(
        readings.begin(), readings.end(), character,
        [](const Reading &reading, char16_t wanted) { return reading.character < wanted; });
    for (; at != readings.end() && at->character == character && m_count < Most; ++at) {
        if ((!at->isSurname || index == first) && (at->next == 0 || at->next == next))
            m_readings[m_count++] = QStringView(at->text, at->length);
    }
}
