// The window to find people outside the company, and to ask them to become contacts.
#pragma once

#include "controls/basedialog.h"

class ExternalHitModel;
class ExternalHitView;
class ExternalPeopleSearch;
class SearchBox;
class StateStack;

class SearchExternalFriend : public BaseDialog
{
    Q_OBJECT

public:
    // Opens or raises the one window; tells the user while offline.
    static void showSearch(QWidget *parent);

    explicit SearchExternalFriend(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void connectSources();
    void setText(const QString &text);
    void showState();
    void choose(const QModelIndex &index);

    SearchBox *m_box;
    ExternalPeopleSearch *m_search;
    ExternalHitModel *m_model;
    ExternalHitView *m_view;
    StateStack *m_states;
};
