// Where the files lie, and user ids that would lead elsewhere.
#include "common/clientpaths.h"
#include "common/platform.h"
#include "tests/support/fakecontext.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QFile>

class TstPaths : public QObject
{
    Q_OBJECT

private slots:
    void documentsPathsHaveSingleForwardSlashes_data()
    {
        const Rows<QString, QString> row{"path", "normalized"};
        row("backslashes", "C:\\Users\\u\\Documents", "C:/Users/u/Documents");
        row("doubled separator", "C:\\Users\\\\u//Documents", "C:/Users/u/Documents");
        row("many", "a/////b\\\\\\/c", "a/b/c");
        const QString network = QLatin1String(Platform::hasRegistry() ? "//srv/x" : "/srv/x");
        row("network path", "\\\\srv\\x", network);
        row("network path, more slashes", "//srv\\\\x", network);
        row("three slashes", "\\\\/srv", "/srv");
        row("empty", "", "");
    }
    void documentsPathsHaveSingleForwardSlashes()
    {
        QFETCH(QString, path);
        QTEST(ClientPaths::normalized(path), "normalized");
    }

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    void documentsFolderIsThatOfTheUser()
    {
        const QString folders =
            qEnvironmentVariable("XDG_CONFIG_HOME") + QLatin1String("/user-dirs.dirs");
        writeFile(folders, "XDG_DOCUMENTS_DIR=\"$HOME/My//Papers\"\n");
        const QString papers = QDir::homePath() + QLatin1String("/My/Papers");
        QCOMPARE(ClientPaths::documentsFolder(), papers);
        QCOMPARE(ClientPaths::versionFile(), papers + QLatin1String("/VeltraIm/Version.ini"));
        QVERIFY(QDir().mkpath(ClientPaths::clientDataFolder()));
        writeFile(ClientPaths::versionFile(), "[ThisVersion]\nthisversion=5.1.2\n");
        QCOMPARE(ClientPaths::installedVersion(), QStringLiteral("5.1.2"));
        QFile::remove(folders);
    }
#endif

    void userPathsStandBelowTheDataRoot()
    {
        FakeContext host;
        const HostContextScope scope(&host);
        host.user = QStringLiteral("u1");
        QCOMPARE(ClientPaths::userFolder(), QString()); // no data root yet
        QCOMPARE(ClientPaths::allUsersFile(), QString());

        host.baseFolder = QStringLiteral("data");
        QCOMPARE(ClientPaths::userSettingsFile(), QStringLiteral("data/u1/newConfig.ini"));
        QCOMPARE(ClientPaths::allUsersFile(), QStringLiteral("data/allusers/usersInfo.ini"));
        QCOMPARE(ClientPaths::designedHeadImagesFolder(QStringLiteral("u2")),
                 QStringLiteral("data/u2/designHeadImage/"));
        QCOMPARE(ClientPaths::localDatabaseFile(),
                 QDir::currentPath() + QLatin1String("/data/u1/localData.db"));
    }

    void userIdsThatLeadElsewhereAreRefused_data()
    {
        const Rows<QString, bool> row{"id", "refused"};
        row("plain", "u.1-a_b", false);
        row("Chinese", QString::fromUtf8("张三"), false);
        row("jid", "u1@corp.example", false);
        row("nobody", "", true);
        row("parent", "..", true);
        row("same", ".", true);
        row("way up", "../u2", true);
        row("way up, backslash", "..\\u2", true);
        row("below", "u1/u2", true);
        row("absolute", "/etc", true);
        row("drive", "C:", true);
        row("other stream", "u1:x", true);
        row("null", QStringLiteral("u1") + QChar(0) + QLatin1String("x"), true);
        row("line break", "u1\n", true);
        row("same as another on Windows", "u1.", true);
        row("device on Windows", "nul", true);
    }
    void userIdsThatLeadElsewhereAreRefused()
    {
        QFETCH(QString, id);
        QFETCH(bool, refused);
        FakeContext host;
        const HostContextScope scope(&host);
        host.baseFolder = QStringLiteral("/data");
        for (const QString &path :
             {ClientPaths::userFolder(id), ClientPaths::userSettingsFile(id),
              ClientPaths::localDatabaseFile(id), ClientPaths::designedHeadImagesFolder(id)}) {
            QCOMPARE(path.isEmpty(), refused);
            QVERIFY(refused || path.startsWith(QLatin1String("/data/") + id));
        }
    }
};

FRIENDUI_TEST(TstPaths)
#include "tst_paths.moc"
