// Reading and writing bodies; the examples are those of the documentation.
#include "messages/messagebody.h"
#include "tests/support/testrunner.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

QStringList examples()
{
    QFile file(qEnvironmentVariable("FRIENDUI_DOCS") + QStringLiteral("/message-bodies.md"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    static const QRegularExpression block(QStringLiteral("```json\n(.*?)\n```"),
                                          QRegularExpression::DotMatchesEverythingOption);
    QStringList found;
    for (auto match = block.globalMatch(text); match.hasNext();)
        found.append(match.next().captured(1));
    return found;
}

QString objectOf(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

// What whoever shows a message may rely on.
bool isHarmless(const MessageBody &message, int depth = 0)
{
    const bool isNamed =
        message.kind != MessageBody::File || !message.name.contains(QLatin1Char('/'));
    bool partsAre = message.parts.size() <= MessageBody::MaximumParts &&
                    message.parts.size() <= message.partCount && depth <= MessageBody::MaximumDepth;
    for (const MessageBody &part : message.parts)
        partsAre = partsAre && isHarmless(part, depth + 1);
    return isNamed && partsAre && message.size >= 0 && message.seconds >= 0 &&
           qAbs(message.latitude) <= 90 && qAbs(message.longitude) <= 180 &&
           (message.url.isEmpty() || message.url.startsWith(QLatin1String("http")));
}

MessageBody textBody(const QString &text)
{
    MessageBody message;
    message.text = text;
    return message;
}

MessageBody nested(int levels)
{
    MessageBody message;
    message.kind = MessageBody::Merged;
    message.title = QString::number(levels);
    if (levels > 0)
        message.parts.append(nested(levels - 1));
    return message;
}

} // namespace

class TstMessageBody : public QObject
{
    Q_OBJECT

private slots:
    void everyKindHasAnExample()
    {
        QVector<int> kinds;
        const QStringList all = examples();
        for (const QString &example : all)
            kinds.append(readMessageBody(example).kind);
        QCOMPARE(kinds, (QVector<int>{MessageBody::Text, MessageBody::Picture, MessageBody::File,
                                      MessageBody::Voice, MessageBody::Location, MessageBody::Link,
                                      MessageBody::Merged, MessageBody::Service,
                                      MessageBody::WorkGroup, MessageBody::Recalled}));
    }

    // Nothing of an example is lost on the way through a record.
    void examplesSurvive()
    {
        const QStringList all = examples();
        for (const QString &example : all) {
            const QString written = writeMessageBody(readMessageBody(example));
            QCOMPARE(writeMessageBody(readMessageBody(written)), written);
            if (readMessageBody(example).kind == MessageBody::Text)
                continue; // wrapped only where needed
            QJsonObject expected = QJsonDocument::fromJson(example.toUtf8()).object();
            QJsonArray parts = expected.value(QStringLiteral("parts")).toArray();
            for (int i = 0; i < parts.size(); ++i) {
                QJsonObject part = parts.at(i).toObject();
                if (!part.contains(QStringLiteral("type")))
                    part.insert(QStringLiteral("type"), QStringLiteral("text"));
                parts[i] = part;
            }
            if (!parts.isEmpty())
                expected.insert(QStringLiteral("parts"), parts);
            QCOMPARE(QJsonDocument::fromJson(written.toUtf8()).object(), expected);
        }
    }

    void textSurvives_data()
    {
        const Rows<QString, bool> row{"text", "asItStands"};
        row("empty", QString(), true);
        row("plain", QString::fromUtf8("早上好\n second line "), true);
        row("a brace", QStringLiteral("{"), true);
        row("an object without a kind", QStringLiteral("{\"a\": 1}"), true);
        row("a kind that is no text", QStringLiteral("{\"type\": 5}"), true);
        row("an empty kind", QStringLiteral("{\"type\": \"\"}"), true);
        row("an array", QStringLiteral("[{\"type\": \"text\"}]"), true);
        row("more behind the object", QStringLiteral("{\"type\": \"file\"} see above"), true);
        row("a blank before the object", QStringLiteral(" {\"type\": \"file\"}"), true);
        row("looks like a file", QStringLiteral("{\"type\": \"file\", \"name\": \"x\"}"), false);
        row("looks like a text", QStringLiteral("{\"type\":\"text\",\"text\":\"\\\"\"}"), false);
        row("of no known kind", QStringLiteral("{\"type\": \"\\u00e9\"}"), false);
        row("nested too deep",
            QStringLiteral("{\"type\":\"x\",\"a\":") + QString(50000, QLatin1Char('[')), true);
        const QString padding(MessageBody::MaximumObject, QLatin1Char('m'));
        row("a megabyte", QString(1 << 20, QLatin1Char('{')), true);
        row("an object too long",
            QStringLiteral("{\"type\":\"text\",\"text\":\"%1\"}").arg(padding), true);
    }

    void textSurvives()
    {
        QFETCH(QString, text);
        QFETCH(bool, asItStands);
        const QString body = writeMessageBody(textBody(text));
        QCOMPARE(body == text, asItStands);
        const MessageBody read = readMessageBody(body);
        QCOMPARE(read.kind, MessageBody::Text);
        QCOMPARE(read.text, text);
    }

    // It has no room in an object, but must not be taken for a file.
    void textWithoutRoomInAnObject()
    {
        const QString text = QStringLiteral("{\"type\":\"file\",\"name\":\"%1\"}")
                                 .arg(QString(MessageBody::MaximumObject - 40, QLatin1Char('m')));
        QCOMPARE(readMessageBody(text).kind, MessageBody::File);
        const MessageBody read = readMessageBody(writeMessageBody(textBody(text)));
        QCOMPARE(read.kind, MessageBody::Text);
        QCOMPARE(read.text.trimmed(), text);
    }

    void cutOff()
    {
        const QStringList all = examples();
        for (const QString &example : all) {
            const QByteArray bytes = example.toUtf8();
            for (int length = 0; length < bytes.size(); ++length) {
                const QString body = QString::fromUtf8(bytes.left(length));
                const MessageBody read = readMessageBody(body);
                QCOMPARE(read.kind, MessageBody::Text);
                QCOMPARE(read.text, body);
            }
        }
    }

    void membersOfOtherKinds()
    {
        const QVector<QJsonValue> values{
            QJsonValue(),
            true,
            -1,
            1e300,
            2147483648.0,
            QStringLiteral("nan"),
            QStringLiteral("-7"),
            QStringLiteral("../../etc/passwd"),
            QJsonArray{1, "a", QJsonArray{}, QJsonObject{}},
            QJsonObject{{QStringLiteral("type"), QStringLiteral("merged")}}};
        const QStringList all = examples();
        const QStringList members{QStringLiteral("count"), QStringLiteral("type")};
        for (const QString &example : all) {
            const QJsonObject good = QJsonDocument::fromJson(example.toUtf8()).object();
            const QStringList keys = good.keys() + members;
            for (const QString &key : keys) {
                for (const QJsonValue &value : values) {
                    QJsonObject spoiled = good;
                    spoiled.insert(key, value);
                    const MessageBody read = readMessageBody(objectOf(spoiled));
                    QVERIFY2(isHarmless(read), qPrintable(objectOf(spoiled)));
                    if (key != QLatin1String("type"))
                        QCOMPARE(read.kind, readMessageBody(example).kind);
                }
            }
        }
    }

    void numbersAsTexts()
    {
        const MessageBody read = readMessageBody(
            QStringLiteral("{\"type\":\"location\",\"name\":7,\"size\":\"12\",\"seconds\":\" 3 \","
                           "\"latitude\":\"1.5\",\"longitude\":-2,\"serviceType\":\"-4\"}"));
        QCOMPARE(read.name, QStringLiteral("7"));
        QCOMPARE(read.size, qint64(12));
        QCOMPARE(read.seconds, 3);
        QCOMPARE(read.latitude, 1.5);
        QCOMPARE(read.longitude, -2.0);
        QCOMPARE(read.serviceType, -4);
    }

    void addresses_data()
    {
        const Rows<QString, QString> row{"url", "kept"};
        row("https", "https://a.example/x?y=1#z", "https://a.example/x?y=1#z");
        row("capitals", "HTTPS://A.example/x", "https://a.example/x");
        row("turned around", QStringLiteral(u"https://a.example/\u202egnp.exe"),
            "https://a.example/%E2%80%AEgnp.exe");
        for (const char *refused :
             {"file:///etc/passwd", "javascript:alert(1)", "smb://host/share", "//host/share",
              "\\\\host\\share", "http:relative", "http:///x", "https://bank.example@evil.example/",
              "https://a.example/ x\n", "data:text/html,x", "veltra:x"})
            row(refused, QString::fromLatin1(refused), QString());
        row("too long", QStringLiteral("https://a.example/") + QString(2048, QLatin1Char('x')),
            QString());
    }

    void addresses()
    {
        QFETCH(QString, url);
        QFETCH(QString, kept);
        const QJsonObject link{{QStringLiteral("type"), QStringLiteral("link")},
                               {QStringLiteral("url"), url}};
        const MessageBody read = readMessageBody(objectOf(link));
        QCOMPARE(read.kind, MessageBody::Link);
        QCOMPARE(read.url, kept);
        // Nor does the own side send any other.
        MessageBody message = read;
        message.url = url;
        QCOMPARE(readMessageBody(writeMessageBody(message)).url, kept);
    }

    void fileNames_data()
    {
        const Rows<QString, QString> row{"name", "kept"};
        row("a name", "plan v2.pdf", "plan v2.pdf");
        row("a path", "../../.ssh/authorized_keys", "authorized_keys");
        row("a Windows path", "C:\\Windows\\x.exe", "x.exe");
        row("only a folder", "/tmp/", QString());
        row("the folder above", "a/..", QString());
    }

    void fileNames()
    {
        QFETCH(QString, name);
        QFETCH(QString, kept);
        const QJsonObject file{{QStringLiteral("type"), QStringLiteral("file")},
                               {QStringLiteral("name"), name}};
        QCOMPARE(readMessageBody(objectOf(file)).name, kept);
    }

    void unknownKind()
    {
        const QString body = QStringLiteral("{\"text\":\"a poll\",\"type\":\"poll\"}");
        const MessageBody read = readMessageBody(body);
        QCOMPARE(read.kind, MessageBody::Unknown);
        QCOMPARE(read.unknownKind, QStringLiteral("poll"));
        QCOMPARE(read.text, QStringLiteral("a poll"));
        QCOMPARE(writeMessageBody(read), body);
    }

    void partsOfOtherKinds()
    {
        const MessageBody read = readMessageBody(QStringLiteral(
            "{\"type\":\"merged\",\"parts\":[\"{\\\"type\\\":\\\"file\\\"}\",1,null,[],"
            "{\"text\":\"b\",\"sender\":\"S\"},{\"type\":\"poll\"}]}"));
        QCOMPARE(read.partCount, 6);
        QCOMPARE(read.parts.size(), 3);
        QCOMPARE(read.parts.at(0).kind, MessageBody::Text);
        QCOMPARE(read.parts.at(0).text, QStringLiteral("{\"type\":\"file\"}"));
        QCOMPARE(read.parts.at(1).sender, QStringLiteral("S"));
        QCOMPARE(read.parts.at(2).kind, MessageBody::Unknown);
    }

    void tooManyParts()
    {
        MessageBody message;
        message.kind = MessageBody::Merged;
        message.parts.fill(textBody(QStringLiteral("x")), 1000);
        const MessageBody read = readMessageBody(writeMessageBody(message));
        QCOMPARE(read.parts.size(), int(MessageBody::MaximumParts));
        QCOMPARE(read.partCount, 1000);
        // A client without limits writes them all.
        QJsonArray parts;
        for (int i = 0; i < 1000; ++i)
            parts.append(QStringLiteral("x"));
        const MessageBody all =
            readMessageBody(objectOf({{QStringLiteral("type"), QStringLiteral("merged")},
                                      {QStringLiteral("parts"), parts}}));
        QCOMPARE(all.parts.size(), int(MessageBody::MaximumParts));
        QCOMPARE(all.partCount, 1000);
    }

    void mergedInEachOther()
    {
        for (const QString &body :
             {writeMessageBody(nested(30)),
              QStringLiteral("{\"type\":\"merged\",\"parts\":[").repeated(60) +
                  QStringLiteral("]}").repeated(60)}) {
            MessageBody read = readMessageBody(body);
            int depth = 0;
            for (; !read.parts.isEmpty(); ++depth) {
                const MessageBody part = read.parts.first();
                read = part;
            }
            QCOMPARE(depth, int(MessageBody::MaximumDepth));
            QCOMPARE(read.kind, MessageBody::Merged);
            QCOMPARE(read.partCount, 1);
        }
    }

    // What is too long for an object loses its end, not its kind.
    void shortened_data()
    {
        const Rows<int, int> row{"parts", "length"};
        row("many parts", 200, 1000);
        row("one long part", 1, 1 << 20);
        row("long parts", 3, 1 << 20);
        row("no parts", 0, 1 << 20);
    }

    void shortened()
    {
        QFETCH(int, parts);
        QFETCH(int, length);
        MessageBody message;
        message.kind = MessageBody::Merged;
        message.title = QStringLiteral("title");
        message.text = parts ? QString() : QString(length, QChar(1)); // six characters each
        message.parts.fill(textBody(QString(length, QLatin1Char('m'))), parts);
        const QString body = writeMessageBody(message);
        QVERIFY(body.size() <= MessageBody::MaximumObject);
        const MessageBody read = readMessageBody(body);
        QCOMPARE(read.kind, MessageBody::Merged);
        QCOMPARE(read.title, message.title);
        QCOMPARE(read.partCount, parts);
        QVERIFY(!parts == read.parts.isEmpty());
    }
};

FRIENDUI_TEST(TstMessageBody)
#include "tst_messagebody.moc"
