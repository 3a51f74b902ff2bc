// Structures that no service should tell.
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teammaker.h"

namespace {
const QString T = QStringLiteral("T");
} // namespace

class TstTeamTreeHostile : public QObject
{
    Q_OBJECT

private slots:
    void levelsOfNonsense_data()
    {
        const Rows<QByteArray, QByteArray, QByteArray, QString> row{"of", "groups", "members",
                                                                    "rows"};
        row("its own sub-group", "H", "H X", "", QStringLiteral("T(G(H(X) a) b)"));
        row("a sub-group above", "H", "G 0 X", "", QStringLiteral("T(G(H(X) a) b)"));
        row("twice", "0", "G G X G", "b b", QStringLiteral("T(G(H a) X b)"));
        row("one from below", "0", "H", "", QStringLiteral("T(H)"));
        row("the same person above and below", "H", "", "a b", QStringLiteral("T(G(H(a b)))"));
    }

    void levelsOfNonsense()
    {
        QFETCH(QByteArray, of);
        QFETCH(QByteArray, groups);
        QFETCH(QByteArray, members);
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        tree.level("0", "G", "b");
        tree.level("G", "H", "a");
        tree.level(of, groups, members);
        QTEST(tree.rows(), "rows");
    }

    void emptyIds()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(QString()), makeTeam(T)});
        tree.model.setLevel(T, rootGroupId(), {makeTeam(QString()), makeTeam(rootGroupId())},
                            {makeMember(QString())});
        QCOMPARE(tree.rows(), QStringLiteral("T(-)"));
        tree.model.setChildrenState(QString(), QString(), TeamChildren::Loading);
        tree.model.setPresence({{QString(), PresenceData()}});
        QVERIFY(!tree.model.removeMember(T, QString()));
        QVERIFY(!tree.model.removeGroup(T, rootGroupId()));
    }

    void tenThousandLevels()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        QString above = rootGroupId();
        int shown = 0;
        for (int i = 1; i <= 10000; ++i) {
            const QString below = QStringLiteral("G%1").arg(i);
            shown += tree.model.setLevel(T, above, {makeTeam(below)}, {});
            above = below;
        }
        QCOMPARE(shown, TeamTreeModel::MaximumDepth + 1);
        QCOMPARE(tree.model.level(tree.group("G64")), TeamTreeModel::MaximumDepth);
        QVERIFY(!tree.group("G65").isValid());
        QVERIFY(tree.model.removeGroup(T, QStringLiteral("G1")));
    }

    void manyRows()
    {
        TeamModelFixture tree;
        tree.tester.reset(); // takes seconds for so many
        tree.model.setTeams({makeTeam(T)});
        tree.level("0", "G", "");
        QList<CVirtualTeamMemberInfo> all, odd;
        for (int i = 0; i < 100000; ++i) {
            all.append(makeMember(QStringLiteral("u%1").arg(i, 6, 10, QLatin1Char('0'))));
            if (i % 2)
                odd.append(all.last());
        }
        tree.model.setLevel(T, rootGroupId(), groupsOf("G"), odd);
        const QPersistentModelIndex one = tree.member("u077777");
        const TeamModelSteps steps(&tree.model);
        // In between, between, and elsewhere: one step each.
        tree.model.setLevel(T, rootGroupId(), groupsOf("G"), all);
        QCOMPARE(steps.inserted, 1);
        tree.model.setLevel(T, QStringLiteral("G"), {}, odd);
        QCOMPARE(steps.moved, 1);
        tree.model.setLevel(T, QStringLiteral("G"), {}, all);
        QCOMPARE(steps.moved, 2);
        tree.model.setLevel(T, QStringLiteral("G"), {}, odd);
        QCOMPARE(steps.removed, 1);
        QCOMPARE(one.row(), 38888);
        QCOMPARE(one, QPersistentModelIndex(tree.member("u077777")));
    }

    void namesAreCut()
    {
        TeamModelFixture tree;
        tree.model.setTeams({makeTeam(T)});
        CVirtualTeamMemberInfo member = makeMember(QStringLiteral("a"));
        member.nickName = QString(1000000, QLatin1Char('x')) + QLatin1Char('\n');
        tree.model.setLevel(T, rootGroupId(), {}, {member});
        QVERIFY(tree.member("a").data().toString().size() <= 100);
        QVERIFY(tree.member("a").data(TeamRowRole::SortKey).toString().size() <= 1000);
    }
};

FRIENDUI_TEST(TstTeamTreeHostile)
#include "tst_teamtreehostile.moc"
