// The window in which the company's service numbers are searched and subscribed to.
// There is at most one.
#pragma once

#include "controls/basedialog.h"

#include <QPointer>
#include <QSet>
#include <QTimer>

class NoticeLine;
class SearchBox;
class ServiceNumFinder;
class ServiceNumListView;
class StateStack;

class CServiceNumSearch : public BaseDialog
{
    Q_OBJECT

public:
    // Opens or raises the window.
    static CServiceNumSearch *showSearch();
    static void closeSearch();

    ServiceNumListView *list() const { return m_list; }

protected:
    void changeEvent(QEvent *event) override;

private:
    explicit CServiceNumSearch(QWidget *parent = nullptr);
    static QPointer<CServiceNumSearch> &existing();
    void connectList();
    void connectAnswers();
    void search();
    void chooseFirst();
    void showState();
    void retranslate();

    SearchBox *m_box;
    ServiceNumListView *m_list;
    StateStack *m_states;
    NoticeLine *m_notice;
    ServiceNumFinder *m_finder;
    // A search that is answered at once leaves no trace on the screen.
    QTimer m_slow;
    QString m_shownFor;              // what the rows were found for
    bool m_chooseDue = false;        // Enter was pressed before the answer came
    QSet<QString> m_asked;           // codes: changes that this window has asked for
    const char *m_refusal = nullptr; // why the last of them failed: a translation key
};
