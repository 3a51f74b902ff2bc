// The embedded core as a whole: first start, order of the answers, the levers, rooms,
// messages, simulated life.
#include "host/core/presencesimulator.h"
#include "tests/host/corefixture.h"
#include "tests/support/testrunner.h"

using Core = EmbeddedCore;

class TstEmbeddedCore : public CoreFixture
{
    Q_OBJECT

private slots:
    void firstStartShowsTheSampleCompany()
    {
        const QList<GroupData> groups = m_core->groups(true);
        QCOMPARE(groups.size(), 8);
        QCOMPARE(groups.first().id, QString::fromLatin1(""));
        QCOMPARE(groups.first().name, QString::fromUtf8("我的好友"));
        int inner = 0, outer = 0, online = 0;
        for (const FriendData &contact : m_core->contacts()) {
            (contact.outside ? outer : inner) += 1;
            online += m_core->presence(contact.jid).isOnline() ? 1 : 0;
            VcardInfo profile;
            QVERIFY(m_core->profile(contact.jid, &profile));
            QCOMPARE(profile.nickName, contact.nickName);
            QVERIFY(!contact.groupName.isEmpty());
        }
        QCOMPARE(inner, m_core->company().friendCount());
        QCOMPARE(outer, SampleCompany::KnownOutsiderCount);
        QVERIFY(online > inner / 3 && online < inner);
        QVERIFY(!m_core->presence(QStringLiteral("u000001@elsewhere.example")).isOnline());
        QVERIFY(!m_core->presence(QStringLiteral("u999999@corp.example")).isOnline());
        QCOMPARE(m_core->presence(m_core->ownJid()).pcShow, PresenceData::Available);
        QCOMPARE(m_core->rooms().size(), 10);
    }

    void answersComeLaterAndInOrder()
    {
        m_core->setAnswerDelay(5);
        QStringList order;
        connect(m_core.get(), &Core::groupCreated, this,
                [&](const QString &, const QString &name) { order.append(name); });
        m_core->createGroup(QStringLiteral("a"));
        m_core->setAnswerDelay(0); // would overtake
        m_core->createGroup(QStringLiteral("b"));
        m_core->createGroup(QStringLiteral("c"));
        QVERIFY(order.isEmpty());
        QTRY_COMPARE(order.join(QString()), QStringLiteral("abc"));
    }

    void everyRequestFailsWhenTold_data()
    {
        const Rows<QString> row{"lever"};
        row("each", "each");
        row("all", "all");
        row("offline", "offline");
    }

    void everyRequestFailsWhenTold()
    {
        QFETCH(QString, lever);
        const auto before = m_core->contacts();
        const int groups = m_core->groups(true).size();
        if (lever == QLatin1String("offline")) {
            QSignalSpy connection(m_core.get(), &Core::connectionChanged);
            m_core->setConnected(false);
            QVERIFY(connection.wait());
        } else if (lever == QLatin1String("all")) {
            m_core->setAllFailing(true);
        } else {
            for (int i = 0; i < Core::OperationCount; ++i)
                m_core->setFailing(Core::Operation(i), true);
        }
        QStringList failures;
        countFailures(&failures);
        askEverything();
        QTRY_COMPARE(failures.size(), Core::OperationCount);
        failures.removeDuplicates();
        QCOMPARE(failures.size(), Core::OperationCount);
        QCOMPARE(m_core->groups(true).size(), groups);
        for (int i = 0; i < before.size(); ++i)
            QVERIFY(sameFields(before.at(i), m_core->contacts().at(i)));
        for (const MessageData &message : m_core->messages(before.at(1).jid, 10))
            QVERIFY(message.body != QLatin1String("x"));
    }

    void silentRequestsAreNeverAnswered()
    {
        QStringList failures;
        countFailures(&failures);
        m_core->setAllFailing(true);
        m_core->setAllSilent(true);
        askEverything();
        m_core->setAllSilent(false);
        m_core->requestGroups(true); // comes behind all that could still come
        QTRY_COMPARE(failures.size(), 1);
    }

    void offlineNobodyIsReachable()
    {
        QSignalSpy presence(m_core.get(), &Core::presenceChanged);
        const int online = m_core->allPresence().size();
        QVERIFY(online > 10);
        m_core->setConnected(false);
        QTRY_VERIFY(m_core->allPresence().isEmpty());
        QVERIFY(!m_core->presence(m_core->ownJid()).isOnline());
        m_core->setConnected(true);
        QTRY_COMPARE(presence.size(), 1);
        QCOMPARE(m_core->allPresence().size(), online);
    }

    void rooms()
    {
        const QStringList others{stranger(SampleCompany::AcceptsAll), m_core->contacts().at(3).jid,
                                 m_core->contacts().at(3).jid,
                                 QStringLiteral("nobody@corp.example")};
        QSignalSpy added(m_core.get(), &Core::roomAdded);
        QSignalSpy failed(m_core.get(), &Core::requestFailed);
        m_core->createRoom(others, QString());
        m_core->createRoom({QStringLiteral("nobody@corp.example")}, QStringLiteral("x"));
        QTRY_COMPARE(failed.size(), 1);
        QCOMPARE(added.size(), 1);
        const MucData made = added.first().first().value<MucData>();
        QVERIFY(made.roomName.contains(QString::fromUtf8("、")));
        QCOMPARE(m_core->roomMembers(made.roomJid).size(), 3);
        QCOMPARE(made.memberCount, QStringLiteral("3"));
        QCOMPARE(m_core->roomRole(made.roomJid), 2);

        QSignalSpy renamed(m_core.get(), &Core::roomRenamed);
        QSignalSpy classified(m_core.get(), &Core::roomClassified);
        m_core->renameRoom(made.roomJid, QStringLiteral("renamed"));
        m_core->renameRoom(made.roomJid, QStringLiteral(" "));
        m_core->quitRoom(made.roomJid); // the owner cannot
        m_core->classifyRoom(made.roomJid, MucData::PreferredRoom);
        QVERIFY(classified.wait());
        QCOMPARE(renamed.size(), 1);
        QCOMPARE(failed.size(), 3);
        restart();
        MucData room;
        QVERIFY(m_core->room(made.roomJid, &room));
        QCOMPARE(room.roomName, QStringLiteral("renamed"));
        QCOMPARE(room.classify, MucData::PreferredRoom);
        QCOMPARE(m_core->roomMembers(made.roomJid).size(), 3);

        QString asMember;
        for (const MucData &one : m_core->rooms()) {
            if (m_core->roomRole(one.roomJid) == 0)
                asMember = one.roomJid;
        }
        QSignalSpy left(m_core.get(), &Core::roomLeft);
        QSignalSpy dismissed(m_core.get(), &Core::roomDismissed);
        QSignalSpy refused(m_core.get(), &Core::requestFailed);
        m_core->renameRoom(asMember, QStringLiteral("no"));
        m_core->dismissRoom(asMember);
        m_core->quitRoom(asMember);
        m_core->dismissRoom(made.roomJid);
        QTRY_COMPARE(dismissed.size(), 1);
        QCOMPARE(left.size(), 1);
        QCOMPARE(refused.size(), 2);
        restart();
        QCOMPARE(m_core->rooms().size(), 9);
    }

    void messagesAreKeptPerConversation()
    {
        const QString peer = m_core->contacts().at(40).jid;
        const QString other = m_core->contacts().at(41).jid;
        QSignalSpy spy(m_core.get(), &Core::messageReceived);
        for (int i = 0; i < 5; ++i)
            m_core->sendMessage(peer, MessageData::Person, QString::number(i));
        m_core->sendMessage(other, MessageData::Person, QStringLiteral("x"));
        QTRY_COMPARE(spy.size(), 6);
        QCOMPARE(spy.first().at(0).toBool(), false);
        m_core->receiveMessage(peer, peer, QStringLiteral("answer"));
        QCOMPARE(spy.size(), 7);
        QCOMPARE(spy.last().at(0).toBool(), true);

        QSignalSpy failed(m_core.get(), &Core::requestFailed);
        m_core->sendMessage(QStringLiteral("nobody@corp.example"), MessageData::Person,
                            QStringLiteral("x"));
        m_core->sendMessage(peer, MessageData::Person, QString());
        m_core->sendMessage(QStringLiteral("r99@conference.corp.example"), MessageData::Room,
                            QStringLiteral("x"));
        QTRY_COMPARE(failed.size(), 3);
        restart();
        const QList<MessageData> list = m_core->messages(peer, 3);
        QCOMPARE(list.size(), 3);
        QCOMPARE(list.at(0).body, QStringLiteral("3"));
        QCOMPARE(list.at(2).body, QStringLiteral("answer"));
        QCOMPARE(list.at(2).fromJid, peer);
        QCOMPARE(m_core->messages(other, 10).size(), 1);
    }

    void simulatedLifeIsRepeatable()
    {
        QList<QMap<QString, PresenceData>> courses;
        for (int round = 0; round < 2; ++round) {
            m_folder.reset(new QTemporaryDir);
            start();
            PresenceSimulator simulator(m_core.get(), 5);
            QSignalSpy batches(m_core.get(), &Core::presenceChanged);
            simulator.changePresence(40);
            QCOMPARE(batches.size(), 1); // one signal for the batch
            const auto changed = batches.first().first().value<QMap<QString, PresenceData>>();
            QVERIFY(changed.size() > 5);
            QVERIFY(!changed.contains(m_core->ownJid()));
            for (auto at = changed.begin(); at != changed.end(); ++at)
                QCOMPARE(m_core->presence(at.key()), at.value());
            courses.append(changed);
        }
        QCOMPARE(courses.at(0), courses.at(1));
    }

    void theSimulatorAnswersMessages()
    {
        PresenceSimulator simulator(m_core.get(), 5);
        simulator.setPresenceRate(600000, 0);
        simulator.start();
        QString peer;
        for (const FriendData &contact : m_core->contacts()) {
            if (contact.jid != m_core->ownJid() && m_core->presence(contact.jid).isOnline())
                peer = contact.jid;
        }
        m_core->sendMessage(peer, MessageData::Person, QStringLiteral("hello"));
        QTRY_COMPARE(m_core->messages(peer, 10).size(), 2);
        QCOMPARE(m_core->messages(peer, 10).last().fromJid, peer);
    }

private:
    void askEverything()
    {
        const QString jid = m_core->contacts().at(1).jid;
        const QString room = m_core->rooms().first().roomJid;
        m_core->requestGroups(true);
        m_core->requestContacts();
        m_core->createGroup(QStringLiteral("new"));
        m_core->renameGroup(QStringLiteral("2"), QStringLiteral("new"));
        m_core->deleteGroup(QStringLiteral("2"));
        m_core->moveContact(m_core->ownJid(), QString(), QStringLiteral("2"));
        m_core->removeContact(jid);
        m_core->setRemark(jid, QStringLiteral("r"));
        m_core->requestPolicy(jid);
        m_core->addContact(stranger(SampleCompany::AcceptsAll), QString(), QString(), QString());
        m_core->addContacts({stranger(SampleCompany::AcceptsAll)}, QString());
        m_core->requestProfile(jid, true);
        m_core->storeOwnProfile(VcardInfo());
        m_core->createRoom({jid}, QStringLiteral("s"));
        m_core->renameRoom(room, QStringLiteral("s"));
        m_core->quitRoom(room);
        m_core->dismissRoom(room);
        m_core->classifyRoom(room, MucData::LocalRoom);
        m_core->addRoomMembers(room, {jid});
        m_core->removeRoomMember(room, jid);
        m_core->setRoomManager(room, jid, true);
        m_core->handOverRoom(room, jid);
        m_core->sendMessage(jid, MessageData::Person, QStringLiteral("x"));
    }

    // Every failed answer leaves the name of its request in *list.

    void countFailures(QStringList *list)
    {
        Core *core = m_core.get();
        const auto note = [list](const char *name, bool success = false) {
            if (!success)
                list->append(QString::fromLatin1(name));
        };
        using Text = const QString &;
        connect(core, &Core::groupsFailed, core, [note](bool) { note("requestGroups"); });
        connect(core, &Core::groupCreated, core,
                [note](Text, Text, bool success) { note("createGroup", success); });
        connect(core, &Core::groupRenamed, core,
                [note](Text, Text, bool success) { note("renameGroup", success); });
        connect(core, &Core::groupDeleted, core,
                [note](Text, bool success) { note("deleteGroup", success); });
        connect(core, &Core::contactMoved, core,
                [note](bool success) { note("moveContact", success); });
        connect(core, &Core::contactRemovalFailed, core, [note] { note("removeContact"); });
        connect(core, &Core::additionFailed, core, [note] { note("addContact"); });
        connect(core, &Core::batchAdditionFailed, core, [note] { note("addContacts"); });
        connect(core, &Core::profileFailed, core, [note] { note("requestProfile"); });
        connect(core, &Core::requestFailed, core, [list](Text request) { list->append(request); });
    }
};

FRIENDUI_TEST(TstEmbeddedCore)
#include "tst_embeddedcore.moc"
