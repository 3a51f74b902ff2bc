// The windows that take the decision on a new team and on an invitation.
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/requestfixture.h"
#include "virtualteam/dialogs/teamdecisionbody.h"

#include <QPlainTextEdit>

namespace {
using F = RequestFixture;

const QByteArray detailHead =
    R"({"vtId":"7","vtName":"Alpha","userId":"u3","nickName":"<i>Cy</i>","creatorEmployeeCode":"E3",
        "companyCode":"C1","companyName":"Company A","orgName":"Sales","reason":"why <b>",)";

// Of a request whose invited members are these; `more` ends with a comma.
QByteArray detail(const QByteArray &more = {}, const QList<QByteArray> &members = {"u4", "u5"})
{
    QByteArray list;
    for (const QByteArray &member : members)
        list += (list.isEmpty() ? "" : ",") + QByteArray(R"({"userId":")") + member +
                R"(","nickName":"N","employeeCode":"E","companyName":"Co"})";
    return detailHead + more + R"("members":[)" + list + "]}";
}

// One of the two windows.
struct Kind
{
    bool joins = false;

    const char *detailService() const
    {
        return joins ? "joinVirtualTeamStatus" : "auditVirtualTeamDetail";
    }
    const char *decisionService() const
    {
        return joins ? "confirmJoinVirtualTeam" : "auditVirtualTeam";
    }
    TeamDecisionWindow *window(const char *vtId = "7", const char *member = "u3") const
    {
        const QString id = QString::fromLatin1(vtId);
        const QString who = QString::fromLatin1(member);
        if (joins)
            return CVirtualTeamInfoManager::instance()->window(id, who);
        return CVirtualApplyMannger::instance()->window(id);
    }
    QPointer<TeamDecisionWindow> open(const char *vtId = "7", const char *member = "u3") const
    {
        const QString id = QString::fromLatin1(vtId);
        const QString who = QString::fromLatin1(member);
        if (joins)
            CVirtualTeamInfoManager::instance()->showVirtualTeamInfo(id, who);
        else
            CVirtualApplyMannger::instance()->showVirtualApply(id, who);
        return window(vtId, member);
    }
    QPointer<TeamDecisionWindow> openLoaded(F *f, const QByteArray &data = detail()) const
    {
        f->service.answer(detailService(), data);
        const QPointer<TeamDecisionWindow> made = open();
        [&] { QTRY_COMPARE(page(made), QStringLiteral("decisionPage")); }();
        return made;
    }
    static QString page(const TeamDecisionWindow *window)
    {
        return window->findChild<QStackedWidget *>(QStringLiteral("decisionPages"))
            ->currentWidget()
            ->objectName();
    }
};

bool buttonsShown(const QWidget *window)
{
    return F::button(window, "agree")->isVisibleTo(window) &&
           F::button(window, "refuse")->isVisibleTo(window);
}

bool markShown(const QWidget *window)
{
    return window->findChild<QLabel *>(QStringLiteral("mark"))->isVisibleTo(window);
}
} // namespace

class TstTeamDecision : public QObject
{
    Q_OBJECT

private:
    static void bothKinds()
    {
        const Rows<bool> row{"joins"};
        row("approval", false);
        row("invitation", true);
    }

private slots:
    // --- The detail -------------------------------------------------------------------

    void showsTheDetail_data() { bothKinds(); }
    void showsTheDetail()
    {
        QFETCH(bool, joins);
        const Kind kind{joins};
        F f;
        f.service.hold(kind.detailService(), detail());
        const auto window = kind.open();
        QVERIFY(window && window->isVisible());
        QCOMPARE(Kind::page(window), QStringLiteral("loadingPage"));
        QTRY_COMPARE(f.service.count(kind.detailService()), 1);
        QCOMPARE(f.service.form(), QByteArray(joins ? "vtId=7" : "vtId=7&member=u3"));
        f.service.server.release();
        QTRY_COMPARE(Kind::page(window), QStringLiteral("decisionPage"));
        QCOMPARE(F::text(window, "teamName"), QStringLiteral("Alpha"));
        QCOMPARE(F::text(window, "creator"), QStringLiteral("<i>Cy</i>"));
        QCOMPARE(F::text(window, "teamCompany"), QStringLiteral("Company A"));
        QCOMPARE(F::text(window, "department"), QStringLiteral("Sales"));
        QVERIFY(F::text(window, "mobileNumber").isEmpty()); // the service told none
        QCOMPARE(window->findChild<QPlainTextEdit *>(QStringLiteral("reason"))->toPlainText(),
                 QStringLiteral("why <b>"));
        const auto *members = window->findChild<CVirtualTeamMemberListView *>();
        QCOMPARE(members->members()->rowCount(), 2);
        QCOMPARE(members->members()->index(0, 0).data(Qt::AccessibleTextRole).toString(),
                 QString::fromUtf8("N, Co · E"));
        QVERIFY(buttonsShown(window) && !markShown(window));
    }

    void titles_data()
    {
        const Rows<QList<QByteArray>, QString> row{"members", "title"};
        row("is invited", {"u4", "u1"}, "inviteYouJoin");
        row("approves", {"u4"}, "inviteYourCompanyJoin");
    }

    void titles()
    {
        QFETCH(QList<QByteArray>, members);
        F f;
        const auto window = Kind{true}.openLoaded(&f, detail({}, members));
        QTEST(window->windowTitle(), "title");
    }

    void aFailedLoadIsTriedAgain_data() { bothKinds(); }
    void aFailedLoadIsTriedAgain()
    {
        QFETCH(bool, joins);
        const Kind kind{joins};
        F f;
        f.service.answer(kind.detailService(), "{}", 10001);
        const auto window = kind.open();
        QTRY_COMPARE(Kind::page(window), QStringLiteral("failedPage"));
        f.service.setOnline(false);
        F::button(window, "retry")->click();
        QCOMPARE(TipBox::lastText(), QStringLiteral("notexecuteoperation"));
        QCOMPARE(Kind::page(window), QStringLiteral("failedPage"));
        f.service.setOnline(true);
        f.service.answer(kind.detailService(), detail());
        // The sentence, too, asks for a click.
        auto *failed = window->findChild<QWidget *>(QStringLiteral("failedPage"));
        QTest::mouseClick(failed->findChild<QLabel *>(), Qt::LeftButton);
        QTRY_COMPARE(Kind::page(window), QStringLiteral("decisionPage"));
        QCOMPARE(f.service.count(kind.detailService()), 2);
    }

    // --- The decision -----------------------------------------------------------------

    void decides_data()
    {
        const Rows<bool, bool, QByteArray, QString, int> row{"joins", "agrees", "form", "mark",
                                                             "refreshes"};
        row("approves", false, true, "vtId=7&member=u3&flag=1", "teamAgreed", 1);
        row("does not approve", false, false, "vtId=7&member=u3&flag=0", "teamRefused", 0);
        row("joins", true, true, "vtId=7&agree=1", "teamAgreed", 1);
        row("does not join", true, false, "vtId=7&agree=0", "teamRefused", 0);
    }

    void decides()
    {
        QFETCH(bool, joins);
        QFETCH(bool, agrees);
        const Kind kind{joins};
        F f;
        const auto window = kind.openLoaded(&f);
        f.service.hold(kind.decisionService());
        const QSignalSpy refreshes(FriendUISignalSender::instance(),
                                   &FriendUISignalSender::signal_refresh_virtualTeam);
        QPushButton *chosen = F::button(window, agrees ? "agree" : "refuse");
        QPushButton *other = F::button(window, agrees ? "refuse" : "agree");
        chosen->click();
        QVERIFY(!chosen->isEnabled() && !other->isEnabled());
        chosen->click();
        other->click();
        // What was on its way from them.
        emit window->findChild<TeamDecisionBody *>()->decided(agrees);
        QTRY_COMPARE(f.service.count(kind.decisionService()), 1);
        QTEST(f.service.form(), "form");
        f.service.server.release();
        QTRY_VERIFY(!buttonsShown(window));
        QVERIFY(markShown(window));
        QTEST(F::text(window, "markText"), "mark");
        QTEST(int(refreshes.size()), "refreshes");
        QCOMPARE(f.service.count(kind.decisionService()), 1);
        QCOMPARE(f.service.boxes(), 0);
    }

    void wasDecidedBefore_data() { bothKinds(); }
    void wasDecidedBefore()
    {
        QFETCH(bool, joins);
        F f;
        const auto window = Kind{joins}.openLoaded(&f, detail(R"("audited":true,)"));
        QVERIFY(!buttonsShown(window) && !markShown(window)); // which way is not known
        QCOMPARE(F::text(window, "markText"), QStringLiteral("teamDecided"));
    }

    // The second of two decisions on one request.
    void isDecidedElsewhere_data() { bothKinds(); }
    void isDecidedElsewhere()
    {
        QFETCH(bool, joins);
        const Kind kind{joins};
        F f;
        const auto window = kind.openLoaded(&f);
        f.service.answer(kind.decisionService(), "{}", 10003);
        f.service.answer(kind.detailService(), detail(R"("audited":true,)", {"u4"}));
        F::button(window, "agree")->click();
        QTRY_COMPARE(F::text(window, "markText"), QStringLiteral("teamDecided"));
        QVERIFY(!buttonsShown(window) && !markShown(window));
        QTRY_COMPARE(f.service.count(kind.detailService()), 2);
        const auto *members = window->findChild<CVirtualTeamMemberListView *>();
        QTRY_COMPARE(members->members()->rowCount(), 1);
        QCOMPARE(f.service.boxes(), 0);
    }

    void theTeamHasGone_data() { bothKinds(); }
    void theTeamHasGone()
    {
        QFETCH(bool, joins);
        const Kind kind{joins};
        F f;
        const auto window = kind.openLoaded(&f);
        f.service.answer(kind.decisionService(), "{}", 10001);
        F::button(window, "agree")->click();
        QTRY_COMPARE(F::text(window, "markText"), QStringLiteral("teamRequestGone"));
        QVERIFY(!buttonsShown(window) && !markShown(window));
        QCOMPARE(f.service.boxes(), 0);
    }

    void aFailedDecisionIsTriedAgain_data()
    {
        const Rows<bool, int, QString> row{"online", "code", "told"};
        row("offline", false, 0, "notexecuteoperation");
        row("10002", true, 10002, "teamChangeFailed");
        row("other", true, 1, "teamChangeFailed");
    }

    void aFailedDecisionIsTriedAgain()
    {
        QFETCH(bool, online);
        QFETCH(int, code);
        for (const bool joins : {false, true}) {
            const Kind kind{joins};
            F f;
            const auto window = kind.openLoaded(&f);
            f.service.answer(kind.decisionService(), "{}", code);
            f.service.setOnline(online);
            F::button(window, "agree")->click();
            QTRY_COMPARE(f.service.boxes(), 1);
            QTEST(TipBox::lastText(), "told");
            QCOMPARE(f.service.count(kind.decisionService()), online ? 1 : 0);
            QVERIFY(buttonsShown(window) && F::button(window, "agree")->isEnabled() &&
                    F::button(window, "refuse")->isEnabled());
        }
    }

    void closedWhileItIsDecided_data() { bothKinds(); }
    void closedWhileItIsDecided()
    {
        QFETCH(bool, joins);
        const Kind kind{joins};
        F f;
        const auto window = kind.openLoaded(&f);
        f.service.hold(kind.decisionService());
        const QSignalSpy refreshes(FriendUISignalSender::instance(),
                                   &FriendUISignalSender::signal_refresh_virtualTeam);
        F::button(window, "agree")->click();
        QTRY_COMPARE(f.service.count(kind.decisionService()), 1);
        QTest::keyClick(window.data(), Qt::Key_Escape);
        F::settle();
        QVERIFY(!window);
        f.service.server.release();
        QTRY_COMPARE(refreshes.size(), 1);
    }

    // Somebody else's decision shows without a click.
    void followsTheTeam()
    {
        const Kind kind{true};
        F f;
        const auto window = kind.openLoaded(&f);
        f.service.answer(kind.detailService(), detail(R"("audited":true,)"));
        emit FriendUISignalSender::instance()->signal_refresh_virtualTeam(QStringLiteral("8"));
        emit FriendUISignalSender::instance()->signal_refresh_virtualTeam(QStringLiteral("7"));
        QTRY_COMPARE(F::text(window, "markText"), QStringLiteral("teamDecided"));
        QCOMPARE(f.service.count(kind.detailService()), 2);
    }

    void newsByTheThousand()
    {
        const Kind kind{true};
        F f;
        const auto window = kind.openLoaded(&f);
        f.service.hold(kind.detailService(), detail());
        for (int i = 0; i < 10000; ++i)
            emit FriendUISignalSender::instance()->signal_refresh_virtualTeam(QStringLiteral("7"));
        QTRY_COMPARE(f.service.count(kind.detailService()), 2);
        f.service.answer(kind.detailService(), detail(R"("audited":true,)"));
        f.service.server.release();
        QTRY_COMPARE(F::text(window, "markText"), QStringLiteral("teamDecided"));
        QCOMPARE(f.service.count(kind.detailService()), 3);
    }

    // --- One window per request -----------------------------------------------------------

    void oneWindowPerKey_data() { bothKinds(); }
    void oneWindowPerKey()
    {
        QFETCH(bool, joins);
        const Kind kind{joins};
        F f;
        const auto first = kind.openLoaded(&f);
        first->showMinimized();
        f.service.setOnline(false);
        QCOMPARE(kind.open(), first); // raised offline, too
        QVERIFY(!first->isMinimized() && first->isVisible());
        QCOMPARE(f.service.count(kind.detailService()), 1);
        QCOMPARE(f.service.boxes(), 0);
        QVERIFY(!kind.open("8"));
        QCOMPARE(TipBox::lastText(), QStringLiteral("notexecuteoperation"));
        QCOMPARE(f.service.count(kind.detailService()), 1);
    }

    void keysDoNotRunTogether()
    {
        F f;
        const Kind kind{true};
        const auto one = kind.open("1", "23");
        const auto other = kind.open("12", "3");
        QVERIFY(one && other && one != other);
        QTRY_COMPARE(f.service.count(kind.detailService()), 2);
    }

    // A host may ask for very many.
    void manyWindows()
    {
        F f;
        const Kind kind;
        for (int i = 0; i < 60; ++i)
            kind.open(QByteArray::number(i).constData());
        kind.open("");
        QVERIFY(kind.window("49") && !kind.window("50") && !kind.window(""));
        delete kind.window("0");
        QVERIFY(kind.open("50"));
    }

    void closedHoweverItIs_data()
    {
        const Rows<bool, QByteArray> row{"joins", "way"};
        for (const bool joins : {false, true}) {
            for (const char *way : {"button", "Esc", "close", "logout", "delete"})
                row(qPrintable(QStringLiteral("%1 %2").arg(joins).arg(QLatin1String(way))), joins,
                    way);
        }
    }

    void closedHoweverItIs()
    {
        QFETCH(bool, joins);
        QFETCH(QByteArray, way);
        const Kind kind{joins};
        F f;
        const auto first = kind.openLoaded(&f);
        if (way == "button")
            F::button(first, "btnClose")->click();
        else if (way == "Esc")
            QTest::keyClick(first.data(), Qt::Key_Escape);
        else if (way == "close")
            first->close();
        else if (way == "logout")
            emit FriendUISignalSender::instance()->signal_logout();
        else
            delete first.data();
        QVERIFY(!kind.window());
        F::settle();
        QVERIFY(!first);
        QVERIFY(kind.open());
        QTRY_COMPARE(f.service.count(kind.detailService()), 2);
    }

    void anUnknownWindowIsLogged()
    {
        F f;
        const LogCapture log(f.service.host.context);
        CVirtualApplyMannger::instance()->onVirtualApplyClosed(QStringLiteral("99"));
        CVirtualTeamInfoManager::instance()->onVirtualTeamInfoClosed(QStringLiteral("99"),
                                                                     QStringLiteral("u3"));
        const QStringList lines = log.linesWith(
            "CVirtualTeamInfoManager::onVirtualTeamInfoClosed,ERROR,窗口未被加入缓存中.");
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines.at(0).contains(QLatin1String("cvirtualapplymannger")));
        QVERIFY(lines.at(1).contains(QLatin1String("cvirtualteaminfomanager")));
    }
};

FRIENDUI_TEST(TstTeamDecision)
#include "tst_teamdecision.moc"
