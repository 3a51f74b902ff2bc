// What is found in the teams for the text in the page's search box: the list of hits,
// or why there is none; below it what is still going on.
#pragma once

#include "virtualteam/teamrecords.h"

#include <QWidget>

class NoticeLine;
class SearchBox;
class StateStack;
class TeamSearch;
class TeamSearchModel;
class VirtualTeamSearchResultListView;

class TeamSearchPage : public QWidget
{
    Q_OBJECT

public:
    // The box is not owned and must outlive the page.
    explicit TeamSearchPage(SearchBox *box, QWidget *parent = nullptr);

    void setTeams(const QList<CVirtualTeamSimpleInfo> &teams);
    void setText(const QString &text); // empty: ends the search

    VirtualTeamSearchResultListView *view() const { return m_view; }
    TeamSearch *search() const { return m_search; }

protected:
    void changeEvent(QEvent *event) override;

private:
    void connectSources();
    void showState();
    void chooseFirst();

    TeamSearch *m_search;
    TeamSearchModel *m_model;
    VirtualTeamSearchResultListView *m_view;
    StateStack *m_states;
    NoticeLine *m_notice;
};
