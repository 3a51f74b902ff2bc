#include "contacts/search/searchresultview.h"

#include "contacts/search/searchcommands.h"
#include "contacts/search/searchresultdelegate.h"
#include "contacts/search/searchresultmodel.h"
#include "controls/skinmenu.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

SearchResultView::SearchResultView(SearchResultModel *model, QWidget *parent)
    : RowView(model, SearchRole::Name, parent), m_model(model)
{
    setObjectName(QStringLiteral("searchResults"));
    setItemDelegate(new SearchResultDelegate(model, this));
    connect(this, &RowView::orderHeld, this, [this](bool held) { m_isHeld = held; });
    connect(this, &RowView::activatedRow, this,
            [this](const QModelIndex &index) { emit openRequested(entryAt(index)); });
    buildMenu();
}

SearchEntry SearchResultView::entryAt(const QModelIndex &index) const
{
    return m_model->at(index.row()).entry;
}

// --- Keys --------------------------------------------------------------------------

void SearchResultView::keyboardSearch(const QString &text)
{
    emit typed(text);
}

void SearchResultView::keyPressEvent(QKeyEvent *event)
{
    const bool isControl = event->modifiers().testFlag(Qt::ControlModifier);
    switch (event->key()) {
    case Qt::Key_Up:
        if (currentIndex().row() <= 0) {
            emit leftUpwards();
            return;
        }
        break;
    case Qt::Key_Escape:
        emit escapePressed();
        return;
    case Qt::Key_Backspace:
        emit typed(QStringLiteral("\b"));
        return;
    case Qt::Key_Space:
        emit typed(event->text());
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (isControl && currentIndex().isValid()) {
            emit locateRequested(entryAt(currentIndex()));
            return;
        }
        break;
    default:
        break;
    }
    RowView::keyPressEvent(event);
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
