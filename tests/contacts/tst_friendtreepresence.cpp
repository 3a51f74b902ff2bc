// Presence in the model of the friend tree: order, counts, hidden rows.
#include "tests/contacts/modelfixture.h"
#include "tests/support/testrunner.h"

class TstFriendTreePresence : public ModelFixture
{
    Q_OBJECT

private slots:
    void presenceUnknown()
    {
        model->mergeContacts({makeContact(QStringLiteral("u1"), QStringLiteral("anna"))});
        model->setPresenceUnknown(true);
        QCOMPARE(role(QStringLiteral("u1"), 260), QVariant(1));
        QVERIFY(!role(QStringLiteral("u1"), 330).isValid());
        QCOMPARE(role(QStringLiteral("u1"), 262).toString(), QStringLiteral("1|anna"));
        QCOMPARE(counts(QStringLiteral("g1")), QStringLiteral("0/1"));
        model->setPresenceUnknown(false);
        QCOMPARE(role(QStringLiteral("u1"), 260), QVariant(0));
        QCOMPARE(role(QStringLiteral("u1"), 330), QVariant(0));
    }

    void ownRow()
    {
        model->setHideOffline(true);
        model->mergeContacts({makeContact(QStringLiteral("u1"), QStringLiteral("anna")),
                              makeContact(QStringLiteral("me"), QStringLiteral("zoe")),
                              makeContact(QStringLiteral("u2"), QStringLiteral("bob"))});
        model->setPresence({{jid(QStringLiteral("u1")), makePresence(1)}});
        QCOMPARE(rows(QStringLiteral("g1")), QStringList({"me", "u1"}));
        QVERIFY(!(model->contactIndex(jid(QStringLiteral("me"))).flags() & Qt::ItemIsDragEnabled));
        QVERIFY(model->contactIndex(jid(QStringLiteral("u1"))).flags() & Qt::ItemIsDragEnabled);

        const QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
        model->setOwnJid(jid(QStringLiteral("u1")));
        QCOMPARE(rows(QStringLiteral("g1")), QStringList({"u1"}));
        QCOMPARE(role(QStringLiteral("u1"), 262).toString(), QStringLiteral("0|1anna"));
        QVERIFY(changed.count() > 0);
        model->setHideOffline(false);
        QCOMPARE(rows(QStringLiteral("g1")), QStringList({"u1", "u2", "me"}));
    }

    void presenceBeforeTheContact()
    {
        context->presences.insert(jid(QStringLiteral("u1")), makePresence(0));
        model->setPresence({{jid(QStringLiteral("u1")), makePresence(2)}});
        model->mergeContacts({makeContact(QStringLiteral("u1"), QStringLiteral("zoe")),
                              makeContact(QStringLiteral("u2"), QStringLiteral("anna"))});
        QCOMPARE(rows(QStringLiteral("g1")), QStringList({"u1", "u2"}));
        QCOMPARE(counts(QStringLiteral("g1")), QStringLiteral("1/2"));
    }

    void presenceOutOfRange()
    {
        // Values that the list below does not know are online all the same, and what
        // was counted in is counted out again.
        model->mergeContacts({makeContact(QStringLiteral("u1"), QStringLiteral("anna"))});
        const QString one = jid(QStringLiteral("u1"));
        for (const int odd : {256, 65536, -1, 77, -256, 2147483647}) {
            model->setPresence({{one, makePresence(odd)}});
            QCOMPARE(counts(QStringLiteral("g1")), QStringLiteral("1/1"));
            QCOMPARE(role(QStringLiteral("u1"), 262).toString(), QStringLiteral("0|2anna"));
            model->moveContact(one, QStringLiteral("g2"));
            QCOMPARE(counts(QStringLiteral("g1")), QStringLiteral("0/0"));
            model->moveContact(one, QStringLiteral("g1"));
            model->setPresence({{one, makePresence(0, odd)}});
            QCOMPARE(counts(QStringLiteral("g1")), QStringLiteral("1/1"));
            model->setPresence({{one, makePresence(0)}});
            QCOMPARE(counts(QStringLiteral("g1")), QStringLiteral("0/1"));
        }
    }

    void allOfflineUntilTheNextPresence()
    {
        const QString one = jid(QStringLiteral("u1"));
        const QString two = jid(QStringLiteral("u2"));
        context->presences.insert(two, makePresence(1));
        model->mergeContacts({makeContact(QStringLiteral("u1"), QStringLiteral("anna"))});
        model->setPresence({{one, makePresence(1)}, {two, makePresence(1)}});
        model->setAllOffline();
        QCOMPARE(model->onlineCount(), 0);
        // Who comes now is offline, whatever was known of him.
        model->mergeContacts({makeContact(QStringLiteral("u2"), QStringLiteral("bob"))});
        QCOMPARE(model->onlineCount(), 0);
        model->setPresence({{one, makePresence(1)}});
        QCOMPARE(model->onlineCount(), 1);
        context->presences.insert(jid(QStringLiteral("u3")), makePresence(1));
        model->mergeContacts({makeContact(QStringLiteral("u3"), QStringLiteral("carl"))});
        QCOMPARE(model->onlineCount(), 2);
    }

    void hideOffline()
    {
        FriendData left = makeContact(QStringLiteral("u4"), QStringLiteral("dora"));
        left.onJob = 0;
        model->mergeContacts({makeContact(QStringLiteral("u1"), QStringLiteral("anna")),
                              makeContact(QStringLiteral("u2"), QStringLiteral("bob")),
                              makeContact(QStringLiteral("u3"), QStringLiteral("carl")), left});
        const QString group = QStringLiteral("g1");
        model->setPresence({{jid(QStringLiteral("u2")), makePresence(0, 1)},
                            {jid(QStringLiteral("u4")), makePresence(1)}});
        const QStringList all = rows(group);
        model->setHideOffline(true);
        QCOMPARE(rows(group), QStringList({"u2", "u4"}));
        QCOMPARE(counts(group), QStringLiteral("2/4"));
        QVERIFY(!model->contactIndex(jid(QStringLiteral("u1"))).isValid());
        QVERIFY(model->hasContact(jid(QStringLiteral("u1"))));

        // Hidden rows are kept in step: moved, renamed, deleted, back online.
        model->moveContact(jid(QStringLiteral("u1")), QStringLiteral("g2"));
        QCOMPARE(rows(QStringLiteral("g2")), QStringList());
        QCOMPARE(counts(QStringLiteral("g2")), QStringLiteral("0/1"));
        model->changeContact(jid(QStringLiteral("u3")),
                             [](FriendData &c) { c.remark = QStringLiteral("aaron"); });
        model->setPresence({{jid(QStringLiteral("u3")), makePresence(5)}});
        QCOMPARE(rows(group), QStringList({"u3", "u2", "u4"}));
        model->setPresence({{jid(QStringLiteral("u3")), makePresence(0)}});
        QVERIFY(model->removeContact(jid(QStringLiteral("u3"))));
        model->moveContact(jid(QStringLiteral("u1")), group);
        model->setHideOffline(false);
        QCOMPARE(rows(group), QStringList({"u2", "u1", "u4"}));
        QVERIFY(all.size() == 4);
    }

    void frozenOrder()
    {
        model->mergeContacts({makeContact(QStringLiteral("u1"), QStringLiteral("anna")),
                              makeContact(QStringLiteral("u2"), QStringLiteral("bob")),
                              makeContact(QStringLiteral("u3"), QStringLiteral("carl"))});
        const QString group = QStringLiteral("g1");
        model->setOrderFrozen(true);
        const RowSignals seen(model.get());
        model->setPresence({{jid(QStringLiteral("u3")), makePresence(1)}});
        model->changeContact(jid(QStringLiteral("u1")),
                             [](FriendData &c) { c.remark = QStringLiteral("zoe"); });
        QCOMPARE(rows(group), QStringList({"u1", "u2", "u3"}));
        QCOMPARE(role(QStringLiteral("u3"), 260), QVariant(1));
        QCOMPARE(role(QStringLiteral("u1"), 262).toString(), QStringLiteral("1|zoe"));
        QCOMPARE(counts(group), QStringLiteral("1/3"));
        QCOMPARE(seen.counts(), QVector<int>({0, 0, 0, 0, 0}));
        // Who waits may go before the thaw.
        QVERIFY(model->removeContact(jid(QStringLiteral("u1"))));
        model->setOrderFrozen(false);
        QCOMPARE(rows(group), QStringList({"u3", "u2"}));
    }

    // So many arrive at once that the group would be sorted anew: who waits still waits.
    void manyArriveWhileFrozen()
    {
        QList<FriendData> even;
        QList<FriendData> odd;
        for (int i = 100; i < 400; ++i) {
            const QString number = QString::number(i);
            (i % 2 ? odd : even).append(makeContact(QStringLiteral("u") + number, number));
        }
        model->mergeContacts(even);
        model->setOrderFrozen(true);
        model->setPresence({{jid(QStringLiteral("u398")), makePresence(1)}});
        model->mergeContacts(odd);
        QCOMPARE(rows(QStringLiteral("g1")).indexOf(QStringLiteral("u398")), 298);
        model->setOrderFrozen(false);
        QCOMPARE(rows(QStringLiteral("g1")).indexOf(QStringLiteral("u398")), 0);
    }
};

FRIENDUI_TEST(TstFriendTreePresence)
#include "tst_friendtreepresence.moc"
