// The embedded core's groups and contacts: what is refused, how people answer, and
// that a restart shows what was changed.
#include "tests/host/corefixture.h"
#include "tests/support/testrunner.h"

using Core = EmbeddedCore;

class TstEmbeddedRoster : public CoreFixture
{
    Q_OBJECT

private slots:
    void groupNames_data()
    {
        const Rows<QString, bool> row{"name", "accepted"};
        row("plain", "Friends", true);
        row("trimmed", "  Friends ", true);
        row("markup and quotes", "<b>'); DROP TABLE contacts;--", true);
        row("long", QString(10000, QLatin1Char('n')), true);
        row("lone surrogate", QString(QChar(0xd800)) + QStringLiteral("x"), true);
        row("empty", "", false);
        row("blanks", " \t", false);
        row("taken", "Engineering", false);
        row("taken after trimming", " Engineering ", false);
        row("default group", QString::fromUtf8("我的好友"), false);
        row("frequent group", QString::fromUtf8("常用联系人"), false);
    }

    void groupNames()
    {
        QFETCH(QString, name);
        QFETCH(bool, accepted);
        QSignalSpy created(m_core.get(), &Core::groupCreated);
        m_core->createGroup(name);
        QVERIFY(created.wait());
        QCOMPARE(created.first().at(1).toString(), name.trimmed());
        QCOMPARE(created.first().at(2).toBool(), accepted);

        const QString source = groupId(QStringLiteral("Support"));
        QSignalSpy renamed(m_core.get(), &Core::groupRenamed);
        m_core->renameGroup(accepted ? created.first().at(0).toString() : source,
                            accepted ? name + QLatin1Char('2') : name);
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
            m_core->renameGroup(id, QStringLiteral("new"));
            m_core->deleteGroup(id);
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
        m_core->deleteGroup(id);
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
        m_core->createGroup(QStringLiteral("again"));
        QVERIFY(created.wait());
        QVERIFY(created.first().at(0).toString() != id);
    }

    void moves_data()
    {
        const Rows<QString, QString, QString, bool> row{"jid", "from", "to", "accepted"};
        const QString own = QStringLiteral("u000000@corp.example"); // in the default group
        row("by id", own, "", "2", true);
        row("default group as 0", own, "0", "2", true);
        row("same group", own, "", "0", true);
        row("unknown contact", "u000999@corp.example", "", "2", false);
        row("unknown group", own, "", "55", false);
        row("not from there", own, "3", "2", false);
        row("an external group", own, "", "901", false);
    }

    void moves()
    {
        QFETCH(QString, jid);
        QFETCH(QString, to);
        QFETCH(bool, accepted);
        QFETCH(QString, from);
        QSignalSpy moved(m_core.get(), &Core::contactMoved);
        m_core->moveContact(jid, from, to);
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
        m_core->removeContact(gone);
        m_core->removeContact(gone);             // no longer there
        m_core->removeContact(m_core->ownJid()); // never
        m_core->removeContact(last);             // is an external one
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
        const Rows<int, QString, bool> row{"policy", "config", "added"};
        row("accepts", int(SampleCompany::AcceptsAll), "ACCEPT_ALL", true);
        row("asks", int(SampleCompany::AsksFirst), "NEED_CONFIRM", true);
        row("refuses", int(SampleCompany::RefusesAll), "DENY_ALL", false);
    }

    void addingFollowsThePersonsPolicy()
    {
        QFETCH(int, policy);
        QFETCH(bool, added);
        const QString jid = stranger(SampleCompany::Policy(policy));
        QSignalSpy policies(m_core.get(), &Core::policyReceived);
        m_core->requestPolicy(jid);
        QVERIFY(policies.wait());
        QTEST(policies.first().at(1).toString(), "config");

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

    void whoIsAskedMayRefuse()
    {
        const QString jid = stranger(SampleCompany::AsksFirst);
        QSignalSpy answers(m_core.get(), &Core::requestAnswered);
        QSignalSpy refusals(m_core.get(), &Core::requestRefused);
        m_core->setRefusal(QStringLiteral("no"));
        m_core->addContact(jid, QStringLiteral("hello"), QString(), QString());
        QVERIFY(refusals.wait());
        QCOMPARE(refusals.first(), QVariantList({jid, QStringLiteral("no")}));
        QCOMPARE(answers.size(), 1);
        QVERIFY(!answers.first().at(1).toBool());
        QVERIFY(!m_core->contact(jid, &m_record));

        m_core->setRefusal(QString()); // and is asked again
        m_core->addContact(jid, QStringLiteral("hello"), QString(), QString());
        QTRY_COMPARE(answers.size(), 2);
        QVERIFY(answers.last().at(1).toBool());
        QVERIFY(m_core->contact(jid, &m_record));
    }

    void whoIsAskedTwiceAnswersOnce()
    {
        QStringList asked;
        for (int i = 1; asked.size() < 2; ++i) {
            const QString jid = SampleCompany::uid(i) + QStringLiteral("@corp.example");
            if (m_core->company().policy(i) == SampleCompany::AsksFirst &&
                !m_core->contact(jid, &m_record))
                asked.append(jid);
        }
        QStringList answered;
        connect(m_core.get(), &Core::requestAnswered, this,
                [&answered](const QString &jid) { answered.append(jid); });
        m_core->addContact(asked[0], QString(), QStringLiteral("1"), QString());
        m_core->addContact(asked[0], QString(), QStringLiteral("2"), QStringLiteral("again"));
        m_core->addContact(asked[1], QString(), QString(), QString());
        QTRY_COMPARE(answered, asked);
        QCOMPARE(record(asked[0]).groupId, QStringLiteral("2"));
        QCOMPARE(record(asked[0]).remark, QStringLiteral("again"));
    }

    void aGroupThatIsGoneWhenTheAnswerComes()
    {
        const QString jid = stranger(SampleCompany::AsksFirst);
        QSignalSpy answers(m_core.get(), &Core::requestAnswered);
        QSignalSpy deleted(m_core.get(), &Core::groupDeleted);
        m_core->setConfirmationDelay(60);
        m_core->addContact(jid, QString(), QStringLiteral("2"), QString());
        m_core->deleteGroup(QStringLiteral("2"));
        QVERIFY(answers.wait());
        QCOMPARE(deleted.size(), 1);
        QVERIFY(answers.first().at(1).toBool());
        QCOMPARE(record(jid).groupId, QString());
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
        m_core->addContact(stranger(SampleCompany::AsksFirst), QString(), QStringLiteral("66"),
                           QString());
        QTRY_COMPARE(failed.size(), 5);
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
};

FRIENDUI_TEST(TstEmbeddedRoster)
#include "tst_embeddedroster.moc"
