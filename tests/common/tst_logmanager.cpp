// From the logging call to the file: entries, the thread and its queue.
#include "common/clogthread.h"
#include "common/logfilewriter.h"
#include "common/logging.h"
#include "tests/support/files.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <memory>

namespace {
// A line's message, the frame removed.
QString messageOf(const QString &line)
{
    return line.section(QLatin1String("]: "), 1);
}
} // namespace

class TstLogManager : public QObject
{
    Q_OBJECT

private:
    FakeContext m_host;
    std::unique_ptr<LogCapture> m_log;

private slots:
    void initTestCase()
    {
        // Without a context, and then without a log in it, entries are dropped.
        LOG_ERROR("nobody hears this");
        CLogManger::instance().flush();
        CLogManger::instance().clear();
        setHostContext(&m_host);
        LOG_ERROR("nor this");
    }
    void init() { m_log = std::make_unique<LogCapture>(m_host); }
    void cleanupTestCase() { setHostContext(nullptr); }

    void entriesAreWrittenOnceTheContextHasALog()
    {
        LOG_INFO("heard");
        const QStringList lines = m_log->lines();
        QCOMPARE(lines.size(), 1);
        QVERIFY2(lines.first().contains(QRegularExpression(
                     QStringLiteral("\\]\\[INFO\\]\\[tst_logmanager\\.cpp:\\d+\\]: heard$"))),
                 qPrintable(lines.first()));
    }

    void onlyTheExactLineBreakEndsAnEntry()
    {
        CLogManger &log = CLogManger::instance();
        log.level = LogDebug;
        log << "\n"; // an empty message
        log << "one\n"
            << "two" << QStringLiteral("\n");
        const QStringList lines = m_log->lines();
        QCOMPARE(lines.size(), 3);
        QCOMPARE(messageOf(lines.at(0)), QString());
        QCOMPARE(messageOf(lines.at(1)), QStringLiteral("one"));
        QCOMPARE(lines.at(2), QStringLiteral("two"));
    }

    void literalsAreUtf8()
    {
        LOG_ERROR("组名不存在 " << QString::fromUtf8("群组") << " é");
        QCOMPARE(messageOf(m_log->lines().value(0)), QString::fromUtf8("组名不存在 群组 é"));
    }

    void scopeWritesEntryAndExit()
    {
        {
            LOG_SCOPE("A::f(int)");
            LOG_WARN("between");
        }
        const QStringList lines = m_log->lines();
        QCOMPARE(lines.size(), 3);
        QCOMPARE(messageOf(lines.at(0)), QStringLiteral("entry fun A::f(int)"));
        QCOMPARE(messageOf(lines.at(2)), QStringLiteral("exit fun A::f(int)"));
        QVERIFY(lines.at(2).contains(QLatin1String("][DEBUG][")));
    }

    void fullQueueDropsTheOldestAndSaysSo()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("im.log"));
        LogFileWriter writer(file);
        CLogThread thread;
        thread.setWriter(&writer);
        QVERIFY(thread.isDrained());
        constexpr int TooMany = 5;
        for (int i = 0; i < int(CLogThread::MaximumQueue) + TooMany; ++i)
            thread.enqueue(2, QStringLiteral("a.cpp:1"), QString::number(i));
        thread.start();
        QTRY_VERIFY(QFileInfo(file).size() > 200);
        thread.stop(); // the rest is lost
        QVERIFY(thread.wait(10000));

        QFile log(file);
        QVERIFY(log.open(QIODevice::ReadOnly | QIODevice::Text));
        const QString warning = QString::fromUtf8(log.readLine());
        QVERIFY2(warning.contains(QLatin1String("][WARN][")), qPrintable(warning));
        QVERIFY2(messageOf(warning).startsWith(QStringLiteral("5 ")), qPrintable(warning));
        QCOMPARE(messageOf(QString::fromUtf8(log.readLine())), QStringLiteral("5\n"));
    }

    void stoppedThreadEndsWithTheLineThatWakesIt()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("im.log"));
        LogFileWriter writer(file);
        CLogThread thread;
        thread.start();
        thread.enqueue(2, QString(), QStringLiteral("without a writer"));
        QTRY_VERIFY(thread.isDrained());
        thread.setWriter(&writer);
        thread.stop();
        QVERIFY(thread.isRunning());
        thread.enqueue(2, QStringLiteral("a.cpp:1"), QStringLiteral("last"));
        QVERIFY(thread.wait(10000));
        QVERIFY(textOf(file).endsWith("]: last\n"));
    }

    void foreignTextCannotForgeLines_data()
    {
        const Rows<QString, QString> row{"text", "logged"};
        row("plain", QString::fromUtf8("小李 %1 <b>"), QString::fromUtf8("小李 %1 <b>"));
        row("line break", QStringLiteral("a\r\n[ERROR]"), QStringLiteral("a  [ERROR]"));
        row("escape sequence", QStringLiteral("\x1b[31m"), QStringLiteral(" [31m"));
        row("C1 control", QString(QChar(0x9b)), QStringLiteral(" "));
        row("separators", QString(QChar(0x2028)) + QChar(0x2029), QStringLiteral("  "));
        row("null", QString(QChar(0)), QStringLiteral(" "));
        row("long", QString(10000, QLatin1Char('x')), QString(4096, QLatin1Char('x')));
    }
    void foreignTextCannotForgeLines()
    {
        QFETCH(QString, text);
        QTEST(logText(text), "logged");
    }
};

FRIENDUI_TEST(TstLogManager)
#include "tst_logmanager.moc"
