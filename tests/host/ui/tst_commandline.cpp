// The command line: what is understood and what is refused, with a clear word.
#include "host/commandline.h"
#include "host/datafolder.h"
#include "host/hostpreferences.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {
CommandLineResult parse(const QStringList &arguments)
{
    return parseCommandLine(QStringList{QStringLiteral("friendui-host")} + arguments,
                            {QStringLiteral("CreateGroup"), QStringLiteral("SendMessage")});
}

bool touch(const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly);
}
} // namespace

class TstCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void everyOptionIsTaken()
    {
        const CommandLineResult result =
            parse(QStringLiteral("--people 5000 --data /tmp/d --plugin p.so --lang EN --skin dark "
                                 "--offline --fail creategroup,SendMessage --silent all "
                                 "--tour /tmp/t --tour-steps start,chat --no-simulation --reset "
                                 "--backend-control-port 0")
                      .split(QLatin1Char(' ')));
        QCOMPARE(result.action, CommandLineResult::Run);
        const HostOptions &options = result.options;
        QCOMPARE(options.people, 5000);
        QCOMPARE(options.dataFolder, QStringLiteral("/tmp/d"));
        QCOMPARE(options.pluginFile, QStringLiteral("p.so"));
        QCOMPARE(options.language, QStringLiteral("en"));
        QCOMPARE(options.skin, QStringLiteral("dark"));
        QVERIFY(options.offline && options.reset && !options.simulation);
        QCOMPARE(options.failing,
                 (QStringList{QStringLiteral("CreateGroup"), QStringLiteral("SendMessage")}));
        QCOMPARE(options.silent, QStringList{QStringLiteral("all")});
        QCOMPARE(options.tourSteps.size(), 2);
        QCOMPARE(options.backendControlPort, 0);
        QVERIFY(!options.noBackend && options.backendAddress.isEmpty());
    }

    void aBackEndThatRunsAlready()
    {
        const QString file = QCoreApplication::applicationFilePath();
        const CommandLineResult result =
            parse({QStringLiteral("--backend"), QStringLiteral("https://im.example:8443/x//"),
                   QStringLiteral("--ca"), file, QStringLiteral("--password-file"), file});
        QCOMPARE(result.action, CommandLineResult::Run);
        QCOMPARE(result.options.backendAddress, QStringLiteral("https://im.example:8443/x"));
        QCOMPARE(result.options.caFile, file);
        QCOMPARE(result.options.passwordFile, file);
        QCOMPARE(result.options.backendControlPort, -1);
        QVERIFY(parse({QStringLiteral("--no-backend")}).options.noBackend);
    }

    void mistakesAreNamed_data()
    {
        const Rows<QString, QString> row{"arguments", "named"};
        row("no number", "--people many", "\"many\"");
        row("nobody", "--people 0", "1 to 100000");
        row("too many", "--people 100001", "1 to 100000");
        row("missing file", "--import /nowhere/x.vcf", "/nowhere/x.vcf");
        row("folder as file", "--import /", "\"/\"");
        row("language", "--lang fr", "zh_CN, en");
        row("skin", "--skin pink", "light, dark");
        row("operation", "--fail Explode", "CreateGroup");
        const QString file =
            QLatin1String(" --password-file ") + QCoreApplication::applicationFilePath();
        row("no encryption", "--backend http://x" + file, "https://");
        row("password in the address", "--backend https://a:b@x" + file, "https://");
        row("no password", "--backend https://x", "needs --password-file");
        row("missing authority", "--backend https://x --ca /nowhere/ca.pem" + file,
            "/nowhere/ca.pem");
        row("authority of nothing", "--ca " + QCoreApplication::applicationFilePath(),
            "need --backend");
        row("two back ends", "--no-backend --backend https://x" + file, "Only one");
        row("two back ends to choose from", "--join /tmp --no-backend", "Only one");
        row("no user", "--user=", "--user");
        row("lever of nothing", "--no-backend --backend-control-port 1", "Only one");
        row("port", "--backend-control-port 65536", "0 to 65535");
        row("unknown option", "--bogus", "bogus");
        row("positional", "people.vcf", "people.vcf");
        row("missing value", "--people", "people");
        row("steps without a tour", "--tour-steps start", "--tour");
    }
    void mistakesAreNamed()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, named);
        const CommandLineResult result = parse(arguments.split(QLatin1Char(' ')));
        QCOMPARE(result.action, CommandLineResult::Refuse);
        QVERIFY2(result.text.contains(named), qPrintable(result.text));
    }

    void theToolkitGetsOnlyItsOwn_data()
    {
        const Rows<QString, QString, QString> row{"arguments", "own", "toolkit"};
        row("its --plugin stays away", "h --plugin p.so", "h --plugin p.so", "h");
        row("with a value", "h -platform vnc --offline", "h --offline", "h -platform vnc");
        row("two dashes", "h --platform=offscreen -v", "h -v", "h --platform=offscreen");
        row("without a value", "h -reverse --people 5", "h --people 5", "h -reverse");
    }
    void theToolkitGetsOnlyItsOwn()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, own);
        QFETCH(QString, toolkit);
        const SplitArguments split = splitArguments(arguments.split(QLatin1Char(' ')));
        QCOMPARE(split.own.join(QLatin1Char(' ')), own);
        QCOMPARE(split.toolkit.join(QLatin1Char(' ')), toolkit);
    }

    void helpNamesEveryOption()
    {
        const CommandLineResult result = parse({QStringLiteral("--help")});
        QCOMPARE(result.action, CommandLineResult::ShowText);
        for (const char *option :
             {"--people", "--import", "--data", "--plugin", "--tour", "--reset"})
            QVERIFY2(result.text.contains(QLatin1String(option)), option);
    }

    void choicesAreRememberedAndNonsenseIsNot()
    {
        const QTemporaryDir folder;
        const HostPreferences fresh(folder.path());
        QVERIFY(fresh.language().isEmpty() && fresh.skin().isEmpty() && !fresh.showsImport());
        fresh.setLanguage(QStringLiteral("en"));
        fresh.setSkin(QStringLiteral("dark"));
        fresh.setShowsImport(true);
        const HostPreferences later(folder.path());
        QCOMPARE(later.language(), QStringLiteral("en"));
        QCOMPARE(later.skin(), QStringLiteral("dark"));
        QVERIFY(later.showsImport());

        later.setLanguage(QStringLiteral("../en"));
        later.setSkin(QStringLiteral("blue"));
        QVERIFY(later.language().isEmpty() && later.skin().isEmpty());
    }

    void resetDeletesOnlyInAFolderOfItsOwn()
    {
        const QTemporaryDir folder;
        const QString own = folder.filePath(QStringLiteral("own"));
        const QString foreign = folder.filePath(QStringLiteral("foreign"));
        QString problem;
        QVERIFY(prepareDataFolder(own, QStringLiteral("u000000"), &problem));
        for (const QString &place : {own, foreign}) {
            QVERIFY(touch(place + QLatin1String("/core/a.db")));
            QVERIFY(touch(place + QLatin1String("/mine.txt")));
        }
        QVERIFY(resetDataFolder(own, &problem));
        QVERIFY(!QFile::exists(own + QLatin1String("/core/a.db")));
        QVERIFY(QFile::exists(own + QLatin1String("/mine.txt")));

        QVERIFY(!resetDataFolder(foreign, &problem));
        QVERIFY(problem.contains(foreign));
        QVERIFY(QFile::exists(foreign + QLatin1String("/core/a.db")));
        QVERIFY(resetDataFolder(folder.filePath(QStringLiteral("none")), &problem));
    }

    void oneHostAtATimeUsesADataFolder()
    {
        const QTemporaryDir folder;
        QString problem;
        auto first = lockDataFolder(folder.path(), &problem);
        QVERIFY2(first, qPrintable(problem));
        QVERIFY(!lockDataFolder(folder.path(), &problem));
        QVERIFY(problem.contains(folder.path()));
        QVERIFY(problem.contains(QString::number(QCoreApplication::applicationPid())));
        first.reset();
        QVERIFY(lockDataFolder(folder.path(), &problem));
    }

    void aDataFolderThatIsAFileIsRefused()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("file"));
        QVERIFY(touch(file));
        QString problem;
        QVERIFY(!prepareDataFolder(file, QStringLiteral("u000000"), &problem));
        QVERIFY(problem.contains(file));
        QCOMPARE(parse({QStringLiteral("--data"), file}).action, CommandLineResult::Refuse);
    }
};

FRIENDUI_TEST(TstCommandLine)
#include "tst_commandline.moc"
