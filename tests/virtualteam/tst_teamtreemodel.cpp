// Levels, their states, and single changes of the tree of teams.
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teammaker.h"

namespace {
const QString T = QStringLiteral("T");
} // namespace

class TstTeamTreeModel : public QObject
{
    Q_OBJECT

private slots:
    void orderOfMembers()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        QList<CVirtualTeamMemberInfo> members = membersOf("zoe* adam bert# carl+ dora+ eve* 5");
        members[5].role = 3;                                     // any other number: a member's
        members[6].nickName = QString::fromUtf8("\u5f20\u4e09"); // zhangsan: before zoe
        members[6].presence.mobile = PresenceData::Android;
        tree.model.setLevel(T, QString(), groupsOf("G2 G1"), members);
        QCOMPARE(tree.rows(), QStringLiteral("T(G2 G1 bert carl dora eve 5 zoe adam)"));
    }

    void statesOfALevel()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        const QModelIndex team = tree.model.teamIndex(T);
        QVERIFY(tree.model.hasChildren(team));
        const auto state = [&](TeamChildren to) {
            tree.model.setChildrenState(T, rootGroupId(), to);
            return tree.rows();
        };
        QCOMPARE(state(TeamChildren::Loading), QStringLiteral("T(~)"));
        QCOMPARE(state(TeamChildren::Failed), QStringLiteral("T(!)"));
        QCOMPARE(state(TeamChildren::Loading), QStringLiteral("T(~)"));
        tree.level("0", "", "");
        QCOMPARE(tree.rows(), QStringLiteral("T(-)"));
        tree.level("0", "G", "a");
        QCOMPARE(tree.rows(), QStringLiteral("T(G a)"));
        // What is there stays while it is loaded again, also when that fails.
        QCOMPARE(state(TeamChildren::Loading), QStringLiteral("T(G a)"));
        QCOMPARE(state(TeamChildren::Failed), QStringLiteral("T(G a)"));
        QVERIFY(tree.model.removeMember(T, QStringLiteral("a")));
        QVERIFY(tree.model.removeGroup(T, QStringLiteral("G")));
        QCOMPARE(tree.rows(), QStringLiteral("T(!)"));
        QCOMPARE(state(TeamChildren::NotAsked), QStringLiteral("T"));
        QVERIFY(tree.model.hasChildren(team));
    }

    void levelOfWhatHasGone()
    {
        TeamModelFixture tree;
        LogCapture log(tree.host);
        tree.model.setTeams({makeTeam(T)});
        QVERIFY(!tree.model.setLevel(T, QStringLiteral("G"), {}, membersOf("a")));
        QVERIFY(!tree.model.setLevel(QStringLiteral("X"), rootGroupId(), {}, membersOf("a")));
        QCOMPARE(log.linesWith("item is null").size(), 2);
        QCOMPARE(tree.rows(), QStringLiteral("T"));
    }

    void teamsKeepWhatIsLoaded()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T), makeTeam(QStringLiteral("S")), makeTeam(T)});
        tree.level("0", "G", "a");
        const QPersistentModelIndex a = tree.member("a");
        const TeamModelSteps steps(&tree.model);
        tree.model.setTeams({makeTeam(QStringLiteral("R")), makeTeam(QStringLiteral("S")),
                             makeTeam(T, TeamRole::Owner, 3), makeTeam(QString())});
        QCOMPARE(tree.rows(), QStringLiteral("R S T(G a)"));
        QCOMPARE(a.data(TeamRowRole::Id).toString(), QStringLiteral("a"));
        QCOMPARE(tree.model.team(a).role, TeamRole::Owner);
        QCOMPARE(steps.changed, 1);
        QCOMPARE(steps.reset, 0);
        tree.model.setTeams({makeTeam(QStringLiteral("R"))});
        QCOMPARE(tree.rows(), QStringLiteral("R"));
        QVERIFY(!tree.member("a").isValid());
    }

    // A refresh costs what has changed.
    void refreshTouchesWhatChanged_data()
    {
        const Rows<QByteArray, QByteArray, int, int, int, int> row{
            "members", "then", "inserts", "removes", "moves and layouts", "data changes"};
        row("nothing", "a b c", "a b c", 0, 0, 0, 0);
        row("another order of the service", "a b c", "c b a", 0, 0, 0, 0);
        row("one comes", "a c", "a b c", 1, 0, 0, 0);
        row("one goes", "a b c", "a c", 0, 1, 0, 0);
        row("one is reachable", "a b c", "a b c*", 0, 0, 1, 1);
        row("two change places", "a b c d", "a c* b d*", 0, 0, 1, 1);
        row("runs", "a b f g", "b c d e g", 1, 2, 0, 0);
    }

    void refreshTouchesWhatChanged()
    {
        QFETCH(QByteArray, members);
        QFETCH(QByteArray, then);
        QFETCH(int, inserts);
        QFETCH(int, removes);
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        tree.level("0", "G", members);
        const TeamModelSteps steps(&tree.model);
        tree.level("0", "G", then);
        QCOMPARE(steps.inserted, inserts);
        QCOMPARE(steps.removed, removes);
        QTEST(steps.moved + steps.laidOut, "moves and layouts");
        QTEST(steps.changed, "data changes");
    }

    void memberListedElsewhereMoves()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        tree.level("0", "G H", "a b c d");
        tree.level("G", "", "");
        const QPersistentModelIndex b = tree.member("b");
        tree.level("G", "", "d b e");
        QCOMPARE(tree.rows(), QStringLiteral("T(G(b d e) H a c)"));
        QCOMPARE(b, QPersistentModelIndex(tree.member("b")));
        tree.level("0", "G H", "b c d e a");
        QCOMPARE(tree.rows(), QStringLiteral("T(G(-) H a b c d e)"));
        QCOMPARE(b.data(TeamRowRole::Id).toString(), QStringLiteral("b"));
    }

    void moveMembers()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        tree.level("0", "G H", "a b c d");
        tree.level("G", "", "bert");
        const QPersistentModelIndex c = tree.member("c");
        tree.model.moveMembers(T, QStringLiteral("G"),
                               {QStringLiteral("c"), QStringLiteral("a"), QStringLiteral("c"),
                                QStringLiteral("bert"), QStringLiteral("nobody")});
        QCOMPARE(tree.rows(), QStringLiteral("T(G(a bert c) H b d)"));
        QCOMPARE(c.parent(), tree.group("G"));
        // Nobody knows yet who else is there.
        tree.model.moveMembers(T, QStringLiteral("H"), {QStringLiteral("b")});
        QCOMPARE(tree.rows(), QStringLiteral("T(G(a bert c) H d)"));
        tree.model.moveMembers(T, rootGroupId(),
                               {QStringLiteral("a"), QStringLiteral("bert"), QStringLiteral("c")});
        QCOMPARE(tree.rows(), QStringLiteral("T(G(-) H a bert c d)"));
        tree.model.moveMembers(T, QStringLiteral("G"), {QStringLiteral("d")});
        QCOMPARE(tree.rows(), QStringLiteral("T(G(d) H a bert c)"));
    }

    void samePersonInTwoTeams()
    {
        TeamModelFixture tree;
        const QString S = QStringLiteral("S");
        tree.model.setTeams({makeTeam(T), makeTeam(S)});
        tree.level("0", "", "a b");
        tree.model.setLevel(S, rootGroupId(), {}, membersOf("a b"));
        tree.model.setNickName(S, QStringLiteral("a"), QStringLiteral("zoe"));
        tree.model.setPhoto(QStringLiteral("b"), QStringLiteral("b.png"));
        QCOMPARE(tree.rows(), QStringLiteral("T(a b) S(b a)"));
        QCOMPARE(tree.member("b").data(TeamRowRole::Photo).toString(), QStringLiteral("b.png"));
        QVERIFY(tree.model.removeMember(T, QStringLiteral("a")));
        QVERIFY(!tree.model.removeMember(T, QStringLiteral("a")));
        tree.presence("a", PresenceData::Available);
        QCOMPARE(tree.rows(), QStringLiteral("T(b) S(a b)"));
    }

    void rolesAndNamesMove()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        tree.level("0", "", "a# b c d");
        tree.model.setRole(T, QStringLiteral("d"), TeamRole::SubAdministrator);
        QCOMPARE(tree.rows(), QStringLiteral("T(a d b c)"));
        tree.model.setNickName(T, QStringLiteral("b"), QStringLiteral("x"));
        QCOMPARE(tree.rows(), QStringLiteral("T(a d c b)"));
        tree.model.setDuty(T, QStringLiteral("b"), QStringLiteral("Tester"));
        QCOMPARE(tree.member("b").data(TeamRowRole::Duty).toString(), QStringLiteral("Tester"));
    }

    void whereRowsAre()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T), makeTeam(QStringLiteral("S"))});
        tree.level("0", "G", "a");
        tree.level("G", "H", "b");
        QCOMPARE(tree.model.level(tree.member("b")), 1);
        QCOMPARE(tree.model.level(tree.group("H")), 2);
        QCOMPARE(tree.model.level(tree.member("a")), 0);
        QCOMPARE(tree.model.groupId(tree.member("a")), rootGroupId());
        QCOMPARE(tree.model.groupId(tree.member("b")), QStringLiteral("G"));
        QCOMPARE(tree.model.group(tree.group("H")).vtName, QStringLiteral("H"));
        QCOMPARE(tree.model.team(tree.group("H")).vtId, T);
        QCOMPARE(tree.model.loadedMembers(T),
                 QStringList({QStringLiteral("a"), QStringLiteral("b")}));
        QCOMPARE(tree.model.askedGroups(T), QStringList({rootGroupId(), QStringLiteral("G")}));
        tree.model.expire(T);
        tree.level("G", "H", "b");
        QVERIFY(tree.model.isStale(T, rootGroupId()));
        QVERIFY(!tree.model.isStale(T, QStringLiteral("G")));
    }
};

FRIENDUI_TEST(TstTeamTreeModel)
#include "tst_teamtreemodel.moc"
