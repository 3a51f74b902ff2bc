#include "contacts/search/searchsources.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "contacts/search/searchentries.h"
#include "http/httpmgr.h"
#include "plugin/frienduisignalsender.h"

#include <QElapsedTimer>

#include <utility>

namespace {
constexpr int Portion = 16;            // items between two looks at the clock
constexpr int AnnouncementDelay = 150; // ms
} // namespace

SearchSources::SearchSources(const OrgElementMap *organisation, QObject *parent)
    : QObject(parent), m_organisation(organisation)
{
    m_nextSlice.setSingleShot(true);
    m_nextSlice.setInterval(0);
    m_announcement.setSingleShot(true);
    m_announcement.setInterval(AnnouncementDelay);
    connect(&m_nextSlice, &QTimer::timeout, this, &SearchSources::runSlice);
    connect(&m_announcement, &QTimer::timeout, this, &SearchSources::changed);
    connectHub();
    connectServices();
    m_owner = ctx().ownJid();
    m_company = ctx().companyCode();
    load();
}

void SearchSources::start()
{
    m_started = true;
    if (!m_tasks.empty() && !m_nextSlice.isActive())
        m_nextSlice.start();
}

void SearchSources::setTeams(const QVector<SearchEntry> &teams)
{
    QStringList ids;
    for (const SearchEntry &team : teams) {
        ids.append(team.id);
        enqueueOne([this, team] { m_index.put(team); });
    }
    const QStringList before = std::exchange(m_teams, ids);
    for (const QString &id : before) {
        if (!ids.contains(id))
            remove(SearchEntry::Team, id);
    }
}

// --- What is heard of ------------------------------------------------------------

void SearchSources::connectHub()
{
    const FriendUISignalSender *hub = FriendUISignalSender::instance();
    using Hub = FriendUISignalSender;
    connect(hub, &Hub::signal_login, this, &SearchSources::loggedIn);

    connect(hub, &Hub::signal_addAllFriend, this, [this](const QList<FriendData> &contacts) {
        enqueue(contacts, [this](const FriendData &contact) { putContact(contact); });
    });
    connect(hub, &Hub::signal_addFriend, this, [this](const QString &jid) {
        enqueueOne([this, jid] {
            FriendData contact;
            if (!ctx().friendData(jid, &contact))
                contact.jid = jid;
            putContact(contact);
        });
    });
    const auto goneContact = [this](const QString &jid) {
        enqueueOne([this, jid] { removeContact(jid); });
    };
    connect(hub, &Hub::signal_delFriend, this, goneContact);
    connect(hub, &Hub::signal_delOutsideFriend, this, goneContact);
    connect(hub, &Hub::signal_notifyFriendRemarkName, this,
            [this](const QString &jid, const QString &remark) {
                enqueueOne([this, jid, remark] {
                    const SearchEntry *known = m_index.find(SearchEntry::Person, jid);
                    if (!known)
                        return;
                    SearchEntry entry = *known;
                    entry.remark = remark;
                    m_index.put(entry);
                });
            });
    const auto profile = [this](const QString &jid, const VcardInfo &info) {
        enqueueOne([this, jid, info] { putProfile(jid, info); });
    };
    connect(hub, &Hub::signal_FriendVcardInfo, this, profile);
    connect(hub, &Hub::signal_FriendFullVcardInfo, this, profile);
    connect(hub, &Hub::signal_EmployeeInfo, this, profile);

    connect(hub, &Hub::signal_addAllGroup, this,
            [this](const QList<GroupData> &groups, bool inner) {
                if (inner)
                    enqueue(groups, [this](const GroupData &group) {
                        m_index.put(SearchEntries::group(group));
                    });
            });
    const auto named = [this](const QString &id, const QString &name, bool success, bool inner) {
        if (success && inner)
            enqueueOne([this, id, name] { m_index.put(SearchEntries::group({id, name})); });
    };
    connect(hub, &Hub::signal_addGroup, this, named);
    connect(hub, &Hub::signal_changeGroupName, this, named);
    connect(hub, &Hub::signal_delGroup, this, [this](bool success, const QString &id, bool inner) {
        if (success && inner)
            remove(SearchEntry::Group, id);
    });
}

void SearchSources::connectServices()
{
    const FriendUISignalSender *hub = FriendUISignalSender::instance();
    using Hub = FriendUISignalSender;
    const auto room = [this](const QString &jid, const QString &subject) {
        if (!jid.isEmpty())
            enqueueOne([this, jid, subject] { m_index.put(SearchEntries::room(jid, subject)); });
    };
    connect(hub, &Hub::signal_addMuc, this,
            [room](const MucData &data) { room(data.roomJid, data.roomName); });
    connect(hub, &Hub::signal_localMucAdded, this, [room](const QString &jid) {
        MucData data;
        if (ctx().mucData(jid, &data))
            room(jid, data.roomName);
    });
    connect(hub, &Hub::signal_roomSubjectChanged, this,
            [this](const QString &jid, const QString &subject) {
                enqueueOne([this, jid, subject] {
                    if (m_index.find(SearchEntry::Room, jid))
                        m_index.put(SearchEntries::room(jid, subject));
                });
            });
    const auto goneRoom = [this](const QString &jid) { remove(SearchEntry::Room, jid); };
    connect(hub, &Hub::signal_deleteMucRoon, this, goneRoom);
    connect(hub, &Hub::signal_removedRoom, this, goneRoom);

    const auto number = [this](const CServiceNumData &data) {
        if (!data.code.isEmpty())
            enqueueOne([this, data] { m_index.put(SearchEntries::serviceNumber(data)); });
    };
    connect(hub, &Hub::signal_notifyAddServiceNum, this,
            [number](const QList<CServiceNumData> &numbers) {
                for (const CServiceNumData &data : numbers)
                    number(data);
            });
    connect(hub, &Hub::signal_notifyServiceNumData, this, number);
    connect(hub, &Hub::signal_notifyUpdateServiceNum, this,
            [number](const QString &, const CServiceNumData &data) { number(data); });
    connect(hub, &Hub::signal_notifyCancelSubServiceNum, this,
            [this](const QString &code, const QString &, bool success) {
                if (success)
                    remove(SearchEntry::ServiceNumber, code);
            });
    connect(hub, &Hub::signal_notifyAddChannel, this, [this](const CSChannelData &data) {
        if (!data.id.isEmpty())
            enqueueOne([this, data] { m_index.put(SearchEntries::channel(data)); });
    });
    connect(hub, &Hub::signal_notifyRemoveChannel, this,
            [this](const QString &id) { remove(SearchEntry::Channel, id); });

    const auto elements = [this](const OrgElementList &list) {
        m_company = ctx().companyCode();
        enqueue(list, [this](const OrgElement &element) { putElement(element); });
    };
    connect(HttpMgr::instance(), &HttpMgr::signal_searchOrgElements, this, elements);
    connect(HttpMgr::instance(), &HttpMgr::signal_locateOrgElements, this, elements);
}

void SearchSources::loggedIn()
{
    if (m_owner != ctx().ownJid()) {
        m_owner = ctx().ownJid();
        m_tasks.clear();
        m_index.clear();
        emit cleared();
    } else {
        // Who was taken off the list while nobody was logged in.
        enqueue(m_index.contacts(), [this](const QString &jid) {
            FriendData contact;
            if (!ctx().friendData(jid, &contact))
                removeContact(jid);
        });
    }
    load();
}

void SearchSources::load()
{
    enqueue(ctx().groups(true),
            [this](const GroupData &group) { m_index.put(SearchEntries::group(group)); });
    enqueue(ctx().friends(), [this](const FriendData &contact) { putContact(contact); });
    // The organisation of another company stays behind where it is kept.
    if (!m_organisation || m_organisation->isEmpty() || m_company != ctx().companyCode())
        return;
    // Their ids, since the map must not be copied.
    enqueue(m_organisation->keys(), [this](const QString &id) {
        const auto element = m_organisation->constFind(id);
        if (element != m_organisation->constEnd())
            putElement(*element);
    });
}

// --- Into the index --------------------------------------------------------------

void SearchSources::putContact(const FriendData &contact)
{
    const bool external = contact.outside != 0;
    if (contact.jid.isEmpty() || (external && !ctx().hasRight(ApplicationContext::External)))
        return;
    SearchEntry entry =
        SearchEntries::contact(contact, m_index.find(SearchEntry::Person, contact.jid));
    VcardInfo profile;
    if (ctx().vcard(contact.jid, &profile))
        SearchEntries::addProfile(profile, &entry);
    m_index.put(entry);
}

void SearchSources::removeContact(const QString &jid)
{
    const SearchEntry *known = m_index.find(SearchEntry::Person, jid);
    if (!known)
        return;
    // Who has a place in the organisation can still be found there.
    if (known->placeId.isEmpty()) {
        m_index.remove(SearchEntry::Person, jid);
        return;
    }
    SearchEntry entry = *known;
    entry.isContact = false;
    entry.remark.clear();
    m_index.put(entry);
}

void SearchSources::putElement(const OrgElement &element)
{
    if (element.strId.isEmpty())
        return;
    const SearchEntry *known = element.bIsEmp
                                   ? m_index.find(SearchEntry::Person, makeJid(element.strId))
                                   : m_index.find(SearchEntry::Department, element.strId);
    m_index.put(SearchEntries::element(element, known));
}

// Of who is listed nowhere a profile alone does not make an entry.
void SearchSources::putProfile(const QString &jid, const VcardInfo &profile)
{
    const SearchEntry *known = m_index.find(SearchEntry::Person, jid);
    if (!known)
        return;
    SearchEntry entry = *known;
    SearchEntries::addProfile(profile, &entry);
    m_index.put(entry);
}

void SearchSources::remove(SearchEntry::Kind kind, const QString &id)
{
    enqueueOne([this, kind, id] { m_index.remove(kind, id); });
}

// --- By and by -------------------------------------------------------------------

template <class List, class Take> void SearchSources::enqueue(const List &items, const Take &take)
{
    if (items.isEmpty())
        return;
    m_tasks.push_back([items, take, next = 0]() mutable {
        for (int i = 0; i < Portion && next < items.size(); ++i, ++next)
            take(items.at(next));
        return next >= items.size();
    });
    if (m_started && !m_nextSlice.isActive())
        m_nextSlice.start();
}

// At once, unless something waits that came before.
void SearchSources::enqueueOne(const std::function<void()> &take)
{
    if (m_started && m_tasks.empty()) {
        take();
        announce();
        return;
    }
    m_tasks.push_back([take] {
        take();
        return true;
    });
    if (m_started && !m_nextSlice.isActive())
        m_nextSlice.start();
}

void SearchSources::runSlice()
{
    QElapsedTimer clock;
    clock.start();
    while (!m_tasks.empty() && clock.elapsed() < SliceTime) {
        if (m_tasks.front()())
            m_tasks.pop_front();
    }
    announce();
    if (!m_tasks.empty())
        m_nextSlice.start();
}

void SearchSources::announce()
{
    if (!m_announcement.isActive())
        m_announcement.start();
}
