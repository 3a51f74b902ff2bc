#include "host/mainwindow.h"

#include "common/displaytext.h"
#include "host/chat/chatarea.h"
#include "host/eventmonitor/eventmonitor.h"
#include "host/eventmonitor/webmonitor.h"
#include "host/hostbus.h"
#include "host/hostcontext.h"
#include "host/hostlanguage.h"
#include "host/hostskin.h"
#include "host/messagingcore.h"
#include "host/panearea.h"
#include "host/presencepicture.h"
#include "host/presencewords.h"
#include "host/transferstatus.h"
#include "host/webservices.h"
#include "host/windows/hostwindows.h"
#include "host/windows/notices.h"
#include "hostapi/eventcodes.h"

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QDockWidget>
#include <QEvent>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace {
constexpr int NoteMs = 8000;
constexpr int MonitorHeight = 300;
constexpr int CountMs = 300;

enum Counted
{
    Contacts = 1,
    Groups = 2,
    Online = 4
};

QToolButton *menuButton(QMenu *menu, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setDefaultAction(menu->menuAction());
    button->setPopupMode(QToolButton::InstantPopup);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    return button;
}
} // namespace

MainWindow::MainWindow(const Parts &parts, QWidget *parent) : QMainWindow(parent), m_parts(parts)
{
    setObjectName(QStringLiteral("hostWindow"));
    buildCentre();
    buildMonitor();
    buildActions();
    buildMenus(parts.levers);
    buildToolBar(parts.levers);
    m_windows = new HostWindows(parts.core, parts.context, parts.bus, m_chats, this);
    buildStatusBar();
    connectCore();
    connectServices();
    m_countTimer.setSingleShot(true);
    connect(&m_countTimer, &QTimer::timeout, this, &MainWindow::count);
    countLater(Contacts | Groups | Online);
    retranslate();
    resize(1120, 760);
}

void MainWindow::buildCentre()
{
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    m_pane = new PaneArea(splitter);
    m_chats = new ChatArea(m_parts.core, splitter);
    m_chats->setPictures(
        [context = m_parts.context](const QString &jid) { return context->headPath(jid); });
    splitter->addWidget(m_pane);
    splitter->addWidget(m_chats);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({380, 740});
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(5);
    setCentralWidget(splitter);
}

void MainWindow::buildMonitor()
{
    m_dock = new QDockWidget(this);
    m_monitors = new QTabWidget(m_dock);
    m_monitor = new EventMonitor(m_parts.log, m_monitors);
    m_webMonitor = new WebMonitor(m_parts.webLog, m_monitors);
    m_monitors->setObjectName(QStringLiteral("monitorTabs"));
    m_monitors->setDocumentMode(true);
    m_monitors->addTab(m_monitor, QString());
    m_monitors->addTab(m_webMonitor, QString());
    m_dock->setObjectName(QStringLiteral("eventMonitorDock"));
    m_dock->setWidget(m_monitors);
    m_dock->setAllowedAreas(Qt::BottomDockWidgetArea | Qt::TopDockWidgetArea);
    addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    m_dock->hide();
}

QAction *MainWindow::addChoice(QActionGroup *group, const QString &value)
{
    QAction *action = group->addAction(QString());
    action->setCheckable(true);
    action->setData(value);
    action->setObjectName(value);
    return action;
}

void MainWindow::buildActions()
{
    m_online = new QAction(this);
    m_online->setObjectName(QStringLiteral("toggleOnline"));
    connect(m_online, &QAction::triggered, this,
            [this] { setConnected(!m_parts.core->isConnected()); });
    m_noticeAction = new QAction(this);
    m_noticeAction->setObjectName(QStringLiteral("showNotices"));
    m_serviceRetry = new QAction(this);
    m_serviceRetry->setObjectName(QStringLiteral("serviceRetry"));
    m_quit = new QAction(this);
    m_quit->setShortcut(QKeySequence::Quit);
    connect(m_quit, &QAction::triggered, this, &QWidget::close);
    m_toggleMonitor = m_dock->toggleViewAction();
    m_toggleMonitor->setObjectName(QStringLiteral("toggleMonitor"));
    m_toggleMonitor->setShortcut(QKeySequence(Qt::Key_F12));

    m_presences = new QActionGroup(this);
    for (const PresenceData::ePcShowType show : PresenceWords::choices())
        addChoice(m_presences, QStringLiteral("presence%1").arg(show))->setData(int(show));
    connect(m_presences, &QActionGroup::triggered, this, [this](QAction *action) {
        PresenceData presence;
        presence.pcShow = PresenceData::ePcShowType(action->data().toInt());
        m_parts.core->setOwnPresence(presence);
    });

    // Every language by its own name, so that one who cannot read the current
    // one finds the way back.
    m_languages = new QActionGroup(this);
    addChoice(m_languages, QStringLiteral("zh_CN"))->setText(QString::fromUtf8("中文"));
    addChoice(m_languages, QStringLiteral("en"))->setText(QStringLiteral("English"));
    connect(m_languages, &QActionGroup::triggered, this, [this](QAction *action) {
        setLanguage(action->data().toString());
        emit languageChosen(action->data().toString());
    });

    m_skins = new QActionGroup(this);
    addChoice(m_skins, QStringLiteral("light"));
    addChoice(m_skins, QStringLiteral("dark"));
    connect(m_skins, &QActionGroup::triggered, this, [this](QAction *action) {
        setSkin(action->data().toString());
        emit skinChosen(action->data().toString());
    });
}

void MainWindow::buildMenus(QMenu *levers)
{
    m_sessionMenu = menuBar()->addMenu(QString());
    m_sessionMenu->addAction(m_online);
    m_presenceMenu = m_sessionMenu->addMenu(QString());
    m_presenceMenu->addActions(m_presences->actions());
    m_sessionMenu->addSeparator();
    m_sessionMenu->addAction(m_serviceRetry);
    m_sessionMenu->addSeparator();
    m_sessionMenu->addAction(m_quit);

    m_viewMenu = menuBar()->addMenu(QString());
    m_languageMenu = m_viewMenu->addMenu(QString());
    m_languageMenu->addActions(m_languages->actions());
    m_skinMenu = m_viewMenu->addMenu(QString());
    m_skinMenu->addActions(m_skins->actions());
    m_viewMenu->addSeparator();
    m_viewMenu->addAction(m_toggleMonitor);
    if (levers)
        menuBar()->addMenu(levers);
}

void MainWindow::buildToolBar(QMenu *levers)
{
    m_toolBar = addToolBar(QString());
    m_toolBar->setObjectName(QStringLiteral("hostToolBar"));
    m_toolBar->setMovable(false);
    m_toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_presenceBox = new QComboBox(m_toolBar);
    m_presenceBox->setObjectName(QStringLiteral("ownPresence"));
    m_presenceBox->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    for (const PresenceData::ePcShowType show : PresenceWords::choices())
        m_presenceBox->addItem(QString(), int(show));
    connect(m_presenceBox, QOverload<int>::of(&QComboBox::activated), this,
            [this](int index) { m_presences->actions().at(index)->trigger(); });

    m_toolBar->addAction(m_online);
    m_toolBar->addWidget(m_presenceBox);
    m_toolBar->addSeparator();
    m_toolBar->addWidget(menuButton(m_languageMenu, m_toolBar));
    m_toolBar->addWidget(menuButton(m_skinMenu, m_toolBar));
    if (levers)
        m_toolBar->addWidget(menuButton(levers, m_toolBar));
    m_toolBar->addSeparator();
    m_toolBar->addAction(m_noticeAction);
    m_toolBar->addAction(m_toggleMonitor);
}

void MainWindow::buildStatusBar()
{
    m_connection = new QLabel(this);
    m_services = new QLabel(this);
    m_services->setObjectName(QStringLiteral("serviceState"));
    m_counts = new QLabel(this);
    statusBar()->addPermanentWidget(new TransferStatus(m_parts.core, m_windows->transfers(), this));
    for (QLabel *label : {m_counts, m_services, m_connection}) {
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(6, 0, 6, 0);
        statusBar()->addPermanentWidget(label);
    }
}

void MainWindow::connectCore()
{
    MessagingCore *core = m_parts.core;
    connect(core, &MessagingCore::connectionChanged, this, &MainWindow::showConnection);
    connect(core, &MessagingCore::ownPresenceChanged, this, &MainWindow::showOwnPresence);
    connect(core, &MessagingCore::presenceChanged, this, [this] { countLater(Online); });
    connect(core, &MessagingCore::contactsReceived, this,
            [this] { countLater(Contacts | Online); });
    connect(core, &MessagingCore::contactAdded, this, [this] { countLater(Contacts); });
    connect(core, &MessagingCore::contactRemoved, this, [this] { countLater(Contacts); });
    connect(core, &MessagingCore::groupCreated, this, [this] { countLater(Groups); });
    connect(core, &MessagingCore::groupDeleted, this, [this] { countLater(Groups); });
    connect(core, &MessagingCore::groupsReceived, this, [this] { countLater(Groups); });
    connect(core, &MessagingCore::requestFailed, this, [this](const QString &request) {
        showNote(tr("The core could not do: %1").arg(request));
    });
    connect(m_chats, &ChatArea::messageMissed, this, [this](const QString &sender) {
        showNote(tr("New message from %1").arg(sender.simplified().left(64)));
    });
    connect(m_windows, &HostWindows::note, this, &MainWindow::showNote);
    Notices *notices = m_windows->notices();
    connect(notices, &Notices::countsChanged, this, &MainWindow::showNoticeCount);
    connect(m_noticeAction, &QAction::triggered, notices, [notices] {
        notices->show();
        notices->raise();
        notices->activateWindow();
    });
    connect(m_parts.bus, &HostBus::unanswered, this, [this](qint32 code) {
        showNote(tr("The plug-in sent %1; nothing in this host answers it.").arg(code));
    });
    connect(m_parts.bus, &HostBus::malformed, this, [this](qint32 code, int size) {
        showNote(
            tr("The plug-in sent %1 with an unreadable payload of %2 bytes.").arg(code).arg(size));
    });
}

void MainWindow::connectServices()
{
    WebServices *services = m_parts.services;
    m_services->setVisible(services != nullptr);
    m_serviceRetry->setVisible(services != nullptr);
    if (!services)
        return;
    connect(services, &WebServices::changed, this, &MainWindow::showServices);
    connect(services, &WebServices::note, this, &MainWindow::showNote);
    connect(m_serviceRetry, &QAction::triggered, services, &WebServices::tryAgain);
}

void MainWindow::showServices()
{
    if (!m_parts.services)
        return;
    const WebServices &services = *m_parts.services;
    m_services->setText(services.stateText());
    m_services->setToolTip(toolTipText(services.problem()));
    m_serviceRetry->setEnabled(services.state() == WebServices::Failed ||
                               services.state() == WebServices::Unreachable);
}

void MainWindow::showNoticeCount()
{
    const Notices &notices = *m_windows->notices();
    m_noticeAction->setEnabled(notices.count() > 0);
    m_noticeAction->setText(notices.unread() > 0 ? tr("Notices (%1)").arg(notices.unread())
                                                 : tr("Notices"));
}

void MainWindow::setLanguage(const QString &language)
{
    m_parts.language->apply(language);
    for (QAction *action : m_languages->actions())
        action->setChecked(action->data() == language);
}

QString MainWindow::language() const
{
    return m_parts.language->current();
}

void MainWindow::setSkin(const QString &name)
{
    m_skin = name;
    for (QAction *action : m_skins->actions())
        action->setChecked(action->data() == name);
    HostSkin::apply(name);
    const SysUIData skin = HostSkin::record(name);
    m_parts.context->setSkin(skin);
    m_parts.bus->notify(Inbound::SkinChanged, skin);
}

void MainWindow::setConnected(bool connected)
{
    m_parts.core->setConnected(connected);
    showConnection();
}

void MainWindow::showMonitor(bool shown)
{
    m_dock->setVisible(shown);
    if (shown)
        resizeDocks({m_dock}, {MonitorHeight}, Qt::Vertical);
}

void MainWindow::showWebMonitor()
{
    showMonitor(true);
    m_monitors->setCurrentWidget(m_webMonitor);
}

void MainWindow::showNote(const QString &text)
{
    // A status bar shows plain text; control characters would still break it.
    statusBar()->showMessage(text.simplified().left(300), NoteMs);
}

void MainWindow::showConnection()
{
    const bool connected = m_parts.core->isConnected();
    m_online->setText(connected ? tr("Go offline") : tr("Go online"));
    m_online->setIcon(
        PresencePicture::icon(connected ? PresenceData::Available : PresenceData::Offline));
    m_connection->setText(connected ? tr("connected as %1").arg(m_parts.core->ownUid())
                                    : tr("not connected"));
    m_presenceBox->setEnabled(connected);
    m_presenceMenu->setEnabled(connected);
    countLater(Online);
}

void MainWindow::showOwnPresence()
{
    const int show = m_parts.core->presence(m_parts.core->ownJid()).pcShow;
    m_presenceBox->setCurrentIndex(qMax(0, m_presenceBox->findData(show)));
    for (QAction *action : m_presences->actions())
        action->setChecked(action->data().toInt() == show);
}

void MainWindow::countLater(int what)
{
    m_toCount |= what;
    if (!m_countTimer.isActive())
        m_countTimer.start(CountMs);
}

void MainWindow::count()
{
    const MessagingCore &core = *m_parts.core;
    if (m_toCount & Contacts)
        m_contactCount = core.contacts().size();
    if (m_toCount & Groups)
        m_groupCount = core.groups(true).size();
    if (m_toCount & Online) {
        const QMap<QString, PresenceData> known =
            core.isConnected() ? core.allPresence() : QMap<QString, PresenceData>();
        m_onlineCount = int(std::count_if(known.begin(), known.end(),
                                          [](const PresenceData &p) { return p.isOnline(); }));
    }
    m_toCount = 0;
    m_counts->setText(tr("%1 contacts in %2 groups, %3 people online")
                          .arg(m_contactCount)
                          .arg(m_groupCount)
                          .arg(m_onlineCount));
}

void MainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMainWindow::changeEvent(event);
}

void MainWindow::retranslatePresence()
{
    const auto choices = PresenceWords::choices();
    for (int i = 0; i < choices.size(); ++i) {
        const QString word = PresenceWords::of(choices.at(i));
        const QIcon icon = PresencePicture::icon(choices.at(i));
        m_presences->actions().at(i)->setText(word);
        m_presences->actions().at(i)->setIcon(icon);
        m_presenceBox->setItemText(i, word);
        m_presenceBox->setItemIcon(i, icon);
    }
}

void MainWindow::retranslate()
{
    VcardInfo own;
    m_parts.core->profile(m_parts.core->ownJid(), &own);
    setWindowTitle(tr("%1 (%2) - FriendUI reference host")
                       .arg(own.nickName.simplified(), m_parts.core->ownUid()));
    m_sessionMenu->setTitle(tr("&Session"));
    m_presenceMenu->setTitle(tr("Presence"));
    m_viewMenu->setTitle(tr("&View"));
    m_languageMenu->setTitle(tr("Language"));
    m_skinMenu->setTitle(tr("Skin"));
    m_quit->setText(tr("Quit"));
    m_serviceRetry->setText(tr("Try the web services again"));
    m_monitors->setTabText(0, tr("Events"));
    m_monitors->setTabText(1, tr("Web requests"));
    m_skins->actions().at(0)->setText(tr("Light"));
    m_skins->actions().at(1)->setText(tr("Dark"));
    m_dock->setWindowTitle(tr("Event monitor"));
    m_toggleMonitor->setText(tr("Event monitor"));
    m_toolBar->setWindowTitle(tr("Tools"));
    retranslatePresence();
    showConnection();
    showOwnPresence();
    showServices();
    showNoticeCount();
    count();
}
