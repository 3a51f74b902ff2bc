// The course of adding a contact: what is asked of the host, and what its answers do.
#include "tests/detail/addfriendfixture.h"
#include "tests/support/testrunner.h"

namespace {
using F = AddFriendFixture;
using AddPayload = std::tuple<QString, QString, QString, QString, qint32>;

AddPayload addPayload(const FakeHost &host)
{
    return host.arguments<QString, QString, QString, QString, qint32>(Outbound::AddContact);
}
} // namespace

class TstAddFriend : public QObject
{
    Q_OBJECT

private slots:
    void asksAtOpening()
    {
        F f;
        const AddFriend *dialog = f.open();
        QVERIFY(dialog && dialog->isVisible());
        QCOMPARE(dialog->windowTitle(), QString::fromUtf8("添加至联系人"));
        QCOMPARE(f.host.arguments<QString>(Outbound::RequestPolicyOf), std::make_tuple(f.anna()));
        QCOMPARE((f.host.arguments<QString, bool>(Outbound::RequestProfile)),
                 std::make_tuple(f.anna(), false));
        QCOMPARE(f.page(dialog), QStringLiteral("waitingPage"));
        QVERIFY(f.timer(dialog)->isActive());
        QCOMPARE(f.timer(dialog)->interval(), 5000);
    }

    void opensNothing_data()
    {
        const Rows<QString, bool, QString> row{"jid", "online", "told"};
        row("nobody", "", true, "");
        row("oneself", "me@corp.example", true, "notaddcontacts");
        row("oneself by id", "me", true, "notaddcontacts");
        const QString offline = QStringLiteral("cannotSearchForOtherInfoForSelfOffLine");
        row("offline", F::anna(), false, offline);
        row("oneself, offline", "me@corp.example", false, offline);
    }

    void opensNothing()
    {
        QFETCH(QString, jid);
        QFETCH(bool, online);
        QFETCH(QString, told);
        F f;
        f.host.context.settings.setConnected(online);
        QVERIFY(!f.open(jid));
        QVERIFY(f.host.requests.isEmpty());
        QCOMPARE(f.boxes(), told.isEmpty() ? 0 : 1);
        if (!told.isEmpty())
            QCOMPARE(TipBox::lastText(), told);
    }

    void oneWindowPerPerson()
    {
        F f;
        const QPointer<AddFriend> first = f.open();
        QCOMPARE(f.open(QStringLiteral("anna")), first.data()); // by the user id
        QCOMPARE(f.host.count(Outbound::RequestPolicyOf), 1);
        QVERIFY(f.open(f.bob()) != first);
        first->close();
        QVERIFY(!f.manager()->dialog(f.anna()));
        F::settle();
        QVERIFY(!first);
        QVERIFY(f.open() && f.manager()->dialog(f.bob()));
    }

    void hostOpens_data()
    {
        const Rows<QString, bool, bool, bool> row{"jid", "flag", "online", "opens"};
        row("asked to", F::anna(), true, true, true);
        row("not asked to", F::anna(), false, true, false);
        row("oneself", "me@corp.example", true, true, false);
        row("nobody", "", true, true, false);
        row("offline", F::anna(), true, false, false);
    }

    void hostOpens()
    {
        QFETCH(QString, jid);
        QFETCH(bool, flag);
        QFETCH(bool, online);
        F f;
        f.manager(); // as the assembly does
        f.host.context.settings.setConnected(online);
        F::policy("ACCEPT_ALL", jid, QStringLiteral("Beta"), flag);
        const AddFriend *dialog = f.manager()->dialog(jid);
        QTEST(dialog != nullptr, "opens");
        QVERIFY(f.host.requests.isEmpty()); // nothing is asked, and nobody added unseen
        QCOMPARE(f.boxes(), 0);
        if (dialog) {
            QCOMPARE(f.page(dialog), QStringLiteral("requestPage"));
            QCOMPARE(dialog->findChild<QComboBox *>()->currentText(), QStringLiteral("Beta"));
            QVERIFY(!f.timer(dialog)->isActive());
        }
    }

    void policies_data()
    {
        const Rows<QByteArray, QString, QString, bool> row{"config", "page", "text", "asksForText"};
        row("accepts all", "ACCEPT_ALL", "requestPage", "annaallowfriends", false);
        row("asks first", "NEED_CONFIRM", "requestPage", "waitfriendsconfirm", true);
        row("refuses all", "DENY_ALL", "resultPage", "annarefusefriends", false);
    }

    void policies()
    {
        QFETCH(QByteArray, config);
        QFETCH(QString, page);
        QFETCH(bool, asksForText);
        F f;
        const AddFriend *dialog = f.openForm(config.constData());
        QVERIFY(!f.timer(dialog)->isActive());
        QCOMPARE(f.page(dialog), page);
        const bool isForm = page == QLatin1String("requestPage");
        QTEST(f.text(dialog, isForm ? "statusText" : "resultText"), "text");
        auto *edit = dialog->findChild<ValidationEdit *>();
        QCOMPARE(edit->isVisible(), asksForText);
        if (asksForText)
            QCOMPARE(dialog->focusWidget(), edit);
        if (!isForm) {
            QVERIFY(!f.isShown(dialog, "resultButton") && f.isShown(dialog, "resultClose"));
            F::click(dialog, "resultClose");
            QVERIFY(!f.manager()->dialog(f.anna()));
        }
    }

    void aLatePolicyIsIgnored()
    {
        F f;
        AddFriend *dialog = f.open();
        dialog->slot_waitTimeOut();
        QVERIFY(!f.timer(dialog)->isActive());
        QCOMPARE(f.text(dialog, "resultText"), QStringLiteral("addfailreadd"));
        QCOMPARE(f.button(dialog, "resultButton")->text(), QStringLiteral("readd"));
        F::policy("ACCEPT_ALL");
        QCOMPARE(f.page(dialog), QStringLiteral("resultPage"));

        F::click(dialog, "resultButton");
        QCOMPARE(f.host.count(Outbound::RequestPolicyOf), 2);
        QCOMPARE(f.page(dialog), QStringLiteral("waitingPage"));
        QVERIFY(f.timer(dialog)->isActive());
        F::policy("ACCEPT_ALL");
        QCOMPARE(f.page(dialog), QStringLiteral("requestPage"));
        dialog->slot_waitTimeOut(); // the wait is over
        QCOMPARE(f.page(dialog), QStringLiteral("requestPage"));
    }

    void anAnswerForSomebodyElseIsIgnored()
    {
        F f;
        const AddFriend *dialog = f.open();
        F::policy("DENY_ALL", f.bob());
        QCOMPARE(f.page(dialog), QStringLiteral("waitingPage"));
        QVERIFY(f.timer(dialog)->isActive());
        F::policy("NEED_CONFIRM");
        F::click(dialog, "okButton");
        const QString sent = f.text(dialog, "resultText");
        QCOMPARE(sent, QStringLiteral("addreply"));
        FakeHost::send(Inbound::ContactRequestAnswered, f.bob(), true, QString());
        FakeHost::send(Inbound::ContactAdditionFailed, f.bob());
        FakeHost::send(Inbound::ContactAdded, f.bob());
        VcardInfo info;
        info.nickName = QStringLiteral("Bob");
        FakeHost::send(Inbound::ProfileReceived, f.bob(), info);
        QCOMPARE(f.text(dialog, "resultText"), sent);
        QCOMPARE(f.text(dialog, "name"), QStringLiteral("anna"));
        QCOMPARE(f.boxes(), 0);
    }

    void sendsWhatWasChosen()
    {
        F f;
        AddFriend *dialog = f.openForm();
        dialog->findChild<ValidationEdit *>()->setPlainText(QStringLiteral("it is me"));
        dialog->findChild<QComboBox *>()->setCurrentText(QStringLiteral("Beta"));
        auto *remark = dialog->findChild<QLineEdit *>(QStringLiteral("remarkEdit"));
        remark->setText(QStringLiteral("  Annie "));
        QTest::keyClick(remark, Qt::Key_Return); // the default button
        QCOMPARE(addPayload(f.host), AddPayload(f.anna(), QStringLiteral("it is me"),
                                                QStringLiteral("g2"), QStringLiteral("Annie"), 3));
        QCOMPARE(f.text(dialog, "resultText"), QStringLiteral("addreply"));
    }

    void sendsOnce_data()
    {
        QTest::addColumn<QByteArray>("config");
        QTest::addColumn<QString>("how");
        for (const char *how : {"click", "Enter", "chat"}) {
            QTest::addRow("%s, asks first", how) << QByteArray("NEED_CONFIRM") << how;
            QTest::addRow("%s, accepts all", how) << QByteArray("ACCEPT_ALL") << how;
        }
    }

    void sendsOnce()
    {
        QFETCH(QByteArray, config);
        QFETCH(QString, how);
        F f;
        AddFriend *dialog = f.openForm(config.constData());
        for (int i = 0; i < 2; ++i) {
            if (how == QLatin1String("Enter"))
                QTest::keyClick(dialog->findChild<ValidationEdit *>(), Qt::Key_Return);
            else
                f.button(dialog, how == QLatin1String("chat") ? "chatButton" : "okButton")->click();
        }
        F::policy(config.constData()); // and does not come back
        dialog->slot_next();
        QCOMPARE(f.host.count(Outbound::AddContact), 1);
        QVERIFY(f.host.count(Outbound::OpenChat) <= 1);
    }

    void answers_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("status");
        QTest::addColumn<QString>("button");
        const QStringList added{"annaallowfriends", "addsuccess", "sure"};
        const QStringList failed{"addcontactsfailed", "addfailreadd", "readd"};
        const auto row = [](const char *name, const char *answer, const QStringList &shown) {
            QTest::newRow(name) << QByteArray(answer) << shown.at(0) << shown.at(1) << shown.at(2);
        };
        row("accepted", "yes", added);
        row("refused", "no", failed);
        row("failed", "fail", failed);
        row("in the roster", "added", added);
        row("added and accepted", "added yes", added);
        row("accepted after a failure", "fail yes", added);
        row("failed after it was added", "added fail", added);
    }

    void answers()
    {
        QFETCH(QByteArray, answer);
        QFETCH(QString, button);
        F f;
        AddFriend *dialog = f.openForm();
        F::click(dialog, "okButton");
        for (const QByteArray &one : answer.split(' ')) {
            if (one == "yes" || one == "no")
                FakeHost::send(Inbound::ContactRequestAnswered, f.anna(), one == "yes", QString());
            else
                FakeHost::send(one == "fail" ? Inbound::ContactAdditionFailed
                                             : Inbound::ContactAdded,
                               f.anna());
        }
        QTEST(f.text(dialog, "resultText"), "text");
        QTEST(f.text(dialog, "resultStatus"), "status");
        QCOMPARE(f.button(dialog, "resultButton")->text(), button);
        F::click(dialog, "resultButton");
        const bool isRepeated = button == QLatin1String("readd");
        QCOMPARE(f.host.count(Outbound::RequestPolicyOf), isRepeated ? 2 : 1);
        QCOMPARE(f.manager()->dialog(f.anna()) != nullptr, isRepeated);
        if (isRepeated) {
            F::policy("NEED_CONFIRM");
            F::click(dialog, "okButton");
            QCOMPARE(f.host.count(Outbound::AddContact), 2);
        }
        QCOMPARE(f.boxes(), 0);
    }

    void chat_data()
    {
        const Rows<QByteArray, int, bool, int> row{"config", "atOnce", "accepted", "afterAnswer"};
        row("accepts all", "1", 1, true, 1);
        row("asks and accepts", "3", 0, true, 1);
        row("asks and refuses", "3", 0, false, 0);
    }

    void chat()
    {
        QFETCH(QByteArray, config);
        QFETCH(bool, accepted);
        F f;
        AddFriend *dialog = f.openForm(config.constData());
        F::click(dialog, "chatButton");
        QCOMPARE(f.host.count(Outbound::AddContact), 1);
        QTEST(f.host.count(Outbound::OpenChat), "atOnce");
        for (int i = 0; i < 2; ++i) // answers may come twice
            FakeHost::send(Inbound::ContactRequestAnswered, f.anna(), accepted, QString());
        QTEST(f.host.count(Outbound::OpenChat), "afterAnswer");
        if (accepted)
            QCOMPARE((f.host.arguments<QString, qint32>(Outbound::OpenChat)),
                     std::make_tuple(f.anna(), qint32(MessageData::Person)));
    }

    void offlineAtEachStep()
    {
        F f;
        AddFriend *dialog = f.openForm();
        dialog->findChild<ValidationEdit *>()->setPlainText(QStringLiteral("hello"));
        f.setOffline();
        for (const char *button : {"okButton", "chatButton"})
            F::click(dialog, button);
        QCOMPARE(f.boxes(), 2);
        QCOMPARE(f.page(dialog), QStringLiteral("requestPage")); // nothing typed is lost
        QCOMPARE(dialog->findChild<ValidationEdit *>()->toPlainText(), QStringLiteral("hello"));
        QCOMPARE(f.host.count(Outbound::AddContact) + f.host.count(Outbound::OpenChat), 0);

        dialog->slot_addFriendFail();
        F::click(dialog, "resultButton");
        QCOMPARE(f.boxes(), 3);
        QCOMPARE(f.host.count(Outbound::RequestPolicyOf), 1);
        QCOMPARE(f.page(dialog), QStringLiteral("resultPage"));
    }

    void closing_data()
    {
        const Rows<QString> row{"how"};
        for (const char *how : {"Esc", "close", "btnClose", "cancelButton"})
            row(how, how);
    }

    void closing()
    {
        QFETCH(QString, how);
        F f;
        const QPointer<AddFriend> dialog = f.openForm();
        int closed = 0;
        connect(dialog, &AddFriend::signal_closeaddfrd, this, [&closed](const QString &jid) {
            QCOMPARE(jid, F::anna());
            ++closed;
        });
        if (how == QLatin1String("Esc"))
            QTest::keyClick(dialog->findChild<ValidationEdit *>(), Qt::Key_Escape);
        else if (how == QLatin1String("close"))
            dialog->close();
        else
            F::click(dialog, qPrintable(how));
        QCOMPARE(closed, 1);
        QVERIFY(!f.timer(dialog)->isActive());
        QVERIFY(!f.manager()->dialog(f.anna()));
        F::policy("NEED_CONFIRM"); // does not open it again
        FakeHost::send(Inbound::ContactAdded, f.anna());
        F::settle();
        QVERIFY(!dialog && !f.manager()->dialog(f.anna()));
        QCOMPARE(f.host.count(Outbound::AddContact), 0);
    }

    void closedByTheHostInTheRequest_data()
    {
        QTest::addColumn<qint32>("code");
        QTest::addColumn<bool>("destroyed"); // with the window that it belongs to
        for (const qint32 code :
             {Outbound::RequestProfile, Outbound::RequestPolicyOf, Outbound::AddContact,
              Outbound::OpenChat, Outbound::CreateGroup}) {
            QTest::addRow("closed in %d", code) << code << false;
            QTest::addRow("destroyed in %d", code) << code << true;
        }
    }

    void closedByTheHostInTheRequest()
    {
        QFETCH(qint32, code);
        QFETCH(bool, destroyed);
        F f;
        bool isDone = false;
        f.host.onRequest = [&](const FakeHost::Request &request) {
            AddFriend *dialog = f.manager()->dialog(f.anna());
            if (request.code != code || !dialog)
                return;
            isDone = true;
            if (destroyed)
                delete dialog;
            else
                dialog->close();
        };
        if (AddFriend *dialog = f.open()) {
            F::policy("ACCEPT_ALL");
            if (code == Outbound::CreateGroup) {
                F::click(dialog, "newGroupButton");
                auto *box = dialog->findChild<InputBox *>();
                box->setTextValue(QStringLiteral("Gamma"));
                QTest::keyClick(box->findChild<QLineEdit *>(), Qt::Key_Return);
            } else {
                F::click(dialog, "chatButton");
            }
        }
        QVERIFY(isDone);
        F::settle();
        QCOMPARE(f.host.count(Outbound::RequestPolicyOf), code == Outbound::RequestProfile ? 0 : 1);
        const bool isAdding = code == Outbound::AddContact || code == Outbound::OpenChat;
        QCOMPARE(f.host.count(Outbound::OpenChat), isAdding ? 1 : 0);
    }

    void enterMayEndTheWindow()
    {
        F f;
        const QPointer<AddFriend> dialog = f.openForm();
        f.host.onRequest = [&dialog](const FakeHost::Request &request) {
            if (request.code == Outbound::AddContact)
                delete dialog.data();
        };
        QTest::keyClick(dialog->findChild<ValidationEdit *>(), Qt::Key_Return);
        QVERIFY(!dialog);
    }

    void tellsOfARefusalAfterClosing()
    {
        F f;
        AddFriend *dialog = f.openForm();
        F::click(dialog, "okButton");
        dialog->close();
        F::settle();
        FakeHost::send(Inbound::ContactAdditionFailed, f.bob()); // never asked
        QCOMPARE(f.boxes(), 0);
        for (int i = 0; i < 2; ++i)
            FakeHost::send(Inbound::ContactRequestAnswered, f.anna(), false, QString());
        QCOMPARE(f.boxes(), 1);
        QVERIFY(TipBox::lastText().contains(QStringLiteral("anna")));
        QVERIFY(TipBox::lastText().contains(QStringLiteral("addcontactsfailed")));
    }
};

FRIENDUI_TEST(TstAddFriend)
#include "tst_addfriend.moc"
