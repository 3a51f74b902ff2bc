// JSON of all kinds, and of the wrong ones.
#include "http/jsonreader.h"
#include "tests/support/testrunner.h"

namespace {
Json::Value parsed(const QByteArray &text)
{
    Json::Value root;
    if (!JsonReader::parse(text, &root))
        qWarning("the test's own text is no JSON");
    return root;
}
} // namespace

class TstJsonReader : public QObject
{
    Q_OBJECT

private slots:
    void kinds_data()
    {
        // flag: -1: the fallback
        const Rows<QByteArray, QString, qint64, int> row{"json", "text", "integer", "flag"};

        const QString no = QStringLiteral("none");
        row("missing", R"({})", no, qint64(-7), -1);
        row("null", R"({"k":null})", no, qint64(-7), -1);
        row("number", R"({"k":3})", "3", qint64(3), -1);
        row("number in text", R"({"k":"3"})", "3", qint64(3), -1);
        row("blanks", R"({"k":" 10002 "})", " 10002 ", qint64(10002), -1);
        row("word", R"({"k":"three"})", "three", qint64(-7), -1);
        row("empty text", R"({"k":""})", "", qint64(-7), -1);
        row("true", R"({"k":true})", "true", qint64(1), 1);
        row("true in text", R"({"k":"True"})", "True", qint64(-7), 1);
        row("one", R"({"k":1})", "1", qint64(1), 1);
        row("zero in text", R"({"k":"0"})", "0", qint64(0), 0);
        row("false", R"({"k":false})", "false", qint64(0), 0);
        row("whole real", R"({"k":3.0})", "3", qint64(3), -1);
        row("fraction", R"({"k":2.5})", "2.5", qint64(-7), -1);
        row("beyond a double", R"({"k":9007199254740993})", "9007199254740993",
            qint64(9007199254740993), -1);
        row("beyond 63 bits", R"({"k":18446744073709551615})", "18446744073709551615", qint64(-7),
            -1);
        row("huge real", R"({"k":1e300})", "1e+300", qint64(-7), -1);
        row("array", R"({"k":[1]})", no, qint64(-7), -1);
        row("object", R"({"k":{"k":1}})", no, qint64(-7), -1);
        row("Chinese", "{\"k\":\"李雷\"}", QString::fromUtf8("李雷"), qint64(-7), -1);
        row("NUL inside", R"({"k":"a\u0000b"})", "ab", qint64(-7), -1);
        row("half a pair", R"({"k":"a\ud83d"})", QString::fromUtf8("a\uFFFD"), qint64(-7), -1);
        row("halves and a pair", R"({"k":"\ud83dz\ude00\ud83d\ude00\\ud83d"})",
            QString::fromUtf8("\uFFFDz\uFFFD😀\\ud83d"), qint64(-7), -1);
        row("last of two", R"({"k":1,"k":2})", "2", qint64(2), -1);
    }

    void kinds()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, text);
        QFETCH(qint64, integer);
        QFETCH(int, flag);
        const Json::Value root = parsed(json);
        QCOMPARE(JsonReader::text(root, "k", QStringLiteral("none")), text);
        QCOMPARE(JsonReader::integer(root, "k", -7), integer);
        QCOMPARE(JsonReader::flag(root, "k", false), flag == 1);
        QCOMPARE(JsonReader::flag(root, "k", true), flag != 0);
    }

    void refused_data()
    {
        const Rows<QByteArray> row{"json"};
        row("nothing", QByteArray());
        row("page", "<html></html>");
        row("number", "5");
        row("array", "[]");
        row("text", "\"x\"");
        row("behind the object", "{} junk");
        row("cut off", R"({"org":[{"orgId":"1")");
        row("a hundred thousand arrays", QByteArray("{\"a\":") + QByteArray(100000, '['));
        row("a hundred thousand objects", QByteArray("{\"a\":").repeated(100000));
    }

    void refused()
    {
        QFETCH(QByteArray, json);
        Json::Value root(Json::arrayValue);
        QString error;
        QVERIFY(!JsonReader::parse(json, &root, &error));
        QVERIFY(!error.isEmpty());
        // What was read before the fault is not used by mistake.
        QVERIFY(root.isObject() && root.empty());
    }

    void deepButAllowed()
    {
        const QByteArray depth = QByteArray("[").repeated(100) + QByteArray("]").repeated(100);
        QVERIFY(parsed("{\"a\":" + depth + '}').isMember("a"));
    }

    void byteOrderMarkIsSkipped()
    {
        QCOMPARE(JsonReader::integer(parsed("\xef\xbb\xbf{\"k\":4}"), "k"), qint64(4));
    }

    void membersOfWhatHasNone()
    {
        const Json::Value root = parsed(R"({"list":[{"k":1},5],"one":{"k":2},"n":3,"none":null})");
        QCOMPARE(JsonReader::array(root, "list").size(), 2u);
        QVERIFY(JsonReader::array(root, "one").isArray());
        QVERIFY(JsonReader::array(root, "one").empty());
        QVERIFY(JsonReader::object(root, "list").isObject());
        QCOMPARE(JsonReader::integer(JsonReader::object(root, "one"), "k"), qint64(2));
        const Json::Value &number = JsonReader::array(root, "list")[1];
        QCOMPARE(JsonReader::text(number, "k", QStringLiteral("-")), QStringLiteral("-"));
        QVERIFY(!JsonReader::has(number, "k"));
        QVERIFY(JsonReader::has(root, "n"));
        QVERIFY(!JsonReader::has(root, "none"));
    }
};

FRIENDUI_TEST(TstJsonReader)
#include "tst_jsonreader.moc"
