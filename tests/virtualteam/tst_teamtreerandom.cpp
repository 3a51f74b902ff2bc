// Random replies, changes and freezes, again and again, against a plain computation of
// what must be shown.
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teammaker.h"

#include <QRandomGenerator>

namespace {

const QString team = QStringLiteral("T");
constexpr int Groups = 12;
constexpr int People = 40;

// The tree as plain maps.
struct Plain
{
    struct Level
    {
        QStringList groups;
        QMap<QString, CVirtualTeamMemberInfo> members;
        bool isLoaded = false;
    };
    QMap<QString, Level> levels{{rootGroupId(), {}}}; // those that are shown
    QMap<QString, QString> above;

    void dropGroup(const QString &id)
    {
        for (const QString &lower : levels.value(id).groups)
            dropGroup(lower);
        levels[above.take(id)].groups.removeOne(id);
        levels.remove(id);
    }
    bool isAbove(const QString &upper, QString lower) const
    {
        while (lower != upper && lower != rootGroupId())
            lower = above.value(lower);
        return lower == upper;
    }
    void dropMember(const QString &id)
    {
        for (Level &level : levels)
            level.members.remove(id);
    }
    void setLevel(const QString &id, const QList<CVirtualTeamSimpleInfo> &groups,
                  const QList<CVirtualTeamMemberInfo> &members)
    {
        QStringList listed;
        for (const CVirtualTeamSimpleInfo &group : groups) {
            if (group.vtId != rootGroupId() && !listed.contains(group.vtId) &&
                !isAbove(group.vtId, id))
                listed.append(group.vtId);
        }
        for (const QString &known : levels.value(id).groups) {
            if (!listed.contains(known))
                dropGroup(known);
        }
        for (const QString &group : qAsConst(listed)) {
            if (above.contains(group) && above.value(group) != id)
                dropGroup(group);
            above.insert(group, id);
            levels[group];
        }
        levels[id].groups = listed;
        levels[id].isLoaded = true;
        levels[id].members.clear();
        QStringList seen;
        for (const CVirtualTeamMemberInfo &member : members) {
            if (seen.contains(member.userId))
                continue;
            seen.append(member.userId);
            dropMember(member.userId);
            levels[id].members.insert(member.userId, member);
        }
    }
    QString rows(const QString &id) const
    {
        QStringList texts;
        const Level &level = *levels.find(id);
        for (const QString &group : level.groups) {
            const QString below = rows(group);
            texts.append(below.isEmpty() ? group
                                         : group + QLatin1Char('(') + below + QLatin1Char(')'));
        }
        QStringList sorted;
        for (const CVirtualTeamMemberInfo &member : level.members) {
            const int rank = member.role == TeamRole::Owner              ? 0
                             : member.role == TeamRole::SubAdministrator ? 1
                             : member.presence.isOnline()                ? 2
                                                                         : 3;
            sorted.append(QString::number(rank) + member.nickName + QLatin1Char('\1') +
                          member.userId);
        }
        sorted.sort();
        for (const QString &text : qAsConst(sorted))
            texts.append(text.section(QLatin1Char('\1'), 1));
        if (texts.isEmpty() && level.isLoaded)
            texts.append(QStringLiteral("-"));
        return texts.join(QLatin1Char(' '));
    }
};

} // namespace

class TstTeamTreeRandom : public QObject
{
    Q_OBJECT

private slots:
    void showsWhatWasSaid_data()
    {
        const Rows<uint, int> row{"seed", "most"};
        row("few at a time", 1, 4);
        row("many at a time", 2, 30);
        row("more", 3, 12);
    }

    void showsWhatWasSaid()
    {
        QFETCH(const uint, seed);
        QFETCH(const int, most);
        TeamModelFixture fixture;
        TeamTreeModel &model = fixture.model;
        model.setTeams({makeTeam(team)});
        Plain plain;
        QRandomGenerator random(seed);
        const auto userId = [&] { return QStringLiteral("u%1").arg(random.bounded(People)); };
        const auto groupId = [&] { return QString::number(random.bounded(Groups)); };
        QMap<QString, QPersistentModelIndex> held;
        bool frozen = false;
        for (int step = 0; step < 1500; ++step) {
            const QString id = plain.levels.keys().at(random.bounded(plain.levels.size()));
            switch (random.bounded(8)) {
            case 0:
                frozen = !frozen;
                model.setOrderFrozen(frozen);
                break;
            case 1: {
                QMap<QString, PresenceData> batch;
                for (int i = random.bounded(most); i >= 0; --i) {
                    PresenceData presence;
                    presence.mobile = random.bounded(2);
                    const QString who = userId();
                    batch.insert(who + QStringLiteral("@x"), presence);
                    for (auto &level : plain.levels) {
                        if (level.members.contains(who))
                            level.members[who].presence = presence;
                    }
                }
                model.setPresence(batch);
                break;
            }
            case 2: {
                const QString who = userId();
                plain.dropMember(who);
                model.removeMember(team, who);
                break;
            }
            case 3: {
                const QString who = userId();
                const QString name = QStringLiteral("n%1").arg(random.bounded(9));
                model.setNickName(team, who, name);
                for (auto &level : plain.levels) {
                    if (level.members.contains(who))
                        level.members[who].nickName = name;
                }
                break;
            }
            case 4: {
                QStringList who;
                for (int i = random.bounded(most); i >= 0; --i)
                    who.append(userId());
                model.moveMembers(team, id, who);
                for (const QString &one : qAsConst(who)) {
                    for (auto &level : plain.levels) {
                        if (!level.members.contains(one))
                            continue;
                        const CVirtualTeamMemberInfo member = level.members.take(one);
                        if (plain.levels[id].isLoaded)
                            plain.levels[id].members.insert(one, member);
                        break;
                    }
                }
                break;
            }
            default: {
                QList<CVirtualTeamSimpleInfo> groups;
                for (int i = random.bounded(5); i > 0; --i)
                    groups.append(makeTeam(groupId()));
                QList<CVirtualTeamMemberInfo> members;
                for (int i = random.bounded(most); i > 0; --i)
                    members.append(makeMember(userId(), random.bounded(5) ? 0 : random.bounded(4),
                                              PresenceData::ePcShowType(random.bounded(2))));
                QVERIFY(model.setLevel(team, id, groups, members));
                plain.setLevel(id, groups, members);
            }
            }
            for (auto at = held.begin(); at != held.end(); ++at)
                QVERIFY(!at->isValid() || at->data(TeamRowRole::Id).toString() == at.key());
            const QString who = userId();
            if (!held.value(who).isValid())
                held.insert(who, model.memberIndex(team, who));
            for (const CVirtualTeamMemberInfo &member : qAsConst(plain.levels[id].members))
                QCOMPARE(model.groupId(model.memberIndex(team, member.userId)), id);
            if (!frozen)
                QCOMPARE(fixture.rows(model.teamIndex(team)), plain.rows(rootGroupId()));
        }
    }
};

FRIENDUI_TEST(TstTeamTreeRandom)
#include "tst_teamtreerandom.moc"
