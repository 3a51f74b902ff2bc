// Who cannot be deleted, and how people are picked.
#include "plugin/frienduisignalsender.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/commandsfixture.h"
#include "virtualteam/teammessages.h"

class TstTeamMemberCommands : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data()
    {
        const Rows<QList<int>, QString> row{"roles", "own"};
        row("sub-administrator", {1}, {});
        row("owner", {2}, {});
        row("one of several", {0, 1, 0}, {});
        row("the owner among several", {0, 2}, {});
        row("oneself", {0}, QStringLiteral("m0"));
        row("oneself among several", {0, 0}, QStringLiteral("m1"));
    }

    void refusals()
    {
        QFETCH(QList<int>, roles);
        QFETCH(QString, own);
        CommandsFixture team;
        if (!own.isEmpty())
            team.service.host.context.user = own;
        QList<CVirtualTeamMemberInfo> members;
        for (int role : qAsConst(roles))
            members.append(teamMember(qPrintable(QStringLiteral("m%1").arg(members.size())), role));
        TipBox::setNextAnswers(TipBox::Sure);
        const int boxes = TipBox::count();
        team.commands->deleteMembers(teamSelection(members));
        QCOMPARE(TipBox::lastText(), QString::fromUtf8("所选成员包含子管理员不能被删除！"));
        QCOMPARE(TipBox::count() - boxes, 1);
        QVERIFY(!team.isBusy());
    }

    void ownerIsNoSubAdministrator()
    {
        CommandsFixture team;
        TipBox::setNextAnswers(TipBox::Sure);
        team.commands->toggleAdministrator(teamSelection({teamMember("u2", 2)}));
        QCOMPARE(TipBox::lastText(), QStringLiteral("notmodify"));
        QVERIFY(!team.isBusy());
    }

    // --- The picker ------------------------------------------------------------------

    void picker()
    {
        CommandsFixture team;
        team.service.answer("getMembers", R"({"members":[{"userId":"u1"},{"userId":"u2"}]})");
        team.commands->addMembers(teamSelection(), {QStringLiteral("u2"), QStringLiteral("u9")});
        QTRY_COMPARE(team.service.host.count(Outbound::PickTeamMembers), 1);
        const auto [vtId, group, present] =
            team.service.host.arguments<QString, int, QStringList>(Outbound::PickTeamMembers);
        QCOMPARE(vtId, QStringLiteral("t"));
        QCOMPARE(group, 7);
        QCOMPARE(present.join(u','), QStringLiteral("u2,u9,u1"));
        QVERIFY(team.settle());
    }

    void pickerEndsTheView()
    {
        CommandsFixture team;
        team.service.host.onRequest = [&team](const FakeHost::Request &) { team.view.reset(); };
        team.commands->addMembers(teamSelection(), {});
        QTRY_COMPARE(team.service.host.count(Outbound::PickTeamMembers), 1);
        QVERIFY(!team.view);
    }

    void groupWithoutNumber()
    {
        CommandsFixture team;
        TeamSelection group = teamSelection();
        group.groupId = QStringLiteral("99999999999");
        team.commands->addMembers(group, {});
        QCOMPARE(TipBox::lastText(), TeamMessages::failed());
        QVERIFY(!team.isBusy());
    }

    void notAllAdded()
    {
        CommandsFixture team;
        const Told told(team.commands);
        team.service.answer("batchAddVirtualTeamMember", R"({"failNumber":2})");
        team.give(QStringLiteral("addPicked"));
        QVERIFY(team.settle());
        QCOMPARE(TipBox::lastText(), QStringLiteral("teamMembersNotAdded"));
        QCOMPARE(told.words.join(u','), QStringLiteral("level 7,teams"));
        team.commands->addPicked(QStringLiteral("t"), QStringLiteral("7"), {QStringLiteral("u1")});
        QVERIFY(!team.isBusy()); // nobody but oneself
    }

    void picksWaitForTheTeam()
    {
        CommandsFixture team;
        const Told told(team.commands);
        team.give(QStringLiteral("move"));
        pick(team, "7", {QStringLiteral("u5")});
        pick(team, "9", {QStringLiteral("u6")});
        pick(team, "9", {QStringLiteral("u6")}); // the host says it twice
        QVERIFY(team.settle());
        QCOMPARE(told.words.join(u','), QStringLiteral("moved 9 u2,level 7,teams,level 9,teams"));
        QCOMPARE(sent(team), (QStringList{QStringLiteral("vtId=t&groupId=7&members=u5"),
                                          QStringLiteral("vtId=t&groupId=9&members=u6")}));
        QCOMPARE(team.service.boxes(), 0);
    }

    void waitingPicksAreBounded()
    {
        CommandsFixture team;
        team.give(QStringLiteral("move"));
        for (int i = 0; i < TeamCommands::MostPicks; ++i)
            pick(team, "7", people(i + 1));
        QCOMPARE(team.service.boxes(), 0);
        pick(team, "9", people(1));
        QCOMPARE(team.service.told(), QStringLiteral("teamBusy"));
        QVERIFY(team.settle());
        QCOMPARE(sent(team).size(), TeamCommands::MostPicks);
    }

    void picksEndWithTheUser()
    {
        CommandsFixture team;
        team.service.hold("transferVirtualTeamMember");
        team.give(QStringLiteral("move"));
        pick(team, "7", people(1));
        emit FriendUISignalSender::instance()->signal_logout();
        QVERIFY(!team.isBusy());
        pick(team, "9", people(1)); // somebody else's
        QVERIFY(team.settle());
        QCOMPARE(sent(team), QStringList{QStringLiteral("vtId=t&groupId=9&members=p0")});
    }

    void manyGoInPortions_data()
    {
        const Rows<int, QString, QString> row{"failsAt", "box", "told"};
        row("all is well", 0, QStringLiteral("People who could not be added: 3"),
            QStringLiteral("level 7,teams"));
        row("the first fails", 1, QStringLiteral("That did not work."),
            QStringLiteral("teams,outdated"));
        row("the second fails", 2, QStringLiteral("People who could not be added: 1501"),
            QStringLiteral("teams,outdated,level 7,teams"));
    }

    // Of each portion, the service takes all but one.
    void manyGoInPortions()
    {
        QFETCH(int, failsAt);
        QFETCH(QString, box);
        const Language english(QStringLiteral("en"));
        CommandsFixture team;
        const Told told(team.commands);
        QVector<FakeReply> replies(3, TeamService::reply(R"({"failNumber":1})"));
        if (failsAt > 0)
            replies[failsAt - 1] = TeamService::reply("{}", 10003);
        team.service.server.reply(TeamService::path("batchAddVirtualTeamMember"), replies);
        pick(team, "7", people(2500));
        QVERIFY(team.settle());
        QStringList asked;
        const QStringList forms = sent(team);
        for (const QString &form : forms)
            asked += form.section(QStringLiteral("members="), 1).split(QStringLiteral("%2C"));
        QCOMPARE(asked, people(failsAt > 0 ? failsAt * 1000 : 2500));
        QCOMPARE(forms.size(), failsAt > 0 ? failsAt : 3);
        QVERIFY2(team.service.told().startsWith(box), qPrintable(team.service.told()));
        QCOMPARE(team.service.boxes(), 1);
        QTEST(told.words.join(u','), "told");
    }

private:
    static QStringList people(int count)
    {
        QStringList ids;
        for (int i = 0; i < count; ++i)
            ids.append(QStringLiteral("p") + QString::number(i));
        return ids;
    }
    static void pick(const CommandsFixture &team, const char *group, const QStringList &ids)
    {
        team.commands->addPicked(QStringLiteral("t"), QString::fromLatin1(group), ids);
    }
    static QStringList sent(const CommandsFixture &team)
    {
        QStringList forms;
        for (const FakeRequest &request : team.service.server.requests()) {
            if (request.path == TeamService::path("batchAddVirtualTeamMember"))
                forms.append(QString::fromLatin1(request.body));
        }
        return forms;
    }
};

FRIENDUI_TEST(TstTeamMemberCommands)
#include "tst_teammembercommands.moc"
