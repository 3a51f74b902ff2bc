// How a process ends that has the module in it: in good order, or without asking anybody,
// while the threads of log and settings have work. Each in a process of its own.
#include "common/logging.h"
#include "tests/e2e/onehost.h"
#include "tests/support/files.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

#include <QProcess>
#include <QTimer>
#include <QTreeView>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr char ChildVariable[] = "FRIENDUI_TEST_CHILD";
constexpr int ExitCodeOfChild = 7;

// Leaves so many lines for the log, and a change of the settings file for each time that
// the first group is opened or closed.
void makeWork(const TourStage &stage)
{
    const QModelIndex group = stage.tree()->model()->index(0, 0);
    for (int i = 0; i < 10; ++i) {
        LOG_INFO("line " << QString::number(i));
        stage.tree()->setExpanded(group, i % 2 == 0);
    }
}

void leave(const QByteArray &how)
{
    std::printf("leaves: %s\n", how.constData());
    std::fflush(stdout);
    if (how == "exit")
        std::exit(ExitCodeOfChild);
    if (how == "_Exit")
        std::_Exit(ExitCodeOfChild);
    QCoreApplication::exit(ExitCodeOfChild);
}

[[noreturn]] void runChild(const QByteArray &how)
{
    HostOptions options;
    options.dataFolder = QString::fromUtf8(qgetenv("FRIENDUI_TEST_FOLDER"));
    options.pluginFile = QStringLiteral(FRIENDUI_MODULE);
    options.noBackend = true;
    HostPlace place;
    QString problem;
    settlePlace(&options, &place, &problem);
    auto *host = new HostApplication(options, place);
    if (host->start() != ExitCode::Success || !host->hasPane())
        std::_Exit(1);
    TourStage stage(*host);
    if (!QTest::qWaitFor([&stage] { return stage.groupCount() > 0; }, WaitMs))
        std::_Exit(2);
    QTimer work;
    QObject::connect(&work, &QTimer::timeout, host->window(), [&stage] { makeWork(stage); });
    work.start(10);
    QTimer::singleShot(300, host->window(), [how] { leave(how); });
    const int code = QCoreApplication::exec();
    if (how != "leaves the window") {
        host->shutDown();
        delete host;
    }
    std::exit(code);
}

} // namespace

class TstModuleProcess : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (qEnvironmentVariableIsSet(ChildVariable))
            runChild(qgetenv(ChildVariable));
    }

    void endings_data()
    {
        const Rows<bool> row{"inOrder"};
        row("in order", true);
        row("leaves the window", false);
        row("exit", false);
        row("_Exit", false);
    }
    void endings()
    {
        QFETCH(bool, inOrder);
        const QTemporaryDir folder;
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QLatin1String(ChildVariable), QLatin1String(QTest::currentDataTag()));
        environment.insert(QStringLiteral("FRIENDUI_TEST_FOLDER"), folder.path());
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        process.setProcessEnvironment(environment);
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("TstModuleProcess")});
        QVERIFY(process.waitForFinished(2 * WaitMs));
        const QByteArray errors = process.readAllStandardError();
        QVERIFY2(process.readAllStandardOutput().contains("leaves: "), errors);
        QVERIFY2(process.exitStatus() == QProcess::NormalExit, errors);
        QVERIFY2(process.exitCode() == ExitCodeOfChild,
                 QByteArray::number(process.exitCode()) + errors);
        if (inOrder) {
            const QByteArray log = contentOf(folder.filePath(QStringLiteral("logs/friendui.log")));
            QVERIFY2(log.contains("]: line 9"), log.right(1000));
            QVERIFY2(log.trimmed().endsWith("the log ends with the host"), log.right(200));
        }
    }
};

FRIENDUI_TEST(TstModuleProcess)
#include "tst_moduleprocess.moc"
