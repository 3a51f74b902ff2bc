// Organisation services that mean no good: what they send is neither collected nor
// unpacked nor asked for again, and ends in one failure.
#include "http/cpassportloginserver.h"
#include "org/httporgfun.h"
#include "tests/support/fakehost.h"
#include "tests/support/fakeserver.h"
#include "tests/support/testcertificates.h"
#include "tests/support/testrunner.h"

#include <QFile>
#include <QPointer>
#include <QSignalSpy>
#include <QSslConfiguration>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sys/resource.h>

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

// Of this process so far, in MB.
qint64 mostMemory()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace

class TstOrgHostile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void bombIsNotUnpacked();
    void replies_data();
    void replies();
    void certificates_data();
    void certificates();
    void serviceRestarts();
    void ownerGone();

private:
    void listen(const QSslConfiguration *tls = nullptr);
    // Of the request that is started: its elements and its failures.
    HttpOrgFun *ask();
    int answers() const { return m_elements->size(); }
    int failures() const { return m_failed->size(); }

    std::unique_ptr<FakeHost> m_host;
    std::unique_ptr<CPassportLoginServer> m_passport;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FakeServer> m_server;
    std::unique_ptr<QSignalSpy> m_elements, m_failed;
};

void TstOrgHostile::init()
{
    qRegisterMetaType<OrgElementList>("OrgElementList");
    m_host = std::make_unique<FakeHost>();
    m_passport = std::make_unique<CPassportLoginServer>();
    m_passport->setAuthId(QStringLiteral("secret"));
    m_folder = std::make_unique<QTemporaryDir>();
    m_host->context.programFolder = m_folder->path();
    m_host->context.passportServer = m_passport.get();
    m_host->context.authorities = TestCertificates::authorityFile();
    listen();
}

void TstOrgHostile::cleanup()
{
    m_elements.reset();
    m_failed.reset();
    m_server.reset();
    m_host.reset();
    m_passport.reset();
    m_folder.reset();
}

void TstOrgHostile::listen(const QSslConfiguration *tls)
{
    m_server = tls ? std::make_unique<FakeServer>(*tls) : std::make_unique<FakeServer>();
    QFile file(m_folder->filePath(QStringLiteral("allurl.ini")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QString host = QString::fromLatin1(tls ? "localhost" : "127.0.0.1");
    file.write("[searchOrg]\nsearchorgurl=" +
               m_server->url(QStringLiteral("/org.do"), host).toEncoded() + "\n");
}

HttpOrgFun *TstOrgHostile::ask()
{
    auto *request = new HttpOrgFun(this);
    m_elements = std::make_unique<QSignalSpy>(request, &HttpOrgFun::signal_searchOrgElements);
    m_failed = std::make_unique<QSignalSpy>(request, &HttpOrgFun::searchOrgFail);
    request->searchOrg(QStringLiteral("d1"), QStringLiteral("C1"));
    return request;
}

void TstOrgHostile::bombIsNotUnpacked()
{
    const QByteArray packed = bomb(500);
    m_server->reply("/org.do", {FakeReply::of(200, packed).header("Content-Encoding", "gzip"),
                                FakeReply::of(200, packed)});
    const qint64 before = mostMemory();
    for (int i = 0; i < 2; ++i) {
        const QPointer<HttpOrgFun> request = ask();
        QTRY_VERIFY_WITH_TIMEOUT(!request, Long);
        QCOMPARE(answers(), 0);
    }
    QCOMPARE(m_server->count("/org.do"), 2);
    const qint64 grown = mostMemory() - before;
    QVERIFY2(grown < 200, qPrintable(QString::number(grown)));
}

void TstOrgHostile::replies_data()
{
    QTest::addColumn<QByteArray>("reply");
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    QTest::newRow("64 MB without a length") << ok + "\r\n" + QByteArray(64 * MiB, ' ');
    QTest::newRow("64 MB as announced")
        << ok + "Content-Length: 67108864\r\n\r\n" + QByteArray(64 * MiB, ' ');
    QTest::newRow("many GB") << ok + "Content-Length: 99999999999\r\n\r\n{}";
    QTest::newRow("2,000 headers") << ok + manyHeaders(2000) + "Content-Length: 2\r\n\r\n{}";
    QTest::newRow("one header of 1 MB")
        << ok + "X-Long: " + QByteArray(MiB, 'x') + "\r\nContent-Length: 2\r\n\r\n{}";
}

void TstOrgHostile::replies()
{
    QFETCH(const QByteArray, reply);
    m_server->reply("/org.do", FakeReply::verbatim(reply));
    const QPointer<HttpOrgFun> request = ask();
    QTRY_VERIFY_WITH_TIMEOUT(!request, Long);
    QCOMPARE(m_server->count("/org.do"), 1);
    QCOMPARE(answers(), 0);
    QCOMPARE(failures(), 1);
    // Whoever gets its manager next is served.
    m_server->reply("/org.do", FakeReply::json("{\"org\":[{\"orgId\":\"d2\"}]}"));
    const QPointer<HttpOrgFun> next = ask();
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
    const QSslConfiguration tls = TestCertificates::server(TestCertificates::Kind(kind));
    listen(&tls);
    m_server->reply("/org.do", FakeReply::json("{}"));
    const QPointer<HttpOrgFun> request = ask();
    QTRY_VERIFY_WITH_TIMEOUT(!request, Long);
    QCOMPARE(m_server->count("/org.do"), good ? 1 : 0);
    QCOMPARE(failures(), good ? 0 : 1);
}

void TstOrgHostile::serviceRestarts()
{
    m_server->reply("/org.do", FakeReply::json("{}").onRelease());
    const QPointer<HttpOrgFun> request = ask();
    QTRY_COMPARE(m_server->unanswered(), 1);
    m_server->stop();
    m_server->reply("/org.do", FakeReply::json("{}"));
    m_server->restart();
    QTRY_VERIFY_WITH_TIMEOUT(!request, Long);
    QCOMPARE(m_server->count("/org.do"), 2);
    QCOMPARE(answers(), 1);
}

// Also while the headers have arrived and the body has not.
void TstOrgHostile::ownerGone()
{
    for (const int delay : {0, 50}) {
        m_server->reply("/org.do",
                        FakeReply::of(200, QByteArray(1000, ' ')).trickled(1).after(delay));
        auto owner = std::make_unique<QObject>();
        auto *request = new HttpOrgFun(owner.get());
        const QSignalSpy failed(request, &HttpOrgFun::searchOrgFail);
        request->searchOrg(QStringLiteral("d1"), QStringLiteral("C1"));
        QTRY_COMPARE(m_server->unanswered(), 1);
        owner.reset();
        QTRY_COMPARE(m_server->unanswered(), 0);
        QVERIFY(failed.isEmpty());
    }
    QCOMPARE(m_server->count("/org.do"), 2);
}

FRIENDUI_TEST(TstOrgHostile)
#include "tst_orghostile.moc"
