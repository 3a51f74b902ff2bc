// Organisation services that mean no good: what they send is neither collected nor
// unpacked nor asked for again, and ends in one failure.
#include "tests/org/orgrequestfixture.h"
#include "tests/support/peakmemory.h"
#include "tests/support/testcertificates.h"
#include "tests/support/testrunner.h"

#include <QPointer>

namespace {

constexpr int MiB = 1024 * 1024;
constexpr int Long = 60000; // ms; 64 MB take their time under a sanitizer

QByteArray manyHeaders(int count)
{
    QByteArray headers;
    for (int i = 0; i < count; ++i)
        headers += "X-" + QByteArray::number(i) + ": v\r\n";
    return headers;
}

// Zeros by the hundred million: a literal 0 and then nothing but copies of the 258
// bytes before, which in fixed codes repeat every 13 bytes.
QByteArray bomb(int megabytes)
{
    const auto bitsOf = [](int copies) {
        QVector<bool> bits;
        for (int i = 0; i < copies; ++i) {
            for (const char bit : QByteArray("1100010100000"))
                bits.append(bit == '1');
        }
        return bits;
    };
    const auto pack = [](const QVector<bool> &bits) {
        QByteArray bytes(bits.size() / 8, '\0');
        for (int i = 0; i < bytes.size() * 8; ++i)
            bytes[i / 8] = char(bytes.at(i / 8) | (int(bits.at(i)) << (i % 8)));
        return bytes;
    };
    // Last block, fixed codes, the literal 0, and copies from there on.
    QVector<bool> head{true, true, false};
    for (const char bit : QByteArray("00110000"))
        head.append(bit == '1');
    head += bitsOf(16);
    const QVector<bool> period = head.mid(16, 13 * 8);
    const qint64 copies = qint64(megabytes) * MiB / 258;
    return QByteArray("\x1f\x8b\x08\0\0\0\0\0\0\xff", 10) + pack(head.mid(0, 16)) +
           pack(period).repeated(int(copies / 8));
}

} // namespace

class TstOrgHostile : public OrgRequestFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { tearDown(); }

    void bombIsNotUnpacked();
    void replies_data();
    void replies();
    void certificates_data();
    void certificates();
    void serviceRestarts();
    void ownerGone();

private:
    void serveEncrypted(TestCertificates::Kind kind);
    int answers() const { return signalCounts().at(0); }
    int failures() const { return signalCounts().at(1); }
};

void TstOrgHostile::init()
{
    setUp();
    host->context.authorities = TestCertificates::authorityFile();
}

void TstOrgHostile::serveEncrypted(TestCertificates::Kind kind)
{
    server = std::make_unique<FakeServer>(TestCertificates::server(kind));
    writeAddresses(server->url(QStringLiteral("/org.do"), QStringLiteral("localhost")).toString());
}

void TstOrgHostile::bombIsNotUnpacked()
{
    const QByteArray packed = bomb(500);
    server->reply("/org.do", {FakeReply::of(200, packed).header("Content-Encoding", "gzip"),
                              FakeReply::of(200, packed)});
    const qint64 before = peakMemory();
    QVERIFY(before > 0);
    for (int i = 0; i < 2; ++i) {
        const QPointer<HttpOrgFun> request = start(Children);
        QTRY_VERIFY_WITH_TIMEOUT(!request, Long);
        QCOMPARE(answers(), 0);
    }
    QCOMPARE(server->count("/org.do"), 2);
    const qint64 grown = peakMemory() - before;
    QVERIFY2(grown < 200, qPrintable(QString::number(grown)));
}

void TstOrgHostile::replies_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<bool>("encrypted"); // else headers are read byte by byte, slowly
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    QTest::newRow("64 MB without a length") << ok + "\r\n" + QByteArray(64 * MiB, ' ') << false;
    QTest::newRow("64 MB as announced")
        << ok + "Content-Length: 67108864\r\n\r\n" + QByteArray(64 * MiB, ' ') << false;
    QTest::newRow("many GB") << ok + "Content-Length: 99999999999\r\n\r\n{}" << false;
    QTest::newRow("2,000 headers")
        << ok + manyHeaders(2000) + "Content-Length: 2\r\n\r\n{}" << true;
    QTest::newRow("one header of 1 MB")
        << ok + "X-Long: " + QByteArray(MiB, 'x') + "\r\nContent-Length: 2\r\n\r\n{}" << true;
}

void TstOrgHostile::replies()
{
    QFETCH(const QByteArray, reply);
    QFETCH(const bool, encrypted);
    if (encrypted)
        serveEncrypted(TestCertificates::Proper);
    server->reply("/org.do", FakeReply::verbatim(reply));
    const QPointer<HttpOrgFun> request = start(Children);
    QTRY_VERIFY_WITH_TIMEOUT(!request, Long);
    QCOMPARE(server->count("/org.do"), 1);
    QCOMPARE(answers(), 0);
    QCOMPARE(failures(), 1);
    // Whoever gets its manager next is served.
    server->reply("/org.do", FakeReply::json("{\"org\":[{\"orgId\":\"d2\"}]}"));
    const QPointer<HttpOrgFun> next = start(Children);
    QTRY_VERIFY(!next);
    QCOMPARE(answers(), 1);
}

void TstOrgHostile::certificates_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("good");
    QTest::newRow("proper") << int(TestCertificates::Proper) << true;
    QTest::newRow("self-signed") << int(TestCertificates::SelfSigned) << false;
    QTest::newRow("expired") << int(TestCertificates::Expired) << false;
    QTest::newRow("wrong host") << int(TestCertificates::WrongHost) << false;
}

void TstOrgHostile::certificates()
{
    QFETCH(const int, kind);
    QFETCH(const bool, good);
    serveEncrypted(TestCertificates::Kind(kind));
    server->reply("/org.do", FakeReply::json("{}"));
    const QPointer<HttpOrgFun> request = start(Children);
    QTRY_VERIFY_WITH_TIMEOUT(!request, Long);
    QCOMPARE(server->count("/org.do"), good ? 1 : 0);
    QCOMPARE(failures(), good ? 0 : 1);
}

void TstOrgHostile::serviceRestarts()
{
    server->reply("/org.do", FakeReply::json("{}").onRelease());
    const QPointer<HttpOrgFun> request = start(Children);
    QTRY_COMPARE(server->unanswered(), 1);
    server->stop();
    server->reply("/org.do", FakeReply::json("{}"));
    server->restart();
    QTRY_VERIFY_WITH_TIMEOUT(!request, Long);
    QCOMPARE(server->count("/org.do"), 2);
    QCOMPARE(answers(), 1);
}

// Also while the headers have arrived and the body has not.
void TstOrgHostile::ownerGone()
{
    for (const int delay : {0, 50}) {
        server->reply("/org.do",
                      FakeReply::of(200, QByteArray(1000, ' ')).trickled(1).after(delay));
        auto owner = std::make_unique<QObject>();
        auto *request = new HttpOrgFun(owner.get());
        const QSignalSpy failed(request, &HttpOrgFun::searchOrgFail);
        request->searchOrg(QStringLiteral("d1"), QStringLiteral("C1"));
        QTRY_COMPARE(server->unanswered(), 1);
        owner.reset();
        QTRY_COMPARE(server->unanswered(), 0);
        QVERIFY(failed.isEmpty());
    }
    QCOMPARE(server->count("/org.do"), 2);
}

FRIENDUI_TEST(TstOrgHostile)
#include "tst_orghostile.moc"
