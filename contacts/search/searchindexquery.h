// What was typed into the search, and how well an entry answers it: as one phrase in
// one field, or word by word wherever each is found.
#pragma once

#include "common/textmatch.h"
#include "contacts/search/searchindexrecords.h"
#include "contacts/search/searchindextraits.h"

#include <QStringList>
#include <QVector>

#include <vector>

// Digits of a phone number, from four on: found anywhere in a number, however either
// is formatted. What was typed may begin with a country or an area that the number
// leaves out.
class PhonePattern
{
public:
    explicit PhonePattern(const QString &typed);

    bool isEmpty() const { return m_size == 0; }
    // Exact: a whole number; Prefix: its beginning.
    TextMatch match(const QString &phones) const;

private:
    using Places = quint64; // in what was typed: bit i is its i-th digit

    struct Number // as far as it has been read
    {
        int size = 0; // digits
        // Which digit has to come next, for what was typed to stand here; and for the
        // number to be the end of what was typed.
        Places next = 1;
        Places nextOfEnd = ~Places();
        bool isEnd = false;
        TextMatch::Kind kind = TextMatch::None;
        int matched = 0; // digits
        int end = 0;     // of the match, in the text
    };
    void read(int digit, int end, Number *number) const;
    bool isWhole(const Number &number) const;
    bool mayLackFront(int size) const { return size >= FewestDigits && m_size - size <= m_country; }

    static constexpr int FewestDigits = 4;
    static constexpr int MostDigits = 64;

    Places m_places[10] = {}; // of each digit
    int m_size = 0;
    int m_country = 0; // how many digits may be its code
};

class SearchQuery
{
public:
    explicit SearchQuery(const QString &typed);

    bool isEmpty() const { return m_phrase.text.isEmpty() && m_phrase.phone.isEmpty(); }

    // Whether an entry of that signature may answer at all, and whether it may do better
    // than Inside. What is refused here does not answer.
    bool mayAnswer(const SearchSignature &signature) const
    {
        const quint64 bits = signature.start | signature.inside;
        if (m_words.empty())
            return m_phrase.mayBeIn(bits, signature);
        return ((bits & m_allWords.beginning) == m_allWords.beginning &&
                signature.chain.has(m_allWords.chain)) ||
               mayAnswerByPhone(signature);
    }
    bool mayAnswerFromStart(const SearchSignature &signature) const
    {
        return m_first.mayBeIn(signature.start, signature) || m_phrase.mayBePhone(signature);
    }
    // Whether an entry of these lengths may answer with Exact.
    bool mayBeWhole(quint32 wholeLengths) const
    {
        return m_isAnyLength || (wholeLengths & m_wholeLength) != 0;
    }

    // Whether phone numbers have to be looked at, which every other entry has.
    bool isPhone() const { return !m_phrase.phone.isEmpty(); }

    struct Candidate
    {
        const SearchEntry &entry;
        const SearchSignature &signature;
        SearchHit::Rank best; // it is known not to answer better
    };
    // False: it does not answer. Leaves hit->entry alone.
    bool answers(const Candidate &candidate, SearchHit *hit) const;
    bool answers(const SearchEntry &entry, SearchHit *hit) const;

    // What to highlight in a field, in order and without overlaps.
    QVector<TextMatch> highlights(const QString &text, SearchHit::Field field) const;

private:
    struct Word
    {
        explicit Word(const QString &typed);

        TextMatch match(const QString &field, SearchHit::Field which) const;
        bool bestField(const Candidate &candidate, SearchHit *hit) const;
        bool mayBePhone(const SearchSignature &signature) const
        {
            return !phone.isEmpty() && (signature.start & SearchSignature::HasPhones) != 0;
        }
        bool mayBeText(quint64 beginnings, const SearchSignature &signature) const
        {
            return (beginnings & mask.beginning) == mask.beginning &&
                   signature.chain.has(mask.chain);
        }
        bool mayBeIn(quint64 beginnings, const SearchSignature &signature) const
        {
            return mayBeText(beginnings, signature) || mayBePhone(signature);
        }

        TextPattern text;
        PhonePattern phone;
        SearchMask mask;
    };

    bool mayAnswerByPhone(const SearchSignature &signature) const;
    bool allWordsAnswer(const Candidate &candidate, SearchHit *hit) const;

    Word m_phrase;
    Word m_first;              // of the words, or the phrase when it is but one
    std::vector<Word> m_words; // none when the phrase is but one
    SearchMask m_allWords;
    quint32 m_wholeLength = 0;
    bool m_isAnyLength = true;
};
