// The local database and what happens to it from outside: processes that are killed
// while they store, two at once, locks, full disks.
#include "contacts/latest/latestcontactstable.h"
#include "tests/support/localuser.h"
#include "tests/support/smallfilesystem.h"
#include "tests/support/testrunner.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QSqlError>

namespace {
namespace Table = LatestContactsTable;

constexpr int Patience = 30000; // ms

class Writer : public QProcess
{
public:
    Writer(const LocalUser &user, const QString &prefix, int rows)
    {
        start(QCoreApplication::applicationDirPath() + QLatin1String("/storingprocess"),
              {user.folder.path(), user.host.user, prefix, QString::number(rows)});
    }
    ~Writer() override
    {
        kill();
        waitForFinished(Patience);
    }
    // Waits until so many rows are stored, or the process has ended.
    bool waitForRows(int rows)
    {
        while (m_stored < rows && state() != NotRunning) {
            if (!canReadLine() && !waitForReadyRead(Patience))
                break;
            take();
        }
        return m_stored >= rows;
    }
    int stored()
    {
        take();
        return m_stored;
    }

private:
    void take()
    {
        while (canReadLine())
            m_stored = readLine().toInt() + 1;
    }
    int m_stored = 0;
};

DBFriendData record(const QString &jid)
{
    DBFriendData data;
    data.jid = jid;
    data.displayName = QStringLiteral("n");
    data.time = QStringLiteral("2026-01-02 00:00:00");
    return data;
}

// Another program's connection to the file.
class Other
{
public:
    explicit Other(const QString &file)
        : m_base(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("other")))
    {
        m_base.setDatabaseName(file);
        m_base.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
        m_base.open();
    }
    ~Other()
    {
        m_base.close();
        m_base = QSqlDatabase();
        QSqlDatabase::removeDatabase(QStringLiteral("other"));
    }
    bool exec(const char *statement)
    {
        return QSqlQuery(m_base).exec(QString::fromLatin1(statement));
    }

private:
    QSqlDatabase m_base;
};
} // namespace

class TstLatestStorage : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_user.reset(new LocalUser); }
    void cleanup() { m_user.reset(); }

    void killedWritersLoseNothingThatWasStored()
    {
        QRandomGenerator random(20260304);
        int total = 0;
        for (int round = 0; round < 25; ++round) {
            const QString prefix = QStringLiteral("r%1-").arg(round);
            int stored = 0;
            {
                Writer writer(*m_user, prefix, 1000000);
                QVERIFY2(writer.waitForRows(int(random.bounded(1, 40))),
                         writer.readAllStandardError().constData());
                writer.kill(); // SIGKILL
                writer.waitForFinished(Patience);
                stored = writer.stored();
            }
            LocalDatabase::instance().close();
            QVERIFY(LocalDatabase::instance().isOpen());
            DBFriendData found;
            for (int i = 0; i < stored; ++i) {
                QVERIFY2(Table::find(prefix + QString::number(i), &found),
                         qPrintable(prefix + QString::number(i)));
                QCOMPARE(found.unread, 1);
            }
            total += stored;
        }
        QVERIFY(total >= 25);
        QVERIFY(Table::page(0, 0).size() >= total);
        QCOMPARE(QDir(m_user->folder.filePath(QStringLiteral("u1")))
                     .entryList({QStringLiteral("*damaged*")}),
                 QStringList());
    }

    // They also make the file at the same time.
    void processesOfOneUserWriteAtOnce()
    {
        const int rows = 150;
        Writer first(*m_user, QStringLiteral("a"), rows);
        Writer second(*m_user, QStringLiteral("b"), rows);
        int mine = 0;
        while (first.state() != QProcess::NotRunning || second.state() != QProcess::NotRunning) {
            // Refused while the others keep it busy, it is stored the next time.
            mine += Table::store({record(QStringLiteral("c%1").arg(mine))}) ? 1 : 0;
            QCoreApplication::processEvents();
        }
        QVERIFY(mine > 0);
        QCOMPARE(first.exitCode(), 0);
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(Table::page(0, 0).size(), 2 * rows + mine);
        QCOMPARE(QDir(m_user->folder.filePath(QStringLiteral("u1")))
                     .entryList({QStringLiteral("*damaged*")}),
                 QStringList());
    }

    void aLockedFileFailsAndServesAgain()
    {
        QVERIFY(Table::store({record(QStringLiteral("before"))}));
        {
            Other other(m_user->file());
            QVERIFY(other.exec("BEGIN IMMEDIATE"));
            QVERIFY(!Table::store({record(QStringLiteral("refused"))}));
            QCOMPARE(Table::page(0, 0).size(), 1); // reading goes on
        }
        QVERIFY(Table::store({record(QStringLiteral("after"))}));
        QCOMPARE(Table::page(0, 0).size(), 2);
    }

    // A transaction that has read cannot wait for who has written since.
    void nobodyWritesBetweenReadingAndStoring()
    {
        QVERIFY(Table::store({record(QStringLiteral("before"))}));
        Other other(m_user->file());
        QVERIFY(LocalDatabase::instance().inTransaction([&other] {
            return Table::page(0, 0).size() == 1 && !other.exec("DELETE FROM latestfriendnew") &&
                   Table::store({record(QStringLiteral("after"))});
        }));
        QCOMPARE(Table::page(0, 0).size(), 2);
    }

    void aFullDiskLosesOnlyWhatDoesNotFit()
    {
        const SmallFileSystem disk(m_user->folder.filePath(QStringLiteral("small")),
                                   QStringLiteral("400k"));
        if (!disk.isMounted())
            QSKIP("this user may mount no file system");
        const auto letGo = qScopeGuard([] { LocalDatabase::instance().close(); });
        m_user->host.baseFolder = disk.folder();
        QVERIFY(LocalDatabase::instance().isOpen());

        int stored = 0;
        const auto jid = [](int i) { return QStringLiteral("j%1").arg(i); };
        DBFriendData row = record(QString());
        row.lastContent = QString(900, QLatin1Char('x'));
        for (bool fits = true; fits && stored < 5000;) {
            row.jid = jid(stored);
            fits = Table::store({row});
            stored += fits ? 1 : 0;
        }
        QVERIFY(stored > 10 && stored < 5000);
        // Not half of a transaction, and what was stored is there after a restart.
        QVERIFY(!Table::store(QVector<DBFriendData>(50, row)));
        LocalDatabase::instance().close();
        QCOMPARE(Table::page(0, 0).size(), stored);
        DBFriendData found;
        QVERIFY(Table::find(jid(stored - 1), &found));
        QVERIFY(!Table::find(jid(stored), &found));
    }

private:
    QScopedPointer<LocalUser> m_user;
};

FRIENDUI_TEST(TstLatestStorage)
#include "tst_lateststorage.moc"
