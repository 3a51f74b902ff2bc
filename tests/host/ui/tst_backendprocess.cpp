// Starting the back end beside the host, and what happens when it does not do as
// it should.
#include "host/backendprocess.h"
#include "host/serviceaddressfile.h"

#include "common/settingsfile.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

// The line of the program; CA and PW stand for files that are there.
QByteArray line(const char *address, const char *caFile, const char *passwordFile)
{
    return QByteArray("{\"address\":\"") + address + "\",\"caFile\":\"" + caFile +
           "\",\"passwordFile\":\"" + passwordFile + "\"}";
}

struct Bench
{
    QTemporaryDir folder;
    BackendProcess::Options options;

    explicit Bench(const char *mode, int timeout = 30000)
    {
        options.program = QStringLiteral(FRIENDUI_FAKE_BACKEND);
        options.dataFolder = folder.path();
        options.readyTimeout = timeout;
        writeFile(folder.filePath(QStringLiteral("mode")), mode);
        writeFile(folder.filePath(QStringLiteral("ca.pem")), "a certificate");
        writeFile(folder.filePath(QStringLiteral("password")), "s3cret\n");
    }
    QByteArray left(const char *name) const
    {
        return contentOf(folder.filePath(QLatin1String(name)));
    }
};

} // namespace

class TstBackendProcess : public QObject
{
    Q_OBJECT

private slots:
    void servesAndEndsWithTheHost()
    {
        Bench bench("serves");
        bench.options.people = 1234;
        bench.options.controlPort = 0;
        {
            BackendProcess process(bench.options);
            QSignalSpy ready(&process, &BackendProcess::ready);
            process.start();
            QCOMPARE(ready.count(), 0);
            QVERIFY(ready.wait(30000));
            QCOMPARE(process.address().address, QStringLiteral("https://127.0.0.1:40123"));
            QCOMPARE(process.address().password, QStringLiteral("s3cret"));
            QCOMPARE(process.address().caFile, bench.folder.filePath(QStringLiteral("ca.pem")));
            const QByteArray arguments = bench.left("arguments");
            QVERIFY(arguments.contains("--people\n1234\n"));
            QVERIFY(arguments.contains("--control-port\n0\n"));
            QVERIFY(arguments.contains("--end-with-stdin\n"));
            process.start(); // runs already
            QCOMPARE(bench.left("starts").trimmed(), QByteArray("1"));
        }
        QCOMPARE(bench.left("ended"), QByteArray("yes"));
    }

    void aProgramThatDoesNotServe_data()
    {
        const Rows<QByteArray, int, QString> row{"mode", "timeout", "told"};
        row("writes something else", "garbage", 30000, "address");
        row("writes without end", "flood", 30000, "address");
        row("offers no encryption", "plain", 30000, "encryption");
        row("never answers", "silent", 200, "0.2 s");
        row("finds its port in use", "refuses", 30000, "code 4. the port 443 is in use");
    }
    void aProgramThatDoesNotServe()
    {
        QFETCH(QByteArray, mode);
        QFETCH(int, timeout);
        QFETCH(QString, told);
        const Bench bench(mode.constData(), timeout);
        BackendProcess process(bench.options);
        QSignalSpy failed(&process, &BackendProcess::failed);
        const QSignalSpy ready(&process, &BackendProcess::ready);
        const QSignalSpy restarting(&process, &BackendProcess::restarting);
        process.start();
        QVERIFY(failed.wait(30000));
        const QString reason = failed.first().first().toString();
        QVERIFY2(reason.contains(told), qPrintable(reason));
        QVERIFY(!process.isRunning());
        // Another attempt, by the user: it fails the same way, not otherwise.
        process.start();
        QVERIFY(failed.wait(30000));
        QCOMPARE(failed.at(1).first().toString(), reason);
        QCOMPARE(ready.count(), 0);
        QCOMPARE(restarting.count(), 0);
    }

    void aMissingProgramIsNamed()
    {
        Bench bench("serves");
        bench.options.program = QStringLiteral("/nonexistent/friendui-backend");
        BackendProcess process(bench.options);
        QSignalSpy failed(&process, &BackendProcess::failed);
        process.start();
        QCOMPARE(failed.count(), 0); // never inside the call
        QVERIFY(failed.wait(30000));
        QVERIFY(failed.first().first().toString().contains(bench.options.program));
    }

    void aCrashIsMendedOnce_data()
    {
        const Rows<QByteArray, int, int> row{"mode", "served", "failures"};
        row("that does not happen again", "crashesonce", 2, 0);
        row("that happens again", "crashes", 2, 1);
    }
    void aCrashIsMendedOnce()
    {
        QFETCH(QByteArray, mode);
        QFETCH(int, served);
        QFETCH(int, failures);
        const Bench bench(mode.constData());
        BackendProcess process(bench.options);
        const QSignalSpy ready(&process, &BackendProcess::ready);
        const QSignalSpy restarting(&process, &BackendProcess::restarting);
        const QSignalSpy failed(&process, &BackendProcess::failed);
        process.start();
        QTRY_COMPARE_WITH_TIMEOUT(ready.count(), served, 30000);
        QTRY_COMPARE_WITH_TIMEOUT(failed.count(), failures, 30000);
        QCOMPARE(restarting.count(), 1);
        QCOMPARE(bench.left("starts").trimmed(), QByteArray("2"));
        QCOMPARE(process.isRunning(), failures == 0);
    }

    void oneThatDoesNotEndIsKilled()
    {
        const Bench bench("deaf");
        BackendProcess process(bench.options);
        QSignalSpy ready(&process, &BackendProcess::ready);
        const QSignalSpy failed(&process, &BackendProcess::failed);
        process.start();
        QVERIFY(ready.wait(30000));
        const auto *child = process.findChild<QProcess *>();
        QVERIFY(child);
        process.stop();
        QCOMPARE(child->state(), QProcess::NotRunning);
        QCOMPARE(failed.count(), 0);
    }

    void theAddressLine_data()
    {
        const Rows<QByteArray, bool> row{"told", "usable"};
        row("as promised", line("https://127.0.0.1:1", "<CA>", "<PW>"), true);
        row("no certificate", line("https://127.0.0.1:1", "no", "<PW>"), false);
        row("no password", line("https://127.0.0.1:1", "<CA>", "no"), false);
        row("no host", line("https://", "<CA>", "<PW>"), false);
        row("a number", "{\"address\":7}", false);
        row("a list", "[]", false);
        row("nothing", QByteArray(), false);
    }
    void theAddressLine()
    {
        QFETCH(QByteArray, told);
        QFETCH(bool, usable);
        const Bench bench("serves");
        told.replace("<CA>", QFile::encodeName(bench.folder.filePath(QStringLiteral("ca.pem"))));
        told.replace("<PW>", QFile::encodeName(bench.folder.filePath(QStringLiteral("password"))));
        BackendAddress address;
        QString problem;
        QCOMPARE(BackendProcess::readAddress(told, &address, &problem), usable);
        QCOMPARE(problem.isEmpty(), usable);
        QCOMPARE(address.address.isEmpty(), !usable);
    }

    void addressesAreWrittenAndTakenBack_data()
    {
        const Rows<QString, QString> row{"folder", "base"};
        row("plain", "data", "https://127.0.0.1:40123");
        row("a folder with signs", QString::fromUtf8("数据; a,b [c] %41 'd'"),
            "https://127.0.0.1:40123");
        row("an address with signs", "data",
            QString::fromUtf8("https://im.corp.example:8443/a,b;c%2Fd=e/网"));
    }
    void addressesAreWrittenAndTakenBack()
    {
        QFETCH(QString, folder);
        QFETCH(QString, base);
        const QTemporaryDir root;
        const QString file = ServiceAddressFile::in(root.filePath(folder));
        QVERIFY(QDir().mkpath(root.filePath(folder)));
        writeFile(file, "[mine]\nkey=https://own.example/x\n");
        QString problem;
        QVERIFY2(ServiceAddressFile::write(file, base, &problem), qPrintable(problem));
        const SettingsFile written(file);
        for (const char *host : {"center", "ids", "vcs", "monitor", "web"})
            QCOMPARE(written.text(QLatin1String("/Hosts/") + QLatin1String(host)), base);
        QCOMPARE(written.text(QStringLiteral("/searchOrg/searchorgurl")),
                 base + QLatin1String("/center/org/searchOrg.do"));
        QCOMPARE(written.text(QStringLiteral("/mine/key")),
                 QStringLiteral("https://own.example/x"));

        ServiceAddressFile::clear(file);
        const QByteArray left = contentOf(file);
        QVERIFY2(!left.contains("center") && left.contains("own.example"), left.constData());
    }

    void anAddressFileThatCannotBeWritten()
    {
        const QTemporaryDir folder;
        const QString file = ServiceAddressFile::in(folder.path());
        QVERIFY(QDir().mkpath(file)); // a folder stands in its place
        QString problem;
        QVERIFY(!ServiceAddressFile::write(file, QStringLiteral("https://x"), &problem));
        QVERIFY(problem.contains(file));
    }
};

FRIENDUI_TEST(TstBackendProcess)
#include "tst_backendprocess.moc"
