// Completes a search by the people search of the organisation service: waits until
// nobody types any more, asks page by page, and tells apart what answers the text that
// stands there now from answers that come too late.
#pragma once

#include "contacts/search/searchresult.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QTimer>

class PeopleSearch : public QObject
{
    Q_OBJECT

public:
    static constexpr int Delay = 300; // ms, after the last letter
    static constexpr int PageSize = 50;
    // Of an answer that is longer than what was asked for; what more there is would hold
    // the window up, and nobody reads on so far.
    static constexpr int MostPerAnswer = 1000;
    static constexpr int FewestLetters = 2; // one Chinese character is enough
    static constexpr int MostRequests = 2;  // at a time; the newest text waits for one
    // ms; longer than all attempts of a request take. Some replies end without a word.
    static constexpr int Patience = 45000;

    enum State
    {
        Idle, // there is nothing to ask
        Offline,
        Searching, // or about to
        More,      // there are further pages
        Done,
        Failed
    };

    explicit PeopleSearch(QObject *parent = nullptr);

    // Another text; an empty one ends the search.
    void setText(const QString &text);
    State state() const { return m_state; }
    // The next page, if there is one and none is on its way.
    void fetchMore();
    // After a failure.
    void retry();

signals:
    void stateChanged();
    void found(const QVector<SearchResult> &results);

private:
    void ask();
    void setState(State state);
    void arrived(const SearchResponseData &response, int departments,
                 const OrgElementList &elements, const QString &text);
    void failed(const QString &text);
    // Takes a request of ours off the list: the page it asked for, 0 when it was
    // another's.
    int taken(const QString &text);
    void giveUp();

    QString m_text;
    int m_page = 0; // the last that arrived
    State m_state = Idle;
    bool m_isDue = false; // to be asked as soon as a request is free
    QSet<QString> m_seen; // ids that this text has brought
    // Page by text: an answer tells only its text, so there is never more than one
    // request for the same.
    QHash<QString, int> m_running;
    QTimer m_delay;
    QTimer m_patience;
};
