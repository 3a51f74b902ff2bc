// What the page of virtual teams is made of, and which of it is seen.
#include "common/context.h"
#include "common/logging.h"
#include "controls/noticeline.h"
#include "controls/searchbox.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/statepage.h"
#include "plugin/frienduisignalsender.h"
#include "virtualteam/cvirtualteampage.h"
#include "virtualteam/cvirtualteamtreeview.h"
#include "virtualteam/dialogs/cvirtualteamwidgetcreat.h"
#include "virtualteam/noteampage.h"
#include "virtualteam/teamcommands.h"
#include "virtualteam/teamloader.h"
#include "virtualteam/teamsearchpage.h"
#include "virtualteam/teamtreemodel.h"
#include "virtualteam/virtualteamsearchresultlistview.h"
#include "virtualteam/waitwgt.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QStackedWidget>

namespace {
constexpr int ReloadDelay = 100; // ms; a burst of news is one reload
}

CVirtualTeamPage::CVirtualTeamPage(QWidget *parent)
    : QWidget(parent),
      m_searchBox(new SearchBox(this, "searchTeamMembers")),
      m_create(new SkinButton(SkinButton::Flat,
                              QStringLiteral("Resources/images/icon/glyph_add.png"), this)),
      m_refresh(new SkinButton(SkinButton::Flat,
                               QStringLiteral("Resources/images/icon/glyph_refresh.png"), this)),
      m_pages(new QStackedWidget(this)),
      m_tree(new CVirtualTeamTreeView(m_pages)),
      m_loader(new TeamLoader(this))
{
    LOG_SCOPE("CVirtualTeamPage::CVirtualTeamPage(QWidget* parent)");
    setObjectName(QStringLiteral("CVirtualTeamPage"));
    setAutoFillBackground(true);
    followSkin(this);
    m_reloadDue.setSingleShot(true);
    m_reloadDue.setInterval(ReloadDelay);
    m_followDue.setSingleShot(true);
    m_followDue.setInterval(0);
    makePages();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHead());
    layout->addWidget(m_pages, 1);
    setFocusProxy(m_tree);
    setTabOrder(m_searchBox, m_create);
    setTabOrder(m_create, m_refresh);
    setTabOrder(m_refresh, m_tree);

    connect(m_create, &QPushButton::clicked, this, &CVirtualTeamPage::slot_creatVirtualTeam);
    connect(m_refresh, &QPushButton::clicked, this, &CVirtualTeamPage::slot_refreshVirtualTeam);
    connect(&m_reloadDue, &QTimer::timeout, this, [this] { reload(false); });
    connect(&m_followDue, &QTimer::timeout, this, &CVirtualTeamPage::followTeams);
    connect(m_loader, &TeamLoader::teamsLoaded, this,
            &CVirtualTeamPage::slot_getMyVirtualTeamFinish);
    connect(m_loader, &TeamLoader::levelLoaded, this,
            &CVirtualTeamPage::slot_getVirtualTeamStructureFinish);
    connect(m_loader, &TeamLoader::loadingTeamsChanged, this, &CVirtualTeamPage::showBusy);
    connectTree();
    connectSearch();
    connectHub();
    retranslate();
    showState();
}

// The dialog's end is of no interest any more.
CVirtualTeamPage::~CVirtualTeamPage()
{
    delete m_createDialog;
}

QWidget *CVirtualTeamPage::makeHead()
{
    m_searchBox->setObjectName(QStringLiteral("teamSearchBox"));
    // There is nothing to search in while it is hidden; the buttons keep their places.
    QSizePolicy policy = m_searchBox->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_searchBox->setSizePolicy(policy);
    m_create->setObjectName(QStringLiteral("createTeamButton"));
    m_refresh->setObjectName(QStringLiteral("refreshTeamButton"));
    auto *head = new QWidget(this);
    auto *layout = new QHBoxLayout(head);
    layout->setContentsMargins(12, 4, 8, 8);
    layout->setSpacing(4);
    layout->addWidget(m_searchBox, 1);
    layout->addWidget(m_create);
    layout->addWidget(m_refresh);
    return head;
}

QWidget *CVirtualTeamPage::makeListPage()
{
    auto *page = new QWidget(m_pages);
    page->setObjectName(QStringLiteral("VirtualTeamListPage"));
    m_notice = new NoticeLine(page);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tree, 1);
    layout->addWidget(m_notice);
    m_wait = new WaitWgt(page);
    connect(m_notice, &NoticeLine::retryClicked, this, &CVirtualTeamPage::slot_refreshVirtualTeam);
    return page;
}

void CVirtualTeamPage::makePages()
{
    m_listPage = makeListPage();
    m_loadingPage =
        new StatePage("loading", QStringLiteral("Resources/images/SearchFriend/qora_Loading.gif"),
                      nullptr, m_pages);
    m_loadingPage->setObjectName(QStringLiteral("VirtualTeamLoadingPage"));
    m_failPage =
        new StatePage("loadErrorAndCrazyRetry",
                      QStringLiteral("Resources/images/FriendDetail/failed.png"), "retry", m_pages);
    m_failPage->setObjectName(QStringLiteral("VirtualTeamLoadFailPage"));
    m_emptyPage = new NoTeamPage(m_pages);
    m_searchPage = new TeamSearchPage(m_searchBox, m_pages);
    for (QWidget *page :
         {static_cast<QWidget *>(m_loadingPage), static_cast<QWidget *>(m_failPage),
          static_cast<QWidget *>(m_emptyPage), m_listPage, static_cast<QWidget *>(m_searchPage)})
        m_pages->addWidget(page);
    connect(m_failPage, &StatePage::buttonClicked, this,
            &CVirtualTeamPage::slot_refreshVirtualTeam);
    connect(m_emptyPage, &NoTeamPage::createClicked, this,
            &CVirtualTeamPage::slot_creatVirtualTeam);
}

void CVirtualTeamPage::connectTree()
{
    connect(m_tree, &CVirtualTeamTreeView::signal_GetMembers, this,
            &CVirtualTeamPage::signal_GetMembers);
    connect(this, &CVirtualTeamPage::signal_GetMembers, this, &CVirtualTeamPage::slot_getMembers);
    connect(m_tree, &CVirtualTeamTreeView::teamsChanged, this, &CVirtualTeamPage::reloadSoon);
    // What is being asked for may be answered as it was before the user's change.
    using Commands = TeamCommands;
    const Commands *commands = m_tree->commands();
    const auto askAgainAfter = [&](auto... changes) {
        (connect(commands, changes, m_loader, &TeamLoader::repeatLevels), ...);
    };
    askAgainAfter(&Commands::groupAdded, &Commands::groupRenamed, &Commands::groupDeleted,
                  &Commands::nickNameChanged, &Commands::postChanged, &Commands::membersDeleted,
                  &Commands::membersMoved, &Commands::administratorsChanged,
                  &Commands::authorityGranted);
    connect(commands, &Commands::teamRenamed, this, [this] {
        if (m_loader->isLoadingTeams())
            m_loader->loadTeams();
    });
    m_tree->installEventFilter(this);
    m_tree->viewport()->installEventFilter(this);
    m_tree->verticalScrollBar()->installEventFilter(this);
    // Members come and go by the thousand; only teams are of interest here.
    const TeamTreeModel *teams = m_tree->teams();
    const auto follow = [this](const QModelIndex &parent) {
        if (!parent.isValid())
            m_followDue.start();
    };
    connect(teams, &QAbstractItemModel::rowsInserted, this, follow);
    connect(teams, &QAbstractItemModel::rowsRemoved, this, follow);
    connect(teams, &QAbstractItemModel::dataChanged, this,
            [follow](const QModelIndex &topLeft) { follow(topLeft.parent()); });
}

void CVirtualTeamPage::connectSearch()
{
    using List = VirtualTeamSearchResultListView;
    List *list = m_searchPage->view();
    connect(m_searchBox, &QLineEdit::textChanged, this, &CVirtualTeamPage::slot_searchTextChanged);
    connect(m_searchBox, &SearchBox::escapePressed, this, &CVirtualTeamPage::leaveSearch);
    connect(m_searchBox, &SearchBox::downPressed, this, [this] {
        if (m_pages->currentWidget() == m_listPage)
            m_tree->setFocus(Qt::TabFocusReason);
    });
    connect(list, &FoundList::escapePressed, this, &CVirtualTeamPage::leaveSearch);
    connect(list, &List::memberChosen, this, [this](const QString &vtId, const QString &userId) {
        endQuest();
        m_quest.begin(vtId, userId);
    });
    connect(list, &List::signal_expendVirtualTeam, this, &CVirtualTeamPage::slot_expendVirtualTeam);
}

void CVirtualTeamPage::connectHub()
{
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_refresh_virtualTeam, this,
            &CVirtualTeamPage::slot_refreshVirtualTeamById);
    connect(hub, &Hub::signal_position_virtualTeam, this, [this](bool refresh) {
        if (refresh)
            reloadSoon();
    });
    connect(hub, &Hub::signal_login, this, &CVirtualTeamPage::startAnew);
    connect(hub, &Hub::signal_logout, this, &CVirtualTeamPage::stop);
    connect(hub, &Hub::signal_isConnected, this, [this](bool connected) {
        if (connected)
            reconnected();
    });
}

// --- What is seen ------------------------------------------------------------------

void CVirtualTeamPage::showState()
{
    QWidget *page = m_listPage;
    if (!m_searchText.isEmpty())
        page = m_searchPage;
    else if (!m_known)
        page = m_failed && !m_loader->isLoadingTeams() ? m_failPage : m_loadingPage;
    else if (m_told.isEmpty())
        page = m_emptyPage;
    m_pages->setCurrentWidget(page);
    if (page == m_listPage) {
        if (m_passedOn && m_passedOn->hasFocus())
            m_tree->setFocus(Qt::OtherFocusReason);
        m_passedOn = nullptr;
    }
    m_searchBox->setVisible(!m_told.isEmpty() || !m_searchText.isEmpty());
    const bool isStale = isOutOfDate();
    if (m_quest.isLooking())
        m_notice->say("searchSearching");
    else if (m_questFailed)
        m_notice->say("teamMemberNotFound");
    else
        m_notice->say(isStale ? "refreshTeamsFailed" : nullptr, isStale);
}

// A button that is disabled passes the focus on; it gets it back, unless the user has
// gone on, too.
void CVirtualTeamPage::showBusy(bool loading)
{
    const bool hadFocus = m_refresh->hasFocus();
    m_refresh->setEnabled(!loading);
    if (loading && hadFocus)
        m_focusDue = QApplication::focusWidget();
    else if (!loading && m_focusDue && m_focusDue->hasFocus())
        m_refresh->setFocus(Qt::OtherFocusReason);
    if (!loading)
        m_focusDue = nullptr;
    m_wait->setBusy(loading && m_known);
    showState();
}

void CVirtualTeamPage::showEvent(QShowEvent *event)
{
    start();
    QWidget::showEvent(event);
    // Who comes by the keyboard finds the focus on a button, the tree being out of sight.
    QTimer::singleShot(0, this, [this] {
        if (m_pages->currentWidget() != m_listPage && isAncestorOf(QApplication::focusWidget()))
            m_passedOn = QApplication::focusWidget();
    });
}

void CVirtualTeamPage::retranslate()
{
    const auto name = [](SkinButton *button, const QString &text) {
        button->setToolTip(text);
        button->setAccessibleName(text);
    };
    name(m_create, QObject::tr("createVirtualTeam"));
    name(m_refresh, QObject::tr("refreshVirtualTeam"));
    m_tree->setAccessibleName(QObject::tr("virtureteam"));
    m_searchPage->view()->setAccessibleName(QObject::tr("searchTeamMembers"));
}

void CVirtualTeamPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
