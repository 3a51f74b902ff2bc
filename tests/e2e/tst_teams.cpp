// Virtual teams between people: one of them in the reference host with the module, the
// others by the services alone, and the reference back end in a process of its own.
#include "host/hostapplication.h"
#include "host/mainwindow.h"
#include "host/tour/serviceuser.h"
#include "host/tour/tourstage.h"
#include "host/webservices.h"
#include "host/windows/hostwindows.h"
#include "host/windows/notices.h"
#include "http/jsonreader.h"
#include "tests/support/testrunner.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeView>

namespace {

constexpr int WaitMs = 60000;
constexpr char Tree[] = "CVirtualTeamTreeView";
constexpr int NameRole = 257;
constexpr int IdRole = 258;
const QString Approval = QStringLiteral("/center/company/teamApproval.do");

// The back end, ready to be used.
struct Services
{
    QTemporaryDir folder;
    std::unique_ptr<BackendProcess> process;

    bool start()
    {
        BackendProcess::Options options;
        options.program = QStringLiteral(FRIENDUI_BACKEND);
        options.dataFolder = folder.filePath(QStringLiteral("backend"));
        process = std::make_unique<BackendProcess>(options);
        QSignalSpy ready(process.get(), &BackendProcess::ready);
        process->start();
        return ready.wait(WaitMs);
    }
    const BackendAddress &address() const { return process->address(); }
};

// A host of one of the users, as it is started from a command line.
struct Host
{
    QTemporaryDir folder;
    std::unique_ptr<HostApplication> application;
    std::unique_ptr<TourStage> stage;

    bool start(const QString &user, const BackendAddress &services)
    {
        HostOptions options;
        options.user = user;
        options.dataFolder = folder.path();
        options.pluginFile = QStringLiteral(FRIENDUI_MODULE);
        options.backendAddress = services.address;
        options.caFile = services.caFile;
        options.passwordFile = services.passwordFile;
        options.simulation = false;
        HostPlace place;
        QString problem;
        if (!settlePlace(&options, &place, &problem))
            return false;
        application = std::make_unique<HostApplication>(options, place);
        stage = std::make_unique<TourStage>(*application);
        return application->start() == ExitCode::Success && application->hasPane() &&
               QTest::qWaitFor(
                   [this] { return application->services()->state() == WebServices::Ready; },
                   WaitMs);
    }
    ~Host()
    {
        if (application)
            application->shutDown();
    }
    int notices() const { return application->window()->windows()->notices()->count(); }
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
    Services services;
    Host host;
};

FRIENDUI_TEST(TstTeams)
#include "tst_teams.moc"
