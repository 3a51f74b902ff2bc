// A list and the pages that stand in its place: loading, empty, failed. Each of them is
// made when it is first needed.
#pragma once

#include <QHash>
#include <QStackedLayout>

class StatePage;

class StateStack : public QStackedLayout
{
    Q_OBJECT

public:
    using QStackedLayout::QStackedLayout;

    // Shows the page of the sentence `key`, which is also its object name; the other
    // arguments are StatePage's. The page is the stack's.
    StatePage *showPage(const char *key, const char *picture, const char *buttonKey = nullptr);

signals:
    void buttonClicked(); // on whichever page

private:
    QHash<QString, StatePage *> m_statePages;
};
