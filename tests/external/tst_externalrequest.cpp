// Asking somebody outside the company, and answering: what is asked of the host, and
// what its answers do.
#include "controls/elidedlabel.h"
#include "tests/external/externalfixture.h"
#include "tests/support/files.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>

namespace {
using F = ExternalFixture;
enum Action : int
{
    Request = 0,
    Confirmation = 1,
    Blacklist = 2
};
} // namespace

class TstExternalRequest : public QObject
{
    Q_OBJECT

private slots:
    void opensNothing_data()
    {
        const Rows<QString, bool, int> row{"jid", "online", "boxes"};
        row("oneself", "me@corp.example", true, 0);
        row("oneself by id", "me", true, 0);
        row("nobody", "", true, 0);
        row("offline", F::eve(), false, 1);
        row("oneself, offline", "me", false, 1);
    }

    void opensNothing()
    {
        QFETCH(QString, jid);
        QFETCH(bool, online);
        F f;
        f.host.context.settings.setConnected(online);
        f.manager()->openDialog(jid);
        QVERIFY(!f.manager()->dialog(jid));
        QTEST(f.boxes(), "boxes");
        if (!online)
            QCOMPARE(TipBox::lastText(), QStringLiteral("cannotSearchForOtherInfoForSelfOffLine"));
        QVERIFY(f.host.requests.isEmpty());
    }

    void oneWindowPerPerson()
    {
        F f;
        const QPointer<AddExternalFriend> first = f.open();
        QVERIFY(first && first->isVisible());
        QCOMPARE((f.host.arguments<QString, bool>(Outbound::RequestProfile)),
                 std::make_tuple(f.eve(), false));
        QCOMPARE(f.open(), first.data());
        QTest::keyClick(first, Qt::Key_Escape);
        QVERIFY(!f.dialog());
        f.settle();
        QVERIFY(!first && f.open());
    }

    void atMostFifty()
    {
        F f;
        LogCapture log(f.host.context);
        for (int i = 0; i < AddExternalFrdManager::MaximumOpened; ++i)
            f.manager()->openDialog(QStringLiteral("p%1@other.example").arg(i));
        QVERIFY(!f.open());
        QCOMPARE(log.linesWith("ContactInfo dialog creat failed!").size(), 1);
        f.manager()->dialog(QStringLiteral("p7@other.example"))->slot_close();
        QVERIFY(f.open());
    }

    void sends()
    {
        F f;
        const AddExternalFriend *window = f.open();
        QCOMPARE(f.buttons(window), QStringLiteral("Send"));
        auto *edit = window->findChild<ValidationEdit *>();
        edit->setPlainText(QString(11, QChar(0x4E2D))); // two each, of 20
        QCOMPARE(edit->toPlainText().size(), 10);
        QCOMPARE(f.status(window), QStringLiteral("validationLimit"));
        f.click(window, "btnSend");
        QCOMPARE((f.host.arguments<QString, QString, QString>(Outbound::AddExternalContact)),
                 std::make_tuple(f.eve(), QString(10, QChar(0x4E2D)), QStringLiteral("pc")));
        QCOMPARE(f.buttons(window), QStringLiteral("(Send)"));
        QTest::keyClick(edit, Qt::Key_Return); // nothing is asked twice
        QCOMPARE(f.host.count(Outbound::AddExternalContact), 1);
        f.answer(true, 0, Request);
        QCOMPARE(f.status(window), QString::fromUtf8("已发送请求"));
        QVERIFY(f.buttons(window).isEmpty() && f.manager()->isRequested(f.eve()));
        f.makeContact();
        QCOMPARE(f.status(window), QString::fromUtf8("已添加好友"));
        QVERIFY(!f.manager()->isRequested(f.eve()));
        f.host.context.contacts.clear();
        FakeHost::send(Inbound::ContactRemoved, f.eve(), false);
        QCOMPARE(f.buttons(window), QStringLiteral("Send"));
    }

    void refusals_data()
    {
        const Rows<int, int, QString, QString> row{"action", "code", "box", "status"};
        const QString own = QStringLiteral("addOutsideFriendslimited");
        const QString other = QStringLiteral("addOutsideFriendslimited2");
        row("own limit", Request, 10001, own, own);
        row("the other's limit", Request, 10002, other, other);
        row("not to be asked", Request, 10004, "failaddfrd", "failaddfrd");
        row("no confirmation", Request, 10003, "failaddfrd", "failaddfrd");
        row("own limit, confirming", Confirmation, 10001, own, own);
        row("expired", Confirmation, 10003, "", QString::fromUtf8("已过期，请重新添加"));
        row("other, confirming", Confirmation, -1, "addfailreadd", "addfailreadd");
        row("no blacklist", Blacklist, 10001, "blacklistFailed", "blacklistFailed");
    }

    // Each leaves a way to try again.
    void refusals()
    {
        QFETCH(int, action);
        QFETCH(int, code);
        QFETCH(QString, box);
        F f;
        AddExternalFriend *window = action == Request ? f.open() : f.ask(QStringLiteral("hello"));
        const QString before = f.buttons(window);
        f.click(window, action == Request        ? "btnSend"
                        : action == Confirmation ? "btnConfirm"
                                                 : "btnBlackList");
        f.answer(false, code, action);
        QCOMPARE(f.boxes(), box.isEmpty() ? 0 : 1);
        if (!box.isEmpty())
            QCOMPARE(TipBox::lastText(), box);
        QTEST(f.status(window), "status");
        QCOMPARE(f.buttons(window), box.isEmpty() ? QStringLiteral("Send") : before);
        QVERIFY(!f.manager()->isRequested(f.eve()));
    }

    void waitsForTheAnswerTenSecondsAtMost()
    {
        F f;
        const AddExternalFriend *window = f.open();
        f.click(window, "btnSend");
        auto *wait = window->findChild<QTimer *>(QStringLiteral("waitTimer"));
        QCOMPARE(wait->interval(), 10000);
        QVERIFY(wait->isActive() && f.buttons(window) == QLatin1String("(Send)"));
        wait->setInterval(0);
        QTRY_COMPARE(f.buttons(window), QStringLiteral("Send"));
        QCOMPARE(f.status(window), QStringLiteral("addfailreadd"));
        f.answer(true, 0, Request); // late, but it counts
        QCOMPARE(f.status(window), QString::fromUtf8("已发送请求"));
    }

    void isAsked_data()
    {
        const Rows<QString, QString, bool> row{"jid", "text", "opens"};
        row("from outside", F::eve(), "it is me", true);
        row("without a text", F::eve(), "", true);
        row("markup", F::eve(), "<img src=/etc/passwd>", true);
        row("a colleague", "bob@corp.example", "it is me", false);
        row("oneself", "me@corp.example", "it is me", false);
    }

    void isAsked()
    {
        QFETCH(QString, text);
        QFETCH(QString, jid);
        F f;
        f.host.context.cooperation.insert(QStringLiteral("me@corp.example"), true);
        const AddExternalFriend *window = f.ask(text, jid);
        QTEST(window != nullptr, "opens");
        if (!window)
            return;
        QCOMPARE(f.buttons(window), QStringLiteral("Mail Chat BlackList Confirm"));
        QCOMPARE(f.text(window, "lblRequest"),
                 text.isEmpty() ? QStringLiteral("iamsomebodywantadd") : text);
        for (const QLabel *label : window->findChildren<QLabel *>())
            QVERIFY(label->text().isEmpty() || label->textFormat() == Qt::PlainText);
    }

    void answers_data()
    {
        const Rows<QByteArray, qint32, int, QString, QString> row{"button", "request", "action",
                                                                  "status", "buttons"};
        row("accepts", "btnConfirm", Outbound::ConfirmExternalContact, Confirmation,
            QString::fromUtf8("已添加好友"), "Mail Chat");
        row("wants no more of it", "btnBlackList", Outbound::BlacklistExternalContact, Blacklist,
            QString::fromUtf8("已加入黑名单"), "");
    }

    void answers()
    {
        QFETCH(QByteArray, button);
        QFETCH(qint32, request);
        QFETCH(int, action);
        F f;
        const AddExternalFriend *window = f.ask(QStringLiteral("hello"));
        QSignalSpy spy(window, &AddExternalFriend::signal_confirmOutsideFriend);
        f.click(window, button.constData());
        QCOMPARE(f.host.count(request), 1);
        QCOMPARE(f.buttons(window), QStringLiteral("Mail Chat (BlackList) (Confirm)"));
        f.answer(true, 0, action);
        QCOMPARE(spy.at(0), (QVariantList{f.eve(), action, true, 0}));
        QTEST(f.status(window), "status");
        QTEST(f.buttons(window), "buttons");
    }

    void tipFades()
    {
        TipLabel tip;
        tip.show();
        tip.tell(QStringLiteral("<b>x</b>"), TipLabel::Warning, 1);
        QCOMPARE(tip.accessibleName(), QStringLiteral("<b>x</b>"));
        QTRY_VERIFY(!tip.isVisible() && tip.text().isEmpty());
        tip.tell(QStringLiteral("stays"), TipLabel::Success);
        QVERIFY(tip.isVisible() && tip.text() == QLatin1String("stays"));
    }

    void chatAndMailAreTheHosts()
    {
        F f;
        const AddExternalFriend *window = f.ask(QStringLiteral("hello"));
        f.click(window, "btnChat");
        f.click(window, "btnMail");
        QCOMPARE((f.host.arguments<QString, qint32>(Outbound::OpenChat)),
                 std::make_tuple(f.eve(), qint32(MessageData::Person)));
        QCOMPARE(f.host.arguments<QStringList>(Outbound::WriteMail),
                 std::make_tuple(QStringList{f.eve()}));
        f.host.context.deniedRights = {ApplicationContext::Mail, ApplicationContext::Chat};
        f.ask(QStringLiteral("again"));
        QCOMPARE(f.buttons(window), QStringLiteral("BlackList Confirm"));
    }

    void isAContactAlready()
    {
        F f;
        f.makeContact();
        const AddExternalFriend *window = f.open();
        QCOMPARE(f.status(window), QString::fromUtf8("已添加好友"));
        QCOMPARE(f.buttons(window), QStringLiteral("Mail Chat"));
        f.ask(QStringLiteral("hello")); // an old notice
        QCOMPARE(f.buttons(window), QStringLiteral("Mail Chat"));
    }

    // Both have asked; the service makes contacts of them.
    void requestsCross()
    {
        F f;
        const AddExternalFriend *window = f.open();
        f.click(window, "btnSend");
        f.ask(QStringLiteral("hello"));
        QCOMPARE(f.buttons(window), QStringLiteral("(Send)"));
        f.answer(true, 0, Request);
        QCOMPARE(f.status(window), QString::fromUtf8("已发送请求"));
        f.makeContact();
        QCOMPARE(f.status(window), QString::fromUtf8("已添加好友"));
    }

    void crossingRequestIsAnsweredWhenTheOwnFails()
    {
        F f;
        const AddExternalFriend *window = f.open();
        f.click(window, "btnSend");
        f.ask(QStringLiteral("hello"));
        f.answer(false, -1, Request);
        QCOMPARE(f.buttons(window), QStringLiteral("Mail Chat BlackList Confirm"));
    }

    void answerWithoutAWindow_data()
    {
        const Rows<bool, int, int, bool, QString> row{"ok", "code", "action", "online", "buttons"};
        row("somebody asks", true, 0, Request, true, "Mail Chat BlackList Confirm");
        row("a failure", false, -1, Request, true, "Send");
        row("expired", false, 10003, Confirmation, true, "Send");
        row("offline", true, 0, Request, false, "none");
        row("to nothing that is known", true, 0, 7, true, "none");
    }

    void answerWithoutAWindow()
    {
        QFETCH(bool, ok);
        QFETCH(int, code);
        QFETCH(int, action);
        QFETCH(bool, online);
        F f;
        f.host.context.settings.setConnected(online);
        f.answer(ok, code, action);
        QTEST(f.dialog() ? f.buttons(f.dialog()) : QStringLiteral("none"), "buttons");
        QCOMPARE(f.boxes(), 0);
    }

    // The answer to what was asked in a window that is closed opens none again.
    void answerAfterClosing()
    {
        F f;
        f.click(f.open(), "btnSend");
        f.dialog()->slot_close();
        f.answer(true, 0, Request);
        QVERIFY(!f.dialog() && f.boxes() == 0);
        QCOMPARE(f.status(f.open()), QString::fromUtf8("已发送请求"));
        QCOMPARE(f.buttons(f.dialog()), QStringLiteral("Send"));
        f.click(f.dialog(), "btnSend");
        f.dialog()->slot_close();
        f.answer(false, 10002, Request);
        QVERIFY(!f.dialog());
        QCOMPARE(TipBox::lastText(), QStringLiteral("eve\naddOutsideFriendslimited2"));
    }

    void survivesItsEndInARequest()
    {
        F f;
        QPointer<AddExternalFriend> window = f.open();
        f.host.onRequest = [&](const FakeHost::Request &request) {
            if (request.code != Outbound::AddExternalContact)
                return;
            window->close();
            F::settle();
        };
        window->slot_sendReq();
        QVERIFY(!window && !f.dialog());
    }

    void offlineAsksNothing()
    {
        F f;
        const AddExternalFriend *window = f.open();
        f.setOffline();
        f.click(window, "btnSend");
        QCOMPARE(TipBox::lastText(), QStringLiteral("offlineCannotAdd"));
        QCOMPARE(f.host.count(Outbound::AddExternalContact), 0);
        QCOMPARE(f.buttons(window), QStringLiteral("Send"));
    }

    void tellsWhoItIs()
    {
        F f;
        SearchFriendResultData person;
        person.jid = f.eve();
        person.nickName = QStringLiteral("Eve");
        person.companyName = QStringLiteral("<b>Other</b>");
        f.manager()->openDialog(person);
        const AddExternalFriend *window = f.dialog();
        QCOMPARE(f.text(window, "lblName"), QStringLiteral("Eve"));
        QCOMPARE(f.text(window, "lblCompany"), QStringLiteral("<b>Other</b>"));
        VcardInfo profile;
        profile.nickName = QStringLiteral("Eva");
        FakeHost::send(Inbound::ProfileReceived, f.eve(), profile);
        QCOMPARE(f.text(window, "lblName"), QStringLiteral("Eva"));
        QCOMPARE(f.text(window, "lblCompany"), QStringLiteral("<b>Other</b>"));
    }

    void picture()
    {
        F f;
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("eve.png"));
        QVERIFY(
            QFile::copy(sourceFile("Resources/SystemAvatar/3.png"), file + QStringLiteral(".tmp")));
        AddExternalFriend *window = f.open();
        const auto *shown = window->findChild<QLabel *>(QStringLiteral("lblPicture"));
        const QImage standard = shown->pixmap(Qt::ReturnByValue).toImage();
        QVERIFY(!standard.isNull());
        HttpResponseData response;
        response.ok = true;
        response.localPath = file + QStringLiteral(".tmp");
        window->slot_downSelfPic(response);
        QTRY_VERIFY(shown->pixmap(Qt::ReturnByValue).toImage() != standard);
        QVERIFY(QFile::exists(file) && !QFile::exists(response.localPath));
        window->slot_downSelfPic(HttpResponseData()); // a failure
        QCOMPARE(shown->pixmap(Qt::ReturnByValue).toImage(), standard);
    }
};

FRIENDUI_TEST(TstExternalRequest)

#include "tst_externalrequest.moc"
