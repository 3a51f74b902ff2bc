#include "host/core/presencesimulator.h"

#include "host/core/embeddedcore.h"
#include "host/core/samplemessages.h"
#include "sample/samplechannels.h"

namespace {
constexpr int ReplyDelay = 1200; // ms
} // namespace

PresenceSimulator::PresenceSimulator(EmbeddedCore *core, quint64 seed, QObject *parent)
    : QObject(parent), m_core(core), m_state(seed)
{
    m_presenceTimer.setInterval(2000);
    connect(&m_presenceTimer, &QTimer::timeout, this, [this] { changePresence(m_people); });
    connect(&m_messageTimer, &QTimer::timeout, this, &PresenceSimulator::receiveMessage);
    connect(core, &EmbeddedCore::messageReceived, this, &PresenceSimulator::replyTo);
}

quint64 PresenceSimulator::next()
{
    m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
    return m_state >> 20;
}

QString PresenceSimulator::bodyFrom(const QString &jid)
{
    VcardInfo person;
    m_core->profile(jid, &person);
    return SampleMessages::body(next(), person.nickName);
}

void PresenceSimulator::setPresenceRate(int milliseconds, int people)
{
    m_presenceTimer.setInterval(qMax(1, milliseconds));
    m_people = qMax(0, people);
}

void PresenceSimulator::setMessageRate(int milliseconds)
{
    m_messageTimer.setInterval(qMax(0, milliseconds));
    if (milliseconds <= 0)
        m_messageTimer.stop();
    else if (m_running)
        m_messageTimer.start();
}

void PresenceSimulator::setReplies(bool replies)
{
    m_replies = replies;
}

void PresenceSimulator::start()
{
    m_running = true;
    m_presenceTimer.start();
    if (m_messageTimer.interval() > 0)
        m_messageTimer.start();
}

void PresenceSimulator::stop()
{
    m_running = false;
    m_presenceTimer.stop();
    m_messageTimer.stop();
}

void PresenceSimulator::changePresence(int people)
{
    const QList<FriendData> contacts = m_core->contacts();
    QMap<QString, PresenceData> changes;
    for (int i = 0; i < people && !contacts.isEmpty(); ++i) {
        const FriendData &contact = contacts.at(int(next() % quint64(contacts.size())));
        if (contact.jid == m_core->ownJid() || contact.onJob == 0)
            continue;
        const SampleCompany::Reach reach = m_core->company().reach(next());
        PresenceData presence;
        presence.pcShow = PresenceData::ePcShowType(reach.pc);
        presence.mobile = reach.mobile;
        changes.insert(contact.jid, presence);
    }
    m_core->applyPresence(changes);
}

void PresenceSimulator::receiveMessage()
{
    switch (next() % 8) {
    case 0:
    case 1:
        writeInRoom();
        break;
    case 2:
        writeAsService();
        break;
    default:
        writeAsContact();
    }
}

void PresenceSimulator::writeInRoom()
{
    const QList<MucData> rooms = m_core->rooms();
    if (!rooms.isEmpty())
        answerInRoom(rooms.at(int(next() % quint64(rooms.size()))).roomJid);
}

void PresenceSimulator::answerInRoom(const QString &roomJid)
{
    const QList<MucMemberData> members = m_core->roomMembers(roomJid);
    if (members.isEmpty())
        return;
    const QString from = members.at(int(next() % quint64(members.size()))).jid;
    if (from != m_core->ownJid())
        m_core->receiveMessage(from, roomJid, bodyFrom(from));
}

void PresenceSimulator::writeAsService()
{
    const QList<CSChannelData> channels = m_core->channels();
    const QVector<SampleServiceNumber> &numbers = sampleServiceNumbers();
    const int which = int(next() % quint64(numbers.size() + channels.size()));
    if (which >= numbers.size()) {
        answerAsChannel(channels.at(which - numbers.size()).id);
        return;
    }
    const QString jid = numbers.at(which).code + QLatin1Char('@') + SampleCompany::domain();
    m_core->receiveMessage(jid, jid, SampleMessages::serviceBody(next()));
}

void PresenceSimulator::answerAsChannel(const QString &id)
{
    CSChannelData channel;
    if (!m_core->channel(id, &channel))
        return;
    const int groups = channel.workgroups.size();
    const QString group =
        groups == 0 ? QString() : channel.workgroups.at(int(next() % quint64(groups)));
    m_core->receiveMessage(id, id,
                           channel.isOpen ? SampleMessages::channelBody(next(), group)
                                          : SampleMessages::closedBody(group));
}

void PresenceSimulator::writeAsContact()
{
    const QList<FriendData> contacts = m_core->contacts();
    if (contacts.isEmpty())
        return;
    const QString from = contacts.at(int(next() % quint64(contacts.size()))).jid;
    if (from != m_core->ownJid())
        m_core->receiveMessage(from, from, bodyFrom(from));
}

void PresenceSimulator::replyTo(bool received, const MessageData &message)
{
    if (received || !m_running || !m_replies || message.sessionJid == m_core->ownJid())
        return;
    QTimer::singleShot(ReplyDelay, this, [this, kind = message.kind, jid = message.sessionJid] {
        if (kind == MessageData::Room)
            answerInRoom(jid);
        else if (kind == MessageData::Channel)
            answerAsChannel(jid);
        else if (kind == MessageData::ServiceNumber)
            m_core->receiveMessage(jid, jid, SampleMessages::serviceBody(next()));
        else if (m_core->presence(jid).isOnline())
            m_core->receiveMessage(jid, jid, bodyFrom(jid));
    });
}
