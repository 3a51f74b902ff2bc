// Several users change the same teams at the same time.
#include "tests/backend/atonce.h"
#include "tests/backend/teamworld.h"
#include "tests/support/testrunner.h"

#include <atomic>
#include <random>

namespace {
QStringList players()
{
    return {TeamWorld::Owner, TeamWorld::SubAdmin, TeamWorld::Member,
            TeamWorld::InTop, TeamWorld::InSub,    TeamWorld::AdminInManaged};
}
} // namespace

class TstTeamsAtOnce : public QObject
{
    Q_OBJECT

private:
    TeamWorld m_world;

private slots:
    void oneDecisionCounts()
    {
        const TeamWorld::StandardTeam team = m_world.makeStandardTeam();
        for (int round = 0; round < 20; ++round) {
            QCOMPARE(m_world.code(TeamWorld::Owner, "inviteVirtualTeam",
                                  team.fill("vtId=%1&members=x000004")),
                     0);
            int agreed = -1, refused = -1;
            together({[&] {
                          agreed = m_world.code("x000004", "confirmJoinVirtualTeam",
                                                team.fill("vtId=%1&agree=1"));
                      },
                      [&] {
                          refused = m_world.code("x000001", "confirmJoinVirtualTeam",
                                                 team.fill("vtId=%1&agree=0"));
                      }});
            QCOMPARE(agreed + refused, 10003);
            QCOMPARE(m_world.members(team.id).contains("x000004"), agreed == 0);
            if (agreed == 0)
                return;
        }
    }

    void joiningWhatEnds()
    {
        for (int round = 0; round < 20; ++round) {
            const TeamWorld::StandardTeam team = m_world.makeStandardTeam();
            m_world.code(TeamWorld::Owner, "inviteVirtualTeam",
                         team.fill("vtId=%1&members=x000004"));
            int ended = -1, joined = -1;
            together({[&] {
                          ended = m_world.code(TeamWorld::Owner, "dissolveVirtualTeam",
                                               team.fill("vtId=%1"));
                      },
                      [&] {
                          joined = m_world.code("x000004", "confirmJoinVirtualTeam",
                                                team.fill("vtId=%1&agree=1"));
                      }});
            QCOMPARE(ended, 0);
            QVERIFY(joined == 0 || joined == 10001);
            QVERIFY(!m_world.teamsOf("x000004").contains(team.id));
            QCOMPARE(m_world.contradictions(), QStringList());
        }
    }

    void oneHeirCounts()
    {
        for (int round = 0; round < 10; ++round) {
            const TeamWorld::StandardTeam team = m_world.makeStandardTeam();
            std::vector<int> codes(4, -1);
            std::vector<std::function<void()>> grants;
            for (size_t i = 0; i < codes.size(); ++i) {
                grants.push_back([&, i] {
                    codes[i] =
                        m_world.code(TeamWorld::Owner, "grantVirtualTeamAuthority",
                                     team.fill("vtId=%1&member=") + players().at(int(i) + 1));
                });
            }
            together(grants);
            QCOMPARE(std::count(codes.begin(), codes.end(), 0), 1);
            QCOMPARE(std::count(codes.begin(), codes.end(), 10002), 3);
            QCOMPARE(m_world.contradictions(), QStringList());
        }
    }

    void everybodyDoesEverything()
    {
        static constexpr std::pair<const char *, const char *> actions[] = {
            {"grantVirtualTeamAuthority", "&member=%m"},
            {"quitVirtualTeam", ""},
            {"deleteVirtualTeamMember", "&members=%m"},
            {"batchAddVirtualTeamMember", "&groupId=%2&members=%m"},
            {"batchAddVirtualTeamMember", "&groupId=%3&members=%m"},
            {"setVirtualTeamAdmin", "&members=%m"},
            {"deleteVirtualTeamAdmin", "&members=%m"},
            {"transferVirtualTeamMember", "&groupId=%4&members=%m"},
            {"deleteVirtualTeamGroup", "&groupId=%2"},
            {"addVirtualTeamGroup", "&pgId=%3&groupName=%m"},
            {"dissolveVirtualTeam", ""},
        };
        const QStringList people = players();
        for (int round = 0; round < 10; ++round) {
            const TeamWorld::StandardTeam teams[] = {m_world.makeStandardTeam(),
                                                     m_world.makeStandardTeam()};
            std::atomic<int> strange{0}, done{0};
            const auto play = [&](const QString &uid, unsigned seed) {
                std::mt19937 random(seed);
                for (int i = 0; i < 60; ++i) {
                    // No team ends early.
                    const size_t choices = std::size(actions) - (i < 45 ? 1 : 0);
                    const auto &[service, fields] = actions[random() % choices];
                    QString form = QStringLiteral("vtId=%1") + QLatin1String(fields);
                    form.replace("%m", people.at(int(random() % size_t(people.size()))));
                    const int code = m_world.code(uid, service, teams[i % 2].fill(form));
                    done += code == 0;
                    strange += code != 0 && (code < 10001 || code > 10003);
                }
            };
            std::vector<std::function<void()>> all;
            for (const QString &uid : people)
                all.push_back([&, uid] { play(uid, qHash(uid, uint(round))); });
            together(all);
            QCOMPARE(strange.load(), 0);
            QVERIFY(done > 0);
            QCOMPARE(m_world.contradictions(), QStringList());
        }
    }
};

FRIENDUI_TEST(TstTeamsAtOnce)
#include "tst_teamsatonce.moc"
