// The log file: its lines, its size, its backups, and disks that fail.
#include "common/logfilewriter.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace {
const QString location = QStringLiteral("tst.cpp:7");
} // namespace

class TstLogging : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir *m_folder = nullptr;
    QString m_log;

    // A message that makes a line of so many bytes.
    QString messageForLineOf(int bytes) const
    {
        const int frame = int(qstrlen("[2026-01-01 00:00:00.000][DEBUG][]: ") + qstrlen(LineEnd)) +
                          location.size();
        return QString(bytes - frame, QLatin1Char('m'));
    }

private slots:
    void init()
    {
        m_folder = new QTemporaryDir;
        m_log = m_folder->filePath(QStringLiteral("im.log"));
    }
    void cleanup() { delete m_folder; }

    void lineHasTimeLevelLocationAndMessage_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<QString>("name");
        const char *const names[] = {"", "TRACE", "DEBUG", "INFO", "WARN", "ERROR", "FATAL", ""};
        for (int level = 0; level <= 7; ++level)
            QTest::addRow("level %d", level) << level << QString::fromLatin1(names[level]);
    }
    void lineHasTimeLevelLocationAndMessage()
    {
        QFETCH(int, level);
        QFETCH(QString, name);
        LogFileWriter writer(m_log);
        writer.write(level, location, QString::fromUtf8("组名 %1 %2"));
        const QRegularExpression line(
            QString::fromUtf8("^\\[\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3}\\]\\[%1\\]"
                              "\\[tst\\.cpp:7\\]: 组名 %1 %2\r?\n$")
                .replace(QLatin1String("\\[%1\\]"),
                         QLatin1String("\\[") + name + QLatin1String("\\]")));
        const QByteArray written = contentOf(m_log);
        QVERIFY2(line.match(QString::fromUtf8(written)).hasMatch(), written);
        QVERIFY(written.endsWith(QByteArrayLiteral("%2") + LineEnd));
    }

    void continuedFileLosesItsLastByte()
    {
        writeFile(m_log, "abc\n");
        LogFileWriter writer(m_log);
        writer.write(2, location, QStringLiteral("next"));
        const QByteArray content = textOf(m_log);
        QVERIFY2(content.startsWith("abc[2"), content);
        QVERIFY(content.endsWith("]: next\n"));
    }

    void thresholdDropsLowerLevels()
    {
        LogFileWriter writer(m_log);
        writer.setThreshold(4);
        QVERIFY(!writer.isEnabled(3));
        QVERIFY(writer.isEnabled(4));
        writer.write(3, location, QStringLiteral("low"));
        writer.write(4, location, QStringLiteral("high"));
        QCOMPARE(contentOf(m_log).count('\n'), 1);
    }

    void rollsOverAtTheMaximumSize_data()
    {
        const Rows<int, bool> row{"bytes", "rolls"};
        row("one byte less", 1023, false);
        row("exactly", 1024, true);
    }
    void rollsOverAtTheMaximumSize()
    {
        QFETCH(int, bytes);
        QFETCH(bool, rolls);
        LogFileWriter writer(m_log);
        writer.setMaximumFileSize(1);
        writer.write(2, location, messageForLineOf(bytes));
        QCOMPARE(QFileInfo(m_log).size(), qint64(rolls ? 0 : bytes));
        QCOMPARE(QFileInfo(m_log + QLatin1String(".1")).size(), qint64(rolls ? bytes : 0));
        if (rolls) {
            writer.write(2, location, QStringLiteral("goes on"));
            QVERIFY(textOf(m_log).endsWith("]: goes on\n"));
        }
    }

    void rollOverShiftsTheBackups()
    {
        for (int i = 1; i <= 10; ++i)
            writeFile(m_log + QStringLiteral(".%1").arg(i), QByteArray::number(i));
        LogFileWriter writer(m_log);
        writer.setMaximumFileSize(1);
        writer.write(2, location, messageForLineOf(2000));
        QCOMPARE(contentOf(m_log + QLatin1String(".1")).size(), 2000);
        for (int i = 2; i <= 10; ++i)
            QCOMPARE(contentOf(m_log + QStringLiteral(".%1").arg(i)), QByteArray::number(i - 1));
        QVERIFY(!QFile::exists(m_log + QLatin1String(".11")));
    }

    void withoutBackupsRollOverEmptiesTheLog()
    {
        LogFileWriter writer(m_log);
        writer.setMaximumFileSize(1);
        writer.setMaximumBackupIndex(0);
        writer.write(2, location, messageForLineOf(1024));
        QCOMPARE(QFileInfo(m_log).size(), qint64(0));
        QVERIFY(!QFile::exists(m_log + QLatin1String(".1")));
        QVERIFY(writer.isOpen());
    }

    void missingFolderLeavesTheWriterClosed()
    {
        const QString file = m_folder->filePath(QStringLiteral("later/im.log"));
        LogFileWriter writer(file);
        QVERIFY(!writer.isOpen());
        writer.write(5, location, QStringLiteral("lost"));
        writer.flush();
        QVERIFY(!QFile::exists(file));

        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("later")));
        writer.clear(); // opens it again
        writer.write(5, location, QStringLiteral("kept"));
        QVERIFY(textOf(file).endsWith("]: kept\n"));
    }

    void clearEmptiesTheLog()
    {
        LogFileWriter writer(m_log);
        writer.write(2, location, QStringLiteral("old"));
        writer.clear();
        writer.write(2, location, QStringLiteral("new"));
        QCOMPARE(contentOf(m_log).count('\n'), 1);
        QVERIFY(textOf(m_log).endsWith("]: new\n"));
        writer.close();
        writer.write(2, location, QStringLiteral("closed"));
        QVERIFY(!contentOf(m_log).contains("closed"));
    }

#ifdef Q_OS_UNIX
    void onlyTheOwnerReadsTheLog()
    {
        writeFile(m_log, "old\n");
        QVERIFY(::chmod(QFile::encodeName(m_log).constData(), 0644) == 0);
        LogFileWriter writer(m_log);
        writer.setMaximumFileSize(1);
        writer.write(2, location, messageForLineOf(1024));
        for (const QString &file : {m_log, m_log + QLatin1String(".1")}) {
            struct stat status
            {
            };
            QVERIFY(::stat(QFile::encodeName(file).constData(), &status) == 0);
            QCOMPARE(int(status.st_mode & 0777), 0600);
        }
    }

    // A limit on the size of files stands for a disk without room.
    void fullDiskLosesLinesAndNothingElse()
    {
        rlimit unlimited{};
        QVERIFY(::getrlimit(RLIMIT_FSIZE, &unlimited) == 0);
        const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        LogFileWriter writer(m_log);
        writer.write(2, location, QStringLiteral("before"));

        rlimit full = unlimited;
        full.rlim_cur = rlim_t(QFileInfo(m_log).size());
        QVERIFY(::setrlimit(RLIMIT_FSIZE, &full) == 0);
        for (int i = 0; i < 100; ++i)
            writer.write(2, location, QStringLiteral("lost"));
        ::setrlimit(RLIMIT_FSIZE, &unlimited);
        std::signal(SIGXFSZ, oldHandler);

        writer.write(2, location, QStringLiteral("after"));
        const QByteArray content = contentOf(m_log);
        QVERIFY2(!content.contains("lost"), content);
        QVERIFY2(content.contains("]: before\n[") && content.endsWith("]: after\n"), content);
    }
#endif
};

FRIENDUI_TEST(TstLogging)
#include "tst_logging.moc"
