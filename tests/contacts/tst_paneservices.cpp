// Service numbers in the pane: their page and its place, and the windows that events of
// the host open.
#include "controls/searchbox.h"
#include "plugin/frienduisignalsender.h"
#include "plugin/paneactions.h"
#include "servicenum/cservicenotable.h"
#include "servicenum/cservicenowidget.h"
#include "servicenum/cservicenuminfo.h"
#include "servicenum/cservicenuminfomanager.h"
#include "servicenum/cservicenumsearch.h"
#include "servicenum/servicenummodel.h"
#include "tests/contacts/panefixture.h"
#include "tests/support/fakeserver.h"
#include "tests/support/files.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

namespace {
const QString Entry = QStringLiteral("serviceNumbers");
const QByteArray ListPath = "/center/isrv/myIsrv.do";
} // namespace

class TstPaneServices : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_server = std::make_unique<FakeServer>();
        m_server->replyElsewhere([](const FakeRequest &) { return FakeReply::of(404); });
        m_server->reply(ListPath, FakeReply::json(
                                      R"({"code":0,"version":"1","data":[
                                          {"iServiceCode":"s1","name":"News","isSub":true},
                                          {"iServiceCode":"s2","name":"Desk","isSub":true}]})"));
        m_pane = std::make_unique<PaneFixture>();
        m_pane->host.context.programFolder = m_pane->folder.path();
        const QByteArray address = m_server->url().toEncoded();
        writeFile(m_pane->folder.filePath(QStringLiteral("allurl.ini")),
                  "[Hosts]\ncenter=" + address + "\nids=" + address + '\n');
        emit FriendUISignalSender::instance()->signal_logout();
        QVERIFY(QTest::qWaitForWindowActive(m_pane->pane));
    }
    void cleanup()
    {
        emit FriendUISignalSender::instance()->signal_logout();
        PaneFixture::settle();
        m_pane.reset();
        m_server.reset();
    }

    // What the host tells before is not lost, and nothing is loaded for it.
    void madeWhenItIsRaised()
    {
        CServiceNumData number;
        number.code = QStringLiteral("s9");
        FakeHost::send(Inbound::ServiceNumbersAdded, QList<CServiceNumData>{number});
        QVERIFY(!m_pane->pane->findChild<CServiceNoWidget *>());
        QCOMPARE(m_server->count(ListPath), 0);
        QVERIFY(m_pane->pane->raisePage(Entry));
        QCOMPARE(m_pane->pane->currentPage(), Entry);
        const auto *page = m_pane->pane->findChild<CServiceNoWidget *>();
        QVERIFY(page && page->isVisible());
        QVERIFY(page->list()->model()->indexOf(number.code).isValid());
        QTRY_VERIFY(page->list()->model()->indexOf(QStringLiteral("s1")).isValid());
        QCOMPARE(m_server->count(ListPath), 1);
        keepPicture(m_pane->pane->grab().toImage(), QStringLiteral("pane-services"));
    }

    void eventsOpenWindows()
    {
        const QString unknown = QStringLiteral("nobody");
        FakeHost::send(Inbound::OpenServiceNumber, unknown);
        QPointer<CServiceNumInfo> detail = CServiceNumInfoManager::instance()->window(unknown);
        QVERIFY(detail && detail->isVisible());
        QCOMPARE(m_pane->pane->currentPage(), QStringLiteral("friends"));
        FakeHost::send(Inbound::OpenServiceNumberSearch);
        QCOMPARE(m_pane->pane->currentPage(), Entry);
        QVERIFY(searchIsOpen());
    }

    void withoutTheRight()
    {
        m_pane->destroy();
        m_pane->host.context.deniedRights.insert(ApplicationContext::ServiceNo);
        m_pane->make();
        FakeHost::send(Inbound::OpenServiceNumberSearch);
        QVERIFY(!searchIsOpen());
        QVERIFY(!m_pane->pane->serviceNumbers());
    }

    // A host that takes the pane away when a chat is opened.
    void destroyedWhileItAsks()
    {
        m_pane->pane->raisePage(Entry);
        auto *page = m_pane->pane->findChild<CServiceNoWidget *>();
        QTRY_VERIFY(page->list()->model()->rowCount() == 2);
        m_pane->host.onRequest = [this](const FakeHost::Request &request) {
            if (request.code == Outbound::OpenChat)
                m_pane->destroy();
        };
        QTest::mouseClick(page->list()->viewport(), Qt::RightButton, {},
                          page->list()->visualRect(page->list()->model()->index(0)).center());
        const QPoint pos = page->list()->visualRect(page->list()->model()->index(0)).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, pos,
                                page->list()->viewport()->mapToGlobal(pos));
        QApplication::sendEvent(page->list()->viewport(), &event);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QAction *chat = menu->findChild<QAction *>(QStringLiteral("serviceNoChat"));
        QVERIFY(chat);
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(chat).center());
        QCOMPARE(m_pane->host.count(Outbound::OpenChat), 1);
        QVERIFY(!m_pane->pane);
        PaneFixture::settle();
    }

private:
    static bool searchIsOpen()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        return std::any_of(windows.begin(), windows.end(), [](const QWidget *window) {
            return qobject_cast<const CServiceNumSearch *>(window) && window->isVisible();
        });
    }

    std::unique_ptr<FakeServer> m_server;
    std::unique_ptr<PaneFixture> m_pane;
};

FRIENDUI_TEST(TstPaneServices)
#include "tst_paneservices.moc"
