#include "contacts/search/searchresultview.h"

#include "contacts/search/searchcommands.h"
#include "contacts/search/searchresultdelegate.h"
#include "contacts/search/searchresultmodel.h"
#include "controls/skinmenu.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

SearchResultView::SearchResultView(SearchBox *box, SearchResultModel *model, QWidget *parent)
    : FoundList(box, model, SearchRole::Name, parent), m_model(model)
{
    setObjectName(QStringLiteral("searchResults"));
    setItemDelegate(new SearchResultDelegate(model, this));
    connect(this, &RowView::activatedRow, this,
            [this](const QModelIndex &index) { emit openRequested(entryAt(index)); });
    buildMenu();
}

SearchEntry SearchResultView::entryAt(const QModelIndex &index) const
{
    return m_model->at(index.row()).entry;
}

QString SearchResultView::cardJid(const QModelIndex &index) const
{
    const SearchEntry &entry = m_model->at(index.row()).entry;
    return entry.kind == SearchEntry::Person ? entry.id : QString();
}

// --- Keys --------------------------------------------------------------------------

void SearchResultView::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && event->modifiers().testFlag(Qt::ControlModifier) && currentIndex().isValid())
        emit locateRequested(entryAt(currentIndex()));
    else
        FoundList::keyPressEvent(event);
}

// --- Menu --------------------------------------------------------------------------

void SearchResultView::buildMenu()
{
    m_menu = new SkinMenu(QStringLiteral("searchMenu"), this);
    for (const char *key : {"openFound", "invitechat", "viewdetail", "locateFound",
                            "locateInOrganisation", "addcon", "sendemail"})
        m_menu->addKey(key);
    connect(m_menu, &QMenu::triggered, this, &SearchResultView::choose);
}

void SearchResultView::prepareMenu()
{
    const SearchEntry &entry = m_menuEntry;
    const auto offer = [this](const char *key, bool offered) {
        m_menu->action(key)->setVisible(offered);
    };
    offer("openFound", entry.kind != SearchEntry::Person && !SearchCommands::opensPage(entry) &&
                           entry.kind != SearchEntry::ServiceNumber);
    offer("invitechat", SearchCommands::mayOpenChat(entry));
    offer("viewdetail", SearchCommands::mayViewDetail(entry));
    offer("locateFound", SearchCommands::mayLocate(entry));
    offer("locateInOrganisation", SearchCommands::mayLocateInOrganisation(entry));
    offer("addcon", SearchCommands::mayAddContact(entry));
    offer("sendemail", SearchCommands::mayWriteMail(entry));
}

void SearchResultView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid())
        return;
    reveal(index);
    m_menuEntry = entryAt(index);
    prepareMenu();
    popUp(m_menu, menuPosition(*event));
}

void SearchResultView::choose(QAction *action)
{
    const SearchEntry entry = m_menuEntry;
    if (action == m_menu->action("openFound") || action == m_menu->action("invitechat"))
        emit openRequested(entry);
    else if (action == m_menu->action("locateFound"))
        emit locateRequested(entry);
    else if (action == m_menu->action("locateInOrganisation"))
        emit organisationRequested(entry);
    else if (action == m_menu->action("viewdetail"))
        SearchCommands::viewDetail(entry);
    else if (action == m_menu->action("addcon"))
        SearchCommands::addContact(entry);
    else if (action == m_menu->action("sendemail"))
        SearchCommands::writeMail(entry);
}
