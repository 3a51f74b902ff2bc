// The organisation as a page of the pane, and the ways that lead to it.
#include "controls/skinmenu.h"
#include "http/httpmgr.h"
#include "org/orgstructuremgr.h"
#include "org/orgstructuretreeview.h"
#include "org/orgwidget.h"
#include "plugin/frienduisignalsender.h"
#include "plugin/paneactions.h"
#include "tests/contacts/panefixture.h"
#include "tests/org/fakeorgrequest.h"
#include "tests/org/orgmaker.h"
#include "tests/support/testrunner.h"

#include <QPointer>

namespace {

// Answers nothing by itself; what is asked is noted.
class Services
{
public:
    Services()
    {
        OrgStructureMgr::instance(); // sets the real factory
        HttpMgr::instance()->setOrgRequestFactory([this](QObject *parent) -> OrgRequest * {
            last = new FakeOrgRequest(&asks, parent);
            return last;
        });
    }
    ~Services()
    {
        HttpMgr::instance()->setOrgRequestFactory({});
        delete last;
    }
    QStringList asks;
    QPointer<FakeOrgRequest> last;
};

const QString OrganisationPage = QStringLiteral("organizationTree");

} // namespace

class TstOrganisationPage : public QObject
{
    Q_OBJECT

private slots:
    void madeWhenNeeded()
    {
        Services services;
        PaneFixture fixture;
        fixture.host.context.company = QStringLiteral("P1");
        QVERIFY(!fixture.pane->findChild<OrgWidget *>());
        QVERIFY(fixture.pane->raisePage(OrganisationPage));
        auto *page = fixture.pane->findChild<OrgWidget *>();
        QVERIFY(page && page->isVisible());
        QCOMPARE(fixture.pane->currentPage(), OrganisationPage);
        QCOMPARE(services.asks, QStringList{QStringLiteral("children P1")});
        fixture.pane->raisePage(QStringLiteral("friends"));
        fixture.pane->raisePage(OrganisationPage);
        QCOMPARE(fixture.pane->findChildren<OrgWidget *>(), QList<OrgWidget *>{page});
    }

    void leadsToAPlace_data()
    {
        const Rows<bool, bool, QString> row{"byHost", "isOrganisation", "asked"};
        row("the host, a person", true, false, "person dora");
        row("the host, a department", true, true, "department dora");
        row("a card, a person", false, false, "person dora");
    }

    void leadsToAPlace()
    {
        QFETCH(bool, byHost);
        QFETCH(bool, isOrganisation);
        QFETCH(QString, asked);
        Services services;
        PaneFixture fixture;
        fixture.host.context.company = QStringLiteral("P2");
        if (byHost)
            FakeHost::send(Inbound::LocateInOrganisation, QStringLiteral("dora"), isOrganisation);
        else
            paneActions()->locateInOrganisation(QStringLiteral("dora"), isOrganisation);
        QCOMPARE(fixture.pane->currentPage(), OrganisationPage);
        QCOMPARE(services.asks, (QStringList{QStringLiteral("children P2"), asked}));
        // It came from the bus and is not sent there again.
        QCOMPARE(fixture.host.count(Outbound::LocateInOrganisation), 0);
    }

    void withoutTheRight()
    {
        Services services;
        PaneFixture fixture;
        delete fixture.pane;
        fixture.host.context.company = QStringLiteral("P3");
        fixture.host.context.deniedRights.insert(ApplicationContext::Org);
        fixture.make();
        paneActions()->locateInOrganisation(QStringLiteral("dora"), false);
        QCOMPARE(fixture.pane->currentPage(), QStringLiteral("friends"));
        QCOMPARE(services.asks, QStringList());
    }

    void destroyedByWhatARowAsksFor_data()
    {
        const Rows<QString> row{"how"};
        row("double click", "double");
        row("Enter", "enter");
        row("menu", "menu");
        row("whole department", "department");
    }

    void destroyedByWhatARowAsksFor()
    {
        QFETCH(QString, how);
        Services services;
        PaneFixture fixture;
        TipBox::setNextAnswers(TipBox::Sure);
        const QString company = QStringLiteral("P4 ") + how;
        fixture.host.context.company = company;
        fixture.pane->raisePage(OrganisationPage);
        const QString uid = QStringLiteral("eve ") + how;
        const QString department = QStringLiteral("D ") + how;
        emit services.last->signal_searchOrgElements(
            {makeDepartment(department, company, department), makeEmployee(uid, company)}, company);
        emit services.last->signal_searchOrgDone(company);
        const QPointer<OrgStructureTreeView> tree = fixture.pane->findChild<OrgWidget *>()->tree();
        QCoreApplication::processEvents();
        const QModelIndex row = tree->model()->index(1, 0);
        const QPoint pos = tree->visualRect(row).center();
        tree->selectionModel()->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect);

        const QPointer<FriendWidget> pane = fixture.pane;
        fixture.host.onRequest = [&fixture](const FakeHost::Request &) {
            fixture.tester.reset();
            delete fixture.pane;
        };
        if (how == QLatin1String("double")) {
            QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        } else if (how == QLatin1String("enter")) {
            QTest::keyClick(tree, Qt::Key_Return);
        } else {
            const bool isEmployee = how == QLatin1String("menu");
            const QPoint at =
                isEmployee ? pos : tree->visualRect(tree->model()->index(0, 0)).center();
            QContextMenuEvent event(QContextMenuEvent::Mouse, at,
                                    tree->viewport()->mapToGlobal(at));
            QApplication::sendEvent(tree->viewport(), &event);
            auto *menu = qobject_cast<SkinMenu *>(QApplication::activePopupWidget());
            QVERIFY(menu);
            menu->setActiveAction(menu->action(isEmployee ? "invitechat" : "addToContactList"));
            QTest::keyClick(menu, Qt::Key_Return);
        }
        if (how == QLatin1String("department")) {
            const QPointer<FakeOrgRequest> request = services.last;
            emit request->signal_searchOrgElements(
                {makeEmployee(QStringLiteral("new ") + how, department)}, company);
            emit request->signal_searchOrgDone(department);
        }
        QCOMPARE(fixture.host.requests.size(), 1);
        QVERIFY(!pane);
        QCoreApplication::processEvents();
    }
};

FRIENDUI_TEST(TstOrganisationPage)
#include "tst_organisationpage.moc"
