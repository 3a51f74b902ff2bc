// Several users change their external contacts at the same time.
#include "backend/friends/friendstore.h"
#include "tests/backend/atonce.h"
#include "tests/backend/teamworld.h"
#include "tests/support/testrunner.h"

#include <atomic>
#include <random>

namespace {
constexpr int AtStart = SampleCompany::KnownOutsiderCount; // contacts of the company's people

QString service(const char *name)
{
    return QStringLiteral("/center/friend/%1.do").arg(QLatin1String(name));
}

int countOf(TeamWorld &world, const QString &uid)
{
    Transaction transaction(world.context.database);
    return FriendStore(transaction).count(uid);
}
} // namespace

class TstFriendsAtOnce : public QObject
{
    Q_OBJECT

private slots:
    void crossingRequestsAreOneFriendship()
    {
        TeamWorld world;
        for (int round = 0; round < 20; ++round) {
            const QString uid = SampleCompany::uid(20 + round);
            int asked = -1, crossing = -1;
            together(
                {[&] { asked = world.code(uid, service("addFriendRequest"), "userId=x000012"); },
                 [&] {
                     crossing = world.code("x000012", service("addFriendRequest"), "userId=" + uid);
                 }});
            QCOMPARE(asked, 0);
            QCOMPARE(crossing, 0);
            QCOMPARE(countOf(world, uid), AtStart + 1);
            QCOMPARE(countOf(world, "x000012"), round + 1);
        }
        QCOMPARE(world.contradictions(), QStringList());
    }

    void theLimitHolds()
    {
        constexpr int room = 3;
        TeamWorld world;
        world.context.friendLimits.set("u000010", AtStart + room);
        std::vector<std::function<void()>> answers;
        std::atomic<int> accepted{0}, refused{0};
        for (int i = AtStart; i < SampleCompany::OutsiderCount; ++i) {
            const QString uid = world.context.people.company().outsider(i).uid;
            QCOMPARE(world.code("u000010", service("addFriendRequest"), "userId=" + uid), 0);
            answers.push_back([&world, &accepted, &refused, uid] {
                const int code =
                    world.code(uid, service("confirmAddFriend"), "userId=u000010&type=1");
                accepted += code == 0;
                refused += code == 10002;
            });
        }
        together(answers);
        QCOMPARE(accepted.load(), room);
        QCOMPARE(refused.load(), SampleCompany::OutsiderCount - AtStart - room);
        QCOMPARE(countOf(world, "u000010"), AtStart + room);
    }

    void everybodyDoesEverything()
    {
        static constexpr std::pair<const char *, const char *> actions[] = {
            {"addFriendRequest", "groupId=901&userId="},
            {"addFriendRequest", "userId="},
            {"confirmAddFriend", "type=1&groupId=902&userId="},
            {"confirmAddFriend", "type=2&userId="},
            {"removeFriend", "userId="},
            {"moveFriendItem", "oldGroupId=0&newGroupId=901&userId="},
            {"removeFriendGroup", "groupId=901&userId="},
            {"getFriendList", "userId="},
        };
        const QStringList people{"u000010", "u000011", "x000000", "x000012", "x000013"};
        for (int round = 0; round < 5; ++round) {
            TeamWorld world;
            std::atomic<int> strange{0}, done{0};
            const auto play = [&](const QString &uid, unsigned seed) {
                std::mt19937 random(seed);
                for (int i = 0; i < 80; ++i) {
                    const auto &[name, fields] = actions[random() % std::size(actions)];
                    const QString other = people.at(int(random() % unsigned(people.size())));
                    const int code = world.code(uid, service(name), fields + other);
                    done += code == 0;
                    strange += code != 0 && (code < 10001 || code > 10004);
                }
            };
            std::vector<std::function<void()>> all;
            for (const QString &uid : people)
                all.push_back([&, uid] { play(uid, qHash(uid, uint(round))); });
            together(all);
            QCOMPARE(strange.load(), 0);
            QVERIFY(done > 0);
            QCOMPARE(world.contradictions(), QStringList());
        }
    }
};

FRIENDUI_TEST(TstFriendsAtOnce)
#include "tst_friendsatonce.moc"
