#include "controls/statestack.h"

#include "controls/statepage.h"

StatePage *StateStack::showPage(const char *key, const char *picture, const char *buttonKey)
{
    StatePage *&page = m_statePages[QString::fromUtf8(key)];
    if (!page) {
        page = new StatePage(key, QString::fromLatin1(picture), buttonKey, parentWidget());
        page->setObjectName(QString::fromUtf8(key));
        addWidget(page);
        connect(page, &StatePage::buttonClicked, this, &StateStack::buttonClicked);
    }
    setCurrentWidget(page);
    return page;
}
