// Whom the host is started as, and with whose data and back end.
#include "common/platform.h"
#include "host/backendnotice.h"
#include "host/datafolder.h"
#include "host/hostplace.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

struct Settled
{
    HostPlace place;
    HostOptions options;
    QString problem;
    bool ok;

    explicit Settled(const HostOptions &given) : options(given)
    {
        ok = settlePlace(&options, &place, &problem);
    }
};

SharedBackend sharedIn(const QString &folder, int people)
{
    SharedBackend backend;
    backend.address.address = QStringLiteral("https://127.0.0.1:1");
    backend.address.caFile = folder + QLatin1String("/ca.pem");
    backend.address.passwordFile = folder + QLatin1String("/password");
    backend.people = people;
    writeFile(backend.address.caFile, "a certificate");
    writeFile(backend.address.passwordFile, "s3cret\n");
    return backend;
}

} // namespace

class TstHostPlace : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init() { QDir(defaultDataFolder()).removeRecursively(); }
    void cleanupTestCase() { QDir(defaultDataFolder()).removeRecursively(); }

    void everybodyHasAFolderOfTheirOwn()
    {
        const Settled first{HostOptions()};
        QVERIFY2(first.ok, qPrintable(first.problem));
        QCOMPARE(first.place.user, QStringLiteral("u000000"));
        QCOMPARE(first.place.folder, defaultDataFolder());
        HostOptions options;
        options.user = QStringLiteral("x000000");
        const Settled other(options);
        QCOMPARE(other.place.user, QStringLiteral("x000000"));
        QVERIFY(other.place.folder != first.place.folder);
        QCOMPARE(other.place.backendFolder, first.place.backendFolder);
    }

    void aFolderRemembersItsUser()
    {
        const QTemporaryDir folder;
        HostOptions options;
        options.dataFolder = folder.path();
        QString problem;
        QVERIFY(prepareDataFolder(folder.path(), QStringLiteral("u000003"), &problem));
        QCOMPARE(Settled(options).place.user, QStringLiteral("u000003"));
        QVERIFY(Settled(options).place.backendFolder.startsWith(folder.path()));

        options.user = QStringLiteral("u000004");
        const Settled another(options);
        QVERIFY(!another.ok);
        QVERIFY2(another.problem.contains(QLatin1String("u000003")), qPrintable(another.problem));
        options.reset = true;
        QVERIFY(Settled(options).ok);
        QVERIFY(prepareDataFolder(folder.path(), QStringLiteral("u000004"), &problem));
        QCOMPARE(dataFolderUser(folder.path()), QStringLiteral("u000004"));
    }

    void aFolderOfBeforeThereWereUsersIsTheFirstOnes()
    {
        const QTemporaryDir folder;
        QCOMPARE(dataFolderUser(folder.path()), QString());
        writeFile(folder.filePath(QStringLiteral(".friendui-host")), "");
        QCOMPARE(dataFolderUser(folder.path()), QStringLiteral("u000000"));
    }

    void nobodyIsRefused_data()
    {
        const Rows<QString, int> row{"user", "people"};
        row("no uid", "somebody", 300);
        row("behind the last", "u000010", 10);
        row("of no company", "x000020", 300);
    }
    void nobodyIsRefused()
    {
        HostOptions options;
        QFETCH(QString, user);
        options.user = user;
        QFETCH(int, people);
        options.people = people;
        const Settled settled(options);
        QVERIFY(!settled.ok);
        QVERIFY(settled.problem.contains(user));
    }

    void theBackEndOfAnotherHostIsJoined_data()
    {
        const Rows<QString, bool, bool> row{"folder", "named", "joined"};
        row("named", "elsewhere", true, true);
        row("not asked for", "elsewhere", false, false);
        row("of the first user", "default", false, true);
        row("of somebody else", "default/user-u000005", false, true);
    }
    void theBackEndOfAnotherHostIsJoined()
    {
        QFETCH(QString, folder);
        QFETCH(bool, named);
        QFETCH(bool, joined);
        const QTemporaryDir elsewhere;
        folder.replace(QLatin1String("elsewhere"), elsewhere.path())
            .replace(QLatin1String("default"), defaultDataFolder());
        QVERIFY(QDir().mkpath(folder));
        HostOptions options;
        options.joinFolder = named ? folder : QString();
        QCOMPARE(Settled(options).ok, !named); // nobody shares one yet

        BackendNotice notice;
        QString problem;
        QVERIFY2(notice.publish(folder, sharedIn(folder, 40), &problem), qPrintable(problem));
        const Settled settled(options);
        QVERIFY2(settled.ok, qPrintable(settled.problem));
        QCOMPARE(settled.options.people, joined ? 40 : 300);
        QCOMPARE(settled.place.backendsOfOthers.contains(folder), joined);
        QCOMPARE(settled.place.mayStartBackend, !named);

        options.people = 50;
        options.peopleGiven = true;
        QCOMPARE(Settled(options).ok, !joined);
        notice.withdraw();
        QCOMPARE(Settled(options).ok, !named);
    }

    void onlyTheOwnerReadsWhereTheBackEndIs()
    {
        const QTemporaryDir folder;
        BackendNotice notice;
        QString problem;
        QVERIFY(notice.publish(folder.path(), sharedIn(folder.path(), 40), &problem));
        const QString file = folder.filePath(QStringLiteral("backend.json"));
        QVERIFY(Platform::isOwnerOnly(file));
        QVERIFY(!contentOf(file).contains("s3cret"));
        SharedBackend found;
        QVERIFY(BackendNotice::read(folder.path(), &found));
        QCOMPARE(found.address.password, QStringLiteral("s3cret"));
        writeFile(file, "{\"people\":40}");
        QVERIFY(!BackendNotice::read(folder.path(), &found));
        notice.withdraw();
        QVERIFY(!QFile::exists(file));
    }

    void whatAKilledHostLeavesIsNobodys()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("backend.json"));
        BackendNotice notice;
        QString problem;
        QVERIFY(notice.publish(folder.path(), sharedIn(folder.path(), 40), &problem));
        QByteArray left = contentOf(file);
        const QByteArray process = QByteArray::number(QCoreApplication::applicationPid());
        QVERIFY(left.contains("\"process\":" + process));
        left.replace("\"process\":" + process, "\"process\":" + process + "0");
        notice.withdraw();
        writeFile(file, left);
        SharedBackend found;
        QLockFile otherReader(file + QLatin1String(".lock"));
        QVERIFY(otherReader.tryLock(0));
        QVERIFY(!BackendNotice::read(folder.path(), &found));
        otherReader.unlock();
        QVERIFY(!BackendNotice::read(folder.path(), &found));
        QVERIFY(!QFile::exists(file));
    }

    void aBackEndInUseIsNotReset()
    {
        const QTemporaryDir folder;
        const QString own = folder.filePath(QStringLiteral("own"));
        QString problem;
        QVERIFY(prepareDataFolder(own, QStringLiteral("u000000"), &problem));
        QVERIFY(QDir().mkpath(own + QLatin1String("/backend")));
        QLockFile lock(own + QLatin1String("/backend/lock"));
        QVERIFY(lock.tryLock(0));
        QVERIFY(!resetDataFolder(own, &problem));
        lock.unlock();
        QVERIFY2(resetDataFolder(own, &problem), qPrintable(problem));
        QVERIFY(!QFile::exists(own + QLatin1String("/backend")));
    }
};

FRIENDUI_TEST(TstHostPlace)
#include "tst_hostplace.moc"
