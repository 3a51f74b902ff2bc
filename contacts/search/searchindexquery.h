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
// is formatted.
class PhonePattern
{
public:
    explicit PhonePattern(const QString &typed);

    bool isEmpty() const { return m_digits.isEmpty(); }
    // Exact: a whole number; Prefix: its beginning.
    TextMatch match(const QString &phones) const;

private:
    TextMatch matchNumber(const QString &phones, int start, int end) const;

    QString m_digits;
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
            return m_phrase.mayBeIn(bits);
        return (bits & m_allWords) == m_allWords || mayAnswerByPhone(bits);
    }
    bool mayAnswerFromStart(const SearchSignature &signature) const
    {
        return m_first.mayBeIn(signature.start) || m_phrase.mayBePhone(signature.start);
    }
    // Of which lengths one has to be among SearchTraits::wholeLengths for Exact.
    quint32 wholeLengths() const { return m_wholeLengths; }

    // False: it does not answer. Leaves hit->entry alone.
    bool answers(const SearchEntry &entry, SearchHit *hit) const;

    // What to highlight in a field, in order and without overlaps.
    QVector<TextMatch> highlights(const QString &text, SearchHit::Field field) const;

private:
    struct Word
    {
        explicit Word(const QString &typed);

        TextMatch match(const QString &field, SearchHit::Field which) const;
        bool bestField(const SearchEntry &entry, SearchHit *hit) const;
        bool mayBePhone(quint64 bits) const
        {
            return !phone.isEmpty() && (bits & SearchSignature::HasPhones) != 0;
        }
        bool mayBeIn(quint64 bits) const { return (bits & mask) == mask || mayBePhone(bits); }

        TextPattern text;
        PhonePattern phone;
        quint64 mask = 0;
    };

    bool mayAnswerByPhone(quint64 bits) const;
    bool allWordsAnswer(const SearchEntry &entry, SearchHit *hit) const;

    Word m_phrase;
    Word m_first;              // of the words, or the phrase when it is but one
    std::vector<Word> m_words; // none when the phrase is but one
    quint64 m_allWords = 0;
    quint32 m_wholeLengths = 0;
};
