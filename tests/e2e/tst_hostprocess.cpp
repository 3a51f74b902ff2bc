// The reference host as a program: what it says and to whom, where its data may be, how it
// is ended, and that its back end ends with it.
#include "host/commandline.h"
#include "tests/support/files.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QOperatingSystemVersion>
#include <QProcess>
#include <QTemporaryDir>

namespace {

constexpr int Patience = 120000; // ms
const QString Folder = QStringLiteral("--data");

class Program : public QProcess
{
public:
    enum Windows
    {
        Offscreen,
        OfTheSystem // a program without is not asked to end there
    };
    explicit Program(const QStringList &arguments, Windows windows = Offscreen)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        const bool hasWindows =
            QOperatingSystemVersion::currentType() == QOperatingSystemVersion::Windows;
        if (hasWindows && windows == OfTheSystem)
            environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        setProcessEnvironment(environment);
        start(QStringLiteral(FRIENDUI_HOST), arguments);
    }
    ~Program() override
    {
        kill();
        waitForFinished(Patience);
    }
    QString output() { return QString::fromUtf8(readAllStandardOutput()); }
    QString errors() { return QString::fromUtf8(readAllStandardError()); }
};

// Whether a process holds this lock.
bool isHeld(const QString &file)
{
    if (!QFileInfo::exists(file))
        return false;
    QLockFile lock(file);
    lock.setStaleLockTime(0);
    return !lock.tryLock(0);
}

} // namespace

class TstHostProcess : public QObject
{
    Q_OBJECT

private slots:
    void words_data()
    {
        const Rows<QString, int, QString, QString> row{"argument", "code", "output", "error"};
        const QString chinese = QString::fromUtf8("中文");
        row("help", QStringLiteral("--help"), ExitCode::Success, QStringLiteral("--people <N>"),
            QString());
        row("version", QStringLiteral("--version"), ExitCode::Success,
            QStringLiteral("friendui-host "), QString());
        row("refusal", chinese, ExitCode::BadArguments, QString(),
            QStringLiteral("Unexpected argument \"%1\".").arg(chinese));
    }
    void words()
    {
        QFETCH(QString, output);
        QFETCH(QString, error);
        QFETCH(QString, argument);
        Program program({argument});
        QVERIFY(program.waitForFinished(Patience));
        QTEST(program.exitCode(), "code");
        const QString said = program.output();
        const QString complained = program.errors();
        QVERIFY2(output.isEmpty() ? said.isEmpty() : said.contains(output), qPrintable(said));
        QVERIFY2(error.isEmpty() ? complained.isEmpty() : complained.contains(error),
                 qPrintable(complained));
    }

    void folders_data()
    {
        const Rows<QString> row{"name"};
        row("blanks", QStringLiteral("a folder of two"));
        row("Chinese", QString::fromUtf8("通讯录 数据"));
        row("long", (QString(110, QLatin1Char('n')) + QLatin1Char('/')).repeated(3));
    }
    void folders()
    {
        QFETCH(QString, name);
        const QTemporaryDir place;
        const QString folder = place.filePath(name);
        const QString pictures = place.filePath(QStringLiteral("pictures"));
        Program program({Folder, QDir::toNativeSeparators(folder), QStringLiteral("--tour"),
                         pictures, QStringLiteral("--tour-steps"), QStringLiteral("start")});
        QVERIFY(program.waitForFinished(Patience));
        QVERIFY2(program.exitCode() == ExitCode::Success, qPrintable(program.errors()));
        QVERIFY(!QDir(pictures).entryList({QStringLiteral("*-start.png")}).isEmpty());
        const QByteArray log = contentOf(folder + QStringLiteral("/logs/friendui.log"));
        QVERIFY2(log.trimmed().endsWith("the log ends with the host"), log.right(200));
    }

    void folderIsUsedOnceAndLeftInOrder()
    {
        const QTemporaryDir folder;
        const QString lock = folder.filePath(QStringLiteral("host.lock"));
        const QStringList arguments{Folder, folder.path()};
        Program first(arguments, Program::OfTheSystem);
        QTRY_VERIFY_WITH_TIMEOUT(isHeld(lock), Patience);
        Program second(arguments + QStringList{QStringLiteral("--tour"), folder.path()});
        QVERIFY(second.waitForFinished(Patience));
        QCOMPARE(second.exitCode(), ExitCode::StorageFailed);
        QVERIFY(second.errors().contains(QString::number(first.processId())));
        const QString log = folder.filePath(QStringLiteral("logs/friendui.log"));
        // Made behind the first picture of the window.
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(folder.filePath(QStringLiteral("backend.json"))),
                                 Patience);
        first.terminate();
        QVERIFY(first.waitForFinished(Patience));
        QCOMPARE(first.exitStatus(), QProcess::NormalExit);
        QCOMPARE(first.exitCode(), ExitCode::Success);
        QVERIFY(contentOf(log).trimmed().endsWith("the log ends with the host"));
        QVERIFY(!QFileInfo::exists(folder.filePath(QStringLiteral("backend/lock"))));
    }

    void backEndEndsWithAKilledHost()
    {
        const QTemporaryDir folder;
        Program host({Folder, folder.path()});
        const QString lock = folder.filePath(QStringLiteral("backend/lock"));
        QTRY_VERIFY_WITH_TIMEOUT(isHeld(lock), Patience);
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(folder.filePath(QStringLiteral("backend.json"))),
                                 Patience);
        host.kill();
        QVERIFY(host.waitForFinished(Patience));
        QTRY_VERIFY_WITH_TIMEOUT(!isHeld(lock), Patience);
        QVERIFY(!QFileInfo::exists(lock)); // the back end has taken it away itself
    }
};

FRIENDUI_TEST(TstHostProcess)
#include "tst_hostprocess.moc"
