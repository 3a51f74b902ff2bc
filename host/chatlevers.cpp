#include "host/chatlevers.h"

#include "host/core/embeddedcore.h"
#include "host/core/samplemessages.h"
#include "host/samplepicture.h"

#include <QEvent>
#include <QTime>
#include <QTimer>

namespace {
constexpr int BurstStep = 250; // messages of one turn of the event loop

// Of the people as the user counts them, who is 0.
QString mateJid(const EmbeddedCore &core, int place)
{
    return core.sample().mate(place).uid + QLatin1Char('@') + SampleCompany::domain();
}
} // namespace

ChatLevers::ChatLevers(EmbeddedCore *core, const QString &pictureFolder, QWidget *parent)
    : QMenu(parent), m_core(core), m_pictureFolder(pictureFolder)
{
    setObjectName(QStringLiteral("chatLevers"));
    addMessageLevers();
    addSeparator();
    addRoomLevers();
    addSeparator();
    addChannelLevers();
    retranslate();
}

void ChatLevers::addLever(const char *name, const char *text, std::function<void()> pull)
{
    QAction *action = addAction(QString());
    action->setObjectName(QLatin1String(name));
    connect(action, &QAction::triggered, this, std::move(pull));
    m_levers.append({action, text});
}

MucData ChatLevers::nextRoom(const std::function<bool(const MucData &)> &fits)
{
    const QList<MucData> rooms = m_core->rooms();
    for (int i = 0; i < rooms.size(); ++i) {
        const MucData &room = rooms.at((m_turn + i) % rooms.size());
        if (fits(room)) {
            m_turn = (m_turn + i + 1) % rooms.size();
            return room;
        }
    }
    emit note(tr("There is no such group chat."));
    return MucData();
}

void ChatLevers::switchForbidden(bool forbidden)
{
    const MucData room =
        nextRoom([forbidden](const MucData &each) { return each.forbidden != forbidden; });
    if (m_core->setRoomForbidden(room.roomJid, forbidden))
        emit note((forbidden ? tr("You may no longer write in \"%1\".")
                             : tr("You may write in \"%1\" again."))
                      .arg(room.roomName));
}

void ChatLevers::newLocalRoom()
{
    QStringList people;
    for (int i = 0; i < 3; ++i)
        people.append(
            mateJid(*m_core, 1 + (m_turn++ * 3 + i) % qMax(1, m_core->company().people() - 1)));
    const QString room = m_core->makeRoomOfOthers(QString(), people);
    if (!room.isEmpty())
        m_core->receiveMessage(people.first(), room, tr("I have made a group chat for us."));
}

void ChatLevers::somebodyWrites()
{
    const MucData room = nextRoom([](const MucData &) { return true; });
    const QList<MucMemberData> members = m_core->roomMembers(room.roomJid);
    for (int i = 0; i < members.size(); ++i) {
        const MucMemberData &member = members.at((m_turn + i) % members.size());
        if (member.jid == m_core->ownJid())
            continue;
        m_core->receiveMessage(member.jid, room.roomJid,
                               SampleMessages::body(quint64(m_turn), member.name));
        return;
    }
}

void ChatLevers::somebodyJoins()
{
    const MucData room = nextRoom([](const MucData &) { return true; });
    for (int i = 1; i < m_core->company().people(); ++i) {
        if (m_core->addMemberByOthers(room.roomJid, mateJid(*m_core, i))) {
            emit note(tr("Somebody has come into \"%1\".").arg(room.roomName));
            return;
        }
    }
}

void ChatLevers::addRoomLevers()
{
    const auto any = [](const MucData &) { return true; };
    addLever("roomWritten", QT_TR_NOOP("Somebody writes in a group chat"),
             [this] { somebodyWrites(); });
    addLever("roomForbidden", QT_TR_NOOP("Forbid writing in a group chat"),
             [this] { switchForbidden(true); });
    addLever("roomAllowed", QT_TR_NOOP("Allow writing in a group chat again"),
             [this] { switchForbidden(false); });
    addLever("roomRenamed", QT_TR_NOOP("Somebody renames a group chat"), [this] {
        const QString subject = tr("Renamed %1").arg(QTime::currentTime().toString());
        nextRoom(
            [&](const MucData &room) { return m_core->renameByOthers(room.roomJid, subject); });
    });
    addLever("roomHead", QT_TR_NOOP("A group chat gets another picture"), [this, any] {
        const MucData room = nextRoom(any);
        const QString file =
            room.roomJid.section(QLatin1Char('@'), 0, 0) + QStringLiteral("-%1.png").arg(m_turn);
        m_core->setRoomHead(room.roomJid,
                            SamplePicture::draw(m_pictureFolder, file, room.roomName, m_turn));
    });
    addLever("roomJoined", QT_TR_NOOP("Somebody comes into a group chat"),
             [this] { somebodyJoins(); });
    addLever("roomRemoved", QT_TR_NOOP("You are put out of a group chat"), [this] {
        const MucData room =
            nextRoom([this](const MucData &each) { return each.ownerJid != m_core->ownJid(); });
        if (m_core->removeFromRoom(room.roomJid))
            emit note(tr("You no longer belong to \"%1\".").arg(room.roomName));
    });
    addLever("roomLocal", QT_TR_NOOP("Somebody writes in a new group chat"),
             [this] { newLocalRoom(); });
}

QString ChatLevers::nextChannel()
{
    const QList<CSChannelData> channels = m_core->channels();
    if (channels.isEmpty()) {
        emit note(tr("There is no channel."));
        return QString();
    }
    return channels.at(m_channelTurn++ % channels.size()).id;
}

void ChatLevers::addChannelLevers()
{
    addLever("channelRemoved", QT_TR_NOOP("Remove a channel"),
             [this] { m_core->removeChannel(nextChannel()); });
    addLever("channelRestored", QT_TR_NOOP("Add a channel again"), [this] {
        if (m_core->restoreChannel().isEmpty())
            emit note(tr("No channel was removed."));
    });
    addLever("channelHead", QT_TR_NOOP("A channel gets another picture"), [this] {
        CSChannelData channel;
        if (!m_core->channel(nextChannel(), &channel))
            return;
        const QString file = channel.id.section(QLatin1Char('@'), 0, 0) +
                             QStringLiteral("-%1.png").arg(m_channelTurn);
        SamplePicture::draw(m_pictureFolder, file, channel.name, m_channelTurn);
        m_core->setChannelPicture(channel.id, file);
    });
    addLever("channelsReload", QT_TR_NOOP("Show the channels"),
             [this] { emit reloadChannelsWanted(); });
}

void ChatLevers::addMessageLevers()
{
    addLever("burst", QT_TR_NOOP("10,000 messages in up to 500 conversations"),
             [this] { burst(BurstMessages, BurstConversations); });
}

void ChatLevers::burst(int messages, int conversations)
{
    m_burstPeople = qBound(1, conversations, qMax(1, m_core->company().people() - 1));
    const bool isRunning = m_burstLeft > 0;
    m_burstLeft += messages;
    if (!isRunning)
        burstOn();
}

void ChatLevers::burstOn()
{
    QList<EmbeddedCore::Incoming> messages;
    const int step = qMin(BurstStep, m_burstLeft);
    for (int i = 0; i < step; ++i) {
        const int number = m_burstLeft - i;
        // Far apart, so that neighbours of the list are not served one after the other.
        const int index = 1 + int(qint64(number) * 7919 % m_burstPeople);
        const QString jid = mateJid(*m_core, index);
        messages.append({jid, jid,
                         SampleMessages::body(quint64(number) * 2654435761U,
                                              m_core->sample().mate(index).name)});
    }
    m_burstLeft -= step;
    m_core->receiveMessages(messages);
    if (m_burstLeft > 0)
        QTimer::singleShot(0, this, &ChatLevers::burstOn);
}

void ChatLevers::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMenu::changeEvent(event);
}

void ChatLevers::retranslate()
{
    setTitle(tr("Group chats, channels, messages"));
    for (const Lever &lever : qAsConst(m_levers))
        lever.action->setText(tr(lever.text));
}
