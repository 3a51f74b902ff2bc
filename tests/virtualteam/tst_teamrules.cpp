// Which entries each role sees.
#include "tests/support/testrunner.h"
#include "tests/virtualteam/commandsfixture.h"
#include "virtualteam/teamrules.h"

Q_DECLARE_METATYPE(TeamActions)

namespace {
constexpr int Owner = TeamRole::Owner;
constexpr int Sub = TeamRole::SubAdministrator;
constexpr int Member = TeamRole::Member;
} // namespace

class TstTeamRules : public QObject
{
    Q_OBJECT

private slots:
    void groups_data()
    {
        using A = TeamAction;
        const Rows<int, QString, TeamActions> row{"role", "groupId", "actions"};
        const QString root = rootGroupId();
        const QString sub = QStringLiteral("7");
        const TeamActions ofTeam = A::AddMember | A::AddGroup;
        row("owner, team", Owner, root, ofTeam);
        row("owner, group", Owner, sub, ofTeam | A::RenameGroup | A::DeleteGroup);
        row("sub-administrator, team", Sub, root, ofTeam);
        row("sub-administrator, group", Sub, sub, ofTeam | A::RenameGroup | A::DeleteGroup);
        row("member, team", Member, root, {});
        row("member, group", Member, sub, {});
        row("another number", -1, sub, {});
        row("a larger number", 3, sub, {});
    }

    void groups()
    {
        QFETCH(int, role);
        QFETCH(QString, groupId);
        TeamSelection group = teamSelection();
        group.team.role = role;
        group.groupId = groupId;
        QTEST(TeamRules::forGroup(group), "actions");
    }

    void members_data()
    {
        using A = TeamAction;
        const Rows<int, QStringList, TeamActions> row{"role", "who", "actions"};
        const TeamActions talk = A::Chat | A::GroupChat | A::ViewProfile;
        const TeamActions lead = A::EditNickName | A::EditPost | A::MoveMembers;
        const QStringList other{QStringLiteral("u2:0")};
        const QStringList sub{QStringLiteral("u2:1")};
        const QStringList owner{QStringLiteral("u2:2")};
        const QStringList two = other + QStringList{QStringLiteral("u3:0")};
        row("owner on a member", Owner, other, talk | lead | A::DeleteMember | A::SetAdministrator);
        row("owner on a sub-administrator", Owner, sub,
            talk | lead | A::DeleteMember | A::SetAdministrator);
        row("owner on another owner", Owner, owner, talk | lead | A::DeleteMember);
        row("owner on himself", Owner, {QStringLiteral("u1:2")}, lead | A::ViewProfile);
        row("sub-administrator on a member", Sub, other, talk | lead | A::DeleteMember);
        row("sub-administrator on the owner", Sub, owner, talk | lead | A::DeleteMember);
        row("sub-administrator on himself", Sub, {QStringLiteral("u1:1")}, lead | A::ViewProfile);
        row("member on another", Member, other, talk);
        row("member on himself", Member, {QStringLiteral("u1:0")},
            A::EditNickName | A::ViewProfile);
        row("several", Owner, two, A::GroupChat | A::MoveMembers | A::DeleteMembers);
        row("several, sub-administrator", Sub, two,
            A::GroupChat | A::MoveMembers | A::DeleteMembers);
        row("several, member", Member, two, A::GroupChat);
        row("nobody", Owner, {}, {});
    }

    void members()
    {
        QFETCH(int, role);
        QFETCH(QStringList, who);
        TeamSelection selection = teamSelection();
        selection.team.role = role;
        for (const QString &person : qAsConst(who))
            selection.members.append(teamMember(person.section(u':', 0, 0).toLatin1().constData(),
                                                person.section(u':', 1).toInt()));
        QTEST(TeamRules::forMembers(selection, QStringLiteral("u1")), "actions");
    }

    void settings_data()
    {
        using A = TeamAction;
        const Rows<int, TeamActions> row{"role", "actions"};
        row("owner", Owner,
            A::Rename | A::InviteCompany | A::ChooseAdministrators | A::TransferAuthority |
                A::Dissolve);
        row("sub-administrator", Sub, A::InviteCompany | A::Leave);
        row("member", Member, A::Leave);
    }

    void settings()
    {
        QFETCH(int, role);
        CVirtualTeamSimpleInfo team;
        team.role = role;
        QTEST(TeamRules::forSettings(team), "actions");
    }

    void tenLevels()
    {
        QVERIFY(TeamRules::mayAddGroup(9)); // which makes a tenth
        QVERIFY(!TeamRules::mayAddGroup(10));
    }
};

FRIENDUI_TEST(TstTeamRules)
#include "tst_teamrules.moc"
