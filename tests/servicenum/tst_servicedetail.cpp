// The window of one service number, and that there is one per number.
#include "servicenum/cservicenuminfo.h"
#include "servicenum/cservicenuminfomanager.h"
#include "servicenum/descriptionview.h"
#include "tests/servicenum/servicepagefixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/looks.h"

#include <QScrollBar>

namespace {
using F = ServicePageFixture;
const QString A = QStringLiteral("a");

class DetailFixture : public F
{
public:
    explicit DetailFixture(const QByteArray &language = "en")
        : m_language(QString::fromLatin1(language))
    {
    }
    ~DetailFixture()
    {
        emit FriendUISignalSender::instance()->signal_logout();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static QJsonObject subscribed(bool isInteractive = true)
    {
        QJsonObject made = number(A, QStringLiteral("Alpha"), QStringLiteral("About"), true);
        made.insert(QStringLiteral("isInteractive"), isInteractive);
        return made;
    }
    CServiceNumInfo *open(const QString &code = A)
    {
        CServiceNumInfoManager::instance()->showServiceNumInfo(code);
        window = CServiceNumInfoManager::instance()->window(code);
        return window;
    }
    // With the record that the service has.
    bool openWith(const QJsonObject &number)
    {
        server.reply(Info, detail(number));
        return open() && QTest::qWaitFor([this] { return isThere(); }, TestPatience);
    }
    bool isThere() const { return see("labelName"); }
    bool see(const char *name) const
    {
        const auto *part = window->findChild<QWidget *>(QLatin1String(name));
        return part && part->isVisible();
    }
    QPushButton *press(const char *name) const
    {
        QPushButton *pressed = button(window, name);
        pressed->click();
        return pressed;
    }

    QPointer<CServiceNumInfo> window;

private:
    const Language m_language;
};
} // namespace

class TstServiceDetail : public QObject
{
    Q_OBJECT

private slots:
    void unknownNumber()
    {
        DetailFixture f;
        f.server.reply(F::Info, FakeReply::json(R"({"code":10001})").onRelease());
        FakeHost::send(Inbound::ServiceNumberUpdated, QString(), CServiceNumData());
        QVERIFY(f.open());
        QCOMPARE(F::state(f.window), QStringLiteral("loading"));
        QVERIFY(!f.isThere());
        QTRY_COMPARE(f.server.unanswered(), 1);
        f.server.release();
        QTRY_COMPARE(F::state(f.window), QStringLiteral("loadErrorAndCrazyRetry"));
        f.server.reply(F::Info, F::detail(F::number("a", "Alpha")));
        f.press("retry");
        QTRY_VERIFY(f.isThere());
        QCOMPARE(f.window->findChild<QLabel *>(QStringLiteral("labelName"))->text(),
                 QStringLiteral("Alpha"));
    }

    void offline()
    {
        DetailFixture f;
        f.setOnline(false);
        f.open();
        QCOMPARE(F::state(f.window), QStringLiteral("yourImIsOffline"));
        QCOMPARE(f.server.requests().size(), 0);
        f.server.reply(F::Info, F::detail(DetailFixture::subscribed()));
        f.setOnline(true);
        QTRY_VERIFY(f.isThere());
        QCOMPARE(F::notice(f.window), QString());
        f.setOnline(false);
        QCOMPARE(F::notice(f.window), QObject::tr("yourImIsOffline"));
        QVERIFY(!F::button(f.window, "cancelSubscribe")->isEnabled());
        QVERIFY(!F::button(f.window, "showhistory")->isEnabled());
    }

    void oneWindowPerNumber()
    {
        DetailFixture f;
        const CServiceNumInfo *first = f.open();
        QCOMPARE(f.open(), first);
        QPointer<CServiceNumInfo> other = f.open(QStringLiteral("b"));
        QVERIFY(other != first);
        other->close();
        QTRY_VERIFY(!other);
        QVERIFY(f.open(QStringLiteral("b")));
        QVERIFY(!f.open(QString()));
        const LogCapture log(f.host.context);
        CServiceNumInfoManager::instance()->onServiceNumInfoClosed(QStringLiteral("none"));
        QCOMPARE(log.linesWith("CServiceNumServiceManager::onServiceNumInfoClosed,ERROR,"
                               "窗口未被加入缓存中.")
                     .size(),
                 1);
    }

    void notTooMany()
    {
        DetailFixture f;
        const int most = CServiceNumInfoManager::MaximumWindows;
        for (int i = 0; i < most; ++i)
            QVERIFY(f.open(QString::number(i)));
        QVERIFY(!f.open(QStringLiteral("more")));
        QPointer<CServiceNumInfo> raised = f.open(QStringLiteral("3"));
        QVERIFY(raised);
        emit FriendUISignalSender::instance()->signal_logout();
        QTRY_VERIFY(!raised);
        QVERIFY(!CServiceNumInfoManager::instance()->window(QStringLiteral("7")));
        QVERIFY(f.open(QStringLiteral("more")));
    }

    void subscribes()
    {
        DetailFixture f;
        QVERIFY(f.openWith(F::number("a", "Alpha")));
        f.server.reply(F::Info, F::detail(DetailFixture::subscribed()));
        QVERIFY(f.see("subscribe") && !f.see("cancelSubscribe"));
        QPushButton *chat = F::button(f.window, "serviceNoChat");
        QVERIFY(!chat->isEnabled());
        QVERIFY(!chat->toolTip().isEmpty());
        f.server.reply(F::Subscribe, FakeReply::json("{\"code\":0}").onRelease());
        F::button(f.window, "subscribe")->setFocus();
        QPushButton *subscribe = f.press("subscribe");
        QVERIFY(!subscribe->isEnabled());
        QTRY_COMPARE(f.server.unanswered(), 1);
        f.server.release();
        QTRY_VERIFY(f.see("cancelSubscribe"));
        QVERIFY(!f.see("subscribe"));
        QVERIFY(F::button(f.window, "cancelSubscribe")->hasFocus());
        QVERIFY(chat->isEnabled());
        chat->click();
        const auto [jid, kind] = f.host.arguments<QString, qint32>(Outbound::OpenChat);
        QCOMPARE(jid, QStringLiteral("a@corp.example"));
        QCOMPARE(kind, qint32(MessageData::ServiceNumber));
    }

    void refused_data()
    {
        const Rows<QByteArray, QString, bool> row{"reply", "key", "mayTryAgain"};
        row("no right", R"({"code":1})", "NoAuthSubscrip", false);
        row("no right, as text", R"({"code":"1"})", "NoAuthSubscrip", false);
        row("unknown", R"({"code":10001})", "subscribeFailed", true);
        row("without a code", R"({"data":1})", "subscribeFailed", true);
        row("no JSON", "oops", "subscribeFailed", true);
    }
    void refused()
    {
        QFETCH(QByteArray, reply);
        QFETCH(QString, key);
        QFETCH(bool, mayTryAgain);
        DetailFixture f;
        QVERIFY(f.openWith(F::number("a", "Alpha")));
        f.server.reply(F::Subscribe, FakeReply::json(reply));
        QPushButton *subscribe = f.press("subscribe");
        QTRY_COMPARE(F::notice(f.window), QObject::tr(key.toLatin1()));
        QVERIFY(f.see("subscribe"));
        QCOMPARE(subscribe->isEnabled(), mayTryAgain);
        QCOMPARE(subscribe->toolTip().isEmpty(), mayTryAgain);
        QCOMPARE(subscribe->text(), QObject::tr("subscribe"));
    }

    void cancelsAfterAQuestion()
    {
        DetailFixture f;
        QVERIFY(f.openWith(DetailFixture::subscribed(false)));
        QCOMPARE(F::notice(f.window), QObject::tr("serviceOneWay"));
        f.press("cancelSubscribe");
        QVERIFY(TipBox::lastText().contains(QStringLiteral("Alpha")));
        QCOMPARE(f.server.count(F::Cancel), 0);
        f.server.reply(F::Cancel,
                       {FakeReply::json("{\"code\":4}"), FakeReply::json("{\"code\":0}")});
        TipBox::setNextAnswers(TipBox::Sure);
        f.press("cancelSubscribe");
        QTRY_COMPARE(F::notice(f.window), QObject::tr("cancelSubscribeFailed"));
        QVERIFY(f.see("cancelSubscribe"));
        f.press("cancelSubscribe");
        QTRY_VERIFY(f.see("subscribe"));
    }

    void followsTheHost()
    {
        DetailFixture f;
        QVERIFY(f.openWith(F::number("a", "Alpha")));
        CServiceNumData record;
        record.code = A;
        record.name = QStringLiteral("Omega");
        record.subject = QStringLiteral("All things");
        FakeHost::send(Inbound::ServiceNumberUpdated, QStringLiteral("a@corp.example"), record);
        QCOMPARE(f.window->findChild<QLabel *>(QStringLiteral("labelName"))->text(),
                 QStringLiteral("Omega"));
        QVERIFY(f.see("subject") && !f.see("contactWay"));
        FakeHost::send(Inbound::ServiceNumberSubscribed, A, QString(), true, QStringLiteral("0"));
        QVERIFY(f.see("cancelSubscribe"));
    }

    void hostileTexts_data()
    {
        const Rows<QString> row{"text"};
        row("markup", QStringLiteral("<img src=/etc/passwd><h1>x</h1>"));
        row("endless line", QString(100000, QLatin1Char('x')));
        row("many lines", QStringLiteral("line\n\n\n\n").repeated(20000));
        row("marks", QStringLiteral("a") + QString(50000, QChar(0x0301)));
        row("direction", QString(QChar(0x202e)) + QStringLiteral("abc"));
        row("half a pair", QString(QChar(0xd83d)));
        row("control characters", QStringLiteral("a\tb\u0007c\r\nd"));
    }
    void hostileTexts()
    {
        QFETCH(QString, text);
        DetailFixture f;
        CServiceNumData record;
        record.code = A;
        record.name = record.description = record.subject = record.contactWay = text;
        FakeHost::send(Inbound::ServiceNumbersAdded, QList<CServiceNumData>{record});
        f.server.reply(F::Info, FakeReply::json(R"({"code":10001})"));
        f.open();
        QVERIFY(f.isThere());
        QVERIFY(f.window->height() < 600);
        QCOMPARE(f.window->width(), 400);
        const auto *description = f.window->findChild<DescriptionView *>();
        const QString shown = description->toPlainText();
        QVERIFY(shown.size() <= 10000);
        QVERIFY(!shown.contains(QChar(0x202e)) && !shown.contains(QStringLiteral("\n\n\n")));
        QVERIFY(!text.contains(QLatin1Char('<')) || shown == text);
        if (text.size() > 1000 && !text.contains(QChar(0x0301)))
            QVERIFY(description->verticalScrollBar()->maximum() > 0);
        else
            QCOMPARE(description->verticalScrollBar()->maximum(), 0);
    }
};

FRIENDUI_TEST(TstServiceDetail)
#include "tst_servicedetail.moc"
