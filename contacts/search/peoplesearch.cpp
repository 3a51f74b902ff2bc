#include "contacts/search/peoplesearch.h"

#include "common/context.h"
#include "common/logging.h"
#include "http/httpmgr.h"
#include "plugin/frienduisignalsender.h"

#include <algorithm>

namespace {

bool isLongEnough(const QString &text)
{
    const QVector<uint> letters = text.toUcs4();
    return letters.size() >= PeopleSearch::FewestLetters ||
           (letters.size() == 1 && QChar::script(letters.first()) == QChar::Script_Han);
}

} // namespace

PeopleSearch::PeopleSearch(QObject *parent) : QObject(parent)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    connect(&m_delay, &QTimer::timeout, this, &PeopleSearch::ask);
    m_patience.setSingleShot(true);
    m_patience.setInterval(Patience);
    connect(&m_patience, &QTimer::timeout, this, &PeopleSearch::giveUp);
    const HttpMgr *services = HttpMgr::instance();
    connect(services, &HttpMgr::signal_searchFinished, this, &PeopleSearch::arrived);
    connect(services, &HttpMgr::signal_fuzzySearchFail, this, &PeopleSearch::failed);
    connect(FriendUISignalSender::instance(), &FriendUISignalSender::signal_isConnected, this,
            [this](bool connected) {
                if (connected && m_state == Offline)
                    setText(m_text);
            });
}

void PeopleSearch::setText(const QString &text)
{
    m_text = text;
    m_page = 0;
    m_isDue = false;
    m_seen.clear();
    m_delay.stop();
    const bool mayAsk = ctx().hasRight(ApplicationContext::Org) && !ctx().companyCode().isEmpty();
    if (!mayAsk || !isLongEnough(text)) {
        setState(Idle);
    } else if (!isOnline()) {
        setState(Offline);
    } else {
        setState(Searching);
        m_delay.start();
    }
}

void PeopleSearch::fetchMore()
{
    if (m_state != More)
        return;
    setState(Searching);
    ask();
}

void PeopleSearch::retry()
{
    if (m_state != Failed)
        return;
    setState(Searching);
    ask();
}

void PeopleSearch::ask()
{
    m_isDue = m_running.contains(m_text) || m_running.size() >= MostRequests;
    if (m_isDue)
        return;
    m_running.insert(m_text, m_page + 1);
    m_patience.start();
    HttpMgr::instance()->fuzzySearchOrg(m_text, true, m_page + 1, PageSize);
}

void PeopleSearch::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged();
}

int PeopleSearch::taken(const QString &text)
{
    const int page = m_running.take(text);
    if (m_running.isEmpty())
        m_patience.stop();
    return page;
}

void PeopleSearch::giveUp()
{
    LOG_ERROR("the people search does not answer");
    m_running.clear();
    m_isDue = false;
    if (m_state == Searching && !m_delay.isActive())
        setState(Failed);
}

void PeopleSearch::arrived(const SearchResponseData &response, int departments,
                           const OrgElementList &elements, const QString &text)
{
    const int page = taken(text);
    if (page == 0)
        return;
    const bool isWanted = text == m_text && page == m_page + 1 && m_state == Searching;
    if (!isWanted) {
        if (m_isDue)
            ask();
        return;
    }
    // The text was typed again while it was being asked for: this is its answer.
    m_isDue = false;
    m_delay.stop();
    m_page = page;
    const int people = std::min(response.userList.size(), MostPerAnswer);
    if (people < response.userList.size())
        LOG_ERROR("the people search answers with more than was asked for");
    QVector<SearchResult> results;
    for (int i = 0; i < people; ++i)
        results.append(SearchResults::person(response.userList.at(i)));
    for (int i = 0; i < std::min(elements.size(), MostPerAnswer); ++i)
        results.append(SearchResults::department(elements.at(i)));
    const int before = m_seen.size();
    for (const SearchResult &result : qAsConst(results))
        m_seen.insert(QString::number(result.entry.kind) + result.entry.id);
    const bool isLast = response.userList.size() < PageSize && page * PageSize >= departments;
    // A service that answers every page alike would be asked for ever.
    const bool hasNews = m_seen.size() > before;
    emit found(results);
    setState(isLast || !hasNews ? Done : More);
}

void PeopleSearch::failed(const QString &text)
{
    if (taken(text) == 0)
        return;
    if (text == m_text && m_state == Searching && !m_delay.isActive()) {
        LOG_ERROR("the people search failed");
        m_isDue = false;
        setState(Failed);
    } else if (m_isDue) {
        ask();
    }
}
