// Lines of the log macros, from their pieces to the file.
#include "common/logging.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <memory>
#include <thread>

class TstLogLine : public QObject
{
    Q_OBJECT

private:
    FakeContext m_host;
    std::unique_ptr<LogCapture> m_log;

    QStringList messages() const
    {
        QStringList result;
        for (const QString &line : m_log->lines())
            result += line.section(QLatin1String("]: "), 1);
        return result;
    }

private slots:
    void initTestCase() { setHostContext(&m_host); }
    void init() { m_log = std::make_unique<LogCapture>(m_host); }
    void cleanupTestCase() { setHostContext(nullptr); }

    // What waits in the queue itself, and what does not fit there.
    void piecesOfEveryLengthJoin_data()
    {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("second");
        constexpr int Limit = CLogThread::ShortText;
        for (const int first : {0, 1, Limit - 1, Limit, Limit + 1, 10000}) {
            for (const int second : {0, 1, Limit, 10000})
                QTest::addRow("%d and %d bytes", first, second) << first << second;
        }
    }
    void piecesOfEveryLengthJoin()
    {
        QFETCH(int, first);
        QFETCH(int, second);
        const QByteArray one(first, 'a');
        const QByteArray two(second, 'b');
        LOG_INFO(one.constData() << two.constData());
        LOG_INFO(one.constData() << QString::fromLatin1(two) << two.constData());
        const QString expected = QString::fromLatin1(one + two);
        QCOMPARE(messages(), (QStringList{expected, expected + QString::fromLatin1(two)}));
    }

    void lineTellsLevelAndPlace()
    {
        LOG_WARN("short");
        LOG_ERROR(QString(200, QLatin1Char('x')));
        const QStringList lines = m_log->lines();
        QCOMPARE(lines.size(), 2);
        QVERIFY2(lines.at(0).contains(QLatin1String("][WARN][tst_logline.cpp:")),
                 qPrintable(lines.at(0)));
        QVERIFY2(lines.at(1).contains(QLatin1String("][ERROR][tst_logline.cpp:")),
                 qPrintable(lines.at(1)));
    }

    void locationIsTheBaseNameAndTheLine()
    {
        QCOMPARE(CLogThread::location("/a/b/c.cpp", 7), QStringLiteral("c.cpp:7"));
        QCOMPARE(CLogThread::location("..\\a\\c.cpp", 12), QStringLiteral("c.cpp:12"));
        QCOMPARE(CLogThread::location("c.cpp", 0), QStringLiteral("c.cpp:0"));
    }

    // Short and long entries take different ways into the queue.
    void entriesKeepTheirOrder()
    {
        QStringList expected;
        for (int i = 0; i < 300; ++i) {
            expected += QString::number(i) + QString(i % 3 == 0 ? 200 : 0, QLatin1Char('y'));
            LOG_DEBUG(expected.last().toLatin1().constData());
        }
        QCOMPARE(messages(), expected);
    }

    void linesOfTwoThreadsDoNotMix()
    {
        constexpr int Lines = 500;
        const auto work = [](const char *word) {
            for (int i = 0; i < Lines; ++i)
                LOG_INFO(word << word << word);
        };
        std::thread first(work, "one");
        std::thread second(work, "two");
        first.join();
        second.join();
        const QStringList written = messages();
        QCOMPARE(written.count(QStringLiteral("oneoneone")), Lines);
        QCOMPARE(written.count(QStringLiteral("twotwotwo")), Lines);
    }
};

FRIENDUI_TEST(TstLogLine)
#include "tst_logline.moc"
