// Uploads and downloads, whole and in parts, the honest and the other ones.
#include "tests/backend/runningbackend.h"
#include "tests/support/testrunner.h"

#include <QBuffer>
#include <QDir>
#include <QImage>

#include <set>
#include <thread>

namespace {
constexpr char Upload[] = "/center/im/uploadFile.do";
constexpr char Download[] = "/center/im/downloadFile.do?name=";
constexpr int Megabyte = 1024 * 1024;

QByteArray picture(const char *format, int side = 32)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

// A picture of few bytes that claims to be a large one.
QByteArray claiming(quint32 side)
{
    QByteArray bytes = picture("BMP");
    for (int i = 0; i < 4; ++i) {
        bytes[18 + i] = char(side >> (8 * i));
        bytes[22 + i] = char(side >> (8 * i));
    }
    return bytes;
}

WebClient::Fields head(const QByteArray &content)
{
    return {{"type", "head"}, {"md5", md5Of(content)}};
}

// One after the other, in parts of this size.
Answer uploadInParts(WebClient *client, const QByteArray &content, int partSize,
                     const std::string &announcedMd5, int leaveOut = 0)
{
    const Answer begun =
        client->post("/center/im/getObjectId.do", {{"fileName", "../a b/Plan.PDF"},
                                                   {"fileSize", std::to_string(content.size())},
                                                   {"md5", announcedMd5}});
    const std::string id = begun.json["result"]["objectId"].asString();
    int number = 0;
    for (int at = 0; at < content.size(); at += partSize) {
        const QByteArray part = content.mid(at, partSize);
        if (++number == leaveOut)
            continue;
        const Answer added = client->upload(
            "/center/im/uploadMultipart.do",
            {{"objectId", id}, {"partNumber", std::to_string(number)}, {"md5", md5Of(part)}}, part);
        if (added.json["SNRetCode"] != "0")
            return added;
    }
    return client->post("/center/im/uploadMultipartComplete.do",
                        {{"objectId", id}, {"parts", std::to_string(number)}});
}
} // namespace

class TstFiles : public QObject
{
    Q_OBJECT

private:
    RunningBackEnd m_backEnd;
    std::unique_ptr<WebClient> m_client;

private slots:
    void init()
    {
        m_client = std::make_unique<WebClient>(*m_backEnd);
        m_client->logIn(*m_backEnd, QStringLiteral("u000002"));
    }

    void headBecomesThePicture()
    {
        const QByteArray content = picture("JPG");
        const Answer answer = m_client->upload(Upload, head(content), content);
        QCOMPARE(answer.json["SNRetCode"].asString(), std::string("0"));
        const std::string name = answer.json["result"]["fileName"].asString();
        QVERIFY(QString::fromStdString(name).startsWith(QLatin1String("u000002_")));
        QVERIFY(QString::fromStdString(name).endsWith(QLatin1String(".jpg")));
        m_backEnd.restart(); // it is kept
        init();
        const Answer file = m_client->get(Download + name);
        QCOMPARE(file.status, 200);
        QCOMPARE(QByteArray::fromStdString(file.body), content);
        const Answer found =
            m_client->post("/center/org/fuzzySearchOrg.do", {{"searchText", "u000002"},
                                                             {"containOrg", "false"},
                                                             {"pageNo", "1"},
                                                             {"pageSize", "1"}});
        QCOMPARE(found.json["data"]["userList"][0]["photoName"].asString(), name);
    }

    void ownPicture_data()
    {
        // "#": uploaded by himself, "*": by somebody else, who is told of it.
        const Rows<QString, int> row{"name", "code"};
        row("uploaded", "#", 0);
        row("another's", "*", 10001);
        row("first of the system's", "1.png", 0);
        row("last of the system's", "24.png", 0);
        row("beyond the last", "25.png", 10001);
        row("zero", "0.png", 10001);
        row("written otherwise", "01.png", 10001);
        row("somewhere else", "../1.png", 10001);
        row("somebody's drawn one", "u000003.png", 10001);
        row("none", "", 0);
    }
    void ownPicture()
    {
        QFETCH(QString, name);
        WebClient other(*m_backEnd);
        other.logIn(*m_backEnd, QStringLiteral("x000001"));
        const auto uploaded = [](WebClient *client) {
            const QByteArray content = picture("PNG");
            const Answer answer = client->upload(Upload, head(content), content);
            return QString::fromStdString(answer.json["result"]["fileName"].asString());
        };
        name.replace('*', uploaded(&other)).replace('#', uploaded(m_client.get()));
        uploaded(m_client.get()); // the picture until now
        const auto photo = [this] {
            return m_client
                ->post("/center/org/fuzzySearchOrg.do", {{"searchText", "u000002"},
                                                         {"containOrg", "false"},
                                                         {"pageNo", "1"},
                                                         {"pageSize", "1"}})
                .json["data"]["userList"][0]["photoName"]
                .asString();
        };
        const auto events = [&other](const std::string &since) {
            return other.post("/center/event/getEvents.do", {{"since", since}}).json["data"];
        };
        const std::string before = photo(), since = events("")["next"].asString();
        const std::string chosen = name.toStdString();
        const int code = m_client->post("/center/user/setPhoto.do", {{"photoName", chosen}}).code();
        QTEST(code, "code");
        QCOMPARE(photo(), code == 0 ? chosen : before);
        const Json::Value told = events(since)["events"];
        QCOMPARE(told.size(), code == 0 ? 1u : 0u);
        const std::string next = events(since)["next"].asString();
        m_client->post("/center/user/setPhoto.do", {{"photoName", chosen}});
        QCOMPARE(events(since)["next"].asString(), next); // it is no news
        if (code == 0) {
            QCOMPARE(told[0]["type"].asString(), std::string("picture"));
            QCOMPARE(told[0]["member"].asString(), std::string("u000002"));
            QCOMPARE(told[0]["photoName"].asString(), chosen);
        }
    }

    void refusedHeads_data()
    {
        // md5: empty: the right one
        const Rows<QByteArray, QString, QString> row{"content", "type", "md5"};
        const QByteArray good = picture("PNG");
        row("wrong md5", good, "head", QString(32, QLatin1Char('0')));
        row("unknown type", good, "../head", "");
        row("no picture", "<svg xmlns='http://www.w3.org/2000/svg'/>", "head", "");
        row("cut off", good.left(good.size() / 2), "head", "");
        row("nothing", QByteArray(), "head", "");
        row("claims many pixels", claiming(8000), "head", "");
        row("claims a long side", claiming(2000000000), "head", "");
        row("too large", good + QByteArray(5 * Megabyte, ' '), "head", "");
        row("far too large", good + QByteArray(20 * Megabyte, ' '), "head", "");
    }
    void refusedHeads()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, type);
        QFETCH(QString, md5);
        const std::string digest = md5.isEmpty() ? md5Of(content) : md5.toStdString();
        const Answer answer =
            m_client->upload(Upload, {{"type", type.toStdString()}, {"md5", digest}}, content);
        QCOMPARE(answer.status, 200);
        QCOMPARE(answer.json["SNRetCode"].asString(), std::string("1"));
        QCOMPARE(answer.json["errorCode"].asString(), std::string("E01"));
        // The connection is fit for the next request.
        QCOMPARE(m_client->get("/httpSampling.gif").status, 200);
    }

    void tooMuchForAnyService()
    {
        const QByteArray content(90 * Megabyte, ' ');
        const Answer answer = m_client->upload(Upload, head(content), content);
        QVERIFY(answer.status == 413 || answer.status == 0); // told, or cut off while sending
        WebClient next(*m_backEnd);
        QCOMPARE(next.get("/httpSampling.gif").status, 200);
    }

    void unknownCallersAreRefused()
    {
        WebClient stranger(*m_backEnd);
        const QByteArray content = picture("PNG");
        const Answer upload = stranger.upload(Upload, head(content), content);
        QCOMPARE(upload.json["SNRetCode"].asString(), std::string("1"));
        QVERIFY(upload.isOverdue());
        const Answer download = stranger.get(std::string(Download) + "u000003.png");
        QCOMPARE(download.status, 403);
        QVERIFY(download.isOverdue());
    }

    void portraits()
    {
        const Answer one = m_client->get(std::string(Download) + "u000003.png");
        QCOMPARE(one.status, 200);
        const QImage image = QImage::fromData(QByteArray::fromStdString(one.body));
        QCOMPARE(image.size(), QSize(256, 256));
        QCOMPARE(m_client->get(std::string(Download) + "u000003.png").body, one.body);
        QVERIFY(m_client->get(std::string(Download) + "u000006.png").body != one.body);
    }

    void namesThatAreNone_data()
    {
        const Rows<QString> row{"name"};
        row("empty", "");
        row("unknown", "u000002_999.png");
        row("without picture", "u000001.png");
        row("parent", "../password");
        row("encoded parent", "..%2Fpassword");
        row("portrait below", "..%2Fportraits%2Fu000003.png");
        row("absolute", "%2Fetc%2Fpasswd");
        row("end of string", "u000003.png%00.txt");
        row("malformed", "%ff");
    }
    void namesThatAreNone()
    {
        QFETCH(QString, name);
        m_client->get(std::string(Download) + "u000003.png"); // now it is on the disk
        QCOMPARE(m_client->get(Download + name.toStdString()).status, 404);
    }

    void inParts()
    {
        QByteArray content(5 * Megabyte + 17, '\0');
        for (int i = 0; i < content.size(); ++i)
            content[i] = char(i * 31 + i / 4096);
        const Answer answer = uploadInParts(m_client.get(), content, Megabyte, md5Of(content));
        QCOMPARE(answer.json["SNRetCode"].asString(), std::string("0"));
        const std::string name = answer.json["result"]["fileName"].asString();
        QVERIFY(QString::fromStdString(name).endsWith(QLatin1String(".pdf")));
        const Answer file = m_client->get(Download + name);
        QCOMPARE(QByteArray::fromStdString(file.body), content);
        QVERIFY(QDir(m_backEnd.folder() + QStringLiteral("/parts"))
                    .entryList(QDir::AllEntries | QDir::NoDotAndDotDot)
                    .isEmpty());
    }

    void incompleteParts()
    {
        const QByteArray content(3000, 'x');
        const Answer gap = uploadInParts(m_client.get(), content, 1000, md5Of(content), 2);
        QCOMPARE(gap.json["errorCode"].asString(), std::string("E01"));
        const Answer other = uploadInParts(m_client.get(), content, 1000, md5Of("other"));
        QCOMPARE(other.json["errorCode"].asString(), std::string("E01"));
    }

    void partsOfOthers()
    {
        const Answer begun = m_client->post(
            "/center/im/getObjectId.do",
            {{"fileName", "a.txt"}, {"fileSize", "10"}, {"md5", md5Of("0123456789")}});
        const std::string id = begun.json["result"]["objectId"].asString();
        const auto add = [&id](WebClient *client, const QByteArray &part, const char *number) {
            return client
                ->upload("/center/im/uploadMultipart.do",
                         {{"objectId", id}, {"partNumber", number}, {"md5", md5Of(part)}}, part)
                .json["SNRetCode"]
                .asString();
        };
        WebClient other(*m_backEnd);
        other.logIn(*m_backEnd, QStringLiteral("u000005"));
        QCOMPARE(add(&other, "0123456789", "1"), std::string("1"));
        QCOMPARE(add(m_client.get(), "0123456789x", "1"), std::string("1")); // more than announced
        QCOMPARE(add(m_client.get(), "01234567", "1"), std::string("0"));
        QCOMPARE(add(m_client.get(), "89x", "2"), std::string("1"));
        QCOMPARE(add(m_client.get(), "89", "0"), std::string("1"));
        QCOMPARE(add(m_client.get(), "012345", "1"), std::string("0")); // sent again
        QCOMPARE(add(m_client.get(), "6789", "2"), std::string("0"));
        const WebClient::Fields complete{{"objectId", id}, {"parts", "2"}};
        QCOMPARE(other.post("/center/im/uploadMultipartComplete.do", complete)
                     .json["SNRetCode"]
                     .asString(),
                 std::string("1"));
        QCOMPARE(m_client->post("/center/im/uploadMultipartComplete.do", complete)
                     .json["SNRetCode"]
                     .asString(),
                 std::string("0"));
        QCOMPARE(add(m_client.get(), "01", "1"), std::string("1")); // it is over
    }

    void unfinishedUploadsAreLimitedAndAborted()
    {
        std::vector<std::string> ids;
        for (;;) {
            const Answer begun =
                m_client->post("/center/im/getObjectId.do",
                               {{"fileName", "a"}, {"fileSize", "10"}, {"md5", md5Of("x")}});
            if (begun.json["SNRetCode"] != "0")
                break;
            ids.push_back(begun.json["result"]["objectId"].asString());
            QVERIFY(ids.size() < 100);
        }
        for (const std::string &id : ids) {
            const WebClient::Fields fields{{"objectId", id}};
            const Answer renewed =
                m_client->post("/center/im/updateUploadMultipartAuth.do", fields);
            QVERIFY(!renewed.json["result"]["token"].asString().empty());
            const char *abort = "/center/im/uploadMultipartAbort.do";
            QCOMPARE(m_client->post(abort, fields).json["SNRetCode"].asString(), std::string("0"));
            QCOMPARE(m_client->post(abort, fields).json["SNRetCode"].asString(), std::string("1"));
        }
    }

    void manyAtOnce()
    {
        constexpr int Clients = 12;
        constexpr int Each = 5;
        std::vector<std::vector<std::string>> names(Clients);
        std::vector<std::thread> threads;
        for (int i = 0; i < Clients; ++i) {
            threads.emplace_back([this, i, &names] {
                WebClient client(*m_backEnd);
                client.logIn(*m_backEnd, QStringLiteral("u00001%1").arg(i % 3));
                for (int n = 0; n < Each; ++n) {
                    const QByteArray content = picture("PNG", 8 + i * Each + n);
                    const Answer answer = client.upload(Upload, head(content), content);
                    const std::string name = answer.json["result"]["fileName"].asString();
                    if (QByteArray::fromStdString(client.get(Download + name).body) == content)
                        names[size_t(i)].push_back(name);
                }
            });
        }
        std::set<std::string> all;
        for (int i = 0; i < Clients; ++i) {
            threads[size_t(i)].join();
            all.insert(names[size_t(i)].begin(), names[size_t(i)].end());
        }
        QCOMPARE(all.size(), size_t(Clients * Each));
    }
};

FRIENDUI_TEST(TstFiles)
#include "tst_files.moc"
