// Every request of the embedded core: its answer, its refusals, and that a restart
// shows what was changed.
#include "host/core/embeddedcore.h"
#include "host/core/presencesimulator.h"
#include "tests/support/testrunner.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using Core = EmbeddedCore;

class TstEmbeddedCore : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qRegisterMetaType<QMap<QString, PresenceData>>("QMap<QString,PresenceData>");
    }

    void init()
    {
        m_folder.reset(new QTemporaryDir);
        start();
    }

    void cleanup()
    {
        m_core.reset();
        m_folder.reset();
    }

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
        QCOMPARE(outer, SampleCompany::OutsiderCount);
        QVERIFY(online > inner / 3 && online < inner);
        QCOMPARE(m_core->presence(m_core->ownJid()).pcShow, PresenceData::Available);
        QCOMPARE(m_core->rooms().size(), 6);
    }

    void answersComeLaterAndInOrder()
    {
        m_core->setAnswerDelay(5);
        QStringList order;
        connect(m_core.get(), &Core::groupCreated, this,
                [&](const QString &, const QString &name) { order.append(name); });
        m_core->createGroup(QStringLiteral("a"), true);
        m_core->setAnswerDelay(0); // would overtake
        m_core->createGroup(QStringLiteral("b"), true);
        m_core->createGroup(QStringLiteral("c"), true);
        QVERIFY(order.isEmpty());
        QTRY_COMPARE(order.join(QString()), QStringLiteral("abc"));
    }

    void groupNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("plain") << "Friends" << true;
        QTest::newRow("trimmed") << "  Friends " << true;
        QTest::newRow("markup and quotes") << "<b>'); DROP TABLE contacts;--" << true;
        QTest::newRow("long") << QString(10000, QLatin1Char('n')) << true;
        QTest::newRow("lone surrogate") << QString(QChar(0xd800)) + QStringLiteral("x") << true;
        QTest::newRow("empty") << "" << false;
        QTest::newRow("blanks") << " \t" << false;
        QTest::newRow("taken") << "Engineering" << false;
        QTest::newRow("taken after trimming") << " Engineering " << false;
        QTest::newRow("default group") << QString::fromUtf8("我的好友") << false;
        QTest::newRow("frequent group") << QString::fromUtf8("常用联系人") << false;
    }
    void groupNames()
    {
        QFETCH(QString, name);
        QFETCH(bool, accepted);
        QSignalSpy created(m_core.get(), &Core::groupCreated);
        m_core->createGroup(name, true);
        QVERIFY(created.wait());
        QCOMPARE(created.first().at(1).toString(), name.trimmed());
        QCOMPARE(created.first().at(2).toBool(), accepted);

        const QString source = groupId(QStringLiteral("Support"));
        QSignalSpy renamed(m_core.get(), &Core::groupRenamed);
        m_core->renameGroup(accepted ? created.first().at(0).toString() : source,
                            accepted ? name + QLatin1Char('2') : name, true);
        QVERIFY(renamed.wait());
        QCOMPARE(renamed.first().at(2).toBool(), accepted);
        QCOMPARE(m_core->groups(true).size(), accepted ? 9 : 8);
        restart();
        if (accepted && !name.contains(QChar(0xd800))) // UTF-8 cannot hold it
            QVERIFY(!groupId((name + QLatin1Char('2')).trimmed()).isEmpty());
    }

    void groupsThatStayAsTheyAre()
    {
        const QString frequent = groupId(QString::fromUtf8("常用联系人"));
        for (const QString &id : {QString(), QStringLiteral("0"), frequent, QStringLiteral("77")}) {
            QSignalSpy renamed(m_core.get(), &Core::groupRenamed);
            QSignalSpy deleted(m_core.get(), &Core::groupDeleted);
            m_core->renameGroup(id, QStringLiteral("new"), true);
            m_core->deleteGroup(id, true);
            QVERIFY(deleted.wait());
            QCOMPARE(renamed.first().at(2).toBool(), false);
            QCOMPARE(deleted.first().at(1).toBool(), false);
        }
        QCOMPARE(m_core->groups(true).size(), 8);
    }

    void deletedGroupGivesItsContactsToTheDefaultGroup()
    {
        const QString id = groupId(QStringLiteral("Engineering"));
        const QStringList members = membersOf(id);
        QVERIFY(members.size() > 3);
        QSignalSpy deleted(m_core.get(), &Core::groupDeleted);
        m_core->deleteGroup(id, true);
        QVERIFY(deleted.wait());
        QVERIFY(deleted.first().at(1).toBool());
        for (int round = 0; round < 2; ++round, restart()) {
            for (const QString &jid : members) {
                QCOMPARE(record(jid).groupId, QString::fromLatin1(""));
                QCOMPARE(record(jid).groupName, QString::fromUtf8("我的好友"));
            }
            QCOMPARE(m_core->groups(true).size(), 7);
        }
        // Its id is not given to another group.
        QSignalSpy created(m_core.get(), &Core::groupCreated);
        m_core->createGroup(QStringLiteral("again"), true);
        QVERIFY(created.wait());
        QVERIFY(created.first().at(0).toString() != id);
    }

    void moves_data()
    {
        QTest::addColumn<QString>("jid");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<bool>("inner");
        QTest::addColumn<bool>("accepted");
        const QString own = QStringLiteral("u000000@corp.example"); // in the default group
        QTest::newRow("by id") << own << ""
                               << "2" << true << true;
        QTest::newRow("default group as 0") << own << "0"
                                            << "2" << true << true;
        QTest::newRow("same group") << own << ""
                                    << "0" << true << true;
        QTest::newRow("unknown contact") << "u000999@corp.example"
                                         << ""
                                         << "2" << true << false;
        QTest::newRow("unknown group") << own << ""
                                       << "55" << true << false;
        QTest::newRow("not from there") << own << "3"
                                        << "2" << true << false;
        QTest::newRow("wrong side") << own << ""
                                    << "901" << false << false;
    }
    void moves()
    {
        QFETCH(QString, jid);
        QFETCH(QString, to);
        QFETCH(bool, accepted);
        QFETCH(QString, from);
        QFETCH(bool, inner);
        QSignalSpy moved(m_core.get(), &Core::contactMoved);
        m_core->moveContact(jid, from, to, inner);
        QVERIFY(moved.wait());
        QCOMPARE(moved.first().at(0).toBool(), accepted);
        const QString expected =
            accepted && to != QLatin1String("0") ? to : QString::fromLatin1("");
        if (m_core->contact(jid, &m_record))
            QCOMPARE(m_record.groupId, expected);
        restart();
        if (m_core->contact(jid, &m_record))
            QCOMPARE(m_record.groupId, expected);
    }

    void remarksRemovalsAndProfilesSurviveARestart()
    {
        const int before = m_core->contacts().size();
        const QString kept = m_core->contacts().at(5).jid;
        const QString gone = m_core->contacts().at(6).jid;
        const QString last = m_core->contacts().constLast().jid;
        QSignalSpy remarked(m_core.get(), &Core::remarkChanged);
        QSignalSpy removed(m_core.get(), &Core::contactRemoved);
        QSignalSpy failed(m_core.get(), &Core::contactRemovalFailed);
        QSignalSpy stored(m_core.get(), &Core::ownProfileStored);
        m_core->setRemark(kept, QString::fromUtf8(" 老王's \"<b>\" "));
        m_core->removeContact(gone, true);
        m_core->removeContact(gone, true);             // no longer there
        m_core->removeContact(m_core->ownJid(), true); // never
        m_core->removeContact(last, true);             // is an external one
        VcardInfo own;
        QVERIFY(m_core->profile(m_core->ownJid(), &own));
        own.sign = QStringLiteral("new signature");
        own.jid = QStringLiteral("u000001@corp.example"); // only the own one can be written
        m_core->storeOwnProfile(own);
        QVERIFY(stored.wait());
        QCOMPARE(remarked.size(), 1);
        QCOMPARE(removed.size(), 1);
        QCOMPARE(failed.size(), 3);
        for (int round = 0; round < 2; ++round, restart()) {
            QCOMPARE(m_core->contacts().size(), before - 1);
            QCOMPARE(record(kept).remark, QString::fromUtf8("老王's \"<b>\""));
            QVERIFY(!m_core->contact(gone, &m_record));
            QVERIFY(m_core->contact(last, &m_record)); // took the place of the removed one
            VcardInfo profile;
            QVERIFY(m_core->profile(m_core->ownJid(), &profile));
            QCOMPARE(profile.sign, QStringLiteral("new signature"));
            QCOMPARE(record(m_core->ownJid()).sign, QStringLiteral("new signature"));
            QVERIFY(m_core->profile(QStringLiteral("u000001@corp.example"), &profile));
            QVERIFY(profile.sign != QLatin1String("new signature"));
        }
    }

    void addingFollowsThePersonsPolicy_data()
    {
        QTest::addColumn<int>("policy");
        QTest::addColumn<QString>("config");
        QTest::addColumn<bool>("added");
        QTest::newRow("accepts") << int(SampleCompany::AcceptsAll) << "ACCEPT_ALL" << true;
        QTest::newRow("asks") << int(SampleCompany::AsksFirst) << "NEED_CONFIRM" << true;
        QTest::newRow("refuses") << int(SampleCompany::RefusesAll) << "DENY_ALL" << false;
    }
    void addingFollowsThePersonsPolicy()
    {
        QFETCH(int, policy);
        QFETCH(QString, config);
        QFETCH(bool, added);
        const QString jid = stranger(SampleCompany::Policy(policy));
        QSignalSpy policies(m_core.get(), &Core::policyReceived);
        m_core->requestPolicy(jid);
        QVERIFY(policies.wait());
        QCOMPARE(policies.first().at(1).toString(), config);

        QSignalSpy answers(m_core.get(), &Core::requestAnswered);
        QSignalSpy additions(m_core.get(), &Core::contactAdded);
        m_core->addContact(jid, QStringLiteral("hello"), QStringLiteral("2"),
                           QStringLiteral("a remark"));
        QVERIFY(answers.wait());
        QCOMPARE(answers.first().at(0).toString(), jid);
        QCOMPARE(answers.first().at(1).toBool(), added);
        QCOMPARE(additions.size(), added ? 1 : 0);
        restart();
        QCOMPARE(m_core->contact(jid, &m_record), added);
        if (added) {
            QCOMPARE(m_record.groupId, QStringLiteral("2"));
            QCOMPARE(m_record.remark, QStringLiteral("a remark"));
        }
    }

    void aConfirmationThatComesWhileOfflineIsHeldBack()
    {
        const QString jid = stranger(SampleCompany::AsksFirst);
        QSignalSpy answers(m_core.get(), &Core::requestAnswered);
        QSignalSpy connection(m_core.get(), &Core::connectionChanged);
        m_core->addContact(jid, QString(), QString(), QString());
        m_core->setConnected(false);
        QVERIFY(connection.wait());
        QSignalSpy failed(m_core.get(), &Core::groupsFailed);
        m_core->requestGroups(true); // answered behind the confirmation
        QVERIFY(failed.wait());
        QVERIFY(answers.isEmpty());
        m_core->setConnected(true);
        QVERIFY(answers.wait());
        QVERIFY(m_core->contact(jid, &m_record));
    }

    void peopleWhoCannotBeAdded()
    {
        QSignalSpy failed(m_core.get(), &Core::additionFailed);
        m_core->addContact(QStringLiteral("u009999@corp.example"), QString(), QString(), QString());
        m_core->addContact(QStringLiteral("u000001@elsewhere.example"), QString(), QString(),
                           QString());
        m_core->addContact(m_core->ownJid(), QString(), QString(), QString());
        m_core->addContact(stranger(SampleCompany::AcceptsAll), QString(), QStringLiteral("66"),
                           QString());
        QTRY_COMPARE(failed.size(), 4);
    }

    void aBatchReportsOnlyWhomItCouldNotAdd()
    {
        const QString good = stranger(SampleCompany::AcceptsAll);
        const QString bad = stranger(SampleCompany::RefusesAll).section(QLatin1Char('@'), 0, 0);
        QSignalSpy failed(m_core.get(), &Core::batchAdditionFailed);
        QSignalSpy added(m_core.get(), &Core::contactAdded);
        m_core->addContacts({good.section(QLatin1Char('@'), 0, 0), bad, QStringLiteral("nobody"),
                             QStringLiteral("u000000")},
                            QStringLiteral("1"));
        QVERIFY(failed.wait());
        QCOMPARE(failed.first().at(0).toStringList(),
                 QStringList({bad, QStringLiteral("nobody"), QStringLiteral("u000000")}));
        QCOMPARE(added.size(), 1);
        QCOMPARE(record(good).groupId, QStringLiteral("1"));
    }

    void everyRequestFailsWhenTold_data()
    {
        QTest::addColumn<QString>("lever");
        QTest::newRow("each") << "each";
        QTest::newRow("all") << "all";
        QTest::newRow("offline") << "offline";
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
        QVERIFY(m_core->messages(before.at(1).jid, 10).isEmpty());
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
        QCOMPARE(m_core->rooms().size(), 5);
    }

    void messagesAreKeptPerConversation()
    {
        const QString peer = m_core->contacts().at(4).jid;
        const QString other = m_core->contacts().at(5).jid;
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
    void start()
    {
        m_core.reset();
        Core::Options options;
        options.folder = m_folder->path();
        m_core = std::make_unique<Core>(options);
        m_core->setAnswerDelay(0);
        m_core->setConfirmationDelay(0);
        QString problem;
        QVERIFY2(m_core->open(&problem), qPrintable(problem));
    }
    void restart() { start(); }

    QString groupId(const QString &name) const
    {
        for (const GroupData &group : m_core->groups(true)) {
            if (group.name == name)
                return group.id;
        }
        return {};
    }

    QStringList membersOf(const QString &id) const
    {
        QStringList jids;
        for (const FriendData &contact : m_core->contacts()) {
            if (contact.groupId == id && contact.outside == 0)
                jids.append(contact.jid);
        }
        return jids;
    }

    FriendData record(const QString &jid) const
    {
        FriendData found;
        m_core->contact(jid, &found);
        return found;
    }

    QString stranger(SampleCompany::Policy policy) const
    {
        for (int i = 1; i < m_core->company().people(); ++i) {
            const QString jid = SampleCompany::uid(i) + QStringLiteral("@corp.example");
            FriendData known;
            if (m_core->company().policy(i) == policy && !m_core->contact(jid, &known))
                return jid;
        }
        return {};
    }

    void askEverything()
    {
        const QString jid = m_core->contacts().at(1).jid;
        const QString room = m_core->rooms().first().roomJid;
        m_core->requestGroups(true);
        m_core->requestContacts();
        m_core->createGroup(QStringLiteral("new"), true);
        m_core->renameGroup(QStringLiteral("2"), QStringLiteral("new"), true);
        m_core->deleteGroup(QStringLiteral("2"), true);
        m_core->moveContact(m_core->ownJid(), QString(), QStringLiteral("2"), true);
        m_core->removeContact(jid, true);
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
        m_core->sendMessage(jid, MessageData::Person, QStringLiteral("x"));
    }

    // Every failed answer leaves the name of its request in *list.
    void countFailures(QStringList *list)
    {
        Core *core = m_core.get();
        const auto note = [list](const char *name) { list->append(QString::fromLatin1(name)); };
        connect(core, &Core::groupsFailed, core, [note](bool) { note("requestGroups"); });
        connect(core, &Core::groupCreated, core,
                [note](const QString &, const QString &, bool success) {
                    if (!success)
                        note("createGroup");
                });
        connect(core, &Core::groupRenamed, core,
                [note](const QString &, const QString &, bool success) {
                    if (!success)
                        note("renameGroup");
                });
        connect(core, &Core::groupDeleted, core, [note](const QString &, bool success) {
            if (!success)
                note("deleteGroup");
        });
        connect(core, &Core::contactMoved, core, [note](bool success) {
            if (!success)
                note("moveContact");
        });
        connect(core, &Core::contactRemovalFailed, core, [note] { note("removeContact"); });
        connect(core, &Core::additionFailed, core, [note] { note("addContact"); });
        connect(core, &Core::batchAdditionFailed, core, [note] { note("addContacts"); });
        connect(core, &Core::profileFailed, core, [note] { note("requestProfile"); });
        connect(core, &Core::requestFailed, core,
                [list](const QString &request) { list->append(request); });
    }

    QScopedPointer<QTemporaryDir> m_folder;
    std::unique_ptr<Core> m_core;
    FriendData m_record;
};

FRIENDUI_TEST(TstEmbeddedCore)
#include "tst_embeddedcore.moc"
