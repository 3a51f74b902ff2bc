// The results of a search, in the order in which they came: those found locally
// first, then what the people search adds. A row never moves; what a row shows is
// worked out when it is first painted.
#pragma once

#include "common/textmatch.h"
#include "contacts/search/searchindex.h"
#include "contacts/search/searchresult.h"
#include "controls/markedline.h"

#include <QAbstractListModel>
#include <QHash>

#include <optional>
#include <vector>

namespace SearchRole {
enum Role
{
    Name = Qt::UserRole + 1,   // a display text
    Id = Qt::UserRole + 2,     // as in SearchEntry
    Second = Qt::UserRole + 3, // the second line
    Kind = Qt::UserRole + 24   // SearchEntry::Kind
};
} // namespace SearchRole

class SearchResultModel : public QAbstractListModel
{
    Q_OBJECT

public:
    // What a row shows; all texts are display texts.
    struct Shown
    {
        MarkedText name;
        MarkedText second; // before the place
        QString place;     // "A / B / C": its end tells most
        QString picture;   // local file of a person or room, or empty
        PresenceData presence;
        bool hasPresence = false; // whether it is known
        bool isOutside = false;   // the company
    };

    // `index` names the departments; not owned.
    explicit SearchResultModel(const SearchIndex *index, QObject *parent = nullptr);

    // Rows for another text; one of two results with the same kind and id.
    void setResults(const QString &typed, const QVector<SearchResult> &results);
    // Adds those that have no row yet; the other's rows take over what they tell.
    void append(const QVector<SearchResult> &results);
    // The same text found these now: true when no row had to come, go or move.
    bool renew(const QVector<SearchResult> &local);
    // -1 without one.
    int rowOf(const SearchEntry &entry) const { return m_rows.value(keyOf(entry), -1); }
    const QVector<SearchResult> &results() const { return m_results; }

    const SearchResult &at(int row) const { return m_results.at(row); }
    const Shown &shown(int row) const;
    // Presence, a picture or a profile has changed.
    void showAnew();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    static QString kindText(SearchEntry::Kind kind); // translated

private:
    using Key = QPair<int, QString>;
    static Key keyOf(const SearchEntry &entry) { return {entry.kind, entry.id}; }
    // Those that have no row are counted in.
    QVector<SearchResult> taken(const QVector<SearchResult> &results);
    Shown work(const SearchResult &result) const;
    void addMatch(const SearchEntry &entry, const QString &name, MarkedText *line) const;
    // Takes off the list the numbers of those words that are in the text.
    void strike(const QString &text, std::vector<int> *missing) const;
    MarkedText marked(const QString &text, SearchHit::Field field) const;
    void addIdentity(const SearchEntry &entry, MarkedText *line) const;
    QString place(const SearchResult &result, const VcardInfo &profile) const;
    void addPerson(const SearchResult &result, Shown *shown) const;

    const SearchIndex *m_index;
    QString m_typed;
    std::vector<TextPattern> m_words; // of what was typed
    QVector<SearchResult> m_results;
    mutable std::vector<std::optional<Shown>> m_shown; // of each row, once it was asked for
    QHash<Key, int> m_rows;
    QHash<QString, int> m_namesakes; // how many rows show the name
};
