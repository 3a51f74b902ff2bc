// Who cannot be deleted, and how people are picked.
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
};

FRIENDUI_TEST(TstTeamMemberCommands)
#include "tst_teammembercommands.moc"
