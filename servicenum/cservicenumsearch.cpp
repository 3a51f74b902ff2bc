#include "servicenum/cservicenumsearch.h"

#include "common/logging.h"
#include "controls/noticeline.h"
#include "controls/panewindow.h"
#include "controls/searchbox.h"
#include "controls/statestack.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/cservicenuminfomanager.h"
#include "servicenum/servicecommands.h"
#include "servicenum/servicenumbers.h"
#include "servicenum/servicenumfinder.h"
#include "servicenum/servicenumlistview.h"
#include "servicenum/servicenummodel.h"
#include "servicenum/servicenumroles.h"
#include "servicenum/servicetexts.h"

#include <QEvent>
#include <QVBoxLayout>

namespace {
constexpr int Width = 400; // device-independent pixels
constexpr int Height = 520;
constexpr int SlowAfter = 250; // ms
} // namespace

QPointer<CServiceNumSearch> &CServiceNumSearch::existing()
{
    static auto *window = new QPointer<CServiceNumSearch>;
    return *window;
}

CServiceNumSearch *CServiceNumSearch::showSearch()
{
    LOG_SCOPE("CServiceNumSearch::showSearch()");
    if (!existing() || !existing()->isVisible())
        existing() = new CServiceNumSearch(paneWindow());
    existing()->present();
    existing()->m_box->setFocus(Qt::OtherFocusReason);
    return existing();
}

void CServiceNumSearch::closeSearch()
{
    if (existing())
        existing()->reject();
}

CServiceNumSearch::CServiceNumSearch(QWidget *parent)
    : BaseDialog(parent),
      m_box(new SearchBox(this, "searchServiceNumbers")),
      m_list(new ServiceNumListView(m_box, this)),
      m_states(new StateStack),
      m_notice(new NoticeLine(this)),
      m_finder(new ServiceNumFinder(this))
{
    setObjectName(QStringLiteral("CServiceNumSearch"));
    setTitleKey("addService");
    setFixedSize(Width, Height);
    auto *top = new QVBoxLayout;
    top->setContentsMargins(12, 4, 12, 8);
    top->addWidget(m_box);
    bodyLayout()->addLayout(top);
    m_states->addWidget(m_list);
    bodyLayout()->addLayout(m_states, 1);
    bodyLayout()->addWidget(m_notice);
    m_slow.setSingleShot(true);
    m_slow.setInterval(SlowAfter);
    connect(&m_slow, &QTimer::timeout, this, &CServiceNumSearch::showState);
    connectList();
    connectAnswers();
    retranslate();
    search();
}

void CServiceNumSearch::connectList()
{
    using List = ServiceNumListView;
    using Search = CServiceNumSearch;
    connect(m_box, &QLineEdit::textChanged, this, &Search::search);
    connect(m_box, &SearchBox::enterPressed, this, &Search::chooseFirst);
    // What was typed goes first, then the window.
    const auto leave = [this] {
        if (m_box->text().isEmpty()) {
            reject();
            return;
        }
        m_box->clear();
        m_box->setFocus(Qt::OtherFocusReason);
    };
    connect(m_box, &SearchBox::escapePressed, this, leave);
    connect(m_list, &FoundList::escapePressed, this, leave);
    connect(m_list, &List::signal_showServiceNumInfo, CServiceNumInfoManager::instance(),
            &CServiceNumInfoManager::showServiceNumInfo);
    const auto asking = [this](auto command) {
        return [this, command](const QString &code) {
            m_asked.insert(code);
            m_refusal = nullptr;
            command(code, this);
            showState();
        };
    };
    connect(m_list, &List::signal_subscribeServiceNum, this, asking(&ServiceCommands::subscribe));
    connect(m_list, &List::signal_unsubscribeServiceNum, this,
            asking(&ServiceCommands::unsubscribe));
}

void CServiceNumSearch::connectAnswers()
{
    const ServiceNumbers *numbers = &ServiceNumbers::instance();
    connect(m_finder, &ServiceNumFinder::stateChanged, this, &CServiceNumSearch::showState);
    connect(m_finder, &ServiceNumFinder::found, this,
            [this](const QString &text, const QList<CServiceNumData> &found) {
                ServiceNumbers::instance().note(found);
                m_shownFor = text;
                m_list->model()->setNumbers(found);
                m_list->scrollToTop();
            });
    connect(m_notice, &NoticeLine::retryClicked, m_finder, &ServiceNumFinder::retry);
    connect(m_states, &StateStack::buttonClicked, m_finder, &ServiceNumFinder::retry);
    const auto refused = [this](const QString &code, const char *key) {
        if (!m_asked.remove(code))
            return;
        m_refusal = key;
        showState();
    };
    connect(numbers, &ServiceNumbers::subscriptionFailed, this,
            [refused](const QString &code, const QString &error) {
                refused(code, ServiceTexts::refusalKey(error));
            });
    connect(numbers, &ServiceNumbers::cancellationFailed, this,
            [refused](const QString &code) { refused(code, "cancelSubscribeFailed"); });
    connect(FriendUISignalSender::instance(), &FriendUISignalSender::signal_logout, this,
            &QDialog::reject);
}

void CServiceNumSearch::search()
{
    const QString text = m_box->text().simplified();
    m_refusal = nullptr;
    m_chooseDue = false;
    m_list->model()->setSearched(text);
    m_slow.start();
    m_finder->setText(text);
    showState();
}

void CServiceNumSearch::chooseFirst()
{
    // The rows may still be those of an older text.
    m_chooseDue = m_finder->state() == ServiceNumFinder::Searching;
    if (m_chooseDue)
        return;
    const QModelIndex current = m_list->currentIndex();
    const QModelIndex row = current.isValid() ? current : m_list->model()->index(0);
    if (row.isValid())
        CServiceNumInfoManager::instance()->showServiceNumInfo(
            row.data(ServiceRole::Id).toString());
}

void CServiceNumSearch::showState()
{
    const ServiceNumFinder::State state = m_finder->state();
    const bool isBrief = state == ServiceNumFinder::Searching && m_slow.isActive();
    // What is being found for a longer text is among what was found for the shorter one.
    const bool isStillOf = state == ServiceNumFinder::Searching
                               ? m_finder->text().startsWith(m_shownFor)
                               : m_finder->text() == m_shownFor;
    if (!isStillOf && !isBrief)
        m_list->model()->clear();
    const bool hasRows = m_list->model()->rowCount() > 0;
    if (hasRows || isBrief || state == ServiceNumFinder::Idle)
        m_states->setCurrentWidget(m_list);
    else if (state == ServiceNumFinder::Searching)
        m_states->showPage("searchSearching", "Resources/images/SearchFriend/qora_Loading.gif");
    else if (state == ServiceNumFinder::Offline)
        m_states->showPage("yourImIsOffline", "Resources/images/FriendDetail/failed.png");
    else if (state == ServiceNumFinder::Failed)
        m_states->showPage("searchServiceNumbersFailed", "Resources/images/FriendDetail/failed.png",
                           "retry");
    else
        m_states->showPage("searchNothing", "Resources/images/contacts/empty_list.png");

    if (m_refusal)
        m_notice->say(m_refusal);
    else if (hasRows && state == ServiceNumFinder::Failed)
        m_notice->say("searchServiceNumbersFailed", true);
    else if (hasRows && state == ServiceNumFinder::Offline)
        m_notice->say("yourImIsOffline");
    else if (hasRows && state == ServiceNumFinder::Searching && !isBrief)
        m_notice->say("searchSearching");
    else
        m_notice->say(nullptr);

    if (m_chooseDue && state != ServiceNumFinder::Searching)
        chooseFirst();
}

void CServiceNumSearch::retranslate()
{
    m_list->setAccessibleName(QObject::tr("searchServiceNumbers"));
}

void CServiceNumSearch::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        m_list->model()->retranslate();
    }
    BaseDialog::changeEvent(event);
}
