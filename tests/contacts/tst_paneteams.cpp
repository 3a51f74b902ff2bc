// Virtual teams in the pane: their page and its place, the windows that events of the
// host open, and the search that finds them.
#include "contacts/friendlistview.h"
#include "contacts/search/searchpage.h"
#include "contacts/search/searchresultmodel.h"
#include "contacts/search/searchresultview.h"
#include "contacts/search/searchsources.h"
#include "controls/searchbox.h"
#include "plugin/paneactions.h"
#include "tests/contacts/panefixture.h"
#include "tests/support/fakeserver.h"
#include "tests/support/files.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"
#include "virtualteam/cvirtualapplymannger.h"
#include "virtualteam/cvirtualteaminfomanager.h"
#include "virtualteam/cvirtualteampage.h"
#include "virtualteam/cvirtualteamtreeview.h"
#include "virtualteam/dialogs/cvirtualapply.h"
#include "virtualteam/dialogs/virtualteaminviteinfopage.h"
#include "virtualteam/teamtreemodel.h"

namespace {
const QString Entry = QStringLiteral("virtureteam");
const QString Quarry = QStringLiteral("7");
const QString Harbour = QStringLiteral("8");
const QByteArray ListPath = "/center/vt/getAllVirtualTeam.do";
} // namespace

class TstPaneTeams : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_server = std::make_unique<FakeServer>();
        m_server->replyElsewhere(
            [](const FakeRequest &) { return FakeReply::json(R"({"code":0,"data":{}})"); });
        setTeams({{Quarry, "Quarry"}, {Harbour, "Harbour"}});
        m_pane = std::make_unique<PaneFixture>();
        m_pane->host.context.programFolder = m_pane->folder.path();
        const QByteArray address = m_server->url().toEncoded();
        writeFile(m_pane->folder.filePath(QStringLiteral("allurl.ini")),
                  "[Hosts]\ncenter=" + address + "\nids=" + address + '\n');
        QVERIFY(QTest::qWaitForWindowActive(m_pane->pane));
    }
    void cleanup()
    {
        m_pane.reset();
        m_server.reset();
    }

    // News of teams change no page under the user's hands, and load nothing that
    // nobody has looked at.
    void madeWhenItIsRaised()
    {
        FakeHost::send(Inbound::VirtualTeamsChanged, QStringLiteral("7,8"), QString());
        FakeHost::send(Inbound::VirtualTeamRefresh, Quarry);
        QCOMPARE(m_pane->pane->currentPage(), QStringLiteral("friends"));
        QVERIFY(!page());
        QCOMPARE(m_server->requests().size(), 0);
        QVERIFY(m_pane->pane->raisePage(Entry));
        QCOMPARE(m_pane->pane->currentPage(), Entry);
        QTRY_COMPARE(model()->teamIds(), (QStringList{Quarry, Harbour}));
        QVERIFY(page()->isVisible());
        keepPicture(m_pane->pane->grab().toImage(), QStringLiteral("pane-teams"));
        QCOMPARE(m_server->count(ListPath), 1);

        m_pane->pane->raisePage(QStringLiteral("friends"));
        setTeams({{Harbour, "Harbour"}});
        FakeHost::send(Inbound::VirtualTeamsChanged, QStringLiteral("7"), QString());
        QTRY_COMPARE(model()->teamIds(), QStringList{Harbour});
        QCOMPARE(m_pane->pane->currentPage(), QStringLiteral("friends"));
        QCOMPARE(m_server->count(ListPath), 2);
    }

    void withoutTheRight()
    {
        m_pane->destroy();
        m_pane->host.context.deniedRights.insert(ApplicationContext::VirtualTeam);
        m_pane->make();
        paneActions()->locateTeam(Quarry);
        QVERIFY(!m_pane->pane->teamPage());
        QCOMPARE(m_pane->pane->currentPage(), QStringLiteral("friends"));
    }

    void windowsOfEvents()
    {
        const QString data = QStringLiteral(R"({"type":"%1","vtId":"7","member":"u9"})");
        FakeHost::send(Inbound::VirtualTeamsChanged, QString(), data.arg(QLatin1String("audit")));
        FakeHost::send(Inbound::VirtualTeamsChanged, QString(), data.arg(QLatin1String("join")));
        QPointer<CVirtualApply> apply = CVirtualApplyMannger::instance()->window(Quarry);
        QPointer<VirtualTeamInviteInfoPage> invitation =
            CVirtualTeamInfoManager::instance()->window(Quarry, QStringLiteral("u9"));
        QVERIFY(apply && apply->isVisible());
        QVERIFY(invitation && invitation->isVisible());
        QCOMPARE(m_pane->pane->currentPage(), QStringLiteral("friends"));
        apply->close();
        invitation->close();
        QTRY_VERIFY(!apply && !invitation);
    }

    void foundInTheSearch()
    {
        m_pane->pane->raisePage(Entry);
        QTRY_COMPARE(model()->rowCount(), 2);
        m_pane->pane->raisePage(QStringLiteral("friends"));
        search("quarry");
        QCOMPARE(found(), QStringList{Quarry});
        QTest::keyClick(box(), Qt::Key_Return);
        QCOMPARE(m_pane->pane->currentPage(), Entry);
        QCOMPARE(tree()->currentIndex(), model()->teamIndex(Quarry));
        QVERIFY(tree()->isExpanded(model()->teamIndex(Quarry)));
        QVERIFY(tree()->hasFocus());
        QVERIFY(box()->text().isEmpty());

        // Its new name is found, and a team that has gone is not.
        model()->setTeamName(Quarry, QStringLiteral("Lagoon"));
        model()->removeTeam(Harbour);
        QTRY_VERIFY(!isIndexed("harbour"));
        search("lagoon");
        QCOMPARE(found(), QStringList{Quarry});
        box()->clear();
        search("quarry");
        QCOMPARE(found(), QStringList());
    }

    void ofAnotherUser()
    {
        m_pane->pane->raisePage(Entry);
        sources()->start();
        QTRY_VERIFY(isIndexed("quarry") && isIndexed("harbour"));
        setTeams({{Quarry, "Lagoon"}});
        m_pane->host.context.user = QStringLiteral("you");
        FakeHost::send(Inbound::LoginChanged, true);
        QTRY_VERIFY(isIndexed("lagoon"));
        for (const char *old : {"quarry", "harbour"})
            QVERIFY(!isIndexed(old));
    }

    void locatesBeforeItIsLoaded()
    {
        paneActions()->locateTeam(Harbour);
        QCOMPARE(m_pane->pane->currentPage(), Entry);
        QTRY_COMPARE(tree()->currentIndex().data(TeamRowRole::Id).toString(), Harbour);
        QVERIFY(tree()->hasFocus());
        QCOMPARE(m_server->count(ListPath), 1);
    }

private:
    void setTeams(const QVector<QPair<QString, QByteArray>> &teams)
    {
        QByteArrayList list;
        for (const auto &team : teams)
            list.append(R"({"vtId":")" + team.first.toUtf8() + R"(","vtName":")" + team.second +
                        R"(","role":2})");
        m_server->reply(ListPath,
                        FakeReply::json(R"({"code":0,"data":{"vt":[)" + list.join(',') + "]}}"));
    }
    CVirtualTeamPage *page() const { return m_pane->pane->findChild<CVirtualTeamPage *>(); }
    CVirtualTeamTreeView *tree() const { return page()->tree(); }
    TeamTreeModel *model() const { return tree()->teams(); }
    SearchBox *box() const
    {
        return m_pane->pane->findChild<SearchBox *>(QStringLiteral("searchBox"));
    }
    SearchSources *sources() const { return m_pane->pane->findChild<SearchSources *>(); }
    bool isIndexed(const char *text) const
    {
        return !sources()->index().search(QLatin1String(text), 1).isEmpty();
    }
    void search(const char *text) const
    {
        sources()->start();
        QTRY_VERIFY(!sources()->isBusy());
        box()->setFocus();
        QTest::keyClicks(box(), QLatin1String(text));
    }
    QStringList found() const
    {
        QStringList ids;
        const QAbstractItemModel *results = m_pane->pane->findChild<SearchResultView *>()->model();
        for (int row = 0; row < results->rowCount(); ++row)
            ids.append(results->index(row, 0).data(SearchRole::Id).toString());
        return ids;
    }

    std::unique_ptr<FakeServer> m_server;
    std::unique_ptr<PaneFixture> m_pane;
};

FRIENDUI_TEST(TstPaneTeams)
#include "tst_paneteams.moc"
