// Presence in the tree of teams, and that nothing moves while the order is frozen.
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teammaker.h"

namespace {

const QString T = QStringLiteral("T");

PresenceData shown(PresenceData::ePcShowType show)
{
    PresenceData presence;
    presence.pcShow = show;
    return presence;
}

} // namespace

class TstTeamTreePresence : public QObject
{
    Q_OBJECT

private slots:
    void batchTouchesGroupsOnce()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        tree.level("0", "G H I", "");
        tree.level("G", "", "a b c d*");
        tree.level("H", "", "e f*");
        tree.level("I", "", "i* j#");
        const TeamModelSteps steps(&tree.model);
        // Who leads stays in front, and another kind of reachable is reachable still.
        QMap<QString, PresenceData> batch;
        for (const char *id : {"b", "c", "nobody", "j"})
            batch.insert(QString::fromLatin1(id) + QStringLiteral("@corp.example"),
                         shown(PresenceData::Available));
        batch.insert(QStringLiteral("i"), shown(PresenceData::Away));
        batch.insert(QStringLiteral("f@corp.example"), shown(PresenceData::Available)); // as it is
        tree.model.setPresence(batch);
        QCOMPARE(tree.rows(), QStringLiteral("T(G(b c d a) H(f e) I(j i))"));
        QCOMPARE(steps.changed, 2); // of G and of I
        QCOMPARE(steps.moved + steps.laidOut, 1);
        QCOMPARE(tree.member("i").data(TeamRowRole::Presence).value<PresenceData>(),
                 shown(PresenceData::Away));
    }

    void manyGroupsLayOutOnce()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        tree.level("0", "G H", "");
        tree.level("G", "", "a b c");
        tree.level("H", "", "d e f");
        const QPersistentModelIndex b = tree.member("b");
        const TeamModelSteps steps(&tree.model);
        QMap<QString, PresenceData> batch;
        for (const char *id : {"b", "c", "e", "f"})
            batch.insert(QString::fromLatin1(id), shown(PresenceData::DoNotDisturb));
        tree.model.setPresence(batch);
        QCOMPARE(tree.rows(), QStringLiteral("T(G(b c a) H(e f d))"));
        QCOMPARE(steps.laidOut, 1);
        QCOMPARE(b, QPersistentModelIndex(tree.member("b")));
    }

    void frozenOrderWaits()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T), makeTeam(QStringLiteral("S"))});
        tree.level("0", "G H", "a b c");
        tree.model.setOrderFrozen(true);
        const TeamModelSteps steps(&tree.model);
        tree.presence("c", PresenceData::Available);
        tree.model.setNickName(T, QStringLiteral("a"), QStringLiteral("y"));
        tree.model.setTeams({makeTeam(QStringLiteral("S")), makeTeam(T)});
        QCOMPARE(tree.rows(), QStringLiteral("T(G H a b c) S"));
        QCOMPARE(steps.changed, 2);
        // Who comes finds a place among those that stand as they stood.
        tree.level("0", "H I G", "a b d c* a2");
        QCOMPARE(tree.rows(), QStringLiteral("T(G H I a a2 b c d) S"));
        tree.model.setOrderFrozen(false);
        QCOMPARE(tree.rows(), QStringLiteral("S T(H I G c a a2 b d)"));
    }

    void waitingRowsMayGo()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        tree.level("0", "G", "");
        tree.level("G", "H", "a b");
        tree.level("H", "", "c d");
        tree.model.setOrderFrozen(true);
        tree.presence("b", PresenceData::Available);
        tree.presence("d", PresenceData::Available);
        QVERIFY(tree.model.removeGroup(T, QStringLiteral("G")));
        tree.model.setOrderFrozen(false);
        QCOMPARE(tree.rows(), QStringLiteral("T(-)"));
    }

    void hostKnowsContactsBetter()
    {
        TeamModelFixture tree;
        FriendData contact;
        contact.jid = QStringLiteral("a@corp.example");
        tree.host.addContact(contact);
        tree.host.presences.insert(contact.jid, shown(PresenceData::DoNotDisturb));
        tree.host.presences.insert(QStringLiteral("b@corp.example"),
                                   shown(PresenceData::DoNotDisturb));
        tree.model.setTeams({makeTeam(T)});
        tree.level("0", "", "a b*");
        const auto shows = [&](const char *id) {
            return tree.member(id).data(TeamRowRole::Presence).value<PresenceData>().pcShow;
        };
        QCOMPARE(shows("a"), PresenceData::DoNotDisturb);
        QCOMPARE(shows("b"), PresenceData::Available);
    }
};

FRIENDUI_TEST(TstTeamTreePresence)
#include "tst_teamtreepresence.moc"
