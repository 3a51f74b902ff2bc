// The dialog that hands the management over and moves members.
#include "tests/virtualteam/choosefixture.h"
#include "virtualteam/dialogs/cvirtualteamtransauthtreeview.h"
#include "virtualteam/dialogs/virtualteamtransauth.h"
#include "virtualteam/teamtreemodel.h"

#include <QAbstractItemModelTester>
#include <QStackedLayout>

namespace {

class Transfer : public ChooseFixture
{
public:
    // Without members: in the mode that hands the management over.
    void open(const QStringList &members = {}, const QString &group = QString())
    {
        dialog = members.isEmpty() ? new VirtualTeamTransAuth(team, nullptr)
                                   : new VirtualTeamTransAuth(team, members, nullptr, group);
        tree = dialog->findChild<CVirtualTeamTransAuthTreeView *>();
        hits = dialog->findChild<QAbstractItemView *>(QStringLiteral("hits"));
        dialog->present();
        QTRY_VERIFY(row(tree, "7").isValid());
    }
    void choose(const char *id) { click(tree, row(tree, id)); }
    void openGroup(const char *id)
    {
        tree->setExpanded(row(tree, id), true);
        QTRY_COMPARE(tree->teams()->childrenState(team.vtId, QString::fromLatin1(id)),
                     TeamChildren::Loaded);
    }
    void pressSure() { QTest::mouseClick(sure(dialog), Qt::LeftButton); }

    QPointer<VirtualTeamTransAuth> dialog;
    CVirtualTeamTransAuthTreeView *tree = nullptr;
    QAbstractItemView *hits = nullptr;
};

QStringList ids(const QAbstractItemView *view)
{
    QStringList result;
    for (int row = 0; row < view->model()->rowCount(); ++row)
        result.append(view->model()->index(row, 0).data(TeamRowRole::Id).toString());
    return result;
}

} // namespace

class TstTeamTransfer : public QObject
{
    Q_OBJECT

private slots:
    // --- Handing over ----------------------------------------------------------------

    void refusals_data()
    {
        const QString self = QString::fromUtf8("不能移交管理权给自己!");
        const QString foreign = QString::fromUtf8("跨企业不能移交管理权!");
        const Rows<QByteArray, QByteArray, QString> row{"member", "list", "text"};
        row("oneself", "u1", "[]", self);
        row("another company", "u3", R"([{"userId":"u3","companyCode":"C1"}])", foreign);
        row("another by the list", "u4", R"([{"userId":"u4","companyCode":"C2"}])", foreign);
        row("unknown to the list", "u4", "[]", foreign);
        row("own by the list", "u4", R"([{"userId":"u4","companyCode":"C1"}])", QString());
        row("own by the row", "u2", "[]", QString());
    }

    void refusals()
    {
        QFETCH(QByteArray, member);
        QFETCH(QByteArray, list);
        QFETCH(QString, text);
        Transfer t;
        t.service.answer("getMembers", "{\"members\":" + list + '}');
        t.open();
        t.choose(member.constData());
        const QString name = t.row(t.tree, member).data(TeamRowRole::Name).toString();
        TipBox::setNextAnswers(TipBox::Sure);
        t.pressSure();
        if (text.isEmpty()) {
            QTRY_COMPARE(t.service.count("grantVirtualTeamAuthority"), 1);
            QCOMPARE(t.service.told(), QObject::tr("sureTransAuthTip") + u'\n' + name);
            return;
        }
        QTRY_COMPARE(t.service.told(), text);
        QCOMPARE(t.service.count("grantVirtualTeamAuthority"), 0);
    }

    void groupsCannotOwnATeam()
    {
        Transfer t;
        t.open();
        QVERIFY(!t.sure(t.dialog)->isEnabled());
        t.choose("7"); // opens it
        QTRY_VERIFY(t.row(t.tree, "u5").isValid());
        QVERIFY(!t.sure(t.dialog)->isEnabled());
        t.choose("u5");
        QVERIFY(t.sure(t.dialog)->isEnabled());
    }

    void handsOver()
    {
        Transfer t;
        t.open();
        const QSignalSpy granted(t.dialog, &VirtualTeamTransAuth::authorityGranted);
        t.choose("u2");
        t.pressSure(); // and the answer is no
        TipBox::setNextAnswers(TipBox::Sure);
        QTest::keyClick(t.tree, Qt::Key_Return);
        QTest::mouseDClick(t.tree->viewport(), Qt::LeftButton, {},
                           t.tree->visualRect(t.row(t.tree, "u2")).center());
        t.pressSure();
        QTRY_VERIFY(!t.dialog);
        QCOMPARE(granted.size(), 1);
        QCOMPARE(granted.first(), (QVariantList{QStringLiteral("1"), QStringLiteral("u2")}));
        QCOMPARE(t.service.count("grantVirtualTeamAuthority"), 1);
        QCOMPARE(t.service.form(), QByteArray("vtId=1&member=u2"));
    }

    // A hit tells no company: nothing is decided before the list is there.
    void waitsForTheCompanies()
    {
        Transfer t;
        t.service.answer("fuzzySearchVirtualTeamMember",
                         R"({"members":[{"userId":"u4","nickName":"赵四"}]})");
        t.service.server.reply(
            TeamService::path("getMembers"),
            TeamService::reply(R"({"members":[{"userId":"u4","companyCode":"C1"}]})").onRelease());
        t.open();
        t.field(t.dialog)->setText(QStringLiteral("zhao"));
        QTRY_COMPARE(ids(t.hits), QStringList{QStringLiteral("u4")});
        TipBox::setNextAnswers(TipBox::Sure);
        t.click(t.hits, t.row(t.hits, "u4"));
        t.pressSure();
        QVERIFY(!t.sure(t.dialog)->isEnabled());
        t.service.server.release();
        QTRY_COMPARE(t.service.count("grantVirtualTeamAuthority"), 1);
        QTRY_VERIFY(!t.dialog);
    }

    // The row of who was chosen goes; the next one must not be chosen instead.
    void aVanishedMemberIsNotReplaced()
    {
        Transfer t;
        t.open();
        t.choose("u3");
        t.levels["vtId=1&pgId=0"] = TeamService::reply(
            R"({"members":[{"userId":"u1","role":2},{"userId":"u2"},{"userId":"u4"}]})");
        QTest::keyClick(t.tree, Qt::Key_F5);
        QTRY_VERIFY(!t.row(t.tree, "u3").isValid());
        QVERIFY(!t.sure(t.dialog)->isEnabled());
        QVERIFY(t.tree->selectionModel()->selectedRows().isEmpty());
    }

    // --- Search ----------------------------------------------------------------------

    void lateRepliesAreDropped()
    {
        Transfer t;
        t.levels["vtId=1&key=a"] =
            TeamService::reply(R"({"members":[{"userId":"u2"}]})").onRelease();
        t.levels["vtId=1&key=b"] =
            TeamService::reply(R"({"members":[{"userId":"u3"},{"userId":"u5"}]})");
        t.open();
        QLineEdit *field = t.field(t.dialog);
        field->setText(QStringLiteral("a"));
        QTRY_COMPARE(t.service.count("fuzzySearchVirtualTeamMember"), 1);
        field->setText(QStringLiteral(" b "));
        QTRY_COMPARE(ids(t.hits), (QStringList{QStringLiteral("u3"), QStringLiteral("u5")}));
        t.service.server.release();
        QTRY_COMPARE(t.service.host.context.webRequests.size(),
                     t.service.server.requests().size()); // it has arrived
        QTest::keyClick(field, Qt::Key_Down);
        QCOMPARE(t.note(t.dialog), QStringLiteral("Chosen: u3"));
        QCOMPARE(ids(t.hits), (QStringList{QStringLiteral("u3"), QStringLiteral("u5")}));
        QTest::keyClick(field, Qt::Key_Escape);
        QVERIFY(t.tree->isVisible() && t.dialog->isVisible());
        QVERIFY(!t.sure(t.dialog)->isEnabled()); // what was chosen among the hits is not
    }

    void aFailedSearchCanBeRepeated()
    {
        Transfer t;
        t.service.server.reply(TeamService::path("fuzzySearchVirtualTeamMember"),
                               {FakeReply::of(500), TeamService::reply("{}")});
        t.open();
        t.field(t.dialog)->setText(QStringLiteral("a"));
        auto *retry = t.dialog->findChild<QPushButton *>(QStringLiteral("retry"));
        QTRY_VERIFY(retry->isVisible());
        QTest::mouseClick(retry, Qt::LeftButton);
        const auto *nothing = t.dialog->findChild<QWidget *>(QStringLiteral("noHits"));
        QTRY_VERIFY(nothing->isVisible());
    }

    // --- Levels ----------------------------------------------------------------------

    void levelsTellThatTheyAreEmptyOrFailed()
    {
        Transfer t;
        t.levels["vtId=1&pgId=7"] = FakeReply::of(500);
        t.open();
        const QPersistentModelIndex group = t.row(t.tree, "7");
        t.click(t.tree, group);
        const auto text = [&] { return t.tree->model()->index(0, 0, group).data().toString(); };
        QTRY_COMPARE(text(), QString::fromUtf8("获取成员信息出错"));
        t.levels["vtId=1&pgId=7"] = TeamService::reply("{}");
        t.click(t.tree, t.tree->model()->index(0, 0, group));
        QTRY_COMPARE(text(), QString::fromUtf8("没有成员信息"));
    }

    // --- Moving ----------------------------------------------------------------------

    void moves_data()
    {
        const Rows<QByteArray, QByteArray> row{"group", "form"};
        row("a sub-group", "8", "vtId=1&groupId=8&members=u2%2Cu5");
        row("the team", "1", "vtId=1&groupId=0&members=u2%2Cu5");
    }

    void moves()
    {
        QFETCH(QByteArray, group);
        QFETCH(QByteArray, form);
        Transfer t;
        t.open({QStringLiteral("u2"), QStringLiteral("u5")});
        const QSignalSpy moved(t.dialog, &VirtualTeamTransAuth::membersMoved);
        t.openGroup("7");
        QCOMPARE(t.tree->model()->rowCount(t.row(t.tree, "7")), 1); // no member
        t.openGroup("8");
        QVERIFY(!t.tree->model()->hasChildren(t.row(t.tree, "8")));
        t.choose(group.constData());
        t.pressSure();
        t.pressSure();
        QTest::keyClick(t.dialog, Qt::Key_Return);
        QTRY_VERIFY(!t.dialog);
        QCOMPARE(t.service.count("transferVirtualTeamMember"), 1);
        QCOMPARE(t.service.form(), form);
        QCOMPARE(moved.size(), 1);
        QCOMPARE(moved.first().last().toStringList().size(), 2);
    }

    void theGroupThatHasThemAllIsNotOffered_data()
    {
        const Rows<QStringList, bool, bool, QByteArray, bool> row{"members", "told", "opened",
                                                                  "group", "offered"};
        const QString u2 = QStringLiteral("u2");
        const QString u5 = QStringLiteral("u5");
        row("the team", {u2}, false, false, "1", false);
        row("another", {u2}, false, true, "7", true);
        row("once it is opened", {u5}, false, true, "7", false);
        row("as the caller knows", {u5}, true, false, "7", false);
        row("one is elsewhere", {u2, u5}, true, false, "7", true);
    }

    void theGroupThatHasThemAllIsNotOffered()
    {
        QFETCH(QStringList, members);
        QFETCH(bool, told);
        QFETCH(bool, opened);
        QFETCH(QByteArray, group);
        QFETCH(bool, offered);
        Transfer t;
        t.open(members, told ? QStringLiteral("7") : QString());
        if (opened)
            t.openGroup("7");
        t.choose(group.constData());
        QTRY_COMPARE(t.service.server.unanswered(), 0);
        QTRY_COMPARE(t.sure(t.dialog)->isEnabled(), offered);
        QTest::keyClick(t.tree, Qt::Key_Return);
        if (!offered)
            QCOMPARE(t.service.count("transferVirtualTeamMember"), 0);
    }

    // --- Failures --------------------------------------------------------------------

    void failures_data()
    {
        const QString grant = QString::fromUtf8("权限转移失败，请重试。");
        const QString move = QString::fromUtf8("移动成员失败，请重试。");
        const Rows<bool, int, int, QString, bool> row{"moves", "status", "code", "text", "reloads"};
        row("not handed over", false, 200, 10002, grant, true);
        row("the member has gone", false, 200, 10001, grant, true);
        row("no server", false, 500, 0, grant, false);
        row("not moved", true, 200, 10001, move, true);
        row("no server to move", true, 500, 0, move, false);
    }

    void failures()
    {
        QFETCH(bool, moves);
        QFETCH(int, status);
        QFETCH(int, code);
        QFETCH(QString, text);
        QFETCH(bool, reloads);
        Transfer t;
        const FakeReply reply =
            status == 200 ? TeamService::reply("{}", code) : FakeReply::of(status);
        for (const char *name : {"grantVirtualTeamAuthority", "transferVirtualTeamMember"})
            t.service.server.reply(TeamService::path(name), reply);
        t.open(moves ? QStringList{QStringLiteral("u2")} : QStringList());
        t.choose(moves ? "7" : "u2");
        TipBox::setNextAnswers(TipBox::Sure);
        t.pressSure();
        QTRY_COMPARE(t.service.told(), text);
        QTRY_VERIFY(t.sure(t.dialog)->isEnabled()); // it can be tried again
        QTRY_COMPARE(t.service.count("getVirtualTeamGroup"), moves || !reloads ? 1 + reloads : 2);
    }

    void offlineNothingIsSent()
    {
        Transfer t;
        t.open({QStringLiteral("u2")});
        t.choose("7");
        t.service.setOnline(false);
        t.pressSure();
        QCOMPARE(t.service.told(), QObject::tr("notexecuteoperation"));
        QCOMPARE(t.service.count("transferVirtualTeamMember"), 0);
        QVERIFY(t.sure(t.dialog)->isEnabled());
    }

    void closesWhenTheTeamHasGone()
    {
        Transfer t;
        t.open();
        t.levels["vtId=1&pgId=0"] = TeamService::reply("{}", 10001);
        QTest::keyClick(t.tree, Qt::Key_F5);
        QTRY_VERIFY(!t.dialog);
        QCOMPARE(t.service.told(), QString::fromUtf8("获取成员信息出错"));
    }

    void canBeClosedAtAnyTime()
    {
        Transfer t;
        for (const char *name :
             {"grantVirtualTeamAuthority", "getMembers", "fuzzySearchVirtualTeamMember"})
            t.service.hold(name);
        t.open();
        t.choose("u2");
        TipBox::setNextAnswers(TipBox::Sure);
        t.pressSure();
        t.field(t.dialog)->setText(QStringLiteral("a"));
        QTRY_COMPARE(t.service.server.unanswered(), 3);
        t.dialog->close();
        t.service.server.release();
        QTRY_VERIFY(!t.dialog);
        QTRY_COMPARE(t.service.server.unanswered(), 0);
    }

    void aVanishedGroupIsNotReplaced()
    {
        Transfer t;
        t.open({QStringLiteral("u5")});
        const QAbstractItemModelTester tester(
            t.tree->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        t.openGroup("7");
        t.choose("8");
        QVERIFY(t.sure(t.dialog)->isEnabled());
        t.levels["vtId=1&pgId=0"] =
            TeamService::reply(R"({"group":[{"groupId":"9","groupName":"后端"}]})");
        QTest::keyClick(t.tree, Qt::Key_F5);
        QTRY_VERIFY(t.row(t.tree, "9").isValid());
        QVERIFY(!t.row(t.tree, "7").isValid());
        QVERIFY(!t.sure(t.dialog)->isEnabled());
    }
};

FRIENDUI_TEST(TstTeamTransfer)
#include "tst_teamtransfer.moc"
