// Real drags in the team tree. Runs on the platform plug-in "minimal", where a drag has
// its own event loop; on "offscreen" it ends at once.
#include "tests/support/drags.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teamtreefixture.h"

#include <QDropEvent>
#include <QMimeData>

namespace {

const QString T = QStringLiteral("T");

// A drop that belongs to no drag of this program comes to nobody by the usual way.
struct ViewAccess : CVirtualTeamTreeView
{
    using CVirtualTeamTreeView::viewportEvent;
};

QPoint inWindow(const TeamTreeFixture &tree, const QModelIndex &index)
{
    return placeInWindow(tree.view.get(), index);
}

template <class Function>
bool drag(const TeamTreeFixture &tree, const QModelIndex &row, Function meanwhile)
{
    return dragRow(tree.view.get(), row, meanwhile);
}

} // namespace

class TstTeamTreeDrag : public QObject
{
    Q_OBJECT

    // Where T0 has G (dora, eve), H and u1, anna, bob, carl; S has zoe.
    static void show(const TeamTreeFixture &tree)
    {
        tree.showOpen();
        tree.model->setTeamRole(QStringLiteral("S"), TeamRole::Owner);
        tree.model->setLevel(QStringLiteral("S"), rootGroupId(), {}, membersOf("zoe"));
        tree.view->setExpanded(tree.model->teamIndex(QStringLiteral("S")), true);
        TeamTreeFixture::settle();
    }
    static QModelIndex find(const TeamTreeFixture &tree, const QString &id)
    {
        const QModelIndex all = tree.model->index(0, 0);
        const QModelIndexList found =
            tree.model->match(all, TeamRowRole::Id, id, 1, Qt::MatchExactly | Qt::MatchRecursive);
        return found.value(0);
    }

private slots:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != QLatin1String("minimal"))
            QSKIP("needs QT_QPA_PLATFORM=minimal");
    }

    void dropMovesMembers_data()
    {
        const Rows<QStringList, QString, QByteArray> row{"who", "target", "request"};
        const QStringList anna{QStringLiteral("anna")};
        row("on a sub-group", anna, "G", "vtId=T&groupId=G&members=anna");
        row("on a closed sub-group", anna, "H", "vtId=T&groupId=H&members=anna");
        row("on a member of a sub-group", anna, "eve", "vtId=T&groupId=G&members=anna");
        row("on the team", {QStringLiteral("dora")}, "T", "vtId=T&groupId=0&members=dora");
        row("several", {QStringLiteral("anna"), QStringLiteral("carl")}, "G",
            "vtId=T&groupId=G&members=anna%2Ccarl");
        row("some of them there", {QStringLiteral("dora"), QStringLiteral("carl")}, "G",
            "vtId=T&groupId=G&members=carl");
        row("on itself", anna, "anna", "");
        row("on the own group", {QStringLiteral("dora")}, "G", "");
        row("on one beside", anna, "bob", "");
        row("on another team", {QStringLiteral("dora")}, "S", "");
        row("on a member of another team", {QStringLiteral("dora")}, "zoe", "");
        row("below all rows", anna, "", "");
    }

    void dropMovesMembers()
    {
        QFETCH(QStringList, who);
        QFETCH(QString, target);
        QFETCH(QByteArray, request);
        TeamTreeFixture tree;
        show(tree);
        for (const QString &id : qAsConst(who))
            tree.view->selectionModel()->select(find(tree, id), QItemSelectionModel::Select);
        QWindow *window = tree.view->windowHandle();
        const QModelIndex row = find(tree, target);
        const QPoint where =
            row.isValid() ? inWindow(tree, row) : QPoint(200, tree.view->height() - 5);
        QVERIFY(drag(tree, find(tree, who.last()), [&] {
            QTest::mouseMove(window, where);
            QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, where);
        }));
        if (request.isEmpty()) {
            TeamTreeFixture::settle();
            QCOMPARE(tree.service.count("transferVirtualTeamMember"), 0);
            return;
        }
        QTRY_COMPARE(tree.service.count("transferVirtualTeamMember"), 1);
        QCOMPARE(tree.service.form(), request);
        const QString group = tree.model->groupId(row);
        QTRY_COMPARE(tree.model->groupId(tree.model->memberIndex(T, QStringLiteral("anna"))),
                     who.contains(QStringLiteral("anna")) && group != QLatin1String("H")
                         ? group
                         : tree.model->groupId(tree.member("anna")));
    }

    void noDragWithoutTheRight_data()
    {
        const Rows<QString> row{"why"};
        for (const char *why : {"member", "busy", "two teams", "group"})
            row(why, QString::fromLatin1(why));
    }

    void noDragWithoutTheRight()
    {
        QFETCH(QString, why);
        TeamTreeFixture tree;
        show(tree);
        QModelIndex row = tree.member("anna");
        if (why == QLatin1String("member"))
            tree.model->setTeamRole(T, TeamRole::Member);
        if (why == QLatin1String("group"))
            row = tree.group("G");
        tree.select(row);
        if (why == QLatin1String("two teams"))
            tree.view->selectionModel()->select(find(tree, QStringLiteral("zoe")),
                                                QItemSelectionModel::Select);
        if (why == QLatin1String("busy"))
            tree.view->commands()->moveMembersTo(T, QStringLiteral("H"), {QStringLiteral("bob")});
        QVERIFY(!drag(tree, row, [] {}));
    }

    void orderIsHeldMeanwhile()
    {
        TeamTreeFixture tree;
        show(tree);
        QVERIFY(drag(tree, tree.member("anna"), [&] {
            QTest::mouseMove(tree.view->windowHandle(), inWindow(tree, tree.group("H")));
            QMap<QString, PresenceData> presence;
            presence[QStringLiteral("carl")].mobile = PresenceData::Ios;
            tree.model->setPresence(presence);
            QCOMPARE(tree.member("carl").row(), 5);
            // The target goes before the drop: nothing is asked for.
            emit tree.view->commands()->groupDeleted(T, QStringLiteral("H"));
            const QPoint where(200, tree.view->height() - 5);
            QTest::mouseMove(tree.view->windowHandle(), where);
            QTest::mouseRelease(tree.view->windowHandle(), Qt::LeftButton, Qt::NoModifier, where);
        }));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(tree.view->viewport(), &leave);
        TeamTreeFixture::settle();
        QCOMPARE(tree.member("carl").row(), 2);
        QCOMPARE(tree.service.count("transferVirtualTeamMember"), 0);
    }

    void closedGroupOpensUnderTheDrag()
    {
        TeamTreeFixture tree;
        show(tree);
        tree.view->setExpanded(tree.group("G"), false);
        TeamTreeFixture::settle();
        QVERIFY(drag(tree, tree.member("anna"), [&] {
            QWindow *window = tree.view->windowHandle();
            const QPoint where = inWindow(tree, tree.group("G"));
            QTest::mouseMove(window, where);
            QTRY_VERIFY(tree.view->isExpanded(tree.group("G")));
            QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, where);
        }));
        QTRY_COMPARE(tree.service.count("transferVirtualTeamMember"), 1);
    }

    void viewDestroyedDuringTheDrag()
    {
        TeamTreeFixture tree;
        show(tree);
        QWidget elsewhere;
        elsewhere.show();
        QVERIFY(drag(tree, tree.member("anna"), [&] {
            tree.tester.reset();
            tree.view.reset();
            QTest::mouseRelease(elsewhere.windowHandle(), Qt::LeftButton);
        }));
        QCOMPARE(tree.service.count("transferVirtualTeamMember"), 0);
    }

    void dropFromOutside()
    {
        TeamTreeFixture tree;
        LogCapture log(tree.service.host.context);
        show(tree);
        tree.select(tree.member("anna"));
        const QMimeData data;
        QDropEvent drop(tree.middle(tree.group("G")), Qt::MoveAction, &data, Qt::LeftButton,
                        Qt::NoModifier);
        (tree.view.get()->*&ViewAccess::viewportEvent)(&drop);
        QVERIFY(!drop.isAccepted());
        QCOMPARE(log.linesWith("event->source() == 0").size(), 1);
        QCOMPARE(tree.service.count("transferVirtualTeamMember"), 0);
    }
};

FRIENDUI_TEST(TstTeamTreeDrag)
#include "tst_teamtreedrag.moc"
