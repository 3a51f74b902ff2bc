// One card per person, and what opens and ends it.
#include "tests/detail/cardfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QScreen>

#include <memory>

class TstCardManager : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture = std::make_unique<CardFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void emptyJid()
    {
        const LogCapture log(m_fixture->host.context);
        QVERIFY(!m_fixture->open(QString()));
        QVERIFY(!CDetailViewManager::instance()->createInit(QString()));
        QCOMPARE(cards(), 0);
        QCOMPARE(log.linesWith("Jid is empty!").size(), 1);
        QVERIFY(m_fixture->host.requests.isEmpty());
    }

    void offline()
    {
        m_fixture->host.context.settings.setConnected(false);
        for (const QString &jid : {m_fixture->anna, QStringLiteral("me@corp.example")}) {
            QVERIFY(!m_fixture->open(jid));
            QVERIFY(!CDetailViewManager::instance()->ownProfileWindow());
            QCOMPARE(TipBox::lastText(), QStringLiteral("cannotSearchForOtherInfoForSelfOffLine"));
        }
        QVERIFY(m_fixture->host.requests.isEmpty());
    }

    void ownJidMakesNoCard()
    {
        QVERIFY(!m_fixture->open(QStringLiteral("me@corp.example")));
        QCOMPARE(cards(), 0);
        const QPointer<OwnProfileWindow> own = CDetailViewManager::instance()->ownProfileWindow();
        QVERIFY(own && own->isVisible());
        QCOMPARE(own->objectName(), QStringLiteral("ownProfileWindow"));
        own->showMinimized();
        m_fixture->open(QStringLiteral("me@corp.example"));
        QCOMPARE(CDetailViewManager::instance()->ownProfileWindow(), own.data());
        QVERIFY(!own->isMinimized());
        // The leader of a card may be the user, too.
        CDetailViewManager::instance()->slot_openLeaderDetail(QStringLiteral("me@corp.example"));
        QCOMPARE(cards(), 0);
    }

    void oneCardPerPerson()
    {
        const QPointer<CDetailView> card = m_fixture->open(m_fixture->anna);
        QVERIFY(card && card->isVisible());
        card->showMinimized();
        QCOMPARE(m_fixture->open(m_fixture->anna), card.data());
        QVERIFY(!card->isMinimized());
        QCOMPARE(cards(), 1);
        QVERIFY(m_fixture->open(m_fixture->stranger) != card.data());
        QCOMPARE(cards(), 2);
        const auto [jid, full] = m_fixture->host.arguments<QString, bool>(Outbound::RequestProfile);
        QCOMPARE(jid, m_fixture->stranger);
        QVERIFY(full);
    }

    void floodOfEvents()
    {
        const int most = CDetailViewManager::MaximumCards;
        for (int i = 0; i <= most; ++i)
            CDetailViewManager::instance()->slot_openLeaderDetail(
                QStringLiteral("leader%1@corp.example").arg(i));
        QCOMPARE(cards(), most);
        // An open one is still raised, and a place that is left is free.
        const QPointer<CDetailView> first = m_fixture->open(QStringLiteral("leader0@corp.example"));
        QVERIFY(first);
        first->close();
        QVERIFY(m_fixture->open(m_fixture->anna));
    }

    void forgetsClosedCards_data()
    {
        const Rows<int> row{"way"};
        for (const char *way : {"Esc", "close()", "close button", "manager", "delete"}) {
            static int number = 0;
            row(way, number++);
        }
    }

    void forgetsClosedCards()
    {
        QFETCH(int, way);
        const QPointer<CDetailView> card = m_fixture->open(m_fixture->anna);
        QVERIFY(card);
        int told = 0;
        connect(card.data(), &CDetailView::signal_ColseDetailDlg, this, [&told] { ++told; });
        switch (way) {
        case 0:
            QTest::keyClick(m_fixture->row(card, "Remark"), Qt::Key_Escape);
            break;
        case 1:
            card->close();
            break;
        case 2:
            m_fixture->button(card, "btnClose")->click();
            break;
        case 3:
            CDetailViewManager::instance()->slot_closeDetailDialog(m_fixture->anna);
            break;
        default:
            delete card.data();
            break;
        }
        QVERIFY(!CDetailViewManager::instance()->openDialog(m_fixture->anna));
        QCOMPARE(told, way == 4 ? 0 : 1);
        // Before the old one is really gone.
        const QPointer<CDetailView> next = m_fixture->open(m_fixture->anna);
        QVERIFY(next && next != card && next->isVisible());
        CardFixture::settle();
        QVERIFY(!card);
        QVERIFY(next && next->isVisible());
        m_fixture->answer(m_fixture->anna); // reaches the new one, and no dead one
        QCOMPARE(m_fixture->text(next, "mobileEmp"), QStringLiteral("13800000001"));
    }

    void hostClosesInsideTheRequest_data()
    {
        const Rows<int> row{"way"};
        row("closes", 0);
        row("deletes", 1);
        row("answers and closes", 2);
    }

    void hostClosesInsideTheRequest()
    {
        QFETCH(int, way);
        QPointer<CDetailView> closed;
        m_fixture->host.onRequest = [this, way, &closed](const FakeHost::Request &) {
            CDetailView *card = CDetailViewManager::instance()->openDialog(m_fixture->anna);
            closed = card;
            if (way == 2)
                m_fixture->answer(m_fixture->anna);
            if (way == 1)
                delete card;
            else
                card->close();
        };
        QVERIFY(!m_fixture->open(m_fixture->anna));
        QVERIFY(!closed || !closed->isVisible());
        CardFixture::settle();
        QCOMPARE(cards(), 0);
        // A card on screen whose buttons have the same effect.
        m_fixture->host.onRequest = nullptr;
        for (const char *name : {"topicBtn", "btnSendMail", "btncreateDialog"}) {
            const QPointer<CDetailView> card = m_fixture->open(m_fixture->anna);
            QVERIFY(card);
            m_fixture->host.onRequest = [&card](const FakeHost::Request &) { card->close(); };
            QTest::mouseClick(m_fixture->button(card, name), Qt::LeftButton);
            m_fixture->host.onRequest = nullptr;
            CardFixture::settle();
            QVERIFY(!card);
        }
    }

    void leaderOpensHisCard()
    {
        CDetailView *card = m_fixture->open(m_fixture->anna);
        m_fixture->answer(m_fixture->anna);
        ValueLabel *leader = m_fixture->row(card, "leaderName");
        QCOMPARE(leader->toolTip(), QStringLiteral("clickToLookup"));
        QTest::mouseClick(leader, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        const QPointer<CDetailView> boss =
            CDetailViewManager::instance()->openDialog(QStringLiteral("boss@corp.example"));
        QVERIFY(boss && boss->isVisible());
        boss->close();
        CardFixture::settle();
        leader->setFocus();
        QTest::keyClick(leader, Qt::Key_Return);
        QVERIFY(CDetailViewManager::instance()->openDialog(QStringLiteral("boss@corp.example")));
        QVERIFY(card->isVisible());
    }

    void buttonsAskTheHost()
    {
        m_fixture->host.context.headPaths.insert(m_fixture->anna, QStringLiteral("/tmp/anna.png"));
        CDetailView *card = m_fixture->open(m_fixture->anna);
        m_fixture->answer(m_fixture->anna);
        FakeHost &host = m_fixture->host;
        QTest::mouseClick(m_fixture->button(card, "topicBtn"), Qt::LeftButton);
        QCOMPARE(std::get<1>(host.arguments<QString, QString>(Outbound::OpenTopicPage)),
                 m_fixture->anna);
        QTest::mouseClick(m_fixture->button(card, "btnSendMail"), Qt::LeftButton);
        QCOMPARE(std::get<0>(host.arguments<QStringList>(Outbound::WriteMail)),
                 QStringList{m_fixture->anna});
        QTest::mouseClick(m_fixture->part(card, "head"), Qt::LeftButton);
        const auto [shown, file] = host.arguments<QString, QString>(Outbound::ShowPicture);
        QCOMPARE(shown, m_fixture->anna);
        QCOMPARE(file, QStringLiteral("/tmp/anna.png"));
        QTest::mouseClick(m_fixture->button(card, "btnPosition"), Qt::LeftButton);
        QCOMPARE(m_fixture->actions.calls.last(),
                 QStringLiteral("locateInOrganisation anna false"));
        QTest::mouseClick(m_fixture->button(card, "btncreateDialog"), Qt::LeftButton);
        const auto [jid, kind] = host.arguments<QString, qint32>(Outbound::OpenChat);
        QCOMPARE(jid, m_fixture->anna);
        QCOMPARE(kind, qint32(MessageData::Person));
        QVERIFY(!CDetailViewManager::instance()->openDialog(m_fixture->anna));
    }

    void rights_data()
    {
        const Rows<int, QByteArray> row{"right", "button"};
        row("topic", int(ApplicationContext::Topic), "topicBtn");
        row("organisation", int(ApplicationContext::Org), "btnPosition");
        row("mail", int(ApplicationContext::Mail), "btnSendMail");
        row("chat", int(ApplicationContext::Chat), "btncreateDialog");
    }

    // Taken anew at each opening; without a connection nothing can be pressed.
    void rights()
    {
        QFETCH(int, right);
        QFETCH(QByteArray, button);
        const QPointer<CDetailView> card = m_fixture->open(m_fixture->anna);
        const QPointer<QPushButton> denied = m_fixture->button(card, button.constData());
        QVERIFY(denied->isEnabled());
        m_fixture->host.context.deniedRights = {right};
        m_fixture->open(m_fixture->anna);
        for (const char *name : {"topicBtn", "btnPosition", "btnSendMail", "btncreateDialog"})
            QCOMPARE(m_fixture->button(card, name)->isEnabled(), button != name);
        FakeHost::send(Inbound::ConnectionChanged, false);
        for (const char *name : {"topicBtn", "btnPosition", "btnSendMail", "btncreateDialog"})
            QVERIFY(!m_fixture->button(card, name)->isEnabled());
        FakeHost::send(Inbound::ConnectionChanged, true);
        QVERIFY(!denied->isEnabled());
        m_fixture->host.context.deniedRights.clear();
        m_fixture->open(m_fixture->anna);
        QVERIFY(denied->isEnabled());
    }

    void logoutClosesAll()
    {
        m_fixture->open(m_fixture->anna);
        m_fixture->open(QStringLiteral("me@corp.example"));
        FakeHost::send(Inbound::LoginChanged, false);
        CardFixture::settle();
        QCOMPARE(cards(), 0);
        QVERIFY(!CDetailViewManager::instance()->ownProfileWindow());
    }

    void focusReturns()
    {
        QLineEdit edit;
        edit.show();
        edit.activateWindow();
        edit.setFocus();
        QTRY_VERIFY(edit.hasFocus());
        const QPointer<CDetailView> card = m_fixture->open(m_fixture->anna);
        QTRY_VERIFY(card->isActiveWindow());
        QTest::keyClick(card.data(), Qt::Key_Escape);
        QTRY_VERIFY(edit.hasFocus());
    }

    void staysInsideTheScreen()
    {
        QWidget pane;
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        for (const QPoint &at : {screen.topLeft(), screen.bottomRight() - QPoint(60, 60)}) {
            pane.setGeometry(QRect(at, QSize(60, 60)));
            pane.show();
            pane.activateWindow();
            QTRY_VERIFY(pane.isActiveWindow());
            const QPointer<CDetailView> card = m_fixture->open(m_fixture->anna);
            QVERIFY(screen.contains(card->frameGeometry()));
            card->close();
            CardFixture::settle();
        }
    }

private:
    static int cards()
    {
        int count = 0;
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (const QWidget *window : windows)
            count += qobject_cast<const CDetailView *>(window) ? 1 : 0;
        return count;
    }

    std::unique_ptr<CardFixture> m_fixture;
};

FRIENDUI_TEST(TstCardManager)
#include "tst_cardmanager.moc"
