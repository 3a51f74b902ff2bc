// Changes of settings files on the writer's thread.
#include "common/clogmanger.h"
#include "common/cmodifyconfigfile.h"
#include "common/settingsfile.h"
#include "tests/support/files.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>

class TstSettingsWriter : public QObject
{
    Q_OBJECT

private:
    FakeContext m_host;
    std::unique_ptr<LogCapture> m_log;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    std::unique_ptr<CModifyConfigFile> m_writer;

    QByteArray content() const { return textOf(m_file); }
    void change(const char *key, const QVariant &value)
    {
        emit m_writer->signal_changeConfigValue(m_file, QString::fromLatin1(key), value,
                                                SettingsFile::Ini);
    }

private slots:
    void initTestCase() { setHostContext(&m_host); }
    void cleanupTestCase() { setHostContext(nullptr); }
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath(QStringLiteral("u1/newConfig.ini"));
        m_writer = std::make_unique<CModifyConfigFile>();
        m_log = std::make_unique<LogCapture>(m_host);
        // The GUI thread finds the log, the writer's own thread does not look for it.
        CLogManger::instance().flush();
    }
    void cleanup() { m_writer.reset(); }

    void changesAppearInTheFile()
    {
        change("/languageSetting/language", QString::fromUtf8("中文"));
        QTRY_VERIFY(content().contains("[languageSetting]\nlanguage=中文\n"));

        QMap<QString, QVariant> values;
        values.insert(QString(), QStringLiteral("skipped"));
        values.insert(QStringLiteral("/RectNew/width"), 300);
        values.insert(QStringLiteral("/reminder/evremindList"),
                      QStringList{QStringLiteral("a"), QStringLiteral("b")});
        emit m_writer->signal_changeConfigValues(m_file, values, SettingsFile::Ini);
        emit m_writer->signal_removeConfigKey(m_file, QStringLiteral("/languageSetting/language"),
                                              SettingsFile::Ini);
        QTRY_VERIFY(!content().contains("language"));
        QVERIFY(content().contains("[RectNew]\nwidth=300\n"));
        QVERIFY(content().contains("evremindList=a, b\n"));
        QVERIFY(!content().contains("skipped"));
        QCOMPARE(m_log->linesWith("][ERROR]["), QStringList());
    }

    void changesKeepTheirOrder()
    {
        constexpr int Changes = 100;
        for (int i = 1; i <= Changes; ++i)
            change("/a/last", i);
        m_writer.reset(); // waits as long as it takes
        QVERIFY(content().contains("last=100\n"));
    }

    void quittingApplicationWaitsForTheChanges()
    {
        constexpr int Changes = 10;
        QTimer::singleShot(0, this, [this] {
            for (int i = 1; i <= Changes; ++i)
                change("/a/last", i);
            QCoreApplication::quit();
        });
        QCoreApplication::exec();
        QVERIFY(content().contains("last=10\n"));
    }

    void removingAnEmptyKeyRemovesNothing()
    {
        change("/a/b", 1);
        emit m_writer->signal_removeConfigKey(m_file, QString(), SettingsFile::Ini);
        QVERIFY(m_writer->finish());
        QVERIFY(content().contains("b=1\n"));
    }

    void failureEndsInTheLog_data()
    {
        const Rows<QByteArray> row{"before"};
        row("unreadable line", "[a]\nb=1\nno setting\n");
        row("object", "[a]\nb=@Variant(x)\n");
    }
    void failureEndsInTheLog()
    {
        QFETCH(QByteArray, before);
        QVERIFY(QDir().mkpath(m_folder->filePath(QStringLiteral("u1"))));
        writeFile(m_file, before);
        change("/a/b", 2);
        change("/a/b", 3);
        QVERIFY(m_writer->finish());
        QCOMPARE(content(), before);
        const QStringList errors = m_log->linesWith("][ERROR][");
        QVERIFY2(errors.filter(QLatin1String("is left as it is")).size() == 2,
                 qPrintable(errors.join(QLatin1Char('\n'))));
    }

    void pathThatWasRefusedIsNotWritten()
    {
        const QString old = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_folder->path()));
        emit m_writer->signal_changeConfigValue(QString(), QStringLiteral("/a/b"), 1,
                                                SettingsFile::Ini);
#ifndef Q_OS_WIN
        const QString key = QStringLiteral("HKEY_CURRENT_USER\\Software\\Veltra");
        for (const int format : {0, 1, 7})
            emit m_writer->signal_changeConfigValue(key, QStringLiteral("b"), 1, format);
        emit m_writer->signal_changeConfigValue(m_file, QStringLiteral("/a/b"), 1, 0);
#endif
        QVERIFY(m_writer->finish());
        QVERIFY(QDir::setCurrent(old));
        QVERIFY(QDir(m_folder->path()).isEmpty());
    }
};

FRIENDUI_TEST(TstSettingsWriter)
#include "tst_settingswriter.moc"
