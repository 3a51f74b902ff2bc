#include "host/core/embeddedcore.h"

#include "host/core/channelbook.h"
#include "host/core/corestore.h"
#include "host/core/messagebook.h"
#include "host/core/roombook.h"
#include "host/core/rosterbook.h"

#include <QDir>
#include <QTimer>

namespace {
// The same on every machine, unlike qHash.
quint64 numberOf(const QString &text)
{
    quint64 hash = 0xcbf29ce484222325ULL;
    for (const QChar c : text)
        hash = (hash ^ c.unicode()) * 0x100000001b3ULL;
    return hash;
}

QString databaseFileOf(const EmbeddedCore::Options &options)
{
    QString name = options.sampleFriends
                       ? QStringLiteral("core-%1-%2").arg(options.people).arg(options.seed)
                       : QStringLiteral("core-imported");
    if (options.user != SampleCompany::uid(0))
        name += QLatin1Char('-') + options.user;
    return QDir(options.folder).filePath(name + QLatin1String(".db"));
}
} // namespace

EmbeddedCore::EmbeddedCore(const Options &options, QObject *parent)
    : MessagingCore(parent),
      m_options(options),
      m_company(options.people, options.seed),
      m_sample(m_company, options.user),
      m_store(new CoreStore(databaseFileOf(options))),
      m_roster(new RosterBook(m_store.data(), &m_sample)),
      m_rooms(new RoomBook(m_store.data(), &m_sample)),
      m_messages(new MessageBook(m_store.data())),
      m_channels(new ChannelBook(m_store.data()))
{
}

EmbeddedCore::~EmbeddedCore() = default;

bool EmbeddedCore::open(QString *problem)
{
    if (!m_store->open(problem))
        return false;
    m_channels->load();
    if (!m_roster->load(m_options.sampleFriends) || !m_rooms->load(m_options.sampleFriends) ||
        !seedMessages()) {
        *problem = QStringLiteral("%1 cannot be read or written.").arg(m_store->fileName());
        return false;
    }
    seedPresence();
    return true;
}

QString EmbeddedCore::notice() const
{
    return m_store->notice();
}

QString EmbeddedCore::databaseFile() const
{
    return m_store->fileName();
}

// --- Answers ------------------------------------------------------------------

// Each timer takes the oldest entry, whichever entry it was started for: coarse
// timers may fire out of order, answers must not.
void EmbeddedCore::enqueue(std::function<void()> work)
{
    m_queue.enqueue(std::move(work));
    QTimer::singleShot(m_answerDelay, this, [this] { m_queue.dequeue()(); });
}

void EmbeddedCore::whenConnected(std::function<void()> work)
{
    if (m_connected)
        work();
    else
        m_whenConnected.append(std::move(work));
}

void EmbeddedCore::later(Operation operation, std::function<void(bool)> answer)
{
    if (isSilent(operation))
        return;
    enqueue([this, operation, answer = std::move(answer)] {
        answer(m_connected && !isFailing(operation));
    });
}

void EmbeddedCore::setAnswerDelay(int milliseconds)
{
    m_answerDelay = qMax(0, milliseconds);
}

void EmbeddedCore::setConfirmationDelay(int milliseconds)
{
    m_confirmationDelay = qMax(0, milliseconds);
}

void EmbeddedCore::setFailing(Operation operation, bool failing)
{
    if (failing)
        m_failing.insert(operation);
    else
        m_failing.remove(operation);
}

void EmbeddedCore::setSilent(Operation operation, bool silent)
{
    if (silent)
        m_silent.insert(operation);
    else
        m_silent.remove(operation);
}

void EmbeddedCore::setAllFailing(bool failing)
{
    for (int i = 0; i < OperationCount; ++i)
        setFailing(Operation(i), failing);
}

void EmbeddedCore::setAllSilent(bool silent)
{
    for (int i = 0; i < OperationCount; ++i)
        setSilent(Operation(i), silent);
}

// --- Identity -----------------------------------------------------------------

QString EmbeddedCore::ownUid() const
{
    return m_sample.own().uid;
}

QString EmbeddedCore::serverDomain() const
{
    return SampleCompany::domain();
}

QString EmbeddedCore::companyCode() const
{
    return m_sample.own().companyCode;
}

QString EmbeddedCore::fullJid(const QString &uidOrJid) const
{
    if (uidOrJid.isEmpty() || uidOrJid.contains(QLatin1Char('@')))
        return uidOrJid;
    return uidOrJid + QLatin1Char('@') + serverDomain();
}

QString EmbeddedCore::displayName(const QString &jid) const
{
    const FriendData *contact = m_roster->find(jid);
    if (contact && !contact->remark.isEmpty())
        return contact->remark;
    VcardInfo known;
    if (!m_roster->profile(jid, &known))
        return jid.section(QLatin1Char('@'), 0, 0);
    return known.nickName.isEmpty() ? known.userName : known.nickName;
}

// --- Presence -----------------------------------------------------------------

PresenceData EmbeddedCore::presenceAtStart(const FriendData &contact) const
{
    PresenceData presence;
    if (contact.onJob == 0)
        return presence;
    const QString uid = contact.jid.section(QLatin1Char('@'), 0, 0);
    const bool isSamples = m_company.find(uid).index >= 0;
    const SampleCompany::Reach reach =
        isSamples ? m_company.reachAtStart(uid) : m_company.reach(numberOf(contact.jid));
    presence.pcShow = PresenceData::ePcShowType(reach.pc);
    presence.mobile = reach.mobile;
    return presence;
}

void EmbeddedCore::seedPresence()
{
    m_presence.clear();
    for (const FriendData &contact : m_roster->contacts()) {
        const PresenceData presence = presenceAtStart(contact);
        if (presence.isOnline())
            m_presence.insert(contact.jid, presence);
    }
    PresenceData own;
    own.pcShow = PresenceData::Available;
    m_presence.insert(ownJid(), own);
}

PresenceData EmbeddedCore::presence(const QString &jid) const
{
    if (!m_connected)
        return PresenceData();
    if (m_presence.contains(jid) || m_roster->find(jid))
        return m_presence.value(jid);
    // Who is no contact is where the web services say as well.
    const bool isKnown = jid.section(QLatin1Char('@'), 1) == serverDomain() &&
                         m_company.find(jid.section(QLatin1Char('@'), 0, 0)).index >= 0;
    FriendData stranger;
    stranger.jid = jid;
    return isKnown ? presenceAtStart(stranger) : PresenceData();
}

QMap<QString, PresenceData> EmbeddedCore::allPresence() const
{
    return m_connected ? m_presence : QMap<QString, PresenceData>();
}

void EmbeddedCore::applyPresence(const QMap<QString, PresenceData> &presence)
{
    QMap<QString, PresenceData> changed;
    for (auto at = presence.constBegin(); at != presence.constEnd(); ++at) {
        if (!m_roster->find(at.key()) || m_presence.value(at.key()) == at.value())
            continue;
        changed.insert(at.key(), at.value());
        if (at.value().isOnline())
            m_presence.insert(at.key(), at.value());
        else
            m_presence.remove(at.key());
    }
    if (m_connected && !changed.isEmpty())
        emit presenceChanged(changed);
}

// --- Session ------------------------------------------------------------------

void EmbeddedCore::setConnected(bool connected)
{
    enqueue([this, connected] {
        if (m_connected == connected)
            return;
        m_connected = connected;
        emit connectionChanged(connected);
        if (!connected)
            return;
        emit presenceChanged(m_presence);
        const auto held = std::move(m_whenConnected);
        m_whenConnected.clear();
        for (const std::function<void()> &work : held)
            work();
    });
}

void EmbeddedCore::setOwnPresence(const PresenceData &presence)
{
    enqueue([this, presence] {
        applyPresence({{ownJid(), presence}});
        emit ownPresenceChanged();
    });
}
