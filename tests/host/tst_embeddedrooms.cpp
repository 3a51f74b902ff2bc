// The embedded core's group chats: who may do what to members and roles, what others
// do, rooms that become known by a message; channels.
#include "tests/host/corefixture.h"
#include "tests/support/testrunner.h"

using Core = EmbeddedCore;

namespace {
enum Role
{
    Member = 0,
    Manager = 1,
    Owner = 2
};
} // namespace

class TstEmbeddedRooms : public CoreFixture
{
    Q_OBJECT

private slots:
    void theSampleHasEveryRoleAndClassification()
    {
        QSet<QPair<int, int>> kinds;
        bool forbidden = false;
        const QList<MucData> rooms = m_core->rooms();
        for (const MucData &room : rooms) {
            kinds.insert({m_core->roomRole(room.roomJid), room.classify});
            forbidden = forbidden || room.forbidden;
            QCOMPARE(room.memberCount.toInt(), m_core->roomMembers(room.roomJid).size());
        }
        QCOMPARE(kinds.size(), 9);
        QVERIFY(forbidden);
    }

    void rightsFollowTheRole_data()
    {
        const Rows<int, QString, int, bool> row{"ownRole", "request", "otherRole", "allowed"};
        row("owner makes manager", Owner, "manager", Member, true);
        row("owner unmakes manager", Owner, "manager", Manager, true);
        row("manager makes no manager", Manager, "manager", Member, false);
        row("member makes no manager", Member, "manager", Member, false);
        row("owner hands over", Owner, "handOver", Member, true);
        row("manager hands nothing over", Manager, "handOver", Member, false);
        row("owner removes manager", Owner, "remove", Manager, true);
        row("manager removes member", Manager, "remove", Member, true);
        row("manager keeps the owner", Manager, "remove", Owner, false);
        row("member removes nobody", Member, "remove", Member, false);
        row("member adds", Member, "add", Member, true);
    }

    void rightsFollowTheRole()
    {
        QFETCH(int, ownRole);
        QFETCH(QString, request);
        QFETCH(int, otherRole);
        QFETCH(bool, allowed);
        const QString room = roomWhereOwnRoleIs(ownRole, otherRole);
        const QString other = memberWithRole(room, otherRole);
        QVERIFY(!room.isEmpty() && !other.isEmpty());
        const int before = m_core->roomMembers(room).size();
        QSignalSpy changed(m_core.get(), &Core::roomMembersChanged);
        QSignalSpy failed(m_core.get(), &Core::requestFailed);

        if (request == QLatin1String("manager"))
            m_core->setRoomManager(room, other, otherRole != Manager);
        else if (request == QLatin1String("handOver"))
            m_core->handOverRoom(room, other);
        else if (request == QLatin1String("remove"))
            m_core->removeRoomMember(room, other);
        else
            m_core->addRoomMembers(room, {other, stranger(SampleCompany::AcceptsAll)});

        QTRY_COMPARE(changed.size() + failed.size(), 1);
        QCOMPARE(changed.size(), allowed ? 1 : 0);
        restart();
        int expected = before;
        if (allowed && request == QLatin1String("remove"))
            --expected;
        else if (allowed && request == QLatin1String("add"))
            ++expected; // who is there already is not added again
        QCOMPARE(m_core->roomMembers(room).size(), expected);
        if (allowed && request == QLatin1String("handOver")) {
            QCOMPARE(m_core->roomRole(room), int(Member));
            QCOMPARE(record(room).ownerJid, other);
        } else if (allowed && request == QLatin1String("manager")) {
            QCOMPARE(roleOf(room, other), otherRole == Manager ? int(Member) : int(Manager));
        } else {
            QCOMPARE(m_core->roomRole(room), ownRole);
        }
    }

    void aMessageMakesAnUnlistedRoomALocalOne()
    {
        const QString writer = m_core->contacts().at(3).jid;
        const QString room = m_core->makeRoomOfOthers(QStringLiteral("new"), {writer});
        QVERIFY(!room.isEmpty());
        QVERIFY(!isListed(room));
        QSignalSpy added(m_core.get(), &Core::localRoomAdded);
        QSignalSpy received(m_core.get(), &Core::messageReceived);
        for (int i = 0; i < 2; ++i)
            m_core->receiveMessage(writer, room, QStringLiteral("hello"));
        QCOMPARE(received.size(), 2);
        QCOMPARE(added.size(), 1);
        QCOMPARE(added.first().at(1).toString(), QStringLiteral("auto_save"));
        restart();
        QVERIFY(isListed(room));
        QCOMPARE(record(room).classify, MucData::LocalRoom);
    }

    void whatOthersDoIsKept()
    {
        const QString managed = roomWhereOwnRoleIs(Member, Owner);
        QSignalSpy renamed(m_core.get(), &Core::roomRenamed);
        QVERIFY(m_core->renameByOthers(managed, QStringLiteral(" other ")));
        QCOMPARE(renamed.first().at(1).toString(), QStringLiteral("other"));
        QVERIFY(renamed.first().at(2).toString() != m_core->ownJid());
        QVERIFY(m_core->setRoomForbidden(managed, true));
        QVERIFY(m_core->setRoomHead(managed, QStringLiteral("/p.png")));

        QSignalSpy failed(m_core.get(), &Core::requestFailed);
        m_core->sendMessage(managed, MessageData::Room, QStringLiteral("x"));
        QTRY_COMPARE(failed.size(), 1);
        restart();
        QCOMPARE(record(managed).roomName, QStringLiteral("other"));
        QCOMPARE(record(managed).headImage, QStringLiteral("/p.png"));
        QVERIFY(record(managed).forbidden);

        QSignalSpy left(m_core.get(), &Core::roomLeft);
        QVERIFY(m_core->removeFromRoom(managed));
        QCOMPARE(left.size(), 1);
        QVERIFY(!m_core->removeFromRoom(managed));
        restart();
        QVERIFY(!isListed(managed));
    }

    void withoutAConnectionItIsToldLater()
    {
        QSignalSpy connection(m_core.get(), &Core::connectionChanged);
        m_core->setConnected(false);
        QVERIFY(connection.wait());
        QSignalSpy muted(m_core.get(), &Core::roomMuted);
        QVERIFY(m_core->setRoomForbidden(roomWhereOwnRoleIs(Member, Owner), true));
        QCOMPARE(muted.size(), 0);
        m_core->setConnected(true);
        QTRY_COMPARE(muted.size(), 1);
    }

    void channelsComeAndGo()
    {
        const QList<CSChannelData> all = m_core->channels();
        QVERIFY(all.size() >= 6);
        CSChannelData channel;
        QVERIFY(m_core->channel(m_core->productTeamJid(), &channel));

        const QString id = all.at(1).id;
        QSignalSpy removed(m_core.get(), &Core::channelRemoved);
        QVERIFY(m_core->removeChannel(id) && !m_core->removeChannel(id));
        QVERIFY(m_core->setChannelPicture(all.at(0).id, QStringLiteral("n.png")));
        QCOMPARE(removed.size(), 1);
        restart();
        QCOMPARE(m_core->channels().size(), all.size() - 1);
        QVERIFY(!m_core->channel(id, &channel));
        QCOMPARE(m_core->channels().at(0).photoName, QStringLiteral("n.png"));
        QSignalSpy added(m_core.get(), &Core::channelAdded);
        QCOMPARE(m_core->restoreChannel(), id);
        QCOMPARE(added.size(), 1);
        QCOMPARE(m_core->channels().at(1).id, id);
        QVERIFY(m_core->restoreChannel().isEmpty());
    }

private:
    MucData record(const QString &room) const
    {
        MucData found;
        m_core->room(room, &found);
        return found;
    }

    bool isListed(const QString &jid) const
    {
        const QList<MucData> rooms = m_core->rooms();
        return std::any_of(rooms.begin(), rooms.end(),
                           [&](const MucData &room) { return room.roomJid == jid; });
    }

    int roleOf(const QString &room, const QString &jid) const
    {
        for (const MucMemberData &member : m_core->roomMembers(room)) {
            if (member.jid == jid)
                return member.role;
        }
        return -1;
    }

    // Somebody else in it.
    QString memberWithRole(const QString &room, int role) const
    {
        for (const MucMemberData &member : m_core->roomMembers(room)) {
            if (member.role == role && member.jid != m_core->ownJid())
                return member.jid;
        }
        return {};
    }

    QString roomWhereOwnRoleIs(int own, int other) const
    {
        for (const MucData &room : m_core->rooms()) {
            if (m_core->roomRole(room.roomJid) == own && !room.forbidden &&
                !memberWithRole(room.roomJid, other).isEmpty())
                return room.roomJid;
        }
        return {};
    }
};

FRIENDUI_TEST(TstEmbeddedRooms)
#include "tst_embeddedrooms.moc"
