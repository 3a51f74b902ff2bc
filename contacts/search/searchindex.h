// Finds people, rooms and the like among everything that is known locally, while
// somebody types. Grows as entries come; nothing is ever built anew.
//
// Typed words are found in any order, each at the beginning of a word or syllable:
// in name, remark, account, employee code or mail; Chinese also by pinyin, in full,
// by initials or mixed; phone digits, from four on, anywhere and in any formatting.
// Case, width and diacritics do not count.
#pragma once

#include "common/textmatch.h"
#include "contacts/search/searchindexrecords.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

class SearchIndex
{
public:
    SearchIndex();
    ~SearchIndex();
    SearchIndex(const SearchIndex &) = delete;
    SearchIndex &operator=(const SearchIndex &) = delete;

    // Adds, or replaces the entry of that kind and id.
    void put(const SearchEntry &entry);
    // A large list is kept as it is, not copied: give it away.
    void putAll(const QVector<SearchEntry> &entries);
    bool remove(SearchEntry::Kind kind, const QString &id);
    void clear();
    int size() const; // entries that can be found

    // Null for one that is not there.
    const SearchEntry *find(SearchEntry::Kind kind, const QString &id) const;
    // Good until the next change.
    const SearchEntry &at(int entry) const;

    QStringList contacts() const; // jids, in no order

    // Whose conversations are the latest, the newest first: they come first among
    // equals.
    void setRecent(const QStringList &ids);

    // The best `limit` hits, in order; none for a blank text. Of a text longer than 64
    // characters the first 64 count.
    QVector<SearchHit> search(const QString &typed, int limit) const;

private:
    struct Private;
    const std::unique_ptr<Private> d;
};

// What to highlight in a field of a hit, in order and without overlaps: the best place
// of the whole text, or else of each of its words.
QVector<TextMatch> searchHighlights(const QString &typed, const QString &text,
                                    SearchHit::Field field = SearchHit::Name);
