// Choosing a group, and making one, while a contact is being added.
#include "tests/detail/addfriendfixture.h"
#include "tests/support/testrunner.h"

namespace {
using F = AddFriendFixture;
}

class TstAddFriendGroups : public QObject
{
    Q_OBJECT

private slots:
    void names_data()
    {
        const Rows<QString, QString> row{"name", "told"};
        row("empty", "", "teamnotempty");
        row("taken", " Alpha", "teamexisted");
        row("reserved", "latestContact", "createdulicatedteam");
        row("free", " Gamma ", "");
    }

    void names()
    {
        QFETCH(QString, name);
        QFETCH(QString, told);
        F f;
        InputBox *box = ask(f.openForm(), name);
        QCOMPARE(box->windowTitle(), QStringLiteral("newgroup"));
        QCOMPARE(box->labelText(), QStringLiteral("groupNameColon"));
        QTest::keyClick(box->findChild<QLineEdit *>(), Qt::Key_Return);
        QCOMPARE(f.boxes(), told.isEmpty() ? 0 : 1);
        QCOMPARE(f.host.count(Outbound::CreateGroup), told.isEmpty() ? 1 : 0);
        if (told.isEmpty())
            QCOMPARE((f.host.arguments<QString, bool>(Outbound::CreateGroup)),
                     std::make_tuple(QStringLiteral("Gamma"), true));
        else
            QCOMPARE(TipBox::lastText(), told);
    }

    void makesOneAndSelectsIt()
    {
        F f;
        AddFriend *dialog = f.openForm();
        ask(dialog, QStringLiteral("Gamma"))->accept();
        FakeHost::send(Inbound::GroupCreated, QStringLiteral("g8"), QStringLiteral("Gamma"), true,
                       false); // of the external contacts
        QCOMPARE(groups(dialog), QStringLiteral("Alpha Beta"));
        FakeHost::send(Inbound::GroupCreated, QStringLiteral("g7"), QStringLiteral("Other"), true,
                       true); // made elsewhere
        QVERIFY(!groups(dialog).contains(QLatin1Char('*')));
        f.host.context.innerGroups.append({QStringLiteral("g9"), QStringLiteral("Gamma")});
        FakeHost::send(Inbound::GroupCreated, QStringLiteral("g9"), QStringLiteral("Gamma"), true,
                       true);
        QVERIFY(groups(dialog).endsWith(QStringLiteral("Gamma*")));
        F::click(dialog, "okButton");
        const auto payload =
            f.host.arguments<QString, QString, QString, QString, qint32>(Outbound::AddContact);
        QCOMPARE(std::get<2>(payload), QStringLiteral("g9"));
    }

    void failures_data()
    {
        const Rows<QString, QString, bool, int> row{"asked", "failed", "inner", "boxes"};
        row("ours", "Gamma", "Gamma", true, 1);
        row("somebody else's", "Gamma", "Delta", true, 0);
        row("an external one", "Gamma", "Gamma", false, 0);
        row("nothing asked", "", "Gamma", true, 0);
        row("nothing asked, no name", "", "", true, 0);
    }

    void failures()
    {
        QFETCH(QString, asked);
        QFETCH(QString, failed);
        QFETCH(bool, inner);
        QFETCH(int, boxes);
        F f;
        AddFriend *dialog = f.openForm();
        if (!asked.isEmpty())
            ask(dialog, asked)->accept();
        for (int i = 0; i < 2; ++i)
            FakeHost::send(Inbound::GroupCreated, QString(), failed, false, inner);
        QCOMPARE(f.boxes(), boxes);
        if (boxes > 0)
            QCOMPARE(TipBox::lastText(), QStringLiteral("teamcreatefailed"));
        QCOMPARE(groups(dialog), QStringLiteral("Alpha Beta"));
    }

    void keepsTheChoice()
    {
        F f;
        f.manager()->openDialog(f.anna(), QStringLiteral("g2"));
        const AddFriend *dialog = f.manager()->dialog(f.anna());
        QCOMPARE(groups(dialog), QStringLiteral("Alpha Beta*"));
        f.policy("NEED_CONFIRM", f.anna(), QStringLiteral("No such group"));
        QCOMPARE(groups(dialog), QStringLiteral("Alpha Beta*"));
        f.host.context.innerGroups[1].name = QStringLiteral("Aleph");
        FakeHost::send(Inbound::GroupRenamed, QStringLiteral("g1"), QStringLiteral("Aleph"), true,
                       true);
        QCOMPARE(groups(dialog), QStringLiteral("Aleph Beta*"));
        f.host.context.innerGroups.removeLast();
        FakeHost::send(Inbound::GroupDeleted, true, QStringLiteral("g2"), true);
        QCOMPARE(groups(dialog), QStringLiteral("Aleph")); // now in the default group
    }

    void nothingWhileOffline()
    {
        F f;
        AddFriend *dialog = f.openForm();
        InputBox *box = ask(dialog, QStringLiteral("Gamma"));
        f.setOffline();
        box->accept(); // it went offline while the box was open
        QCOMPARE(f.boxes(), 1);
        QCOMPARE(TipBox::lastText(), QStringLiteral("teamnotcreate"));
        box->reject();
        F::settle();
        F::click(dialog, "newGroupButton");
        QCOMPARE(f.boxes(), 2);
        QVERIFY(!dialog->findChild<InputBox *>());
        QCOMPARE(f.host.count(Outbound::CreateGroup), 0);
    }

    void holdsSixteenCharacters_data()
    {
        const Rows<QString, QString> row{"typed", "name"};
        row("sixteen", "0123456789abcdef", "0123456789abcdef");
        row("seventeen", "0123456789abcdefg", "0123456789abcdef");
        row("a pair in the way", QString::fromUtf8("0123456789abcde😀"), "0123456789abcde");
    }

    void holdsSixteenCharacters()
    {
        QFETCH(QString, typed);
        F f;
        AddFriend *dialog = f.openForm();
        F::click(dialog, "newGroupButton");
        auto *box = dialog->findChild<InputBox *>();
        box->findChild<QLineEdit *>()->insert(typed);
        box->accept();
        QTEST((std::get<0>(f.host.arguments<QString, bool>(Outbound::CreateGroup))), "name");
    }

private:
    static QString groups(const AddFriend *dialog)
    {
        const auto *box = dialog->findChild<QComboBox *>();
        QStringList names;
        for (int i = 1; i < box->count(); ++i) // behind the default group
            names.append(box->itemText(i) + (i == box->currentIndex() ? "*" : ""));
        return names.join(QLatin1Char(' '));
    }
    static InputBox *ask(AddFriend *dialog, const QString &name)
    {
        F::click(dialog, "newGroupButton");
        auto *box = dialog->findChild<InputBox *>();
        box->findChild<QLineEdit *>()->clear();
        QTest::keyClicks(box->findChild<QLineEdit *>(), name);
        return box;
    }
};

FRIENDUI_TEST(TstAddFriendGroups)
#include "tst_addfriendgroups.moc"
