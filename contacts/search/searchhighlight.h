// Which parts of a text are what somebody has typed.
#pragma once

#include "common/textmatch.h"
#include "contacts/search/searchresult.h"

#include <vector>

class SearchHighlight
{
public:
    explicit SearchHighlight(const QString &typed);

    int wordCount() const { return int(m_words.size()); }
    // Marks every word that is found, ordered and without overlaps. `missing`, which
    // may be null, keeps of the given words' numbers those that are not found here.
    SearchMarks marks(const QString &text, std::vector<int> *missing = nullptr) const;
    // The one of several phone numbers (separated by ";") that the typed digits are in.
    MarkedText phone(const QString &phones) const;

private:
    std::vector<TextPattern> m_words;
    QString m_digits; // when nothing but a number was typed
};
