#include "host/core/presencesimulator.h"

#include "host/core/embeddedcore.h"

namespace {
constexpr int ReplyDelay = 1200; // ms
constexpr const char *Texts[] = {
    "好的，收到",
    "Can you have a look at the draft?",
    "下午三点开会，别忘了",
    "在吗？",
    "谢谢！",
    "I'll be ten minutes late.",
    "文件已经发到邮箱了",
    "周报今天下班前交",
    "好的，稍后回复。",
};
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

QString PresenceSimulator::text()
{
    return QString::fromUtf8(Texts[next() % (sizeof Texts / sizeof *Texts)]);
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
    const QList<MucData> rooms = m_core->rooms();
    if (next() % 3 == 0 && !rooms.isEmpty()) {
        const QString room = rooms.at(int(next() % quint64(rooms.size()))).roomJid;
        const QList<MucMemberData> members = m_core->roomMembers(room);
        const QString from = members.at(int(next() % quint64(members.size()))).jid;
        if (from != m_core->ownJid())
            m_core->receiveMessage(from, room, text());
        return;
    }
    const QList<FriendData> contacts = m_core->contacts();
    if (contacts.isEmpty())
        return;
    const QString from = contacts.at(int(next() % quint64(contacts.size()))).jid;
    if (from != m_core->ownJid())
        m_core->receiveMessage(from, from, text());
}

void PresenceSimulator::replyTo(bool received, const MessageData &message)
{
    if (received || !m_running || !m_replies || message.kind != MessageData::Person ||
        message.sessionJid == m_core->ownJid() || !m_core->presence(message.sessionJid).isOnline())
        return;
    QTimer::singleShot(ReplyDelay, this, [this, jid = message.sessionJid] {
        m_core->receiveMessage(jid, jid, text());
    });
}
