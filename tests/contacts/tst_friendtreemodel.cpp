// Contacts and groups in the model of the friend tree.
#include "tests/contacts/modelfixture.h"
#include "tests/support/testrunner.h"

class TstFriendTreeModel : public ModelFixture
{
    Q_OBJECT

private slots:
    void batchIsOneInsertionPerGroup()
    {
        QList<FriendData> contacts;
        for (int i = 0; i < 500; ++i) {
            contacts.append(makeContact(QStringLiteral("u%1").arg(i),
                                        QStringLiteral("n%1").arg(i % 37),
                                        i % 2 ? QStringLiteral("g1") : QStringLiteral("g2")));
        }
        const RowSignals seen(model.get());
        model->mergeContacts(contacts);
        QCOMPARE(seen.counts(), QVector<int>({2, 0, 0, 0, 0}));
        QCOMPARE(rows(QStringLiteral("g1")).size(), 250);
        QCOMPARE(counts(QStringLiteral("g2")), QStringLiteral("0/250"));
    }

    void refreshOfTheSameKeepsEverything()
    {
        QList<FriendData> contacts;
        for (int i = 0; i < 100; ++i)
            contacts.append(
                makeContact(QStringLiteral("u%1").arg(i), QStringLiteral("n%1").arg(i)));
        model->mergeContacts(contacts);
        const QPersistentModelIndex held = model->contactIndex(jid(QStringLiteral("u50")));
        const RowSignals seen(model.get());
        const QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
        model->mergeGroups({{QStringLiteral("g2"), QStringLiteral("Beta")},
                            {QStringLiteral("g1"), QStringLiteral("Alpha")}});
        model->mergeContacts(contacts);
        QCOMPARE(seen.counts(), QVector<int>({0, 0, 0, 0, 0}));
        QCOMPARE(changed.count(), 0);
        QCOMPARE(held.data(FriendTreeRole::Id).toString(), jid(QStringLiteral("u50")));
    }

    void mergeUpdatesByJid()
    {
        model->mergeContacts({makeContact(QStringLiteral("u1"), QStringLiteral("anna")),
                              makeContact(QStringLiteral("u2"), QStringLiteral("bob")),
                              makeContact(QStringLiteral("u3"), QStringLiteral("carl"))});
        const RowSignals seen(model.get());
        model->mergeContacts({makeContact(QStringLiteral("u1"), QStringLiteral("zoe"))});
        QCOMPARE(seen.counts(), QVector<int>({0, 0, 1, 0, 0}));
        QCOMPARE(rows(QStringLiteral("g1")), QStringList({"u2", "u3", "u1"}));
        model->mergeContacts(
            {makeContact(QStringLiteral("u1"), QStringLiteral("zoe"), QStringLiteral("g2"))});
        QCOMPARE(rows(QStringLiteral("g2")), QStringList({"u1"}));
        QCOMPARE(counts(QStringLiteral("g1")), QStringLiteral("0/2"));
    }

    void recordsWithoutJid()
    {
        FriendData nobody;
        nobody.nickName = QStringLiteral("nobody");
        model->mergeContacts({nobody});
        QCOMPARE(model->contactCount(), 0);
        QCOMPARE(model->rowCount(), 2);
    }

    void contactsBeforeTheirGroups()
    {
        model->mergeContacts(
            {makeContact(QStringLiteral("u1"), QStringLiteral("anna"), QStringLiteral("g9")),
             makeContact(QStringLiteral("u2"), QStringLiteral("bob"), QString())});
        // An unknown group: the default group, made on demand.
        QCOMPARE(model->groupOf(jid(QStringLiteral("u1"))), QString());
        QCOMPARE(model->groupName(QString()), QString::fromUtf8("我的好友"));
        model->changeContact(jid(QStringLiteral("u1")),
                             [](FriendData &contact) { contact.remark = QStringLiteral("Ann"); });
        model->mergeGroups({{QStringLiteral("g9"), QStringLiteral("Nine")}});
        QCOMPARE(rows(QStringLiteral("g9")), QStringList({"u1"}));
        QCOMPARE(rows(QString()), QStringList({"u2"}));
    }

    void defaultGroupIsNotDoubled()
    {
        // All groups come after the contacts, among them the host's default group.
        model->mergeContacts(
            {makeContact(QStringLiteral("u1"), QStringLiteral("anna"), QStringLiteral("g0")),
             makeContact(QStringLiteral("u2"), QStringLiteral("bob"), QString())});
        model->mergeGroups({{QStringLiteral("g0"), QString::fromUtf8("我的好友")}});
        QCOMPARE(groupIds(), QStringList({"g1", "g2", "g0"}));
        QCOMPARE(rows(QStringLiteral("g0")), QStringList({"u1", "u2"}));
    }

    void hostsOwnDefaultGroupStays()
    {
        // The host may itself have a group without id, and it may be empty.
        const QString name = QString::fromUtf8("我的好友");
        model->mergeGroups({{QStringLiteral(""), name}});
        model->mergeGroups({{QStringLiteral("g3"), QStringLiteral("Gamma")}});
        QVERIFY(model->hasGroup(QString()));
    }

    void removesAGroupWithContacts()
    {
        model->setHideOffline(true);
        model->mergeContacts({makeContact(QStringLiteral("u1"), QStringLiteral("anna")),
                              makeContact(QStringLiteral("u2"), QStringLiteral("bob"))});
        model->setPresence({{jid(QStringLiteral("u1")), makePresence(1)}});
        QVERIFY(!model->removeGroup(QStringLiteral("gone")));
        QVERIFY(model->removeGroup(QStringLiteral("g1")));
        QCOMPARE(groupIds(), QStringList({"g2", ""}));
        QCOMPARE(rows(QString()), QStringList({"u1"}));
        QCOMPARE(counts(QString()), QStringLiteral("1/2"));
        // The default group itself: its contacts need another one of that name.
        QVERIFY(model->removeGroup(QString()));
        QCOMPARE(counts(QString()), QStringLiteral("1/2"));
    }

    void renamesGroups()
    {
        const QString frequent = QString::fromUtf8("常用联系人");
        QVERIFY(!model->renameGroup(QStringLiteral("gone"), QStringLiteral("x")));
        QVERIFY(model->frequentGroupId().isEmpty());

        QVERIFY(model->renameGroup(QStringLiteral("g1"), QStringLiteral("Zeta")));
        QCOMPARE(groupIds(), QStringList({"g2", "g1"}));
        const RowSignals seen(model.get());
        QVERIFY(model->renameGroup(QStringLiteral("g1"), QStringLiteral("Zebra")));
        QCOMPARE(seen.counts(), QVector<int>({0, 0, 0, 0, 0}));
        QVERIFY(model->renameGroup(QStringLiteral("g1"), QString()));
        QCOMPARE(model->groupName(QStringLiteral("g1")), QStringLiteral("Zebra"));

        QVERIFY(model->renameGroup(QStringLiteral("g1"), frequent));
        QCOMPARE(groupIds(), QStringList({"g1", "g2"}));
        QCOMPARE(model->frequentGroupId(), QStringLiteral("g1"));
        QCOMPARE(model->groupIndex(QStringLiteral("g1")).data(FriendTreeRole::SortKey).toString(),
                 QStringLiteral("1|") + frequent);
        QVERIFY(model->renameGroup(QStringLiteral("g1"), QStringLiteral("Zebra")));
        QCOMPARE(groupIds(), QStringList({"g2", "g1"}));
        QVERIFY(model->frequentGroupId().isEmpty());

        model->renameGroup(QStringLiteral("g1"), frequent);
        model->removeGroup(QStringLiteral("g1"));
        QVERIFY(model->frequentGroupId().isEmpty());
    }

    void frequentGroupOfTwo()
    {
        const QString frequent = QString::fromUtf8("常用联系人");
        model->renameGroup(QStringLiteral("g1"), frequent);
        model->renameGroup(QStringLiteral("g2"), frequent);
        model->renameGroup(QStringLiteral("g2"), QStringLiteral("Beta"));
        QCOMPARE(model->frequentGroupId(), QStringLiteral("g1"));
        model->renameGroup(QStringLiteral("g2"), frequent);
        model->removeGroup(QStringLiteral("g1"));
        QCOMPARE(model->frequentGroupId(), QStringLiteral("g2"));
    }

    void roles()
    {
        FriendData contact = makeContact(QStringLiteral("u1"), QString::fromUtf8("李明"));
        contact.headPath = QStringLiteral("/pictures/u1.png");
        contact.onJob = 0;
        context->cooperation.insert(contact.jid, true);
        context->presences.insert(contact.jid, makePresence(4, 2));
        model->mergeContacts({contact});
        const QModelIndex index = model->contactIndex(contact.jid);
        // By number: hosts and style sheets know the roles so.
        QCOMPARE(index.data(257).toString(), QString::fromUtf8("李明"));
        QCOMPARE(index.data(258).toString(), contact.jid);
        QCOMPARE(index.data(259).toString(), contact.headPath);
        QCOMPARE(index.data(260), QVariant(4));
        QCOMPARE(index.data(262).toString(), QStringLiteral("2|LIMING"));
        QCOMPARE(index.data(263), QVariant(true));
        QCOMPARE(index.data(280), QVariant(8));
        QCOMPARE(index.data(330), QVariant(2));
        QCOMPARE(index.parent().data(280), QVariant(10));
        QCOMPARE(index.parent().data(262).toString(), QStringLiteral("2|Alpha"));
        model->setCooperation({{contact.jid, false}, {QStringLiteral("stranger"), true}});
        QCOMPARE(index.data(263), QVariant(false));

        contact.outside = 1;
        FriendTreeModel other(ExternalContactRow);
        other.mergeContacts({contact});
        QCOMPARE(other.contactIndex(contact.jid).data(280), QVariant(9));
    }

    // Twenty thousand new contacts between twenty thousand old ones must not take one
    // insertion each: the views behind the model pay for every signal.
    void largeMergeIntoALargeGroup()
    {
        tester.reset();
        QList<FriendData> even;
        QList<FriendData> odd;
        for (int i = 0; i < 20000; ++i) {
            auto &half = i % 2 ? odd : even;
            half.append(makeContact(QStringLiteral("u%1").arg(i),
                                    QStringLiteral("n%1").arg(i, 6, 10, QLatin1Char('0'))));
        }
        model->mergeContacts(even);
        const QPersistentModelIndex held = model->contactIndex(even.at(777).jid);
        const RowSignals seen(model.get());
        model->mergeContacts(odd);
        QVERIFY2(seen.inserted.count() < 100, qPrintable(QString::number(seen.inserted.count())));
        QCOMPARE(seen.reset.count(), 0);
        QCOMPARE(held.data(FriendTreeRole::Id).toString(), even.at(777).jid);
        const QStringList users = rows(QStringLiteral("g1"));
        for (int i = 0; i < users.size(); ++i)
            QCOMPARE(users.at(i), QStringLiteral("u%1").arg(i));
    }
};

FRIENDUI_TEST(TstFriendTreeModel)
#include "tst_friendtreemodel.moc"
