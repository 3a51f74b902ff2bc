// The plug-in's pane and the host's embedded core, with the bus between them: a
// colleague is asked and becomes a row of the friend tree.
#include "contacts/assembly.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendwidget.h"
#include "controls/inputbox.h"
#include "controls/tipbox.h"
#include "detail/addfriend.h"
#include "detail/addfriendpages.h"
#include "detail/caddfriendmannger.h"
#include "host/corenotifier.h"
#include "host/eventlog.h"
#include "host/hostbus.h"
#include "host/hostcontext.h"
#include "host/requesttable.h"
#include "hostapi/eventcodes.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduimessageprocess.h"
#include "plugin/paneactions.h"
#include "tests/host/corefixture.h"
#include "tests/host/ui/fakeactions.h"
#include "tests/support/fakecontext.h"
#include "tests/support/testrunner.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

namespace {
struct Session
{
    explicit Session(MessagingCore *core, const QString &folder)
        : context(core, folder), scope(&context), notifier(core, &bus, &context)
    {
        installRequestHandlers(bus, {core, &actions});
        FriendUIMessageProcess *hub = FriendUIMessageProcess::instance();
        hub->setHostReceiver(&bus);
        bus.setPlugin(hub, QString::fromLatin1(PluginId::FriendUi));
        assemblePane();
        pane.reset(hub->getFriendWidget());
        pane->resize(360, 640);
        pane->show();
        notifier.startSession();
        TipBox::setNextAnswers(TipBox::Sure);
    }
    ~Session()
    {
        TipBox::setNextAnswers(TipBox::ShowBox);
        pane.reset(); // and its windows with it
        FriendUIMessageProcess::instance()->setHostReceiver(nullptr);
        context.shutDown();
    }

    QString groupOf(const QString &jid) const
    {
        return pane->findChild<FriendTreeModel *>()->groupOf(jid);
    }
    bool isListed(const QString &jid) const
    {
        return pane->findChild<FriendTreeModel *>()->hasContact(jid);
    }

    HostContext context;
    HostContextScope scope;
    EventLog log;
    HostBus bus{&log};
    CoreNotifier notifier;
    FakeActions actions;
    std::unique_ptr<QWidget> pane;
};

AddFriend *openFor(const QString &jid)
{
    paneActions()->addContact(jid);
    return CAddFriendMannger::instance()->dialog(jid);
}
QString text(const AddFriend *dialog, const char *label)
{
    return dialog->findChild<QLabel *>(QLatin1String(label))->text();
}
QPushButton *button(const AddFriend *dialog, const char *name)
{
    return dialog->findChild<QPushButton *>(QLatin1String(name));
}
} // namespace

class TstAddingContacts : public CoreFixture
{
    Q_OBJECT

private slots:
    void aColleagueBecomesARow_data()
    {
        const Rows<int, bool, QString> row{"policy", "refuses", "outcome"};
        row("accepts all", int(SampleCompany::AcceptsAll), false, "addsuccess");
        row("asks, accepts", int(SampleCompany::AsksFirst), false, "addsuccess");
        row("asks, refuses", int(SampleCompany::AsksFirst), true, "addfailreadd");
    }

    void aColleagueBecomesARow()
    {
        QFETCH(int, policy);
        QFETCH(bool, refuses);
        QFETCH(QString, outcome);
        m_core->setRefusal(refuses ? QStringLiteral("no") : QString());
        const QString jid = stranger(SampleCompany::Policy(policy));
        Session session(m_core.get(), m_folder->path());
        AddFriend *dialog = openFor(jid);
        VcardInfo profile;
        QVERIFY(m_core->profile(jid, &profile));
        QTRY_VERIFY(button(dialog, "okButton")->isVisible());
        QVERIFY(text(dialog, "name").startsWith(profile.nickName));

        button(dialog, "newGroupButton")->click();
        auto *box = dialog->findChild<InputBox *>();
        box->setTextValue(QStringLiteral("New people"));
        box->accept();
        auto *groups = dialog->findChild<QComboBox *>();
        QTRY_COMPARE(groups->currentText(), QStringLiteral("New people"));
        dialog->findChild<QLineEdit *>(QStringLiteral("remarkEdit"))->setText("Remarkable");

        button(dialog, "chatButton")->click();
        QTRY_COMPARE(text(dialog, "resultStatus"), outcome);
        QCOMPARE(session.isListed(jid), !refuses);
        const QString chat = QStringLiteral("openChat(%1, 0)").arg(jid);
        QCOMPARE(session.actions.calls, refuses ? QStringList() : QStringList{chat});
        if (!refuses) {
            QCOMPARE(session.groupOf(jid), groupId(QStringLiteral("New people")));
            QCOMPARE(record(jid).remark, QStringLiteral("Remarkable"));
        }
    }

    void whoRefusesAllIsNotAsked()
    {
        Session session(m_core.get(), m_folder->path());
        AddFriend *dialog = openFor(stranger(SampleCompany::RefusesAll));
        QTRY_VERIFY(text(dialog, "resultText").endsWith(QStringLiteral("refusefriends")));
        QVERIFY(!button(dialog, "okButton")->isVisible());
    }

    void aCoreThatIsSilentOrFails_data()
    {
        const Rows<bool> row{"silent"};
        row("silent", true);
        row("fails", false);
    }

    void aCoreThatIsSilentOrFails()
    {
        QFETCH(bool, silent);
        const auto set = [&](EmbeddedCore::Operation operation, bool on) {
            silent ? m_core->setSilent(operation, on) : m_core->setFailing(operation, on);
        };
        set(EmbeddedCore::RequestPolicy, true);
        const QString jid = stranger(SampleCompany::AcceptsAll);
        Session session(m_core.get(), m_folder->path());
        AddFriend *dialog = openFor(jid);
        QSignalSpy groups(m_core.get(), &MessagingCore::groupsReceived);
        m_core->requestGroups(true); // answered behind the policy
        QVERIFY(groups.wait());
        auto *timer = dialog->findChild<QTimer *>(QStringLiteral("waitTimer"));
        QVERIFY(timer->isActive());
        const int wait = timer->interval();
        timer->start(0); // the wait is over now
        QTRY_COMPARE(text(dialog, "resultText"), QStringLiteral("addfailreadd"));
        timer->setInterval(wait);
        set(EmbeddedCore::RequestPolicy, false);
        button(dialog, "resultButton")->click();
        QTRY_VERIFY(button(dialog, "okButton")->isVisible());
    }
};

FRIENDUI_TEST(TstAddingContacts)
#include "tst_addingcontacts.moc"
