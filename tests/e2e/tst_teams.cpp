// Virtual teams between people: one of them in the reference host with the module, the
// others by the services alone, and the reference back end in a process of its own.
#include "host/tour/serviceuser.h"
#include "http/jsonreader.h"
#include "tests/e2e/onehost.h"
#include "tests/support/testrunner.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QTreeView>

namespace {

constexpr char Tree[] = "CVirtualTeamTreeView";
constexpr int NameRole = 257;
constexpr int IdRole = 258;
const QString Approval = QStringLiteral("/center/company/teamApproval.do");

// What the page of teams shows.
struct Host : OneHost
{
    QModelIndex team(const QString &name) const { return stage->row(Tree, NameRole, name); }
    // A person among the rows below a team that is open.
    bool shows(const QString &teamName, const QString &uid) const
    {
        const QModelIndex row = team(teamName);
        for (int i = 0; row.isValid() && i < row.model()->rowCount(row); ++i) {
            if (row.model()->index(i, 0, row).data(IdRole) == uid)
                return true;
        }
        return false;
    }
    template <class Widget> Widget *in(const char *dialog, const char *name) const
    {
        const QDialog *window = stage->openDialog(dialog);
        return window ? window->findChild<Widget *>(QLatin1String(name)) : nullptr;
    }
    void closeBoxes() const
    {
        while (QDialog *box = stage->openDialog("QMessageBox"))
            box->accept();
    }
};

QStringList teamsOf(ServiceUser *user)
{
    QStringList names;
    const Json::Value data = user->team("getAllVirtualTeam");
    for (const Json::Value &team : JsonReader::array(data, "vt"))
        names.append(JsonReader::text(team, "vtName"));
    return names;
}

} // namespace

class TstTeams : public QObject
{
    Q_OBJECT

private slots:
    // One host: the module keeps what it was given until the process ends.
    void initTestCase()
    {
        QVERIFY(services.start());
        QVERIFY(host.start(QStringLiteral("u000000"), services.address()));
        host.stage->openPage(QStringLiteral("virtureteam"));
    }

    // From the application to the end of a team, each side seeing what the other does.
    void aTeamIsApprovedJoinedAndChanged()
    {
        ServiceUser colleague(services.address(), QStringLiteral("u000005"));
        ServiceUser outsider(services.address(), QStringLiteral("x000000"));
        QCOMPARE(colleague.code(), 0);

        colleague.call(
            Approval, {{"approval", QStringLiteral("1")}, {"approver", QStringLiteral("u000000")}});
        const QString plan = QString::fromUtf8("计划");
        const Json::Value made =
            colleague.team("createVirtualTeam", {{"members", QStringLiteral("u000000,u000006")},
                                                 {"vtName", plan},
                                                 {"reason", QStringLiteral("why")}});
        const QString id = JsonReader::text(made, "vtId");
        QTRY_COMPARE_WITH_TIMEOUT(host.notices(), 1, WaitMs);
        QVERIFY(teamsOf(&colleague).isEmpty() && !host.team(plan).isValid());

        host.stage->press("Notices", "acceptNotice");
        QTRY_VERIFY(host.in<QAbstractButton>("CVirtualApply", "agree"));
        QTRY_VERIFY(host.in<QAbstractButton>("CVirtualApply", "agree")->isVisible());
        host.stage->press("CVirtualApply", "agree");
        QTRY_COMPARE(host.notices(), 0);
        QTRY_VERIFY_WITH_TIMEOUT(host.team(plan).isValid(), WaitMs);
        QCOMPARE(teamsOf(&colleague), QStringList{plan});

        host.stage->list(Tree)->expand(host.team(plan));
        QTRY_VERIFY(host.shows(plan, QStringLiteral("u000006")));
        colleague.team(
            "inviteVirtualTeam",
            {{"vtId", id}, {"members", QStringLiteral("x000000")}, {"reason", QString()}});
        outsider.team("confirmJoinVirtualTeam", {{"vtId", id}, {"agree", QStringLiteral("1")}});
        QCOMPARE(outsider.code(), 0);
        QTRY_VERIFY_WITH_TIMEOUT(host.shows(plan, QStringLiteral("x000000")), WaitMs);

        const QString renamed = QStringLiteral("Plan B");
        colleague.team("modifyVirtualTeamInfo", {{"vtId", id}, {"vtName", renamed}});
        QTRY_VERIFY_WITH_TIMEOUT(host.team(renamed).isValid(), WaitMs);
        QVERIFY(host.stage->list(Tree)->isExpanded(host.team(renamed)));
        colleague.team("deleteVirtualTeamMember",
                       {{"vtId", id}, {"members", QStringLiteral("u000000")}});
        QTRY_VERIFY_WITH_TIMEOUT(!host.team(renamed).isValid(), WaitMs);
    }

    // The other way round: what is done in the window reaches the others.
    void whoCreatesInTheWindowIsSeenByOthers()
    {
        ServiceUser colleague(services.address(), QStringLiteral("u000007"));
        ServiceUser outsider(services.address(), QStringLiteral("x000001"));
        colleague.call(Approval, {{"approval", QStringLiteral("0")}});
        QTRY_VERIFY(host.stage->shownWidget(QStringLiteral("addVirtualTeamButton")));
        qobject_cast<QAbstractButton *>(
            host.stage->shownWidget(QStringLiteral("addVirtualTeamButton")))
            ->click();
        constexpr char Dialog[] = "CVirtualTeamWidgetCreat";
        QTRY_VERIFY(host.in<QLineEdit>(Dialog, "teamNameEdit"));
        host.in<QLineEdit>(Dialog, "teamNameEdit")->setText(QStringLiteral("Joint"));
        const SampleCompany sample;
        int count = 0;
        for (const QString &account : {sample.outsider(4).account, sample.person(7).account}) {
            host.in<QLineEdit>(Dialog, "memberSearch")->setText(account);
            host.stage->press(Dialog, "memberAdd");
            ++count;
            QTRY_COMPARE(host.in<QAbstractItemView>(Dialog, "chosenMembers")->model()->rowCount(),
                         count);
        }
        host.stage->press(Dialog, "btnSure");
        QTRY_VERIFY_WITH_TIMEOUT(host.team(QStringLiteral("Joint")).isValid(), WaitMs);
        host.closeBoxes();
        QCOMPARE(teamsOf(&colleague), QStringList{QStringLiteral("Joint")});
        // The other company is asked.
        const Json::Value news = outsider.call(QStringLiteral("/center/event/getEvents.do"));
        QCOMPARE(int(JsonReader::array(news, "events").size()), 1);
    }

private:
    RunningServices services;
    Host host;
};

FRIENDUI_TEST(TstTeams)
#include "tst_teams.moc"
