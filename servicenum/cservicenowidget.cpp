#include "servicenum/cservicenowidget.h"

#include "common/context.h"
#include "common/logging.h"
#include "controls/noticeline.h"
#include "controls/searchbox.h"
#include "controls/skin.h"
#include "controls/statestack.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/addserviceentry.h"
#include "servicenum/cservicenotable.h"
#include "servicenum/cservicenuminfomanager.h"
#include "servicenum/cservicenumsearch.h"
#include "servicenum/servicecommands.h"
#include "servicenum/servicenumbers.h"
#include "servicenum/servicenummodel.h"

#include <QApplication>
#include <QEvent>
#include <QVBoxLayout>

#include <utility>

CServiceNoWidget::CServiceNoWidget(QWidget *parent)
    : QWidget(parent),
      m_filter(new SearchBox(this, "filterServiceNumbers")),
      m_add(new AddServiceEntry(this)),
      m_listPage(new QWidget(this)),
      m_list(new CServiceNoTable(m_listPage)),
      m_states(new StateStack),
      m_notice(new NoticeLine(this))
{
    LOG_SCOPE("CServiceNoWidget::CServiceNoWidget(QWidget* parent)");
    setObjectName(QStringLiteral("CServiceNoWidget"));
    setAutoFillBackground(true);
    followSkin(this);
    layOut();
    connectParts();
    connectNumbers();
    setFocusProxy(m_list);
    retranslate();
    follow();
}

void CServiceNoWidget::layOut()
{
    m_filter->setObjectName(QStringLiteral("serviceFilter"));
    m_filter->hide();
    auto *head = new QVBoxLayout;
    head->setContentsMargins(12, 4, 12, 4);
    head->addWidget(m_filter);
    auto *page = new QVBoxLayout(m_listPage);
    page->setContentsMargins(0, 0, 0, 0);
    page->setSpacing(0);
    page->addLayout(head);
    page->addWidget(m_add);
    page->addWidget(m_list, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_states->addWidget(m_listPage);
    layout->addLayout(m_states, 1);
    layout->addWidget(m_notice);
    setTabOrder(m_filter, m_add);
    setTabOrder(m_add, m_list);
}

void CServiceNoWidget::connectParts()
{
    using Page = CServiceNoWidget;
    connect(m_add, &QAbstractButton::clicked, this, &Page::signal_showServiceNumberSearchWidget);
    connect(this, &Page::signal_showServiceNumberSearchWidget, this,
            [] { CServiceNumSearch::showSearch(); });
    connect(m_list, &CServiceNoTable::signal_showServiceNumInfo, this,
            &Page::signal_showServiceNumInfo);
    connect(this, &Page::signal_showServiceNumInfo, CServiceNumInfoManager::instance(),
            &CServiceNumInfoManager::showServiceNumInfo);
    connect(m_list, &CServiceNoTable::signal_unsubscribeServiceNum, this,
            [this](const QString &code) { ServiceCommands::unsubscribe(code, window()); });
    connect(m_filter, &QLineEdit::textChanged, this, &Page::filter);
    connect(m_filter, &SearchBox::escapePressed, this, &Page::leaveFilter);
    const auto enterList = [this] {
        if (!m_list->currentIndex().isValid())
            m_list->reveal(m_list->model()->index(0));
        m_list->setFocus(Qt::TabFocusReason);
    };
    connect(m_filter, &SearchBox::downPressed, this, enterList);
    connect(m_filter, &SearchBox::enterPressed, this, enterList);
    connect(m_notice, &NoticeLine::retryClicked, this, &Page::load);
    connect(m_states, &StateStack::buttonClicked, this, [this] {
        // The page that is empty leads to the search, the one that failed back here.
        if (ServiceNumbers::instance().state() == ServiceNumbers::Ready)
            emit signal_showServiceNumberSearchWidget();
        else
            load();
    });
}

void CServiceNoWidget::connectNumbers()
{
    using Hub = FriendUISignalSender;
    const ServiceNumbers *numbers = &ServiceNumbers::instance();
    // Of thousands of news at once the first is shown at once, the others together.
    m_pause.setSingleShot(true);
    m_pause.setInterval(0);
    connect(numbers, &ServiceNumbers::stateChanged, this, [this] {
        m_isBehind = m_pause.isActive();
        if (m_isBehind)
            return;
        follow();
        m_pause.start();
    });
    connect(&m_pause, &QTimer::timeout, this, [this] {
        if (std::exchange(m_isBehind, false))
            follow();
    });
    connect(numbers, &ServiceNumbers::changed, this, [this](const QString &code) {
        if (code == m_refused)
            tellRefused(QString());
    });
    connect(numbers, &ServiceNumbers::cancellationFailed, this, [this](const QString &code) {
        if (m_list->model()->find(code))
            tellRefused(code);
    });
    connect(Hub::instance(), &Hub::signal_isConnected, this, [this](bool connected) {
        if (connected && m_started && ServiceNumbers::instance().state() != ServiceNumbers::Ready)
            load();
        else
            showState();
    });
    // Those of who logs in; of who has logged out nothing is asked for.
    connect(Hub::instance(), &Hub::signal_login, this, &CServiceNoWidget::loadIfSeen);
    connect(Hub::instance(), &Hub::signal_logout, this, [this] { m_filter->clear(); });
}

void CServiceNoWidget::showEvent(QShowEvent *event)
{
    m_started = true;
    QWidget::showEvent(event);
    loadIfSeen();
    QTimer::singleShot(0, this, &CServiceNoWidget::passFocus);
}

// Who comes by the keyboard, or from a page that stood in the place of the list, finds
// the focus on the first button otherwise.
void CServiceNoWidget::passFocus()
{
    const QWidget *focus = QApplication::focusWidget();
    if (m_list->isVisible() && isAncestorOf(focus) && focus != m_filter)
        m_list->setFocus(Qt::OtherFocusReason);
}

void CServiceNoWidget::loadIfSeen()
{
    const ServiceNumbers::State state = ServiceNumbers::instance().state();
    if (isVisible() && (state == ServiceNumbers::Unasked || state == ServiceNumbers::Failed))
        load();
}

void CServiceNoWidget::load()
{
    m_refused.clear();
    if (isOnline())
        ServiceNumbers::instance().load();
    else
        LOG_DEBUG("offline: the service numbers cannot be loaded");
    showState();
}

void CServiceNoWidget::follow()
{
    m_list->model()->setNumbers(ServiceNumbers::instance().subscriptions());
    showState();
}

void CServiceNoWidget::tellRefused(const QString &code)
{
    m_refused = code;
    showState();
}

void CServiceNoWidget::filter()
{
    m_list->model()->setFilter(m_filter->text());
    m_list->scrollToTop();
    showState();
}

void CServiceNoWidget::leaveFilter()
{
    m_filter->clear();
    m_list->setFocus(Qt::OtherFocusReason);
}

void CServiceNoWidget::showState()
{
    const ServiceNumbers::State state = ServiceNumbers::instance().state();
    const int count = m_list->model()->recordCount();
    m_filter->setVisible(count >= FilterFrom || !m_filter->text().isEmpty());
    const bool isOffline = !isOnline() && state != ServiceNumbers::Ready;
    const bool hadList = m_states->currentWidget() == m_listPage;
    if (count > 0)
        m_states->setCurrentWidget(m_listPage);
    else if (isOffline)
        m_states->showPage("yourImIsOffline", "Resources/images/FriendDetail/failed.png");
    else if (state == ServiceNumbers::Failed)
        m_states->showPage("loadErrorAndCrazyRetry", "Resources/images/FriendDetail/failed.png",
                           "retry");
    else if (state == ServiceNumbers::Ready)
        m_states->showPage("noapp", "Resources/images/icon/bg_file_illustrate_lion_03.png",
                           "addService");
    else
        m_states->showPage("loading", "Resources/images/SearchFriend/qora_Loading.gif");
    if (!hadList)
        passFocus();

    if (!m_refused.isEmpty())
        m_notice->say("cancelSubscribeFailed");
    else if (count > 0 && isOffline)
        m_notice->say("yourImIsOffline");
    else if (count > 0 && state == ServiceNumbers::Failed)
        m_notice->say("refreshServiceNumbersFailed", true);
    else if (count > 0 && m_list->model()->rowCount() == 0)
        m_notice->say("searchNothing");
    else
        m_notice->say(nullptr);
}

void CServiceNoWidget::retranslate()
{
    m_list->setAccessibleName(QObject::tr("kindServiceNumber"));
}

void CServiceNoWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        m_list->model()->retranslate();
    }
    QWidget::changeEvent(event);
}
