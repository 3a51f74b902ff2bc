// The dialog that chooses a team's sub-administrators.
#include "tests/support/logcapture.h"
#include "tests/virtualteam/choosefixture.h"
#include "virtualteam/dialogs/csetadministrator.h"
#include "virtualteam/dialogs/dialogbar.h"
#include "virtualteam/dialogs/memberchoicemodel.h"
#include "virtualteam/dialogs/setadiministratorlistview.h"

#include <QAbstractItemModelTester>

namespace {

// u1 owns the team, u2 is a sub-administrator, u3 to u5 are members.
class Administrators : public ChooseFixture
{
public:
    Administrators()
    {
        service.answer("getMembers", R"({"members":[
            {"userId":"u5","nickName":"钱五","role":0},
            {"userId":"u1","nickName":"张一","role":2},
            {"userId":"u4","nickName":"赵四","role":0},
            {"userId":"u3","nickName":"王三","role":0},
            {"userId":"u2","nickName":"李二","role":1}]})");
    }
    void open()
    {
        dialog = new CSetAdministrator(team, nullptr);
        list = dialog->findChild<SetAdiministratorListView *>();
        dialog->present();
        QTRY_VERIFY(service.count("getMembers") > 0 && service.server.unanswered() == 0);
    }
    void openLoaded()
    {
        open();
        QTRY_VERIFY(list->isVisible());
    }
    void toggle(const char *id) { click(list, row(list, id)); }
    QStringList shown() const
    {
        QStringList ids;
        for (int i = 0; i < list->members()->rowCount(); ++i)
            ids.append(list->members()->at(i).member.userId);
        return ids;
    }

    QPointer<CSetAdministrator> dialog;
    SetAdiministratorListView *list = nullptr;
};

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class TstSetAdministrators : public QObject
{
    Q_OBJECT

private slots:
    void listsAdministratorsFirstWithoutTheOwner()
    {
        Administrators a;
        a.openLoaded();
        QCOMPARE(a.shown(), words("u2 u5 u3 u4")); // then by pinyin: qian, wang, zhao
        QCOMPARE(a.list->members()->checkedIds(), words("u2"));
        QCOMPARE(a.note(a.dialog), QStringLiteral("1 chosen"));
    }

    void sends_data()
    {
        const Rows<QStringList, QByteArray, QStringList, QStringList> row{"clicked", "form",
                                                                          "added", "removed"};
        row("one more", words("u4"), "vtId=1&members=u2%2Cu4", words("u4"), {});
        row("others", words("u5 u2 u3"), "vtId=1&members=u3%2Cu5", words("u3 u5"), words("u2"));
        row("none", words("u2"), "vtId=1&members=", {}, words("u2"));
        row("nothing", {}, {}, {}, {});
        row("nothing in the end", words("u4 u4 u2 u2"), {}, {}, {});
    }

    void sends()
    {
        QFETCH(QStringList, clicked);
        QFETCH(QByteArray, form);
        QFETCH(QStringList, added);
        QFETCH(QStringList, removed);
        Administrators a;
        a.openLoaded();
        const QSignalSpy set(a.dialog, &CSetAdministrator::administratorsSet);
        for (const QString &id : clicked)
            a.toggle(id.toLatin1().constData());
        QTest::mouseClick(a.sure(a.dialog), Qt::LeftButton);
        QTest::mouseClick(a.sure(a.dialog), Qt::LeftButton);
        QTest::keyClick(a.list, Qt::Key_Return);
        if (!form.isEmpty()) // what was on its way from the button
            emit a.dialog->findChild<DialogBar *>()->sure();
        QTRY_VERIFY(!a.dialog);
        QCOMPARE(a.service.count("setVirtualTeamAdmin"), form.isEmpty() ? 0 : 1);
        QCOMPARE(set.size(), form.isEmpty() ? 0 : 1);
        if (form.isEmpty())
            return;
        QCOMPARE(a.service.form(), form);
        QCOMPARE(set.first(), (QVariantList{QStringLiteral("1"), added, removed}));
    }

    void keysAndFilter()
    {
        Administrators a;
        a.openLoaded();
        const QAbstractItemModelTester tester(
            a.list->members(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        QTest::keyClicks(a.field(a.dialog), QStringLiteral("zhaos"));
        QCOMPARE(a.shown(), words("u4"));
        QTest::keyClick(a.field(a.dialog), Qt::Key_Down);
        QTest::keyClick(a.list, Qt::Key_Space);
        QCOMPARE(a.note(a.dialog), QStringLiteral("2 chosen"));
        QTest::keyClicks(a.field(a.dialog), QStringLiteral("!"));
        QVERIFY(!a.list->isVisible()); // nobody is found
        QTest::keyClick(a.field(a.dialog), Qt::Key_Escape);
        QCOMPARE(a.shown().size(), 4);
        QVERIFY(a.dialog->isVisible());
        QTest::keyClick(a.list, Qt::Key_Return);
        QTRY_COMPARE(a.service.form(), QByteArray("vtId=1&members=u2%2Cu4"));
    }

    void failures_data()
    {
        const Rows<int, int> row{"status", "code"};
        row("not the owner any more", 200, 10002);
        row("somebody has gone", 200, 10001);
        row("no server", 500, 0);
    }

    // What was ticked stays, but for who is no member any more.
    void failures()
    {
        QFETCH(int, status);
        QFETCH(int, code);
        Administrators a;
        const LogCapture log(a.service.host.context);
        a.openLoaded();
        a.toggle("u4");
        a.toggle("u5");
        a.toggle("u2");
        a.service.server.reply(TeamService::path("setVirtualTeamAdmin"),
                               status == 200 ? TeamService::reply("{}", code)
                                             : FakeReply::of(status));
        a.service.answer("getMembers", R"({"members":[
            {"userId":"u4","role":0},{"userId":"u2","role":1},{"userId":"u3","role":1}]})");
        QTest::mouseClick(a.sure(a.dialog), Qt::LeftButton);
        QTRY_COMPARE(a.service.told(), QString::fromUtf8("设置子管理员失败，请重试"));
        QVERIFY(!log.linesWith((" nCode:" + QByteArray::number(code)).constData()).isEmpty());
        QTRY_VERIFY(a.sure(a.dialog)->isEnabled());
        QCOMPARE(a.dialog->focusWidget(), a.sure(a.dialog));
        if (code == 0) {
            QCOMPARE(a.list->members()->checkedIds(), words("u4 u5"));
            return;
        }
        QTRY_COMPARE(a.list->members()->recordCount(), 3);
        // u3 has become one elsewhere.
        QCOMPARE(a.list->members()->checkedIds(), words("u3 u4"));
        QCOMPARE(a.note(a.dialog), QStringLiteral("2 chosen"));
    }

    // The list asked for after a failure comes in the middle of the next attempt, and knows
    // what that one did.
    void theListComesBeforeTheResult()
    {
        Administrators a;
        a.openLoaded();
        a.toggle("u4");
        a.service.server.reply(
            TeamService::path("setVirtualTeamAdmin"),
            {TeamService::reply("{}", 10002), TeamService::reply("{}").onRelease()});
        a.service.hold("getMembers", R"({"members":[
            {"userId":"u4","role":1},{"userId":"u2","role":1}]})");
        QTest::mouseClick(a.sure(a.dialog), Qt::LeftButton);
        QTRY_COMPARE(a.service.server.unanswered(), 1);
        QTRY_COMPARE(a.service.boxes(), 1);
        const QSignalSpy set(a.dialog, &CSetAdministrator::administratorsSet);
        QTest::mouseClick(a.sure(a.dialog), Qt::LeftButton);
        QTRY_COMPARE(a.service.server.unanswered(), 2);
        a.service.server.release(1);
        QTRY_COMPARE(a.list->members()->recordCount(), 2);
        a.service.server.release();
        QTRY_COMPARE(set.size(), 1);
        QCOMPARE(set.first(), (QVariantList{QStringLiteral("1"), words("u4"), QStringList()}));
    }

    void aFailedLoadCanBeRepeated()
    {
        Administrators a;
        a.service.server.reply(TeamService::path("getMembers"),
                               {FakeReply::of(500), TeamService::reply(R"({"members":[
                                   {"userId":"u1","role":2}]})")});
        a.open();
        auto *retry = a.dialog->findChild<QPushButton *>(QStringLiteral("retry"));
        QTRY_VERIFY(retry->isVisible());
        QVERIFY(!a.sure(a.dialog)->isEnabled());
        a.field(a.dialog)->setText(QStringLiteral("x"));
        QVERIFY(retry->isVisible());
        QTest::mouseClick(retry, Qt::LeftButton);
        // The owner is alone.
        const auto *empty = a.dialog->findChild<QWidget *>(QStringLiteral("nobody"));
        QTRY_VERIFY(empty->isVisible());
    }

    void closesWhenTheTeamHasGone()
    {
        Administrators a;
        a.service.answer("getMembers", "{}", 10001);
        a.open();
        QTRY_VERIFY(!a.dialog);
        QCOMPARE(a.service.told(), QString::fromUtf8("获取成员信息出错"));
    }

    void offlineNothingIsSent()
    {
        Administrators a;
        a.openLoaded();
        a.toggle("u4");
        a.service.setOnline(false);
        QTest::mouseClick(a.sure(a.dialog), Qt::LeftButton);
        QCOMPARE(a.service.told(), QObject::tr("notexecuteoperation"));
        QCOMPARE(a.service.count("setVirtualTeamAdmin"), 0);
        QVERIFY(a.sure(a.dialog)->isEnabled());
    }

    void canBeClosedWhileItRuns()
    {
        Administrators a;
        a.service.hold("setVirtualTeamAdmin");
        a.openLoaded();
        a.toggle("u4");
        QTest::mouseClick(a.sure(a.dialog), Qt::LeftButton);
        QTRY_COMPARE(a.service.server.unanswered(), 1);
        QVERIFY(!a.sure(a.dialog)->isEnabled());
        a.dialog->close();
        a.service.server.release();
        QTRY_VERIFY(!a.dialog);
        QTRY_COMPARE(a.service.server.unanswered(), 0);
    }
};

FRIENDUI_TEST(TstSetAdministrators)
#include "tst_setadministrators.moc"
