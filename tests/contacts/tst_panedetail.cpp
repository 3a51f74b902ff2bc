// The way from the pane and the host's events to a person's card.
#include "detail/cdetailview.h"
#include "detail/cdetailviewmanager.h"
#include "detail/ownprofilewindow.h"
#include "tests/contacts/panefixture.h"
#include "tests/support/testrunner.h"

#include <QAction>
#include <QMenu>

class TstPaneDetail : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_pane = std::make_unique<PaneFixture>(); }

    void cleanup()
    {
        FakeHost::send(Inbound::LoginChanged, false); // closes the cards
        PaneFixture::settle();
        m_pane.reset();
    }

    void menuOpensTheCard()
    {
        QAction *action = viewDetail("anna");
        QVERIFY(action->isEnabled());
        action->trigger();
        const CDetailView *card = cards()->openDialog(jidOf(QStringLiteral("anna")));
        QVERIFY(card && card->isVisible());
        viewDetail("me")->trigger();
        QVERIFY(cards()->ownProfileWindow() && cards()->ownProfileWindow()->isVisible());
    }

    void withoutTheRight()
    {
        m_pane->host.context.deniedRights = {ApplicationContext::Detail};
        QVERIFY(!viewDetail("anna")->isEnabled());
        FakeHost::send(Inbound::OpenContactDetail, jidOf(QStringLiteral("anna")));
        FakeHost::send(Inbound::OpenLeaderDetail, jidOf(QStringLiteral("anna")));
        QVERIFY(!cards()->openDialog(jidOf(QStringLiteral("anna"))));
        // The own profile is nobody else's.
        FakeHost::send(Inbound::OpenOwnDetail);
        QVERIFY(cards()->ownProfileWindow());
    }

    void hostOpensCards_data()
    {
        const Rows<qint32> row{"code"};
        row("contact", qint32(Inbound::OpenContactDetail));
        row("contact, other code", qint32(Inbound::OpenContactDetailAlso));
        row("leader", qint32(Inbound::OpenLeaderDetail));
    }

    void hostOpensCards()
    {
        QFETCH(qint32, code);
        FakeHost::send(code, jidOf(QStringLiteral("bob")));
        QVERIFY(cards()->openDialog(jidOf(QStringLiteral("bob"))));
        FakeHost::send(code, QString());
        QVERIFY(!cards()->openDialog(QString()));
    }

    // It lies over the client's window, which is the pane itself here.
    void cardEndsWithItsWindow()
    {
        viewDetail("anna")->trigger();
        QCOMPARE(m_pane->host.count(Outbound::RequestProfile), 1);
        m_pane->destroy();
        VcardInfo profile;
        profile.duty = QStringLiteral("engineer");
        FakeHost::send(Inbound::FullProfileReceived, jidOf(QStringLiteral("anna")), profile);
        QVERIFY(!cards()->openDialog(jidOf(QStringLiteral("anna"))));
    }

private:
    static CDetailViewManager *cards() { return CDetailViewManager::instance(); }
    // The action of the menu that a contact's row has.
    QAction *viewDetail(const char *user)
    {
        m_pane->select(m_pane->contact(user));
        m_pane->view->slot_contextMenu(m_pane->view->visualRect(m_pane->contact(user)).center());
        auto *menu = m_pane->view->findChild<QMenu *>(QStringLiteral("commonSingleMenu"));
        return menu->findChild<QAction *>(QStringLiteral("viewdetail"));
    }

    std::unique_ptr<PaneFixture> m_pane;
};

FRIENDUI_TEST(TstPaneDetail)
#include "tst_panedetail.moc"
