#include "contacts/friendwidget.h"

#include "ExternalFriend/externalfriendwidget.h"
#include "common/logging.h"
#include "contacts/friendlistview.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreewidget.h"
#include "contacts/latest/latestcontactstable.h"
#include "contacts/latest/latestroles.h"
#include "contacts/latest/latestview.h"
#include "contacts/latest/mylatestfriendwidget.h"
#include "contacts/rooms/mucwidget.h"
#include "contacts/search/searchcommands.h"
#include "contacts/search/searchentries.h"
#include "contacts/search/searchpage.h"
#include "contacts/search/searchsources.h"
#include "controls/searchbox.h"
#include "controls/skin.h"
#include "org/orgstructuremgr.h"
#include "org/orgwidget.h"
#include "plugin/frienduisignalsender.h"
#include "plugin/paneactions.h"
#include "servicenum/ccustomerserverpage.h"
#include "servicenum/cservicenowidget.h"
#include "servicenum/customerchannels.h"
#include "virtualteam/cvirtualteampage.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QShortcut>
#include <QStackedWidget>

namespace {
// Until then the pane's first picture has been painted.
constexpr int SourcesDelay = 1000; // ms
constexpr int CountDelay = 100;    // ms; a burst of messages is counted once
constexpr int RecentConversations = 100;

QString friendsPage()
{
    return QStringLiteral("friends");
}

QString organisationPage()
{
    return QStringLiteral("organizationTree");
}

QString roomsPage()
{
    return QStringLiteral("groupChat");
}

QString channelsPage()
{
    return QStringLiteral("customer");
}

QString teamsPage()
{
    return QStringLiteral("virtureteam");
}

QString externalsPage()
{
    return QStringLiteral("outsidefrd");
}

QString serviceNumbersPage()
{
    return QStringLiteral("serviceNumbers");
}

QString latestPage()
{
    return QStringLiteral("latestContact");
}

// Whose conversations are the latest, the newest first.
QStringList recentIds()
{
    QStringList ids;
    const QVector<DBFriendData> records = LatestContactsTable::page(RecentConversations, 0);
    for (const DBFriendData &record : records)
        ids.append(record.jid);
    return ids;
}
} // namespace

FriendWidget::FriendWidget(QWidget *parent)
    : QWidget(parent),
      m_entries(new FriendListView(this)),
      m_searchBox(new SearchBox(this)),
      m_body(new QStackedWidget(this)),
      m_pages(new QStackedWidget(m_body)),
      m_friendTree(new FriendTreeWidget(m_pages)),
      m_sources(new SearchSources(&OrgStructureMgr::instance()->elements(), this))
{
    LOG_SCOPE("FriendWidget::FriendWidget(QWidget* parent)");
    setObjectName(QStringLiteral("FriendWidget"));
    setAutoFillBackground(true);
    followSkin(this);
    layOut();

    makePages();
    connect(m_entries, &FriendListView::signal_clickItem, this, &FriendWidget::slot_clickItem);
    connect(FriendUISignalSender::instance(), &FriendUISignalSender::signal_position_orgstruct,
            this, [](const QString &id, bool isOrganisation) {
                if (PaneActions *actions = paneActions())
                    actions->locateInOrganisation(id, isOrganisation);
            });
    connectSearch();
    // Delivered to a pane that has gone.
    const auto channels = CustomerChannels::instance().channels();
    for (const CustomerChannels::Channel &channel : channels)
        m_sources->index().put(SearchEntries::channel(channel.data));
    raisePage(friendsPage());
    setTabOrder(m_entries, m_searchBox);
    setTabOrder(m_searchBox, m_friendTree);
}

FriendWidget::~FriendWidget()
{
    // What goes with the pages still tells of the focus and the like: not to one that
    // is half gone.
    disconnect(qApp, nullptr, this, nullptr);
    delete m_body;
}

void FriendWidget::layOut()
{
    m_body->addWidget(m_pages);
    auto *top = new QHBoxLayout;
    top->setContentsMargins(12, 10, 12, 8);
    top->addWidget(m_searchBox);
    auto *right = new QVBoxLayout;
    right->setSpacing(0);
    right->addLayout(top);
    right->addWidget(m_body, 1);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_entries);
    layout->addLayout(right, 1);
}

// --- Search --------------------------------------------------------------------

void FriendWidget::connectSearch()
{
    connect(m_searchBox, &QLineEdit::textChanged, this, &FriendWidget::search);
    connect(m_searchBox, &SearchBox::escapePressed, this, &FriendWidget::endSearch);
    connect(m_sources, &SearchSources::cleared, m_searchBox, &QLineEdit::clear);
    auto *shortcut =
        new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, [this] {
        m_searchBox->setFocus(Qt::ShortcutFocusReason);
        m_searchBox->selectAll();
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *old, QWidget *now) {
        const bool fromResults = m_searchPage && old && m_searchPage->isAncestorOf(old);
        if (now == m_searchBox && old && !fromResults)
            m_focusBefore = old;
    });
}

SearchPage *FriendWidget::searchPage()
{
    if (!m_searchPage) {
        m_searchPage = new SearchPage(m_searchBox, m_sources, m_body);
        m_body->addWidget(m_searchPage);
        connect(m_searchPage, &SearchPage::left, this, &FriendWidget::endSearch);
        connect(m_searchPage, &SearchPage::leaveFor, this, &FriendWidget::leaveSearchFor);
    }
    return m_searchPage;
}

void FriendWidget::search()
{
    if (!m_searchBox->text().simplified().isEmpty()) {
        if (m_body->currentWidget() == m_pages)
            m_sources->index().setRecent(recentIds());
        searchPage()->search();
        m_body->setCurrentWidget(m_searchPage);
    } else if (m_searchPage) {
        m_searchPage->search();
        m_body->setCurrentWidget(m_pages);
    }
}

void FriendWidget::endSearch()
{
    m_searchBox->clear();
    if (m_focusBefore && m_focusBefore->isVisible())
        m_focusBefore->setFocus(Qt::OtherFocusReason);
    else
        focusList();
}

void FriendWidget::leaveSearchFor(const SearchEntry &entry, bool inOrganisation)
{
    m_searchBox->clear();
    if (inOrganisation)
        SearchCommands::locateInOrganisation(entry);
    else
        SearchCommands::locate(entry);
    focusList();
}

void FriendWidget::focusList()
{
    // A page that has several lists says which is meant.
    auto *list = qobject_cast<QAbstractItemView *>(m_pages->currentWidget()->focusProxy());
    if (!list)
        list = m_pages->currentWidget()->findChild<QAbstractItemView *>();
    if (list && list->isVisible()) {
        list->setFocus(Qt::OtherFocusReason);
        return;
    }
    m_entries->setFocus(Qt::OtherFocusReason);
    // Its page may be loading.
    if (list && list != m_focusDue) {
        m_focusDue = list;
        list->installEventFilter(this);
    }
}

bool FriendWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_focusDue && event->type() == QEvent::Show) {
        m_focusDue->removeEventFilter(this);
        if (m_entries->hasFocus())
            m_focusDue->setFocus(Qt::OtherFocusReason);
        m_focusDue = nullptr;
    }
    return QWidget::eventFilter(watched, event);
}

void FriendWidget::showEvent(QShowEvent *event)
{
    QTimer::singleShot(SourcesDelay, m_sources, &SearchSources::start);
    QWidget::showEvent(event);
}

// --- Pages ---------------------------------------------------------------------

void FriendWidget::makePages()
{
    for (int row = 0; row < m_entries->model()->rowCount(); ++row) {
        const QString id = m_entries->model()->index(row, 0).data(EntryRole::Id).toString();
        QWidget *page = makePage(id);
        m_pages->addWidget(page);
        m_pageById.insert(id, page);
    }
}

// Messages and rooms come at any time: their pages are there from the beginning.
QWidget *FriendWidget::makePage(const QString &id)
{
    if (id == friendsPage())
        return m_friendTree;
    if (id == latestPage())
        return makeLatestPage();
    if (id == roomsPage()) {
        m_rooms = new MucWidget(m_pages);
        return m_rooms;
    }
    auto *page = new QWidget(m_pages);
    page->setObjectName(id);
    return page;
}

QWidget *FriendWidget::makeLatestPage()
{
    auto *page = new MyLatestFriendWidget(m_pages);
    const QAbstractItemModel *rows = page->view()->model();
    m_countDue.setSingleShot(true);
    m_countDue.setInterval(CountDelay);
    connect(&m_countDue, &QTimer::timeout, this, [this, rows] {
        int unread = 0;
        for (int row = 0; row < rows->rowCount(); ++row)
            unread += rows->index(row, 0).data(LatestRole::Unread).toInt();
        m_entries->setUnread(latestPage(), unread);
    });
    const auto countSoon = [this] {
        if (!m_countDue.isActive())
            m_countDue.start();
    };
    connect(rows, &QAbstractItemModel::dataChanged, this, countSoon);
    connect(rows, &QAbstractItemModel::rowsInserted, this, countSoon);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, countSoon);
    connect(rows, &QAbstractItemModel::modelReset, this, countSoon);
    return page;
}

template <class Page> Page *FriendWidget::pageInPlace(const QString &id, Page *&page)
{
    QWidget *place = m_pageById.value(id);
    if (page || !place)
        return page;
    page = new Page(m_pages);
    m_pages->insertWidget(m_pages->indexOf(place), page);
    m_pageById.insert(id, page);
    delete place;
    return page;
}

OrgWidget *FriendWidget::orgPage()
{
    return pageInPlace(organisationPage(), m_orgPage);
}

CCustomerServerPage *FriendWidget::channels()
{
    return pageInPlace(channelsPage(), m_channels);
}

CVirtualTeamPage *FriendWidget::teamPage()
{
    if (!m_teamPage && pageInPlace(teamsPage(), m_teamPage))
        connect(m_teamPage, &CVirtualTeamPage::teamsKnown, m_sources,
                [this](const QList<CVirtualTeamSimpleInfo> &teams) {
                    QVector<SearchEntry> entries;
                    for (const CVirtualTeamSimpleInfo &team : teams)
                        entries.append(SearchEntries::team(team.vtId, team.vtName));
                    m_sources->setTeams(entries);
                });
    return m_teamPage;
}

ExternalFriendWidget *FriendWidget::externalPage()
{
    if (!m_externalPage && pageInPlace(externalsPage(), m_externalPage))
        m_externalPage->slot_inithidealloffline(m_friendTree->model()->hidesOffline());
    return m_externalPage;
}

CServiceNoWidget *FriendWidget::serviceNumbers()
{
    return pageInPlace(serviceNumbersPage(), m_serviceNumbers);
}

bool FriendWidget::raisePage(const QString &id)
{
    if (!m_entries->selectEntry(id))
        return false;
    m_searchBox->clear();
    return true;
}

QString FriendWidget::currentPage() const
{
    return m_pageById.key(m_pages->currentWidget());
}

void FriendWidget::slot_clickItem(int, QString strJid)
{
    LOG_SCOPE("FriendWidget::slot_clickItem(int nType, QString strJid)");
    if (strJid == organisationPage())
        orgPage();
    else if (strJid == channelsPage())
        channels();
    else if (strJid == teamsPage())
        teamPage();
    else if (strJid == externalsPage())
        externalPage();
    else if (strJid == serviceNumbersPage())
        serviceNumbers();
    if (QWidget *page = m_pageById.value(strJid))
        m_pages->setCurrentWidget(page);
    m_searchBox->clear();
}

void FriendWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        m_entries->viewport()->update();
    QWidget::changeEvent(event);
}
