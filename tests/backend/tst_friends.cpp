// External contacts: who may do what, each code, and who is told.
#include "backend/friends/friendstore.h"
#include "sample/sampleroster.h"
#include "tests/backend/teamworld.h"
#include "tests/support/testrunner.h"

namespace {
constexpr int AtStart = SampleCompany::KnownOutsiderCount; // contacts of the company's people
const QString U = QStringLiteral("u000010");
const QString X = QStringLiteral("x000012"); // knows nobody at first

QString service(const char *name)
{
    return QStringLiteral("/center/friend/%1.do").arg(QLatin1String(name));
}

QString repeated(const char *piece, int times)
{
    return QString::fromUtf8(piece).repeated(times);
}

QString text(const Json::Value &value)
{
    return QString::fromStdString(value.asString());
}

// "uid:group" of each contact.
QStringList contactsOf(TeamWorld &world, const QString &uid)
{
    QStringList result;
    const Json::Value list = world.call(uid, service("getFriendList")).data;
    for (const Json::Value &contact : list["friends"])
        result.append(text(contact["userId"]) + QLatin1Char(':') + text(contact["groupId"]));
    return result;
}

QStringList groupsOf(TeamWorld &world, const QString &uid)
{
    QStringList result;
    const Json::Value list = world.call(uid, service("getFriendList")).data;
    for (const Json::Value &group : list["groups"])
        result.append(text(group["groupName"]));
    return result;
}

// Plays "u ask x, x accept u, old u x, x limit 3": u and x, and c, a colleague of u's.
// The codes; "=2": done, with this status.
class Play
{
public:
    explicit Play(TeamWorld &world) : m_world(world) {}

    QString run(const QString &steps)
    {
        QStringList results;
        for (const QString &step : steps.split(QStringLiteral(", "))) {
            const QString result = one(step.split(QLatin1Char(' ')));
            if (!result.isEmpty())
                results.append(result);
        }
        return results.join(QLatin1Char(' '));
    }

private:
    static QString uid(const QString &letter)
    {
        return letter == QLatin1String("u")   ? U
               : letter == QLatin1String("x") ? X
                                              : QStringLiteral("u000011");
    }
    QString one(const QStringList &words)
    {
        if (words.at(0) == QLatin1String("old")) {
            Transaction transaction(m_world.context.database);
            FriendStore(transaction).ageRequest(uid(words.at(1)), uid(words.at(2)), 7 * 86400);
            transaction.commit();
            return {};
        }
        const QString actor = uid(words.at(0));
        if (words.at(1) == QLatin1String("limit")) {
            m_world.context.friendLimits.set(actor, words.at(2).toInt());
            return {};
        }
        static const QHash<QString, QPair<const char *, QString>> actions{
            {"ask", {"addFriendRequest", "clientType=pc&reason=r&userId="}},
            {"accept", {"confirmAddFriend", "clientType=pc&type=1&userId="}},
            {"block", {"confirmAddFriend", "clientType=pc&type=2&userId="}},
            {"remove", {"removeFriend", "userId="}},
            {"status", {"getRequestStatus", "userId="}}};
        const auto action = actions.value(words.at(1));
        const TeamAnswer answer =
            m_world.call(actor, service(action.first), action.second + uid(words.at(2)));
        return answer.data.isMember("status")
                   ? QStringLiteral("=%1").arg(answer.data["status"].asInt())
                   : QString::number(answer.code);
    }

    TeamWorld &m_world;
};
} // namespace

class TstFriends : public QObject
{
    Q_OBJECT

private slots:
    void beginning_data()
    {
        // In this order they are heard of.
        const Rows<QStringList> row{"users"};
        row("inside first", {"u000000", "x000000", "u000150", "x000001"});
        row("outside first", {"x000001", "x000000", "u000150", "u000000"});
        row("stranger", {"x000012", "u000000"});
    }
    void beginning()
    {
        QFETCH(QStringList, users);
        TeamWorld world;
        for (const QString &uid : users)
            contactsOf(world, uid);
        for (const QString &uid : users) {
            const QStringList contacts = contactsOf(world, uid);
            const SampleRoster roster(world.context.people.company(), uid);
            for (int i = 0; i < roster.count(false); ++i) {
                const SampleContact seat = roster.contact(i, false);
                const QString group = seat.groupId.isEmpty() ? "0" : seat.groupId;
                QVERIFY(contacts.contains(seat.person.uid + ':' + group));
            }
            if (!roster.isOutsider())
                QCOMPARE(contacts.size(), AtStart);
            QCOMPARE(groupsOf(world, uid).size(), 3);
        }
        QCOMPARE(world.contradictions(), QStringList());
    }

    void whoHasPartedStaysSo()
    {
        TeamWorld world;
        world.code(U, service("removeFriend"), "userId=x000000");
        contactsOf(world, "x000000"); // knows him from the beginning
        QVERIFY(!contactsOf(world, "x000000").contains(U + ":0"));
        QCOMPARE(world.contradictions(), QStringList());
    }

    void story_data()
    {
        const Rows<QString, QString, bool> row{"steps", "codes", "areContacts"};
        row("accepted", "u ask x, u status x, x status u, x accept u, u status x, x status u",
            "0 =0 =0 0 =1 =1", true);
        row("crossing", "u ask x, x ask u", "0 0", true);
        row("again and again", "u ask x, u ask x, x accept u, x accept u, u ask x, x ask u",
            "0 0 0 0 0 0", true);
        row("expired", "u ask x, old u x, x status u, x accept u", "0 =3 10003", false);
        row("asked anew", "u ask x, old u x, u ask x, x accept u", "0 0 0", true);
        row("crossing too late", "u ask x, old u x, x ask u, u status x", "0 0 =0", false);
        row("blocked", "u ask x, x block u, x status u, u ask x, x accept u", "0 0 =2 10004 10003",
            false);
        row("block of a contact", "u ask x, x accept u, x block u, u ask x", "0 0 0 10004", false);
        row("block lifted", "u ask x, x block u, x ask u, u accept x", "0 0 0 0", true);
        row("blocked expired", "u ask x, old u x, x block u, u ask x", "0 0 10004", false);
        row("both block", "u block x, x block u, u ask x, x ask u", "0 0 10004 10004", false);
        row("removed", "u ask x, x ask u, u remove x, x remove u, u status x", "0 0 0 10001 10001",
            false);
        row("never asked", "x accept u, x status u", "10003 10001", false);
        row("colleague", "u ask c, u accept c, u block c, u remove c, u status c",
            "10001 10001 10001 10001 10001", false);
        row("himself", "u ask u, u block u", "10001 10001", false);
        row("own limit", "u limit 12, u ask x", "10001", false);
        row("other's limit", "x limit 0, u ask x", "10002", false);
        row("accepting above the limit", "u ask x, x limit 0, x accept u, x status u", "0 10001 =0",
            false);
        row("asker has reached it", "u ask x, u limit 12, x accept u", "0 10002", false);
        row("crossing above the limit", "u ask x, x limit 0, x ask u", "0 10001", false);
        row("contacts above the limit", "u ask x, x ask u, u limit 0, u ask x", "0 0 0", true);
    }
    void story()
    {
        QFETCH(QString, steps);
        QFETCH(bool, areContacts);
        TeamWorld world;
        QTEST(Play(world).run(steps), "codes");
        QCOMPARE(contactsOf(world, U).contains(X + ":0"), areContacts);
        QCOMPARE(contactsOf(world, X), areContacts ? QStringList{U + ":0"} : QStringList());
        QCOMPARE(world.contradictions(), QStringList());
    }

    void operands_data()
    {
        const Rows<QString, QString, int> row{"name", "fields", "code"};
        row("nobody", "addFriendRequest", "userId=x999999&reason=r", 10001);
        row("no person", "addFriendRequest", "reason=r", 10001);
        row("odd person", "addFriendRequest", "userId=' OR 1=1--", 10001);
        row("a megabyte", "addFriendRequest", "userId=" + repeated("x", 1 << 20), 10001);
        row("reason of 200", "addFriendRequest", "userId=x000012&reason=" + repeated("𠮷", 200), 0);
        row("reason of 201", "addFriendRequest", "userId=x000012&reason=" + repeated("a", 201),
            10001);
        row("not UTF-8", "addFriendRequest", "userId=x000012&reason=%ff", 10001);
        row("into no group", "addFriendRequest", "userId=x000012&groupId=77", 10001);
        row("into an odd group", "addFriendRequest", "userId=x000012&groupId=-1", 10001);
        row("into a group", "addFriendRequest", "userId=x000012&groupId=901", 0);
        row("neither yes nor no", "confirmAddFriend", "userId=x000000&type=3", 10001);
        row("no answer", "confirmAddFriend", "userId=x000000", 10001);
        row("name taken", "createFriendGroup", "groupName=客户", 10001);
        row("name of the default", "createFriendGroup", "groupName=我的好友", 10001);
        row("no name", "createFriendGroup", "groupName=%20", 10001);
        row("name of 16", "createFriendGroup", "groupName=" + repeated("𠮷", 16), 0);
        row("name of 17", "createFriendGroup", "groupName=" + repeated("a", 17), 10001);
        row("two lines", "createFriendGroup", "groupName=a\nb", 10001);
        row("own name", "renameFriendGroup", "groupId=901&groupName=合作伙伴", 0);
        row("taken name", "renameFriendGroup", "groupId=901&groupName=客户", 10001);
        row("unknown group", "renameFriendGroup", "groupId=77&groupName=n", 10002);
        row("rename the default", "renameFriendGroup", "groupId=0&groupName=n", 10002);
        row("remove the default", "removeFriendGroup", "groupId=0", 10002);
        row("remove none", "removeFriendGroup", "", 10001);
        row("no longer there", "moveFriendItem", "userId=x000000&oldGroupId=901&newGroupId=902",
            10003);
        row("same group", "moveFriendItem", "userId=x000000&oldGroupId=&newGroupId=0", 0);
        row("no contact", "moveFriendItem", "userId=x000012&oldGroupId=0&newGroupId=901", 10001);
        row("to no group", "moveFriendItem", "userId=x000000&oldGroupId=0&newGroupId=77", 10002);
        row("no group", "moveFriendItem", "userId=x000000&oldGroupId=0", 10001);
        row("remark of 17", "setFriendRemark", "userId=x000000&remark=" + repeated("a", 17), 10001);
        row("remark of a stranger", "setFriendRemark", "userId=x000012&remark=r", 10001);
    }
    void operands()
    {
        QFETCH(QString, name);
        QFETCH(QString, fields);
        TeamWorld world;
        const QStringList before = contactsOf(world, U) + groupsOf(world, U);
        const int code = world.code(U, QStringLiteral("/center/friend/%1.do").arg(name), fields);
        QTEST(code, "code");
        if (code != 0)
            QCOMPARE(contactsOf(world, U) + groupsOf(world, U), before);
    }

    void groups()
    {
        TeamWorld world;
        const auto made = [&](const QString &uid, const QString &name) {
            return text(
                world.call(uid, service("createFriendGroup"), "groupName=" + name).data["groupId"]);
        };
        const QString id = made(U, "a");
        QVERIFY(made("u000011", "a") != id); // everybody has names of the own
        QCOMPARE(world.code(U, service("moveFriendItem"),
                            "userId=x000001&oldGroupId=901&newGroupId=" + id),
                 0);
        QVERIFY(contactsOf(world, U).contains("x000001:" + id));
        QVERIFY(!contactsOf(world, "u000011").contains("x000001:" + id));
        // Somebody else can do nothing to it.
        const QString fields = "groupName=b&groupId=" + id;
        QCOMPARE(world.code("u000011", service("renameFriendGroup"), fields), 10002);
        QCOMPARE(world.code("u000011", service("removeFriendGroup"), fields), 10002);
        QCOMPARE(world.code(U, service("renameFriendGroup"), fields), 0);
        QCOMPARE(groupsOf(world, U).last(), QStringLiteral("b"));
        QCOMPARE(world.code(U, service("removeFriendGroup"), fields), 0);
        QVERIFY(contactsOf(world, U).contains("x000001:0"));
        QVERIFY(made(U, "b") != id);
        for (int i = groupsOf(world, U).size() - 1; i < FriendLimit::Groups; ++i)
            made(U, QString::number(i));
        QCOMPARE(world.code(U, service("createFriendGroup"), "groupName=z"), 10003);
    }

    // What is asked for with groups on either side, gone or not, and what is sent of it.
    void acceptedIntoGroups()
    {
        TeamWorld world;
        world.code(U, service("addFriendRequest"), "userId=x000012&groupId=901");
        world.code(U, service("removeFriendGroup"), "groupId=901");
        QCOMPARE(world.code(X, service("confirmAddFriend"), "userId=u000010&type=1&groupId=902"),
                 0);
        QVERIFY(contactsOf(world, U).contains(X + ":0"));
        QCOMPARE(contactsOf(world, X), QStringList{U + ":902"});
        world.code(X, service("setFriendRemark"), "userId=u000010&remark=r");
        const Json::Value sent = world.call(X, service("getFriendList")).data["friends"][0];
        const std::vector<std::string> names{"companyCode", "companyName", "email",
                                             "groupId",     "mobile",      "name",
                                             "photoName",   "remark",      "userId"};
        QCOMPARE(sent.getMemberNames(), names);
        QCOMPARE(text(sent["remark"]), QStringLiteral("r"));
    }

    void search_data()
    {
        // "*": the account, "#": the mobile number of x000003 or of u000007.
        const Rows<QString, QString, QString> row{"uid", "key", "found"};
        row("uid", U, "x000003", "x000003");
        row("account", U, "x*", "x000003");
        row("mobile", U, "x#", "x000003");
        row("part of a mobile", U, "1277115512", "");
        row("name", U, "李欣", "x000003");
        row("part of a name, other case", U, "GAR", "x000005");
        row("one letter", U, "李", "");
        row("himself", U, U, "");
        row("colleague", U, "u000007", "");
        row("from outside", X, "u000007", "u000007");
        row("account from outside", X, "u*", "u000007");
        row("mobile from outside", X, "u#", "u000007");
        row("partner's colleague", "x000000", "x000003", "");
        row("another company", "x000001", "x000003", "x000003");
        row("both personal", "x000002", "x000005", "x000005");
        row("wildcard", X, "u%25", "");
    }
    void search()
    {
        QFETCH(QString, uid);
        QFETCH(QString, key);
        static TeamWorld world; // is only read
        const User meant = *world.context.people.find(key.startsWith('x') ? "x000003" : "u000007");
        key.replace("x*", meant.account).replace("u*", meant.account);
        key.replace("x#", meant.mobile).replace("u#", meant.mobile);
        QStringList found;
        for (const Json::Value &person : world.call(uid, service("search"), "key=" + key).data) {
            found.append(text(person["userId"]));
            const std::vector<std::string> names{"companyCode", "companyName", "name", "photoName",
                                                 "userId"};
            QCOMPARE(person.getMemberNames(), names);
        }
        QTEST(found.join(' '), "found");
    }

    void longSearches()
    {
        TeamWorld world;
        QCOMPARE(world.code(U, service("search"), "key= "), 10001);
        QCOMPARE(world.code(U, service("search"), "key=" + repeated("a", 65)), 10001);
        int most = 0;
        for (const char *key : {"an", "ar", "晓", "张", "李", "ia"}) {
            const int count =
                int(world.call(X, service("search"), QString("key=") + key).data.size());
            QVERIFY(count <= FriendLimit::Found);
            most = qMax(most, count);
        }
        QVERIFY(most > 1);
        const Json::Value failed = world
                                       .call(U, "/center/roster//batchCreateRosterItem.do",
                                             "members=u000011,x000000,u000010,nobody")
                                       .data["failList"];
        QStringList uids;
        for (const Json::Value &uid : failed)
            uids.append(text(uid));
        QCOMPARE(uids, (QStringList{"x000000", U, "nobody"}));
    }

    void told_data()
    {
        // What each of the two hears of the last step.
        const Rows<QString, QStringList, QStringList> row{"steps", "u", "x"};
        const QStringList friends{"friends"};
        row("request", "u ask x", {}, {"friendRequest " + U});
        row("again", "u ask x, u ask x", {}, {"friendRequest " + U});
        row("too late", "u ask x, u ask x, old u x", {}, {});
        row("crossing", "u ask x, x ask u", friends, friends);
        row("accepted", "u ask x, x accept u", friends, friends);
        row("already contacts", "u ask x, x ask u, u ask x", {}, {});
        row("blocked", "u ask x, x block u", {}, friends);
        row("contact blocked", "u ask x, x ask u, x block u", friends, friends);
        row("removed", "u ask x, x ask u, u remove x", friends, friends);
        row("refused", "u limit 0, u ask x", {}, {});
    }
    void told()
    {
        QFETCH(QString, steps);
        TeamWorld world;
        Play play(world);
        contactsOf(world, U);
        contactsOf(world, X);
        const int end = steps.lastIndexOf(QLatin1String(", "));
        if (end > 0)
            play.run(steps.left(end));
        qint64 before = world.lastEvent(U);
        play.run(end > 0 ? steps.mid(end + 2) : steps);
        const qint64 since = before;
        QTEST(world.events(U, &before), "u");
        QTEST(world.events(X, &(before = since)), "x");
        QCOMPARE(world.events("u000011", &(before = since)), QStringList());
    }

    void waitingRequests()
    {
        TeamWorld world;
        world.code(U, service("addFriendRequest"), "userId=x000012&reason=<b>1");
        world.code("u000011", service("addFriendRequest"), "userId=x000012&reason=2");
        world.code(U, service("addFriendRequest"), "userId=x000012&reason=<b>3");
        qint64 since = -1;
        QCOMPARE(world.events(X, &since),
                 (QStringList{"friendRequest " + U, "friendRequest u000011"}));
        const Json::Value event =
            world.call(X, "/center/event/getEvents.do", "since=0").data["events"][1];
        QCOMPARE(text(event["reason"]), QStringLiteral("<b>3"));
        QCOMPARE(text(event["name"]), world.context.people.find(U)->name);
        QVERIFY(QDateTime::fromString(text(event["time"]), "yyyy-MM-dd hh:mm:ss").isValid());
        Play(world).run("x block u");
        QCOMPARE(world.events(X, &(since = -1)), QStringList{"friendRequest u000011"});
        QCOMPARE(world.events(X, &(since = 0)), (QStringList{"friendRequest u000011", "friends"}));
    }

    // The groups are told to the user's other clients only.
    void ownChanges()
    {
        TeamWorld world;
        contactsOf(world, U);
        const qint64 before = world.lastEvent(U);
        qint64 since = before;
        world.code(U, service("moveFriendItem"), "userId=x000000&oldGroupId=0&newGroupId=901");
        QCOMPARE(world.events(U, &since), QStringList{"friends"});
        QCOMPARE(world.events("x000000", &(since = before)), QStringList());
    }
};

FRIENDUI_TEST(TstFriends)
#include "tst_friends.moc"
