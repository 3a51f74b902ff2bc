#include "contacts/search/searchpage.h"

#include "contacts/search/peoplesearch.h"
#include "contacts/search/searchcommands.h"
#include "contacts/search/searchresultmodel.h"
#include "contacts/search/searchresultview.h"
#include "contacts/search/searchsources.h"
#include "controls/noticeline.h"
#include "controls/rowpainter.h"
#include "controls/searchbox.h"
#include "controls/skin.h"
#include "controls/statestack.h"
#include "http/fileservices.h"
#include "plugin/frienduisignalsender.h"

#include <QEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include <limits>

SearchPage::SearchPage(SearchBox *box, SearchSources *sources, QWidget *parent)
    : QWidget(parent),
      m_box(box),
      m_sources(sources),
      m_people(new PeopleSearch(this)),
      m_model(new SearchResultModel(&sources->index(), this)),
      m_view(new SearchResultView(box, m_model, this)),
      m_states(new StateStack),
      m_notice(new NoticeLine(this))
{
    setObjectName(QStringLiteral("searchPage"));
    setAutoFillBackground(true);
    followSkin(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_states->addWidget(m_view);
    layout->addLayout(m_states, 1);
    layout->addWidget(m_notice);
    connectBox();
    connectView();

    connect(m_people, &PeopleSearch::found, this, &SearchPage::addFound);
    connect(m_people, &PeopleSearch::stateChanged, this, [this] {
        showState();
        fillLater();
    });
    connect(m_sources, &SearchSources::changed, this, &SearchPage::searchAgain);
    const auto showAnew = [this] { m_model->showAnew(); };
    const FriendUISignalSender *hub = FriendUISignalSender::instance();
    connect(hub, &FriendUISignalSender::signal_updateFriendPresence, this, showAnew);
    connect(hub, &FriendUISignalSender::signal_doalloffline, this, showAnew);
    connect(hub, &FriendUISignalSender::signal_UpdateFrdHead, this, showAnew);
    connect(&PictureFiles::instance(), &PictureFiles::ready, this, showAnew);
    retranslate();
}

void SearchPage::connectBox()
{
    connect(m_box, &SearchBox::enterPressed, this, &SearchPage::enter);
    connect(m_notice, &NoticeLine::retryClicked, m_people, &PeopleSearch::retry);
    connect(m_states, &StateStack::buttonClicked, m_people, &PeopleSearch::retry);
}

void SearchPage::connectView()
{
    connect(m_view, &FoundList::leftUpwards, this, [this] {
        if (m_isStale)
            searchAgain();
    });
    connect(m_view, &FoundList::escapePressed, this, &SearchPage::left);
    connect(m_view, &SearchResultView::locateRequested, this,
            [this](const SearchEntry &entry) { emit leaveFor(entry, false); });
    connect(m_view, &SearchResultView::organisationRequested, this,
            [this](const SearchEntry &entry) { emit leaveFor(entry, true); });
    connect(m_view, &SearchResultView::openRequested, this, &SearchPage::open);
    connect(m_view, &RowView::orderHeld, this, [this](bool held) {
        if (!held && m_isStale)
            searchAgain();
    });
    connect(m_view->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (isAtEnd())
            fetchMore();
    });
}

// --- Searching ---------------------------------------------------------------------

void SearchPage::search()
{
    m_sources->start();
    m_typed = m_box->text().simplified();
    m_limit = LocalPage;
    m_isStale = false;
    m_waiting.clear();
    m_model->setResults(m_typed, local());
    m_view->scrollToTop();
    m_people->setText(m_typed);
    showState();
    fillLater();
}

QVector<SearchResult> SearchPage::local()
{
    const SearchIndex &index = m_sources->index();
    QVector<SearchResult> results;
    m_hasMoreLocal = false;
    if (m_typed.isEmpty())
        return results;
    // What the user may not see takes up no room.
    do {
        results.clear();
        const QVector<SearchHit> hits = index.search(m_typed, m_limit);
        for (const SearchHit &hit : hits) {
            const SearchEntry &entry = index.at(hit.entry);
            if (SearchResults::mayBeSeen(entry))
                results.append(SearchResults::local(entry));
        }
        m_hasMoreLocal = hits.size() == m_limit && m_limit < std::numeric_limits<int>::max() / 2;
        if (m_hasMoreLocal && results.isEmpty())
            m_limit *= 2;
    } while (m_hasMoreLocal && results.isEmpty());
    return results;
}

// What was found stays where it is as long as somebody may be about to choose it.
void SearchPage::searchAgain()
{
    m_isStale = m_view->isInUse();
    if (m_isStale || m_typed.isEmpty())
        return;
    const QVector<SearchResult> found = local();
    if (m_model->renew(found)) {
        showState();
        return;
    }
    QVector<SearchResult> told;
    for (const SearchResult &result : m_model->results()) {
        if (result.isTold)
            told.append(result);
    }
    const QModelIndex current = m_view->currentIndex();
    const SearchEntry chosen = current.isValid() ? m_model->at(current.row()).entry : SearchEntry();
    const int top = m_view->verticalScrollBar()->value();
    m_model->setResults(m_typed, found);
    m_model->append(told);
    const int row = current.isValid() ? m_model->rowOf(chosen) : -1;
    if (row >= 0)
        m_view->setCurrentIndex(m_model->index(row));
    m_view->verticalScrollBar()->setValue(top);
    showState();
}

void SearchPage::addFound(const QVector<SearchResult> &results)
{
    QVector<SearchResult> seen;
    for (const SearchResult &result : results) {
        if (SearchResults::mayBeSeen(result.entry))
            seen.append(result);
    }
    if (m_hasMoreLocal)
        m_waiting += seen;
    else
        m_model->append(seen);
}

// Where the last row can be seen, at least in part.
bool SearchPage::isAtEnd() const
{
    const QScrollBar *bar = m_view->verticalScrollBar();
    return bar->value() > bar->maximum() - RowPainter::RowHeight;
}

void SearchPage::fetchMore()
{
    if (!isVisible())
        return;
    if (!m_hasMoreLocal) {
        m_people->fetchMore();
        return;
    }
    m_limit *= 2;
    m_model->append(local());
    if (!m_hasMoreLocal) {
        m_model->append(m_waiting);
        m_waiting.clear();
    }
}

void SearchPage::fillLater()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (isAtEnd())
                fetchMore();
        },
        Qt::QueuedConnection);
}

// --- What the user does ------------------------------------------------------------

void SearchPage::enter(bool locate)
{
    const QModelIndex current = m_view->currentIndex();
    const int row = current.isValid() ? current.row() : 0;
    if (row >= m_model->rowCount())
        return;
    const SearchEntry entry = m_model->at(row).entry;
    if (locate)
        emit leaveFor(entry, false);
    else
        open(entry);
}

void SearchPage::open(const SearchEntry &entry)
{
    if (SearchCommands::opensPage(entry))
        emit leaveFor(entry, false);
    else
        SearchCommands::open(entry);
}

// --- States ------------------------------------------------------------------------

void SearchPage::showState()
{
    const PeopleSearch::State state = m_people->state();
    const bool hasRows = m_model->rowCount() > 0;
    if (hasRows)
        m_states->setCurrentWidget(m_view);
    else if (state == PeopleSearch::Searching || m_sources->isBusy())
        m_states->showPage("searchSearching", "Resources/images/SearchFriend/qora_Loading.gif");
    else if (state == PeopleSearch::Failed)
        m_states->showPage("searchFailed", "Resources/images/FriendDetail/failed.png", "retry");
    else
        m_states->showPage("searchNothing", "Resources/images/contacts/empty_list.png");
    const char *line = nullptr;
    if (state == PeopleSearch::Offline)
        line = "searchOffline";
    else if (hasRows && state == PeopleSearch::Searching)
        line = "searchSearching";
    else if (hasRows && state == PeopleSearch::Failed)
        line = "searchFailed";
    m_notice->say(line, state == PeopleSearch::Failed);
}

void SearchPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void SearchPage::retranslate()
{
    m_model->showAnew();
    showState();
}
