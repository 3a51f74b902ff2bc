// Hosts that share a back end: who starts it, who joins, and what becomes of the others
// when it ends.
#include "host/backendsource.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QTemporaryDir>

namespace {
constexpr int WaitMs = 30000;

// Folders of two hosts and of the back end that either may start.
struct Bench
{
    QTemporaryDir folder;

    explicit Bench(const char *mode)
    {
        for (const char *name : {"one", "two", "backend"})
            QDir(folder.path()).mkpath(QLatin1String(name));
        writeFile(folder.filePath(QStringLiteral("backend/mode")), mode);
        writeFile(folder.filePath(QStringLiteral("backend/ca.pem")), "a certificate");
        writeFile(folder.filePath(QStringLiteral("backend/password")), "s3cret\n");
    }
    BackendSource::Options of(const char *own, const char *other) const
    {
        BackendSource::Options options;
        options.process.program = QStringLiteral(FRIENDUI_FAKE_BACKEND);
        options.process.dataFolder = folder.filePath(QStringLiteral("backend"));
        options.shareIn = folder.filePath(QLatin1String(own));
        options.lookedIn = QStringList{folder.filePath(QLatin1String(other))};
        return options;
    }
    QByteArray starts() const
    {
        return contentOf(folder.filePath(QStringLiteral("backend/starts"))).trimmed();
    }
};
} // namespace

class TstBackendSource : public QObject
{
    Q_OBJECT

private slots:
    void theSecondJoinsAndTakesOver()
    {
        const Bench bench("serves");
        auto one = std::make_unique<BackendSource>(bench.of("one", "two"));
        BackendSource two(bench.of("two", "one"));
        QSignalSpy oneReady(one.get(), &BackendSource::ready);
        QSignalSpy twoReady(&two, &BackendSource::ready);
        const QSignalSpy twoLost(&two, &BackendSource::lost);
        one->start();
        QVERIFY(!one->hasBackend() && oneReady.wait(WaitMs));
        two.start();
        QVERIFY(twoReady.wait(WaitMs));
        QCOMPARE(two.address().address, one->address().address);
        QCOMPARE(two.address().password, QStringLiteral("s3cret"));
        QCOMPARE(bench.starts(), QByteArray("1"));
        one.reset();
        QVERIFY(twoReady.wait(WaitMs));
        QCOMPARE(twoLost.count(), 1);
        QCOMPARE(bench.starts(), QByteArray("2"));
        SharedBackend shared;
        QVERIFY(BackendNotice::read(bench.folder.filePath(QStringLiteral("two")), &shared));
        two.stop();
        QVERIFY(!BackendNotice::read(bench.folder.filePath(QStringLiteral("two")), &shared));
    }

    void whoMayNotStartOneWaits()
    {
        const Bench bench("serves");
        BackendSource::Options options = bench.of("two", "one");
        options.mayStart = false;
        BackendSource two(options);
        QSignalSpy ready(&two, &BackendSource::ready);
        QSignalSpy failed(&two, &BackendSource::failed);
        two.start();
        QVERIFY(failed.wait(WaitMs));
        QCOMPARE(bench.starts(), QByteArray());
        BackendSource one(bench.of("one", "two"));
        one.start();
        QVERIFY(ready.wait(WaitMs));
        QCOMPARE(two.address().address, one.address().address);
        QCOMPARE(failed.count(), 1);
    }

    // Of two hosts that start at once one cannot use the folder; it finds the other.
    void whoComesTooLateJoins()
    {
        const Bench bench("refuses");
        BackendSource two(bench.of("two", "one"));
        QSignalSpy failed(&two, &BackendSource::failed);
        QSignalSpy ready(&two, &BackendSource::ready);
        two.start();
        QVERIFY(failed.wait(WaitMs));
        writeFile(bench.folder.filePath(QStringLiteral("backend/mode")), "silent");
        SharedBackend shared;
        shared.address.address = QStringLiteral("https://127.0.0.1:2");
        shared.address.caFile = bench.folder.filePath(QStringLiteral("backend/ca.pem"));
        shared.address.passwordFile = bench.folder.filePath(QStringLiteral("backend/password"));
        shared.people = 1;
        BackendNotice notice;
        QString problem;
        QVERIFY(notice.publish(bench.folder.filePath(QStringLiteral("one")), shared, &problem));
        two.start();
        QTRY_VERIFY_WITH_TIMEOUT(two.hasBackend(), WaitMs);
        QCOMPARE(two.address().address, shared.address.address);
    }
};

FRIENDUI_TEST(TstBackendSource)
#include "tst_backendsource.moc"
