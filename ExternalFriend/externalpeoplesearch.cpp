#include "ExternalFriend/externalpeoplesearch.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduisignalsender.h"

#include <QSet>

ExternalPeopleSearch::ExternalPeopleSearch(QObject *parent) : QObject(parent)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(Delay);
    connect(&m_delay, &QTimer::timeout, this, &ExternalPeopleSearch::ask);
    m_patience.setSingleShot(true);
    m_patience.setInterval(Patience);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        LOG_ERROR("the search for external people is not answered");
        arrived({}, -1);
    });
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_SearchFriendRecv, this,
            [this](const QList<SearchFriendResultData> &results, int count) {
                if (!isWaiting())
                    return;
                m_patience.stop();
                arrived(results, count);
            });
    connect(hub, &Hub::signal_isConnected, this, [this](bool connected) {
        if (connected && m_state == Offline)
            setText(m_text);
    });
}

void ExternalPeopleSearch::setText(const QString &text)
{
    m_text = text.simplified();
    m_delay.stop();
    if (m_text.isEmpty()) {
        setState(Idle);
    } else if (m_text.toUcs4().size() < FewestLetters) {
        setState(TooShort);
    } else if (!isOnline()) {
        setState(Offline);
    } else {
        setState(Searching);
        m_delay.start();
    }
}

void ExternalPeopleSearch::searchNow()
{
    if (!m_delay.isActive())
        return;
    m_delay.stop();
    ask();
}

void ExternalPeopleSearch::retry()
{
    if (m_state == Failed)
        setText(m_text);
    searchNow();
}

void ExternalPeopleSearch::ask()
{
    if (isWaiting())
        return; // its end leads on to this text
    m_asked = m_text;
    m_patience.start();
    FriendUIEventProcess::searchExternalPeople(m_asked);
}

void ExternalPeopleSearch::arrived(const QList<SearchFriendResultData> &results, int count)
{
    if (m_state != Searching || m_asked != m_text) {
        if (m_state == Searching && !m_delay.isActive())
            ask();
        return;
    }
    m_delay.stop(); // the text was typed again while it was being asked for
    if (count < 0) {
        setState(Failed);
        return;
    }
    QList<SearchFriendResultData> people;
    QSet<QString> seen{QString(), ctx().ownJid()};
    for (SearchFriendResultData person : results) {
        person.jid = makeJid(person.jid);
        if (seen.contains(person.jid))
            continue;
        seen.insert(person.jid);
        people.append(person);
        if (people.size() == MostHits)
            break;
    }
    emit found(people);
    setState(Done);
}

void ExternalPeopleSearch::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged();
}
