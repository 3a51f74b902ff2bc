// Records that a service tells oddly.
#include "http/jsonreader.h"
#include "tests/support/testrunner.h"
#include "virtualteam/teamrecordreader.h"

namespace {
Json::Value json(const QByteArray &text)
{
    Json::Value root;
    QString error;
    if (!JsonReader::parse(text, &root, &error))
        qFatal("%s: %s", text.constData(), qPrintable(error));
    return root;
}
} // namespace

class TstTeamRecordReader : public QObject
{
    Q_OBJECT

private slots:
    void presenceOfMember_data()
    {
        const Rows<QByteArray, int, int> row{"presence", "show", "device"};
        row("object", R"({"av":true,"show":"dnd","pt":"","rsc":"pc"})", 4, 0);
        row("array", R"([{"av":true,"show":"xa"},{"av":1,"pt":"ios","rsc":"mobile"}])", 3, 2);
        row("not there", R"({"av":false,"show":"chat","pt":"android"})", 0, 0);
        row("without a word", R"({"av":"true"})", 1, 0);
        row("another word", R"({"av":true,"show":"SLEEPY"})", 1, 0);
        row("telephone only", R"({"av":true,"show":"away","pt":"Android","rsc":"virtual"})", 0, 1);
        row("no presence", "7", 0, 0);
    }

    void presenceOfMember()
    {
        QFETCH(QByteArray, presence);
        const auto read = TeamRecordReader::member(json("{\"presence\":" + presence + '}'));
        QTEST(int(read.presence.pcShow), "show");
        QTEST(int(read.presence.mobile), "device");
    }

    // Nobody becomes an owner by a number that was cut.
    void numbers_data()
    {
        const Rows<QByteArray, int> row{"number", "wanted"};
        row("text", "\"2\"", 2);
        row("negative", "-1", -1);
        row("beyond 32 bits", "4294967298", 0);
        row("beyond 64 bits", "18446744073709551618", 0);
        row("fraction", "2.5", 0);
        row("huge", "1e300", 0);
        row("object", "{}", 0);
    }

    void numbers()
    {
        QFETCH(QByteArray, number);
        const auto teams = TeamRecordReader::teams(
            json("{\"vt\":[{\"vtId\":\"1\",\"role\":" + number + ",\"count\":" + number + "}]}"));
        QTEST(teams.value(0).role, "wanted");
        QCOMPARE(teams.value(0).count, qMax(0, teams.value(0).role));
    }

    void entriesWithoutAnIdOfTheirOwn()
    {
        const auto members = TeamRecordReader::members(
            json(R"({"members":[{"userId":"u\u00001","name":"first"},{"name":"none"},{"userId":""},
                 {"userId":"u1","name":"second"},{"userId":["u2"]},5,null,[1],{"userId":3}]})"));
        QCOMPARE(members.size(), 2);
        QCOMPARE(members.at(0).userId, QStringLiteral("u1"));
        QCOMPARE(members.at(0).name, QStringLiteral("first"));
        QCOMPARE(members.at(1).userId, QStringLiteral("3"));
    }
};

FRIENDUI_TEST(TstTeamRecordReader)
#include "tst_teamrecordreader.moc"
