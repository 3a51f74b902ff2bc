// The one floating card, and the host behind it.
#include "controls/cardhover.h"
#include "detail/csignex.h"
#include "detail/csignmanager.h"
#include "tests/detail/cardfixture.h"
#include "tests/support/files.h"
#include "tests/support/logcapture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QScreen>

#include <memory>

class TstSignManager : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_fixture = std::make_unique<CardFixture>();
        m_window = std::make_unique<QWidget>();
        m_window->show();
        QApplication::setActiveWindow(m_window.get());
    }
    void cleanup()
    {
        FakeHost::send(Inbound::LoginChanged, false); // forgets what was asked for
        m_window.reset();
        m_fixture.reset();
    }

    void unknownPersonIsAskedFor()
    {
        CSignEx *card = show(m_fixture->anna);
        QVERIFY(card->isVisible());
        QVERIFY(CardFixture::isLoading(card));
        const auto [jid, full] = m_fixture->host.arguments<QString, bool>(Outbound::RequestProfile);
        QCOMPARE(jid, m_fixture->anna);
        QVERIFY(full);
        m_fixture->answer(m_fixture->anna);
        QVERIFY(!CardFixture::isLoading(card));
        QCOMPARE(CardFixture::text(card, "leaderName"), QString::fromUtf8("李明朗"));
        QCOMPARE(CardFixture::text(card, "mobileEmp"), QStringLiteral("13800000001"));
        QCOMPARE(CardFixture::text(card, "otherPhone"), QStringLiteral("13900000002"));
        QCOMPARE(CardFixture::text(card, "leader_Lab"), QString::fromUtf8("负责人"));
        QCOMPARE(CardFixture::text(card, "mobileEmp_lab"), QString::fromUtf8("手机号"));
        QCOMPARE(CardFixture::text(card, "otherPhone_lab"), QString::fromUtf8("个人号"));
        QCOMPARE(m_fixture->host.count(Outbound::RequestProfile), 1);
    }

    void knownPersonIsRefreshedQuietlyAndRarely()
    {
        FakeContext &context = m_fixture->host.context;
        context.profiles.insert(m_fixture->anna, m_fixture->profileOf(m_fixture->anna));
        CSignEx *card = show(m_fixture->anna);
        QCOMPARE(CardFixture::text(card, "Department"), QString::fromUtf8("产品研发部"));
        QVERIFY(!CardFixture::isLoading(card));
        QCOMPARE(m_fixture->host.count(Outbound::RequestProfile), 1);
        for (int i = 0; i < 3; ++i) {
            CSignManager::instance()->hideCard(QString());
            show(m_fixture->anna);
        }
        QCOMPARE(m_fixture->host.count(Outbound::RequestProfile), 1);
        // A failure is no answer.
        FakeHost::send(Inbound::ProfileFailed, m_fixture->anna);
        QVERIFY(CardFixture::hasFailed(card));
        CSignManager::instance()->hideCard(QString());
        show(m_fixture->anna);
        QCOMPARE(m_fixture->host.count(Outbound::RequestProfile), 2);
    }

    void failureCanBeRetried()
    {
        CSignEx *card = show(m_fixture->anna);
        FakeHost::send(Inbound::ProfileFailed, m_fixture->anna);
        QVERIFY(CardFixture::hasFailed(card));
        QTest::mouseClick(CardFixture::button(card, "btnReLoad"), Qt::LeftButton);
        QVERIFY(CardFixture::isLoading(card));
        QCOMPARE(m_fixture->host.count(Outbound::RequestProfile), 2);
        card->body()->setReplyTimeLimit(1);
        QTRY_VERIFY(CardFixture::hasFailed(card));
        card->body()->setReplyTimeLimit(CardBody::DefaultReplyTimeLimit);
    }

    void answersForOthersAreDropped()
    {
        show(m_fixture->anna);
        CSignEx *card = show(m_fixture->stranger);
        QCOMPARE(m_fixture->host.count(Outbound::RequestProfile), 2);
        m_fixture->answer(m_fixture->anna);
        FakeHost::send(Inbound::HeadChanged, m_fixture->anna,
                       sourceFile("Resources/SystemAvatar/3.png"));
        QVERIFY(CardFixture::isLoading(card));
        QVERIFY(card->body()->picture().isEmpty());
        QCOMPARE(CardFixture::text(card, "name"), QStringLiteral("stranger"));
        QVERIFY(CardFixture::text(card, "Email") != QStringLiteral("anna@mail.example"));
        // Nor does an answer that comes after the end wake the card.
        CSignManager::instance()->hideCard(QString());
        m_fixture->answer(m_fixture->stranger);
        QVERIFY(!card->isVisible());
        QVERIFY(card->jid().isEmpty());
    }

    void oneCardThatTakesNoFocus()
    {
        const CSignEx *card = show(m_fixture->anna);
        QCOMPARE(show(m_fixture->stranger), card);
        QCOMPARE(card->jid(), m_fixture->stranger);
        QCOMPARE(card->windowType(), Qt::Tool);
        QVERIFY(card->windowFlags() & Qt::FramelessWindowHint);
        QVERIFY(card->testAttribute(Qt::WA_ShowWithoutActivating));
        QCOMPARE(QApplication::activeWindow(), m_window.get());
        int cards = 0;
        for (const QWidget *window : QApplication::topLevelWidgets())
            cards += qobject_cast<const CSignEx *>(window) != nullptr;
        QCOMPARE(cards, 1);
    }

    void noCard_data()
    {
        const Rows<QString> row{"why"};
        for (const char *why : {"empty", "offline", "right", "room"})
            row(why, QString::fromLatin1(why));
    }

    void noCard()
    {
        QFETCH(QString, why);
        FakeContext &context = m_fixture->host.context;
        show(m_fixture->stranger);
        if (why == QLatin1String("offline"))
            context.settings.setConnected(false);
        else if (why == QLatin1String("right"))
            context.deniedRights.insert(ApplicationContext::Detail);
        else if (why == QLatin1String("room"))
            context.rooms.insert(m_fixture->anna, MucData());
        const int boxes = TipBox::count();
        const CSignEx *card = show(why == QLatin1String("empty") ? QString() : m_fixture->anna);
        QVERIFY(!card->isVisible());
        QVERIFY(CSignManager::instance()->jid().isEmpty());
        QCOMPARE(TipBox::count(), boxes);
        QCOMPARE(m_fixture->host.count(Outbound::RequestProfile), 1);
        context.settings.setConnected(true);
    }

    void ownCard()
    {
        const CSignEx *card = show(QStringLiteral("me@corp.example"));
        QVERIFY(card->isVisible());
        QVERIFY(!CardFixture::button(card, "btncreateDialog")->isVisible());
        QVERIFY(!CardFixture::part(card, "remarkWidget")->isVisible());
        const int height = card->height();
        show(m_fixture->anna);
        QVERIFY(CardFixture::button(card, "btncreateDialog")->isVisible());
        QVERIFY(card->height() > height);
    }

    void hides_data()
    {
        const Rows<QString> row{"why"};
        for (const char *why : {"anybody", "offline", "logout", "detail"})
            row(why, QString::fromLatin1(why));
    }

    void hides()
    {
        QFETCH(QString, why);
        const CSignEx *card = show(m_fixture->anna);
        QVERIFY(card->isVisible());
        if (why == QLatin1String("anybody"))
            CSignManager::instance()->hideCard(QString());
        else if (why == QLatin1String("offline"))
            FakeHost::send(Inbound::ConnectionChanged, false);
        else if (why == QLatin1String("logout"))
            FakeHost::send(Inbound::LoginChanged, false);
        else
            QTest::mouseClick(CardFixture::row(card, "leaderName"), Qt::LeftButton);
        if (why == QLatin1String("detail")) {
            m_fixture->answer(m_fixture->anna);
            QTest::mouseClick(CardFixture::row(card, "leaderName"), Qt::LeftButton);
            QVERIFY(
                CDetailViewManager::instance()->openDialog(QStringLiteral("boss@corp.example")));
        }
        QVERIFY(!card->isVisible());
        QCOMPARE(CardHover::instance().state(), HoverStates::Closed);
        FakeHost::send(Inbound::ConnectionChanged, true);
    }

    void hostsRowIsLeft()
    {
        CSignEx *card = show(m_fixture->anna);
        CSignManager::instance()->hideCard(m_fixture->stranger);
        QCOMPARE(CardHover::instance().state(), HoverStates::Open);
        CSignManager::instance()->hideCard(m_fixture->anna);
        QVERIFY(card->isVisible());
        QCOMPARE(CardHover::instance().state(), HoverStates::Closing);
        pointer(card, QEvent::Enter);
        QCOMPARE(CardHover::instance().state(), HoverStates::Open);
        pointer(card, QEvent::Leave);
        // What closes it is the pane's action.
        QTRY_COMPARE(m_fixture->actions.calls.value(0), QStringLiteral("hideContactCard "));
    }

    void remarkBoxKeepsTheCard()
    {
        CSignEx *card = show(m_fixture->anna);
        pointer(card, QEvent::Enter);
        QTest::mouseClick(CardFixture::button(card, "btnSetName"), Qt::LeftButton);
        auto *box = card->findChild<InputBox *>();
        QVERIFY(box && box->isVisible());
        pointer(card, QEvent::Leave);
        QApplication::setActiveWindow(box);
        QCOMPARE(CardHover::instance().state(), HoverStates::Open);
        QTest::keyClick(m_window.get(), Qt::Key_Escape); // not the box's
        QVERIFY(card->isVisible());
        box->setTextValue(QString::fromUtf8("新备注"));
        box->accept();
        const auto [jid, remark] = m_fixture->host.arguments<QString, QString>(Outbound::SetRemark);
        QCOMPARE(jid, m_fixture->anna);
        QCOMPARE(remark, QString::fromUtf8("新备注"));
        FakeHost::send(Inbound::RemarkChanged, jid, remark);
        QCOMPARE(CardFixture::text(card, "Remark"), remark);
        QTRY_COMPARE(CardHover::instance().state(), HoverStates::Closing);
        // The box of somebody who is gone from sight goes, too.
        show(m_fixture->anna);
        QTest::mouseClick(CardFixture::button(card, "btnSetName"), Qt::LeftButton);
        const QPointer<InputBox> second = card->findChild<InputBox *>();
        QVERIFY(second);
        FakeHost::send(Inbound::LoginChanged, false);
        QTRY_VERIFY(!second);
    }

    void actions_data()
    {
        const Rows<QString, int> row{"button", "code"};
        row("mail", QStringLiteral("btnSendMail"), Outbound::WriteMail);
        row("chat", QStringLiteral("btncreateDialog"), Outbound::OpenChat);
        row("topic", QStringLiteral("topicBtn"), Outbound::OpenTopicPage);
        row("place", QStringLiteral("btnPosition"), 0);
        row("picture", QStringLiteral("head"), Outbound::ShowPicture);
    }

    void actions()
    {
        QFETCH(QString, button);
        QFETCH(int, code);
        m_fixture->host.context.headPaths.insert(m_fixture->anna,
                                                 sourceFile("Resources/SystemAvatar/3.png"));
        const CSignEx *card = show(m_fixture->anna);
        QTest::mouseClick(card->findChild<QWidget *>(button), Qt::LeftButton);
        QVERIFY(!card->isVisible());
        if (code == 0)
            QVERIFY(m_fixture->actions.calls.contains(
                QStringLiteral("locateInOrganisation anna false")));
        else
            QCOMPARE(m_fixture->host.count(code), 1);
    }

    void copiesWithoutTheFocus()
    {
        CSignEx *card = show(m_fixture->anna);
        m_fixture->answer(m_fixture->anna);
        QGuiApplication::clipboard()->clear();
        QTest::keyClick(m_window.get(), Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QGuiApplication::clipboard()->text().isEmpty());
        CardFixture::row(card, "Email")->setSelection(0, 4);
        QTest::mouseClick(CardFixture::row(card, "Position"), Qt::LeftButton);
        QVERIFY(!CardFixture::row(card, "Email")->hasSelectedText());
        CardFixture::row(card, "Position")->setSelection(0, 2);
        QTest::keyClick(m_window.get(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QString::fromUtf8("高级"));
    }

    void placesItselfOnTheScreen()
    {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        const CSignEx *card = show(m_fixture->anna, QPoint(screen.left() + 60, screen.bottom()));
        QCOMPARE(card->geometry().bottom(), screen.bottom());
        QCOMPARE(card->x(), screen.left() + 60);
        CSignManager::instance()->hideCard(QString());
        const int right = screen.right() - 20;
        show(m_fixture->anna, QPoint(right, screen.top() + 10));
        QCOMPARE(card->x() + card->width(), right - RowWidth);
        QCOMPARE(card->y(), screen.top() + 10);
    }

    void foreignTextIsPlain()
    {
        const QString hostile = QStringLiteral("<img src=/etc/passwd> & \" Co");
        VcardInfo profile = m_fixture->profileOf(m_fixture->stranger);
        profile.nickName = profile.orgName = profile.sign = profile.companyName = hostile;
        const CSignEx *card = show(m_fixture->stranger);
        const int width = card->width();
        FakeHost::send(Inbound::ProfileReceived, m_fixture->stranger, profile);
        QCOMPARE(card->width(), width);
        QCOMPARE(CardFixture::text(card, "name"), hostile);
        for (const QLabel *label : card->findChildren<QLabel *>())
            QVERIFY(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
    }

    void pictureIsLogged()
    {
        const LogCapture log(m_fixture->host.context);
        show(m_fixture->anna);
        FakeHost::send(Inbound::HeadChanged, m_fixture->anna, QStringLiteral("/a.png"));
        QCOMPARE(
            log.linesWith("enter CSignEx::slot_replacepic jid:anna@corp.example Path/a.png").size(),
            1);
    }

    void looks_data()
    {
        const Rows<QString, QString> row{"skin", "language"};
        for (const char *skin : {"light", "dark"}) {
            for (const char *language : {"zh_CN", "en"})
                row(qPrintable(QStringLiteral("%1 %2").arg(skin, language)),
                    QString::fromLatin1(skin), QString::fromLatin1(language));
        }
    }

    void looks()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        const Language installed(language);
        setSkin(skin);
        CSignEx *card = show(m_fixture->anna);
        m_fixture->answer(m_fixture->anna);
        keepPicture(card->grab().toImage(), QStringLiteral("card-%1-%2").arg(skin, language));
        for (const QWidget *part : card->findChildren<QWidget *>()) {
            const bool isCut =
                part->isVisible() && !part->parentWidget()->rect().contains(part->geometry());
            QVERIFY2(!isCut, qPrintable(part->objectName()));
        }
        setSkin(QStringLiteral("light"));
    }

private:
    static constexpr int RowWidth = 200;

    static CSignEx *show(const QString &jid, QPoint at = QPoint(300, 10))
    {
        CSignManager::instance()->showCard(jid, at.x(), at.y(), RowWidth, false);
        return CSignManager::instance()->card();
    }
    static void pointer(QWidget *card, QEvent::Type type)
    {
        QEvent event(type);
        QApplication::sendEvent(card, &event);
    }

    std::unique_ptr<CardFixture> m_fixture;
    std::unique_ptr<QWidget> m_window;
};

FRIENDUI_TEST(TstSignManager)
#include "tst_signmanager.moc"
