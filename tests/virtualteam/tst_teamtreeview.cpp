// Opening levels, what must not move while they come, and what the commands have done.
#include "hostapi/eventcodes.h"
#include "plugin/frienduisignalsender.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teamtreefixture.h"
#include "virtualteam/cvirtualteamtreedelegate.h"

#include <QMenu>

namespace {

const QString T = QStringLiteral("T");

QPoint caret(const TeamTreeFixture &tree, const QModelIndex &index)
{
    using Delegate = CVirtualTeamTreeDelegate;
    return Delegate::caretArea(tree.view->visualRect(index), Delegate::depth(index),
                               Qt::LeftToRight)
        .center();
}

} // namespace

class TstTeamTreeView : public QObject
{
    Q_OBJECT

private slots:
    void opensAndAsksOnce_data()
    {
        const Rows<QString> row{"how"};
        for (const char *how : {"double", "doubleCaret", "caret", "enter", "arrows", "call"})
            row(how, QString::fromLatin1(how));
    }

    void opensAndAsksOnce()
    {
        QFETCH(QString, how);
        TeamTreeFixture tree;
        const auto toggle = [&](bool opens) {
            const QModelIndex row = tree.group("0");
            if (how == QLatin1String("double"))
                tree.doubleClick(tree.middle(row));
            else if (how == QLatin1String("doubleCaret"))
                tree.doubleClick(caret(tree, row));
            else if (how == QLatin1String("caret"))
                tree.click(caret(tree, row));
            else if (how == QLatin1String("enter"))
                tree.select(row), tree.key(Qt::Key_Return);
            else if (how == QLatin1String("arrows"))
                tree.select(row), tree.key(opens ? Qt::Key_Right : Qt::Key_Left);
            else if (opens)
                tree.view->expandTeam(T);
            else
                tree.view->setExpanded(row, false);
        };
        toggle(true);
        QCOMPARE(tree.rowText(), QStringLiteral("T ~ S"));
        toggle(false);
        QCOMPARE(tree.rowText(), QStringLiteral("T S"));
        toggle(true);
        QCOMPARE(tree.asks, QStringList(QStringLiteral("T 0")));
        tree.level("0", "G", "anna");
        QCOMPARE(tree.rowText(), QStringLiteral("T G anna S"));
        toggle(false);
        toggle(true);
        QCOMPARE(tree.asks.size(), 1);
    }

    void failedRowIsRetried_data()
    {
        const Rows<QString> row{"how"};
        for (const char *how : {"click", "double", "enter", "again"})
            row(how, QString::fromLatin1(how));
    }

    void failedRowIsRetried()
    {
        QFETCH(QString, how);
        TeamTreeFixture tree;
        tree.view->setExpanded(tree.group("0"), true);
        tree.model->setChildrenState(T, rootGroupId(), TeamChildren::Failed);
        TeamTreeFixture::settle();
        QCOMPARE(tree.rowText(), QStringLiteral("T ! S"));
        const QModelIndex failed = tree.view->indexBelow(tree.group("0"));
        if (how == QLatin1String("click"))
            tree.click(tree.middle(failed));
        else if (how == QLatin1String("double"))
            tree.doubleClick(tree.middle(failed));
        else if (how == QLatin1String("enter"))
            tree.select(failed), tree.key(Qt::Key_Enter);
        else
            tree.click(caret(tree, tree.group("0"))), tree.click(caret(tree, tree.group("0")));
        QCOMPARE(tree.asks, QStringList({QStringLiteral("T 0"), QStringLiteral("T 0")}));
        QCOMPARE(tree.rowText(), QStringLiteral("T ~ S"));
        tree.level("0", "", "anna");
        QCOMPARE(tree.rowText(), QStringLiteral("T anna S"));
        // From there the keys go on, where the row that was current has gone.
        if (how != QLatin1String("again"))
            QCOMPARE(tree.current(), T);
        QVERIFY(tree.view->currentIndex().isValid());
    }

    // People who were picked for a team wait until it is free, but not for its return.
    void picksGoWithTheTeam()
    {
        for (const bool goes : {false, true}) {
            TeamTreeFixture tree;
            tree.service.hold("transferVirtualTeamMember");
            tree.view->commands()->moveMembersTo(T, QStringLiteral("G"), {QStringLiteral("u2")});
            emit FriendUISignalSender::instance()->signal_addMembersToVirtualTeam(
                T, {QStringLiteral("u5")}, 0);
            if (goes)
                tree.model->setTeams({makeTeam(QStringLiteral("S"))});
            tree.model->setTeams(TeamTreeFixture::teams());
            QTRY_COMPARE(tree.service.server.unanswered(), 1);
            tree.service.server.release();
            QTRY_VERIFY(!tree.view->commands()->isBusy(T));
            QCOMPARE(tree.service.count("batchAddVirtualTeamMember"), goes ? 0 : 1);
        }
    }

    void onlyOpenLevelsAreRefreshed()
    {
        TeamTreeFixture tree;
        tree.showOpen();
        tree.view->setExpanded(tree.group("H"), true);
        tree.level("H", "K", "");
        tree.view->setExpanded(tree.group("K"), true);
        tree.level("K", "", "fay");
        tree.view->setExpanded(tree.group("H"), false);
        using Level = QPair<QString, QString>;
        QCOMPARE(tree.view->expireClosedLevels(T),
                 QList<Level>({Level(T, QStringLiteral("0")), Level(T, QStringLiteral("G"))}));
        tree.level("0", "G H", "u1# anna");
        // One whose refresh fails keeps its rows, and is refreshed with the others again.
        tree.model->setChildrenState(T, QStringLiteral("G"), TeamChildren::Failed);
        QCOMPARE(tree.view->expireClosedLevels(T).size(), 2);
        tree.level("0", "G H", "u1# anna");
        tree.level("G", "", "dora");
        tree.asks.clear();
        tree.view->setExpanded(tree.group("G"), false);
        tree.view->setExpanded(tree.group("G"), true);
        QCOMPARE(tree.asks, QStringList());
        // What was closed is asked for when it is opened, and shown as it was meanwhile.
        tree.view->setExpanded(tree.group("H"), true);
        TeamTreeFixture::settle();
        QCOMPARE(tree.asks.value(0), QStringLiteral("T H"));
        QVERIFY(tree.rowText().contains(QStringLiteral("H K fay")));
    }

    void refreshKeepsThePlace()
    {
        TeamTreeFixture tree;
        tree.showOpen();
        QList<CVirtualTeamMemberInfo> many;
        for (int i = 0; i < 60; ++i)
            many.append(makeMember(QStringLiteral("p%1").arg(i, 2, 10, QLatin1Char('0'))));
        tree.model->setLevel(T, rootGroupId(), groupsOf("G H"), many);
        TeamTreeFixture::settle();
        const QPersistentModelIndex selected = tree.member("p30");
        tree.select(selected);
        tree.view->scrollTo(selected, QAbstractItemView::PositionAtCenter);
        TeamTreeFixture::settle();
        const QRect before = tree.view->visualRect(selected);
        QVERIFY(tree.view->verticalScrollBar()->value() > 0);

        // Somebody goes, others come, the teams change places, and a level above grows.
        many.removeAt(3);
        many.prepend(makeMember(QStringLiteral("a1")));
        many.prepend(makeMember(QStringLiteral("a2")));
        tree.model->setTeams({makeTeam(QStringLiteral("R")), makeTeam(QStringLiteral("S")),
                              makeTeam(T, TeamRole::Owner)});
        tree.model->setLevel(T, rootGroupId(), groupsOf("H F G"), many);
        tree.level("G", "X", "dora fay eve");
        QCOMPARE(tree.view->visualRect(selected), before);
        QCOMPARE(tree.view->selectionModel()->selectedRows(), QModelIndexList{selected});
        QCOMPARE(tree.current(), QStringLiteral("p30"));
        QVERIFY(tree.view->isExpanded(tree.group("G")));
        QVERIFY(!tree.view->isExpanded(tree.group("H")));
    }

    void membersMovedOutOfSight()
    {
        TeamTreeFixture tree;
        tree.showOpen();
        tree.view->setExpanded(tree.group("G"), false);
        tree.select(tree.member("bob"));
        emit tree.view->commands()->membersMoved(T, QStringLiteral("G"), {QStringLiteral("bob")});
        TeamTreeFixture::settle();
        QCOMPARE(tree.rowText(), QStringLiteral("T G H u1 anna carl S"));
        QCOMPARE(tree.current(), QStringLiteral("G"));
    }

    void presenceOfThousandsRepaintsOnce()
    {
        TeamTreeFixture tree;
        tree.showOpen();
        QList<CVirtualTeamMemberInfo> many;
        QMap<QString, PresenceData> presence;
        for (int i = 0; i < 1000; ++i) {
            many.append(makeMember(QStringLiteral("p%1").arg(i)));
            presence[many.last().userId + QStringLiteral("@corp.example")].mobile =
                PresenceData::Ios;
        }
        tree.model->setLevel(T, QStringLiteral("G"), {}, many);
        TeamTreeFixture::settle();
        struct Paints : QObject
        {
            bool eventFilter(QObject *, QEvent *event) override
            {
                count += event->type() == QEvent::Paint;
                return false;
            }
            int count = 0;
        } paints;
        tree.view->viewport()->installEventFilter(&paints);
        emit FriendUISignalSender::instance()->signal_updateFriendPresence(presence);
        QTRY_COMPARE(paints.count, 1);
        TeamTreeFixture::settle();
        QCOMPARE(paints.count, 1);
        QCOMPARE(tree.member("p7").data(TeamRowRole::Presence).value<PresenceData>().mobile,
                 int(PresenceData::Ios));
    }

    void newPictureIsShown()
    {
        TeamTreeFixture tree;
        tree.showOpen();
        const QString file = tree.service.folder.filePath(QStringLiteral("anna.png"));
        QImage red(64, 64, QImage::Format_RGB32);
        const QString anna = QStringLiteral("anna@corp.example");
        const QPoint avatar = tree.view->visualRect(tree.member("anna")).topLeft() + QPoint(44, 16);
        for (const QColor color : {Qt::red, Qt::blue}) {
            red.fill(color);
            QVERIFY(red.save(file));
            tree.service.host.context.headPaths.insert(anna, file);
            emit FriendUISignalSender::instance()->signal_UpdateFrdHead(anna, file);
            const auto seen = [&] {
                const QColor pixel = tree.view->viewport()->grab().toImage().pixelColor(avatar);
                return color == Qt::red ? pixel.red() - pixel.blue() : pixel.blue() - pixel.red();
            };
            QTRY_VERIFY(seen() > 60); // faded: she is offline
        }
    }

    void commandsReachTheRows()
    {
        TeamTreeFixture tree;
        tree.showOpen();
        TeamCommands *commands = tree.view->commands();
        QSignalSpy reloads(tree.view.get(), &CVirtualTeamTreeView::teamsChanged);
        QSignalSpy admins(tree.view.get(), &CVirtualTeamTreeView::signal_addAdminFinish);
        QSignalSpy names(tree.view.get(), &CVirtualTeamTreeView::signal_updateVirtualTeamNickName);
        const QString anna = QStringLiteral("anna");
        emit commands->nickNameChanged(T, anna, QStringLiteral("zoe"));
        QCOMPARE(names.value(0), QVariantList({T, anna, QStringLiteral("zoe")}));
        QCOMPARE(tree.rowText(), QStringLiteral("T G dora eve H u1 bob carl anna S"));
        emit commands->administratorsChanged(T, {anna}, {QStringLiteral("u1")});
        QCOMPARE(admins.size(), 1);
        QCOMPARE(tree.rowText(), QStringLiteral("T G dora eve H anna bob carl u1 S"));
        emit commands->authorityGranted(T, QStringLiteral("carl"));
        QCOMPARE(tree.rowText(), QStringLiteral("T G dora eve H carl anna bob u1 S"));
        QCOMPARE(tree.model->team(tree.group("0")).role, TeamRole::Member);
        emit commands->groupDeleted(T, QStringLiteral("G"));
        QCOMPARE(tree.rowText(), QStringLiteral("T H carl anna bob u1 S"));
        emit commands->groupAdded(T, rootGroupId(), QStringLiteral("K"), QStringLiteral("K"));
        TeamTreeFixture::settle();
        QCOMPARE(tree.rowText(), QStringLiteral("T H K carl anna bob u1 S"));
        QCOMPARE(tree.current(), QStringLiteral("K"));
        emit commands->groupRenamed(T, QStringLiteral("K"), QStringLiteral("other"));
        QCOMPARE(tree.group("K").data().toString(), QStringLiteral("other"));
        tree.asks.clear();
        emit commands->levelChanged(T, QStringLiteral("K")); // nobody has looked at it
        emit commands->levelChanged(T, rootGroupId());
        emit commands->teamOutdated(T);
        QCOMPARE(tree.asks, QStringList({QStringLiteral("T 0"), QStringLiteral("T 0")}));
        QCOMPARE(reloads.size(), 1);
        emit commands->teamLeft(T);
        QCOMPARE(tree.rowText(), QStringLiteral("S"));
        QCOMPARE(reloads.size(), 2);
    }

    void newGroupOfAClosedGroup()
    {
        for (const bool goesOn : {false, true}) {
            TeamTreeFixture tree;
            tree.view->setExpanded(tree.group("0"), true);
            tree.level("0", "G", "u1#");
            tree.select(tree.group("G"));
            emit tree.view->commands()->groupAdded(TeamTreeFixture::T(), QStringLiteral("G"),
                                                   QStringLiteral("K"), QStringLiteral("K"));
            TeamTreeFixture::settle();
            if (goesOn)
                tree.select(tree.member("u1"));
            tree.level("G", "J K", "");
            QCOMPARE(tree.rowText(), QStringLiteral("T G J K u1 S"));
            QCOMPARE(tree.current(), goesOn ? QStringLiteral("u1") : QStringLiteral("K"));
        }
    }

    void deletionOfWhoHasGone()
    {
        TeamTreeFixture tree;
        LogCapture log(tree.service.host.context);
        tree.showOpen();
        emit tree.view->commands()->membersDeleted(
            T, {QStringLiteral("anna"), QStringLiteral("eve"), QStringLiteral("nobody")});
        TeamTreeFixture::settle();
        QCOMPARE(tree.rowText(), QStringLiteral("T G dora H u1 bob carl S"));
        QCOMPARE(log.linesWith(" entry fun CVirtualTeamTreeView::"
                               "slot_deleteVirtualTeamMemberFinish::delUser user not exist")
                     .size(),
                 1);
    }

    void settingButton()
    {
        TeamTreeFixture tree;
        tree.showOpen();
        tree.select(tree.member("bob"));
        auto *menu = tree.view->findChild<QMenu *>(QStringLiteral("settingMenu"));
        QVERIFY(menu);
        for (const char *group : {"G", "0"}) {
            const QRect row = tree.view->visualRect(tree.group(group));
            tree.click(CVirtualTeamTreeDelegate::settingArea(row, Qt::LeftToRight).center());
            QCOMPARE(menu->isVisible(), group[0] == '0'); // only teams have one
        }
        QCOMPARE(tree.current(), T);
        menu->close();
    }

    void doubleClickOpensTheChat()
    {
        TeamTreeFixture tree;
        tree.showOpen();
        tree.doubleClick(tree.middle(tree.member("bob")));
        QCOMPARE(tree.service.host.count(Outbound::OpenChat), 1);
        QCOMPARE(tree.service.host.last(Outbound::OpenChat).payload,
                 FakeHost::encode(QStringLiteral("bob@corp.example"), qint32(0)));
        // Neither keys nor clicks do anything to a row that only tells of a state.
        tree.view->setExpanded(tree.group("H"), true);
        const QModelIndex loading = tree.view->indexBelow(tree.group("H"));
        tree.asks.clear();
        tree.doubleClick(tree.middle(loading));
        for (const Qt::Key key : {Qt::Key_Asterisk, Qt::Key_Delete, Qt::Key_F2, Qt::Key_Return})
            QTest::keyClick(tree.view.get(), key);
        QCOMPARE(tree.asks, QStringList());
        QCOMPARE(tree.service.host.count(Outbound::OpenChat), 1);
    }

    void hostEndsTheViewInsideARequest_data()
    {
        const Rows<bool> row{"byKey"};
        row("double click", false);
        row("Return", true);
    }

    void hostEndsTheViewInsideARequest()
    {
        QFETCH(bool, byKey);
        TeamTreeFixture tree;
        tree.showOpen();
        tree.tester.reset();
        tree.service.host.onRequest = [&tree](const FakeHost::Request &) { tree.view.reset(); };
        tree.view->setCurrentIndex(tree.member("bob"));
        if (byKey)
            QTest::keyPress(tree.view.get(), Qt::Key_Return);
        else
            QTest::mouseDClick(tree.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                               tree.middle(tree.member("bob")));
        QCOMPARE(tree.service.host.count(Outbound::OpenChat), 1);
        QVERIFY(!tree.view);
    }

    // People picked by the thousand are one request, and none for a team that is not here.
    void pickedMembers()
    {
        TeamTreeFixture tree;
        tree.showOpen();
        TipBox::setNextAnswers(TipBox::Cancel);
        const QStringList people{QStringLiteral("u5")};
        for (int i = 0; i < 10000; ++i) {
            for (const QString &team : {T, QStringLiteral("gone"), QString()})
                emit FriendUISignalSender::instance()->signal_addMembersToVirtualTeam(team, people,
                                                                                      0);
        }
        emit FriendUISignalSender::instance()->signal_addMembersToVirtualTeam(T, people, -1);
        QTRY_VERIFY(!tree.view->commands()->isBusy(T));
        QCOMPARE(tree.service.count("batchAddVirtualTeamMember"), 1);
        QCOMPARE(tree.service.form(), QByteArray("vtId=T&groupId=0&members=u5"));
    }
};

FRIENDUI_TEST(TstTeamTreeView)
#include "tst_teamtreeview.moc"
