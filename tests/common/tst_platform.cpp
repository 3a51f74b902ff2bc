// What the systems do differently: long paths, rights, locks, files that others hold open.
#include "common/lockfile.h"
#include "common/logfilewriter.h"
#include "common/platform.h"
#include "common/sessionsettings.h"
#include "common/settingsfile.h"
#include "tests/support/files.h"
#include "tests/support/localuser.h"
#include "tests/support/testrunner.h"

#include <QDirIterator>

#ifdef Q_OS_WIN
#include "tests/support/heldfile.h"

#include <thread>
#endif

class TstPlatform : public QObject
{
    Q_OBJECT

private slots:
    void everyKindOfFileIsUsableAndTheOwnersOnly_data()
    {
        const Rows<QString> row{"folder"};
        row("plain", QStringLiteral("data"));
        row("blanks and Chinese", QString::fromUtf8("my data/张三 的 文件"));
        const QString part(100, QLatin1Char('p'));
        row("more than 260 characters", part + '/' + part + QString::fromUtf8("文/") + part);
    }
    void everyKindOfFileIsUsableAndTheOwnersOnly()
    {
        QFETCH(QString, folder);
        LocalUser user;
        user.host.baseFolder = user.folder.filePath(folder);
        const QDir place(user.host.baseFolder);
        QVERIFY(place.mkpath(QStringLiteral("u1")));
        {
            SettingsFile settings(place.filePath(QStringLiteral("s.ini")));
            settings.setValue(QStringLiteral("/a/b"), 7);
            QVERIFY(settings.save());
        }
        QVERIFY(textOf(place.filePath(QStringLiteral("s.ini"))).contains("b=7\n"));

        LogFileWriter log(place.filePath(QStringLiteral("im.log")));
        log.setMaximumFileSize(1);
        log.write(2, QString(), QString(2000, QLatin1Char('m')));
        QVERIFY(QFileInfo(place.filePath(QStringLiteral("im.log.1"))).size() > 2000);

        QVERIFY(SessionSettings::setMuted(QStringLiteral("a@d"), true));
        QVERIFY(SessionSettings::isMuted(QStringLiteral("a@d")));

        int files = 0;
        QDirIterator each(place.path(), QDir::Files, QDirIterator::Subdirectories);
        for (; each.hasNext(); ++files)
            QVERIFY2(Platform::isOwnerOnly(each.next()), qPrintable(each.fileName()));
        QVERIFY(files >= 4);

        const QString lockFile = place.filePath(QStringLiteral("lock"));
        QLockFile lock(lockFile), second(lockFile);
        QVERIFY(tryLockFile(&lock));
        QVERIFY(!tryLockFile(&second));
        LocalDatabase::instance().close();
    }

    void foldersAreRestrictedWithWhatIsMadeInThem()
    {
        const QTemporaryDir folder;
        const QString inner = folder.filePath(QStringLiteral("inner"));
        QVERIFY(QDir().mkpath(inner));
        QVERIFY(Platform::restrictFolderToOwner(inner));
        QVERIFY(Platform::isOwnerOnly(inner));
        QVERIFY(!Platform::restrictFolderToOwner(inner + QLatin1String("/missing")));
        const QString file = inner + QLatin1String("/f");
        QVERIFY(Platform::makeFileForOwner(file));
        QVERIFY(Platform::isOwnerOnly(file));
        QVERIFY(!Platform::restrictFolderToOwner(file));
    }

    // Its number may be that of a program with the same name.
    void lockOfAProcessThatIsGoneIsTaken()
    {
        const QTemporaryDir folder;
        const QString left = folder.filePath(QStringLiteral("left"));
        {
            const QString running = folder.filePath(QStringLiteral("running"));
            QLockFile model(running);
            QVERIFY(model.tryLock(0));
            writeFile(left, contentOf(running));
        }
        QVERIFY(contentOf(left).startsWith(QByteArray::number(QCoreApplication::applicationPid())));
        QLockFile lock(left);
        lock.setStaleLockTime(0);
        QVERIFY(!lock.tryLock(0));
        QVERIFY(tryLockFile(&lock));
    }

#ifdef Q_OS_WIN
    void heldBackupPostponesTheRollOver()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("im.log"));
        const QString backup = file + QLatin1String(".1");
        writeFile(backup, "old\n");
        LogFileWriter log(file);
        log.setMaximumFileSize(1);
        HeldFile held(backup);
        QVERIFY(held.isHeld());
        for (int i = 0; i < 3; ++i)
            log.write(2, QString(), QString(1000, QLatin1Char('m')));
        held.release();
        QCOMPARE(contentOf(backup), QByteArray("old\n"));
        QCOMPARE(contentOf(file).count("]: m"), 3);
        QTest::qWait(1100);
        log.write(2, QString(), QStringLiteral("last"));
        QCOMPARE(contentOf(file), QByteArray());
        QVERIFY(textOf(backup).endsWith("]: last\n"));
        QCOMPARE(contentOf(file + QLatin1String(".2")), QByteArray("old\n"));
    }

    void heldSettingsAreWaitedFor()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("s.ini"));
        const QByteArray before = "[a]\r\nb=1\r\n";
        writeFile(file, before);
        HeldFile held(file);
        QVERIFY(held.isHeld());
        QVERIFY(!Platform::waitUntilClosed(file));
        held.release();
        SettingsFile settings(file);
        settings.setValue(QStringLiteral("/a/b"), 2);
        HeldFile again(file);
        QVERIFY(again.isHeld());
        std::thread other([&again] {
            QThread::msleep(300);
            again.release();
        });
        const bool saved = settings.save(TestPatience);
        other.join();
        QVERIFY(saved);
        QVERIFY(textOf(file).contains("b=2\n"));
    }
#endif
};

FRIENDUI_TEST(TstPlatform)
#include "tst_platform.moc"
