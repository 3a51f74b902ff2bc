// What is sent for each command, what the user is told, and what the tree hears.
#include "plugin/frienduisignalsender.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/commandsfixture.h"
#include "virtualteam/teammessages.h"

class TstTeamCommands : public QObject
{
    Q_OBJECT

    static void addFailures(const QVector<int> &codes)
    {
        const Rows<QString, QString, int, QString> row{"service", "command", "code", "text"};
        const auto add = [&row](const char *service, const char *command, int code,
                                const QString &text) {
            row(qPrintable(QStringLiteral("%1 %2").arg(QLatin1String(command)).arg(code)),
                QLatin1String(service), QLatin1String(command), code, text);
        };
        for (int code : codes) {
            add("addVirtualTeamGroup", "addGroup", code,
                code == 10001 ? QStringLiteral("createexistedteam") : TeamMessages::failed());
            add("modifyVirtualTeamGroup", "renameGroup", code,
                QStringLiteral("modifyGroupNameFail"));
            add("deleteVirtualTeamGroup", "deleteGroup", code, TeamMessages::deletionFailed(code));
            add("modifyVirtualTeamInfo", "renameTeam", code, TeamMessages::failed());
            add("quitVirtualTeam", "quit", code, TeamMessages::quitFailed(code));
            add("dissolveVirtualTeam", "dissolve", code, TeamMessages::dissolutionFailed(code));
            add("modifyVirtualTeamMemberInfo", "nick", code,
                QString::fromUtf8("修改昵称失败，请重试"));
            add("modifyVirtualTeamMemberInfo", "post", code,
                QString::fromUtf8("修改岗位失败，请重试"));
            add("addVirtualTeamAdmin", "promote", code,
                QString::fromUtf8("设置子管理员失败，请重试"));
            add("deleteVirtualTeamAdmin", "demote", code,
                QString::fromUtf8("取消子管理员失败，请重试"));
            add("deleteVirtualTeamMember", "delete", code, TeamMessages::deletionFailed(code));
            add("deleteVirtualTeamMember", "deleteTwo", code, TeamMessages::deletionFailed(code));
            add("transferVirtualTeamMember", "move", code,
                QString::fromUtf8("移动成员失败，请重试。"));
            add("getMembers", "add", code, TeamMessages::failed());
            add("batchAddVirtualTeamMember", "addPicked", code, TeamMessages::failed());
        }
    }

private slots:
    void succeeds_data()
    {
        // question: empty: none is asked
        const Rows<QString, QString, QByteArray, QString, QString> row{"service", "command", "form",
                                                                       "question", "told"};
        const auto text = [](const char *latin) { return QString::fromLatin1(latin); };
        row("new group", text("addVirtualTeamGroup"), text("addGroup"),
            "vtId=t&pgId=7&groupName=new%20%26%20name", {}, text("added 7 8 new & name"));
        row("rename group", text("modifyVirtualTeamGroup"), text("renameGroup"),
            "vtId=t&groupId=7&groupName=new%20%26%20name", {}, text("group 7 new & name"));
        row("delete group", text("deleteVirtualTeamGroup"), text("deleteGroup"), "vtId=t&groupId=7",
            text("deleteTeamGroupTip\ngroup"), text("deleted 7,teams"));
        row("rename team", text("modifyVirtualTeamInfo"), text("renameTeam"),
            "vtId=t&vtName=new%20%26%20name", {}, text("team new & name"));
        row("leave", text("quitVirtualTeam"), text("quit"), "vtId=t", text("sureExistTeam\nteam"),
            text("left t"));
        row("dissolve", text("dissolveVirtualTeam"), text("dissolve"), "vtId=t",
            QString::fromUtf8("确定解散虚拟团队？解散团队后，将会删除团队所有信息。\nteam"),
            text("left t"));
        row("nick name", text("modifyVirtualTeamMemberInfo"), text("nick"),
            "vtId=t&member=u2&nickName=new%20%26%20name", {}, text("nick u2 new & name"));
        row("post", text("modifyVirtualTeamMemberInfo"), text("post"),
            "vtId=t&member=u2&duty=new%20%26%20name", {}, text("post u2 new & name"));
        row("sub-administrator", text("addVirtualTeamAdmin"), text("promote"), "vtId=t&members=u2",
            text("sureSetAdmin\nnick"), text("admins +u2-"));
        row("no sub-administrator", text("deleteVirtualTeamAdmin"), text("demote"),
            "vtId=t&members=u2", text("sureCancelAdmin\nnick"), text("admins +-u2"));
        row("delete one", text("deleteVirtualTeamMember"), text("delete"), "vtId=t&members=u2",
            text("sureDeleteTeamMember\nnick"), text("gone u2,teams"));
        row("delete two", text("deleteVirtualTeamMember"), text("deleteTwo"),
            "vtId=t&members=u2%2Cu3", QString::fromUtf8("确定批量删除成员吗？"),
            text("gone u2+u3,teams"));
        row("move", text("transferVirtualTeamMember"), text("move"), "vtId=t&groupId=9&members=u2",
            {}, text("moved 9 u2"));
        row("add", text("batchAddVirtualTeamMember"), text("addPicked"),
            "vtId=t&groupId=7&members=u5%2Cu6", {}, text("level 7,teams"));
    }

    void succeeds()
    {
        QFETCH(QString, service);
        QFETCH(QString, command);
        QFETCH(QString, question);
        CommandsFixture team;
        const Told told(team.commands);
        const QByteArray name = service.toLatin1();
        team.service.answer(name.constData(), R"({"groupId":"8"})");
        const int boxes = TipBox::count();
        team.give(command); // answered with "cancel"
        QCOMPARE(team.isBusy(), question.isEmpty());
        if (!question.isEmpty()) {
            QCOMPARE(TipBox::lastText(), question);
            TipBox::setNextAnswers(TipBox::Sure);
            team.give(command);
        }
        QVERIFY(team.isBusy());
        QVERIFY(team.settle());
        QCOMPARE(team.service.count(name.constData()), 1);
        QTEST(team.service.form(), "form");
        QCOMPARE(TipBox::count() - boxes, question.isEmpty() ? 0 : 2);
        QTEST(told.words.join(u','), "told");
        QTRY_VERIFY(!team.editor());
    }

    void fails_data() { addFailures({0, 10001, 10002, 10003, 10009}); }

    void fails()
    {
        QFETCH(QString, service);
        QFETCH(QString, command);
        QFETCH(int, code);
        CommandsFixture team;
        const Told told(team.commands);
        const QByteArray name = service.toLatin1();
        if (code == 0) // no answer of the service at all
            team.service.server.reply(TeamService::path(name.constData()), FakeReply::of(500));
        else
            team.service.answer(name.constData(), "{}", code);
        TipBox::setNextAnswers(TipBox::Sure);
        team.give(command);
        QVERIFY(team.settle());
        QTEST(TipBox::lastText(), "text");
        // Nothing is changed, but looked at again when the service knows better.
        const bool outdated = code >= 10001 && code <= 10003;
        QCOMPARE(told.words.join(u','), outdated ? QStringLiteral("teams,outdated") : QString());
        QCOMPARE(team.service.host.requests.size(), 0);
        if (team.editor()) {
            QVERIFY(!team.editor()->isWaiting());
            QCOMPARE(team.editor()->findChild<TeamNameEdit *>()->text(),
                     QStringLiteral("new & name"));
        }
    }

    void offline_data() { succeeds_data(); }

    void offline()
    {
        QFETCH(QString, command);
        CommandsFixture team;
        team.service.setOnline(false);
        TipBox::setNextAnswers(TipBox::Sure);
        team.give(command);
        QCOMPARE(TipBox::lastText(), QStringLiteral("notexecuteoperation"));
        QVERIFY(!team.editor());
        QVERIFY(!team.isBusy());
    }

    // What may come in between while the box is open.
    void confirmedTooLate_data()
    {
        const Rows<QString, QString, int> row{"what", "text", "sent"};
        row("offline", QStringLiteral("offline"), QStringLiteral("notexecuteoperation"), 0);
        row("busy", QStringLiteral("busy"), QStringLiteral("teamBusy"), 0);
        row("twice", QStringLiteral("twice"), QStringLiteral("teamBusy"), 1);
    }

    void confirmedTooLate()
    {
        QFETCH(QString, what);
        CommandsFixture team;
        team.view->show();
        TipBox::setNextAnswers(TipBox::ShowBox);
        team.give(QStringLiteral("delete"));
        auto *box = team.view->findChild<TipBox *>();
        QVERIFY(box && box->isVisible());
        QAbstractButton *sure = box->buttons().first();
        QCOMPARE(sure->text(), QStringLiteral("sure"));
        TipBox::setNextAnswers(TipBox::Cancel);
        if (what == QLatin1String("busy"))
            team.give(QStringLiteral("move"));
        team.service.setOnline(what != QLatin1String("offline"));
        sure->click();
        if (what == QLatin1String("twice"))
            sure->click();
        QTEST(TipBox::lastText(), "text");
        QVERIFY(team.settle());
        QTEST(team.service.count("deleteVirtualTeamMember"), "sent");
    }

    void editedOffline()
    {
        CommandsFixture team;
        team.commands->renameTeam(teamSelection().team);
        team.service.setOnline(false);
        team.type(QStringLiteral("new"));
        QCOMPARE(TipBox::lastText(), QStringLiteral("notexecuteoperation"));
        QVERIFY(!team.editor()->isWaiting());
        QVERIFY(!team.isBusy());
        team.service.setOnline(true);
        team.type(QStringLiteral("new"));
        QVERIFY(team.settle());
        QCOMPARE(team.service.count("modifyVirtualTeamInfo"), 1);
    }

    void nothingTwice_data()
    {
        const Rows<QString, QString> row{"command", "service"};
        row("question", QStringLiteral("delete"), QStringLiteral("deleteVirtualTeamMember"));
        row("move", QStringLiteral("move"), QStringLiteral("transferVirtualTeamMember"));
        row("picker", QStringLiteral("add"), QStringLiteral("getMembers"));
        row("edit", QStringLiteral("nick"), QStringLiteral("modifyVirtualTeamMemberInfo"));
        row("picked", QStringLiteral("addPicked"), QStringLiteral("batchAddVirtualTeamMember"));
    }

    void nothingTwice()
    {
        QFETCH(QString, command);
        QFETCH(QString, service);
        CommandsFixture team;
        const QSignalSpy busy(team.commands, &TeamCommands::busyChanged);
        TipBox::setNextAnswers(TipBox::Sure);
        team.give(command);
        team.give(command);
        team.give(QStringLiteral("quit")); // nor anything else with this team
        QCOMPARE(team.view->findChildren<VirtualTeamEditWidget *>().size(),
                 command == QLatin1String("nick") ? 1 : 0);
        QVERIFY(team.settle());
        QCOMPARE(team.service.count(service.toLatin1().constData()), 1);
        QCOMPARE(team.service.count("quitVirtualTeam"), 0);
        QCOMPARE(busy.size(), 2);
    }

    void tenthLevel()
    {
        CommandsFixture team;
        TeamSelection group = teamSelection();
        group.level = 10;
        team.commands->addGroup(group);
        QCOMPARE(TipBox::lastText(), QString::fromUtf8("子分组已达10层上限，不能再创建。"));
        QVERIFY(!team.editor());
        group.level = 9;
        team.commands->addGroup(group);
        QVERIFY(team.editor());
    }

    void unchanged()
    {
        CommandsFixture team;
        TeamSelection group = teamSelection();
        group.groupName = QString(40, u'x'); // longer than the line takes
        team.commands->renameGroup(group);
        team.type(QString(16, u'x'));
        QCOMPARE(TipBox::lastText(), QStringLiteral("notmodify"));
        QVERIFY(!team.isBusy());
        QTRY_VERIFY(!team.editor());
    }

    void nickNameTakenAway()
    {
        CommandsFixture team;
        const Told told(team.commands);
        team.commands->editNickName(teamSelection({teamMember("u2")}));
        team.type(QString());
        QVERIFY(team.settle());
        QCOMPARE(team.service.form(), QByteArray("vtId=t&member=u2&nickName="));
        QCOMPARE(told.words, QStringList{QStringLiteral("outdated")});
    }

    // --- The end in the middle ---------------------------------------------------------

    void viewEndsInTheMiddle_data() { addFailures({10001}); }

    void viewEndsInTheMiddle()
    {
        QFETCH(QString, service);
        QFETCH(QString, command);
        CommandsFixture team;
        const QByteArray name = service.toLatin1();
        team.service.hold(name.constData(), "{}", 10001);
        TipBox::setNextAnswers(TipBox::Sure);
        team.give(command);
        QTRY_COMPARE(team.service.count(name.constData()), 1);
        const int boxes = TipBox::count();
        team.view.reset();
        team.service.server.release();
        QTRY_COMPARE(team.service.server.unanswered(), 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(TipBox::count(), boxes);
    }

    // --- Another user ------------------------------------------------------------------

    void whatWasAskedEndsWithTheUser()
    {
        CommandsFixture team;
        team.view->show();
        TipBox::setNextAnswers(TipBox::ShowBox);
        team.give(QStringLiteral("delete"));
        auto *box = team.view->findChild<TipBox *>();
        team.commands->renameTeam(teamSelection().team);
        QVERIFY(box && box->isVisible() && team.editor());
        emit FriendUISignalSender::instance()->signal_login(); // the same once more
        QVERIFY(box->isVisible() && team.editor()->isVisible());
        team.service.host.context.user = QStringLiteral("u9");
        emit FriendUISignalSender::instance()->signal_login();
        QVERIFY(!box->isVisible() && !team.editor()->isVisible());
        QCOMPARE(team.service.server.requests().size(), 0);
    }

    void whatWasSentEndsWithTheUser_data() { addFailures({10001}); }

    void whatWasSentEndsWithTheUser()
    {
        QFETCH(QString, service);
        QFETCH(QString, command);
        CommandsFixture team;
        const Told told(team.commands);
        const QByteArray name = service.toLatin1();
        team.service.server.reply(TeamService::path(name.constData()),
                                  TeamService::reply("{}", 10001).onRelease());
        TipBox::setNextAnswers(TipBox::Sure);
        team.give(command);
        QTRY_COMPARE(team.service.count(name.constData()), 1);
        const int boxes = TipBox::count();
        emit FriendUISignalSender::instance()->signal_logout();
        QVERIFY(!team.isBusy());
        team.service.server.release();
        QTRY_COMPARE(team.service.server.unanswered(), 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(TipBox::count(), boxes);
        QCOMPARE(told.words, QStringList());
    }

    void dialogClosedInTheMiddle()
    {
        CommandsFixture team;
        const Told told(team.commands);
        team.service.hold("modifyVirtualTeamInfo");
        team.give(QStringLiteral("renameTeam"));
        team.editor()->reject();
        QTRY_VERIFY(!team.editor());
        QTRY_COMPARE(team.service.count("modifyVirtualTeamInfo"), 1);
        team.service.server.release();
        QVERIFY(team.settle());
        QCOMPARE(told.words, QStringList{QStringLiteral("team new & name")});
    }
};

FRIENDUI_TEST(TstTeamCommands)
#include "tst_teamcommands.moc"
