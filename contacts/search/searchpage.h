// The page of results that covers the others while something stands in the search
// box: answers each keystroke from what is known locally, then adds what the people
// search knows.
#pragma once

#include "contacts/search/searchindex.h"
#include "contacts/search/searchresult.h"

#include <QWidget>

class NoticeLine;
class PeopleSearch;
class SearchBox;
class SearchResultModel;
class SearchResultView;
class SearchSources;
class StateStack;

class SearchPage : public QWidget
{
    Q_OBJECT

public:
    static constexpr int LocalPage = 200; // rows; more come as somebody scrolls

    // Neither box nor sources are owned; both must outlive the page.
    SearchPage(SearchBox *box, SearchSources *sources, QWidget *parent = nullptr);

    // Searches for what stands in the box; nothing there ends the search.
    void search();

    SearchResultView *view() const { return m_view; }
    SearchResultModel *model() const { return m_model; }

signals:
    // The user goes on to something's row, in the organisation if that is said.
    void leaveFor(const SearchEntry &entry, bool inOrganisation);
    // Esc: the user is done.
    void left();

protected:
    void changeEvent(QEvent *event) override;

private:
    void connectBox();
    void connectView();
    // The first results, as many as fit the pages shown so far.
    QVector<SearchResult> local();
    void searchAgain(); // the index has changed
    void addFound(const QVector<SearchResult> &results);
    bool isAtEnd() const;
    void fetchMore();
    void fillLater(); // when the rows are laid out
    void open(const SearchEntry &entry);
    void enter(bool locate);
    void showState();
    void retranslate();

    SearchBox *m_box;
    SearchSources *m_sources;
    PeopleSearch *m_people;
    SearchResultModel *m_model;
    SearchResultView *m_view;
    StateStack *m_states;
    NoticeLine *m_notice;

    QString m_typed;
    int m_limit = LocalPage;
    bool m_hasMoreLocal = false;
    bool m_isStale = false;          // the index has changed while no row may move
    QVector<SearchResult> m_waiting; // of the people search, for the end of the local ones
};
