// The dialog that creates a team and invites to one.
#include "tests/support/testrunner.h"
#include "tests/virtualteam/requestfixture.h"

namespace {
using F = CreationFixture;

enum Way
{
    Click,
    EnterInName,
    EnterOnButton
};

void confirm(const F &f, Way way)
{
    if (way == Click)
        f.sure()->click();
    else
        QTest::keyClick(way == EnterInName ? static_cast<QWidget *>(f.name()) : f.sure(),
                        Qt::Key_Return);
}
} // namespace
Q_DECLARE_METATYPE(Way)

class TstTeamCreation : public QObject
{
    Q_OBJECT

private slots:
    // --- What is missing --------------------------------------------------------------

    void refusals_data()
    {
        const Rows<bool, QString, QList<QByteArray>, QString> row{"invites", "name", "picked",
                                                                  "told"};
        row("no name, nobody", false, "", {}, "teamNameNotempty");
        row("a name of blanks", false, "   ", {"u2", "u3"}, "teamNameNotempty");
        row("nobody", false, "A", {}, "teamCountMoreTwo");
        row("one member", false, "A", {"u2"}, "teamCountMoreTwo");
        row("nobody is invited", true, "", {}, "addInviteCompany");
    }

    void refusals()
    {
        QFETCH(bool, invites);
        QFETCH(QString, name);
        QFETCH(QList<QByteArray>, picked);
        F f(invites);
        if (f.name())
            f.name()->setText(name);
        for (const QByteArray &userId : picked)
            f.pick(userId);
        f.sure()->click();
        QTEST(TipBox::lastText(), "told");
        QCOMPARE(f.service.boxes(), 1);
        QCOMPARE(f.service.count("createVirtualTeam") + f.service.count("inviteVirtualTeam"), 0);
        QVERIFY(f.dialog->isVisible() && f.sure()->isEnabled());
    }

    void nothingIsSentOffline()
    {
        F f;
        f.fill();
        const int searches = f.service.count("searchMember");
        f.service.setOnline(false);
        f.search(QStringLiteral("u4"));
        QCOMPARE(TipBox::lastText(), QStringLiteral("notexecuteoperation"));
        f.sure()->click();
        QCOMPARE(f.service.boxes(), 2);
        f.service.setOnline(true);
        f.sure()->click();
        QTRY_VERIFY(!f.dialog);
        QCOMPARE(f.service.count("searchMember"), searches);
        QCOMPARE(f.service.count("createVirtualTeam"), 1);
    }

    // --- What is sent -----------------------------------------------------------------

    void sends_data()
    {
        const Rows<bool, QString, QByteArray> row{"invites", "reason", "form"};
        row("a team", false, " a&b ", "members=u2%2Cu3&vtName=Beta&reason=a%26b");
        row("a team without a reason", false, "\n ",
            "members=u2%2Cu3&vtName=Beta&reason=defaltInvitReasion");
        row("an invitation", true, "why", "vtId=7&members=u2%2Cu3&reason=why");
        row("an invitation without a reason", true, "",
            "vtId=7&members=u2%2Cu3&reason=defaltInvitReasion");
    }

    void sends()
    {
        QFETCH(bool, invites);
        QFETCH(QString, reason);
        F f(invites);
        f.fill();
        f.reason()->setPlainText(reason);
        f.sure()->click();
        QTRY_VERIFY(!f.dialog);
        QTEST(f.service.form(), "form");
    }

    void sendsOnce_data()
    {
        QTest::addColumn<bool>("invites");
        QTest::addColumn<Way>("way");
        QTest::newRow("clicks") << false << Click;
        QTest::newRow("Enter in the name") << false << EnterInName;
        QTest::newRow("Enter on the button") << false << EnterOnButton;
        QTest::newRow("invites, clicks") << true << Click;
    }

    void sendsOnce()
    {
        QFETCH(bool, invites);
        QFETCH(Way, way);
        F f(invites);
        const char *service = invites ? "inviteVirtualTeam" : "createVirtualTeam";
        f.fill();
        f.service.hold(service);
        confirm(f, way);
        QVERIFY(!f.sure()->isEnabled());
        confirm(f, way);
        f.dialog->slot_sure();
        QTRY_COMPARE(f.service.count(service), 1);
        f.service.server.release();
        QTRY_VERIFY(!f.dialog);
        QCOMPARE(f.service.count(service), 1);
    }

    // --- What comes of it -------------------------------------------------------------

    void results_data()
    {
        const Rows<bool, QByteArray, int, QString, bool> row{"invites", "data", "code", "told",
                                                             "closes"};
        row("created", false, R"({"vtId":"8"})", 0, "virtualTeamCreateSuccess", true);
        row("waits", false, R"({"vtId":"8","audit":true})", 0, "virtualTeamCreateSuccessAndWait",
            true);
        row("create, 10001", false, "{}", 10001, "virtualTeamCreateFailReasion1", false);
        row("create, 10002", false, "{}", 10002, "virtualTeamCreateFailReasion2", false);
        row("create, other", false, "{}", 5, "virtualTeamCreateFail", false);
        row("invited", true, "{}", 0, "virtualTeamInviteSuccess", true);
        row("invite, 10001", true, "{}", 10001, "virtualTeamInviteFail1", false);
        row("invite, 10002", true, "{}", 10002, "virtualTeamInviteFail2", false);
        row("invite, other", true, "{}", 10003, "virtualTeamInviteFail", false);
    }

    void results()
    {
        QFETCH(bool, invites);
        QFETCH(QByteArray, data);
        QFETCH(int, code);
        QFETCH(QString, told);
        QFETCH(bool, closes);
        F f(invites);
        f.fill();
        f.reason()->setPlainText(QStringLiteral("why"));
        f.service.answer(invites ? "inviteVirtualTeam" : "createVirtualTeam", data, code);
        QSignalSpy created(f.dialog, &CVirtualTeamWidgetCreat::teamCreated);
        f.sure()->setFocus();
        f.sure()->click();
        QTRY_COMPARE(f.service.boxes(), 1);
        QCOMPARE(TipBox::lastText(), told);
        QCOMPARE(created.size(), closes && !invites ? 1 : 0);
        if (!created.isEmpty()) {
            QCOMPARE(created.first().at(0).toString(), QStringLiteral("8"));
            QCOMPARE(created.first().at(1).toBool(), told.endsWith(QLatin1String("Wait")));
        }
        F::settle();
        QCOMPARE(f.dialog.isNull(), closes);
        if (closes)
            return;
        // Nothing that was typed is lost, and it can be tried again.
        QVERIFY(f.dialog->isVisible() && f.sure()->isEnabled());
        QCOMPARE(f.dialog->focusWidget(), f.sure());
        QCOMPARE(f.chosen().size(), 2);
        QCOMPARE(f.reason()->toPlainText(), QStringLiteral("why"));
        QVERIFY(!f.name() || f.name()->text() == QLatin1String(" Beta "));
    }

    void closedWhileItRuns_data()
    {
        const Rows<bool, QByteArray, int, QString, int> row{"invites", "data", "code", "told",
                                                            "refreshes"};
        row("created", false, R"({"vtId":"8"})", 0, "virtualTeamCreateSuccess", 1);
        row("not created", false, "{}", 10002, "virtualTeamCreateFailReasion2", 0);
        row("invited", true, "{}", 0, "virtualTeamInviteSuccess", 0);
    }

    void closedWhileItRuns()
    {
        QFETCH(bool, invites);
        QFETCH(QByteArray, data);
        QFETCH(int, code);
        QFETCH(QString, told);
        F f(invites);
        const char *service = invites ? "inviteVirtualTeam" : "createVirtualTeam";
        f.fill();
        f.service.hold(service, data, code);
        const QSignalSpy refreshes(FriendUISignalSender::instance(),
                                   &FriendUISignalSender::signal_refresh_virtualTeam);
        f.sure()->click();
        QTRY_COMPARE(f.service.count(service), 1);
        QTest::keyClick(f.reason(), Qt::Key_Escape);
        F::settle();
        QVERIFY(!f.dialog);
        f.service.server.release();
        QTRY_COMPARE(f.service.boxes(), 1);
        QCOMPARE(TipBox::lastText(), told);
        QTEST(int(refreshes.size()), "refreshes");
    }

    // What the user before asked for is nothing for this one.
    void anotherUserIsToldNothing()
    {
        F f;
        f.fill();
        f.service.hold("createVirtualTeam", R"({"vtId":"8"})");
        f.sure()->click();
        QTRY_COMPARE(f.service.count("createVirtualTeam"), 1);
        emit FriendUISignalSender::instance()->signal_logout();
        F::settle();
        QVERIFY(!f.dialog);
        f.service.host.context.user = QStringLiteral("u9");
        f.service.server.release();
        QTRY_COMPARE(f.service.host.context.webRequests.size(), 3);
        F::settle();
        QCOMPARE(f.service.boxes(), 0);
    }

    // --- The form -----------------------------------------------------------------------

    void tabOrder()
    {
        const F f;
        QCOMPARE(f.name()->placeholderText(), QString::fromUtf8("16字以内"));
        f.field()->setText(QStringLiteral("x")); // there is something to add
        QStringList order;
        const QWidget *widget = f.name();
        do {
            if (widget->isVisible() && widget->isEnabled() &&
                (widget->focusPolicy() & Qt::TabFocus) != 0)
                order.append(widget->objectName());
            widget = widget->nextInFocusChain();
        } while (widget != f.name() && order.size() < 20);
        QCOMPARE(order.join(QLatin1Char(' ')),
                 QStringLiteral("teamNameEdit memberSearch memberAdd chosenMembers reasonEdit "
                                "btnSure btnCancel btnClose"));
    }

    void invitesToATeamThatHasAName()
    {
        const F f(true);
        QVERIFY(!f.name());
        QCOMPARE(F::text(f.dialog, "teamName"), QStringLiteral("Alpha"));
        QCOMPARE(f.dialog->windowTitle(), QString::fromUtf8("邀请外企业成员"));
    }
};

FRIENDUI_TEST(TstTeamCreation)
#include "tst_teamcreation.moc"
