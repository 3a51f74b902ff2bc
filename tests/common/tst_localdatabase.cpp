// The local database: whose it is, older and damaged files, disks that take nothing.
#include "common/localtables.h"
#include "common/platform.h"
#include "common/sessionsettings.h"
#include "tests/support/files.h"
#include "tests/support/localuser.h"
#include "tests/support/logcapture.h"
#include "tests/support/smallfilesystem.h"
#include "tests/support/testrunner.h"

#include <QFileInfo>
#include <QScopeGuard>
#include <QSqlError>

namespace {

LocalDatabase &base()
{
    return LocalDatabase::instance();
}

void exec(const QSqlDatabase &database, const QString &statement)
{
    QSqlQuery query(database);
    QVERIFY2(query.exec(statement), qPrintable(query.lastError().text()));
}

// A file as another program makes it.
void makeFile(const QString &name, const QStringList &statements)
{
    QVERIFY(QDir().mkpath(QFileInfo(name).path()));
    {
        QSqlDatabase made =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("made"));
        made.setDatabaseName(name);
        QVERIFY(made.open());
        for (const QString &statement : statements)
            exec(made, statement);
    }
    QSqlDatabase::removeDatabase(QStringLiteral("made"));
}

// Every column and index of the tables.
QStringList shape()
{
    QStringList lines;
    for (const SqliteTable &table : LocalTables::all()) {
        QSqlQuery query(base().database());
        query.exec(QStringLiteral("PRAGMA table_info(%1)").arg(QLatin1String(table.name)));
        while (query.next()) {
            QStringList line{QLatin1String(table.name)};
            for (int i = 0; i < 6; ++i)
                line.append(query.value(i).toString());
            lines.append(line.join(QLatin1Char('|')));
        }
    }
    QSqlQuery query(base().database());
    query.exec(QStringLiteral("SELECT sql FROM sqlite_master WHERE type='index' ORDER BY name"));
    while (query.next())
        lines.append(query.value(0).toString());
    return lines;
}

QStringList damagedIn(const LocalUser &user)
{
    return QFileInfo(user.file()).dir().entryList({QStringLiteral("*.damaged-*")});
}

const QString OldLatest = QStringLiteral(
    "CREATE TABLE latestfriendnew (jid VARCHAR(100) primary key, displayname "
    "VARCHAR(100),accountNo VARCHAR(100), icon VARCHAR(100), signature VARCHAR(100), time "
    "VARCHAR(100), lastcontent VARCHAR(1000), onjob VARCHAR(100), issystemnotice INT, appkey "
    "VARCHAR(100))");

} // namespace

class TstLocalDatabase : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_user.reset(new LocalUser); }
    void cleanup() { m_user.reset(); }

    void filesAreTheOwnersOnly()
    {
        QVERIFY(SessionSettings::setMuted(QStringLiteral("a@d"), true));
        for (const QFileInfo &file : QFileInfo(m_user->file()).dir().entryInfoList(QDir::Files))
            QVERIFY2(Platform::isOwnerOnly(file.filePath()), qPrintable(file.fileName()));
    }

    void olderFilesAreUpgradedToTheFreshShape_data()
    {
        const Rows<QStringList> row{"statements"};
        const QString host = QStringLiteral("CREATE TABLE hostthings (a, b)");
        row("only the host's tables", {host});
        row("the last columns are missing",
            {host, OldLatest, QStringLiteral("INSERT INTO latestfriendnew(jid) VALUES('kept')")});
        row("the very last is missing",
            {OldLatest, QStringLiteral("ALTER TABLE latestfriendnew ADD isTop INT")});
        row("another version number", {OldLatest, QStringLiteral("PRAGMA user_version=77")});
    }
    void olderFilesAreUpgradedToTheFreshShape()
    {
        QFETCH(QStringList, statements);
        const QStringList fresh = shape();
        QVERIFY(fresh.size() > 20);
        m_user->host.user = QStringLiteral("old");
        makeFile(m_user->folder.filePath(QStringLiteral("old/localData.db")), statements);
        QCOMPARE(shape(), fresh);
        QSqlQuery query(base().database());
        if (statements.join(QString()).contains(QLatin1String("kept"))) {
            QVERIFY(query.exec(QStringLiteral("SELECT jid FROM latestfriendnew")) && query.next());
            QCOMPARE(query.value(0).toString(), QStringLiteral("kept"));
        }
        if (statements.first().contains(QLatin1String("hostthings")))
            QVERIFY(query.exec(QStringLiteral("SELECT a FROM hostthings")));
        QVERIFY(QFileInfo(m_user->folder.filePath(QStringLiteral("old")))
                    .absoluteDir()
                    .entryList({QStringLiteral("*damaged*")})
                    .isEmpty());
    }

    void damagedFilesAreKeptUnderANameThatIsTold_data()
    {
        const Rows<QString> row{"how"};
        row("no database", "text");
        row("cut", "cut");
        row("page overwritten", "page");
        row("another program's table", "foreign");
    }
    void damagedFilesAreKeptUnderANameThatIsTold()
    {
        QFETCH(QString, how);
        QSet<QString> many;
        for (int i = 0; i < 3000; ++i)
            many.insert(QStringLiteral("somebody%1@corp.example").arg(i));
        QVERIFY(SessionSettings::replaceMuted(many));
        base().close();
        QByteArray bytes = contentOf(m_user->file());
        QVERIFY(bytes.size() > 100000);
        if (how == QLatin1String("text"))
            bytes = QByteArray("only a text of some length\n").repeated(200);
        else if (how == QLatin1String("cut"))
            bytes.truncate(bytes.size() / 2);
        else if (how == QLatin1String("page"))
            bytes.replace(40960, 40960, QByteArray(40960, '\x5a'));
        writeFile(m_user->file(), bytes);
        if (how == QLatin1String("foreign")) {
            QVERIFY(QFile::remove(m_user->file()));
            makeFile(m_user->file(), {QStringLiteral("CREATE TABLE latestfriendnew (id, name)")});
            bytes = contentOf(m_user->file());
        }

        QSignalSpy told(&base(), &LocalDatabase::fileSetAside);
        QVERIFY(base().isOpen());
        QVERIFY(SessionSettings::muted().isEmpty());
        QVERIFY(SessionSettings::setMuted(QStringLiteral("a@d"), true));
        QCOMPARE(damagedIn(*m_user).size(), 1);
        const QString kept = QFileInfo(m_user->file()).dir().filePath(damagedIn(*m_user).first());
        QCOMPARE(contentOf(kept), bytes);
        QTRY_COMPARE(told.size(), 1);
        QCOMPARE(told.first().first().toString(), kept);
    }

    void aJournalGoesWithItsDamagedFile_data()
    {
        const Rows<QString> row{"suffix"};
        row("write-ahead", "-wal");
        row("of an older version", "-journal");
    }
    // What a journal holds that belongs to another file must not get into the new one.
    void aJournalGoesWithItsDamagedFile()
    {
        QFETCH(QString, suffix);
        QVERIFY(SessionSettings::setMuted(QStringLiteral("a@d"), true));
        const QByteArray journal = contentOf(m_user->file() + QLatin1String("-wal"));
        QVERIFY(!journal.isEmpty());
        base().close();
        writeFile(m_user->file(), QByteArray("a text").repeated(1000));
        writeFile(m_user->file() + suffix, journal);
        QVERIFY(base().isOpen());
        QVERIFY(SessionSettings::muted().isEmpty());
        const QDir folder = QFileInfo(m_user->file()).dir();
        const QStringList kept = folder.entryList({QStringLiteral("*.damaged-*") + suffix});
        QCOMPARE(kept.size(), 1);
        QCOMPARE(contentOf(folder.filePath(kept.first())), journal);
    }

    void everyUserHasADatabaseOfTheirOwn()
    {
        QSignalSpy opened(&base(), &LocalDatabase::opened);
        QVERIFY(SessionSettings::setMuted(QStringLiteral("a@d"), true));
        m_user->host.user = QStringLiteral("u2");
        QVERIFY(!SessionSettings::isMuted(QStringLiteral("a@d")));
        m_user->host.user.clear();
        QVERIFY(!base().isOpen());
        QVERIFY(!SessionSettings::setMuted(QStringLiteral("a@d"), true));
        m_user->host.user = QStringLiteral("../u1");
        QVERIFY(!base().isOpen());
        m_user->host.user = QStringLiteral("u1");
        QVERIFY(SessionSettings::isMuted(QStringLiteral("a@d")));
        QTRY_COMPARE(opened.size(), 3);
    }

    void theHostsConnectionIsUsedAsLongAsItIsOpen()
    {
        const QString file = m_user->folder.filePath(QStringLiteral("host.db"));
        QVERIFY(SessionSettings::setMuted(QStringLiteral("own@d"), true));
        {
            QSqlDatabase given =
                QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("given"));
            given.setDatabaseName(file);
            QVERIFY(given.open());
            m_user->host.database = given;
            QVERIFY(!SessionSettings::isMuted(QStringLiteral("own@d")));
            QVERIFY(SessionSettings::setMuted(QStringLiteral("given@d"), true));
            base().close();
            QVERIFY(given.isOpen());
            exec(given, QStringLiteral("SELECT jid FROM latestfriendnew"));
            // Opened anew: what was prepared is void.
            QVERIFY(SessionSettings::isMuted(QStringLiteral("given@d")));
            given.close();
            QVERIFY(given.open());
            SessionSettings::isMuted(QStringLiteral("given@d"));
            QVERIFY(SessionSettings::isMuted(QStringLiteral("given@d")));
            given.close();
            m_user->host.database = QSqlDatabase();
        }
        QVERIFY(SessionSettings::isMuted(QStringLiteral("own@d")));
        base().close();
        QSqlDatabase::removeDatabase(QStringLiteral("given"));
    }

    void ofATransactionThatFailsNothingStays()
    {
        QVERIFY(!base().inTransaction([] {
            SessionSettings::setMuted(QStringLiteral("a@d"), true);
            base().inTransaction([] { return false; });
            return true; // the part has failed it
        }));
        QVERIFY(!SessionSettings::isMuted(QStringLiteral("a@d")));
        QVERIFY(SessionSettings::setMuted(QStringLiteral("b@d"), true));
    }

    void withoutADatabaseTheLogSaysSo()
    {
        m_user->host.baseFolder = m_user->folder.filePath(QStringLiteral("plain"));
        writeFile(m_user->host.baseFolder, "a file where the folder should be");
        LogCapture log(m_user->host);
        QVERIFY(!base().isOpen());
        QVERIFY(!SessionSettings::setMuted(QStringLiteral("a@d"), true));
        QVERIFY(!SessionSettings::isMuted(QStringLiteral("a@d")));
        QVERIFY(log.linesWith("SessionSettings::isMuted(),ERROR").size() == 1);
        QCOMPARE(log.linesWith("cannot be made").size(), 1); // tried once
    }

    void aReadOnlyDiskChangesNothing()
    {
        SmallFileSystem disk(m_user->folder.filePath(QStringLiteral("small")),
                             QStringLiteral("1m"));
        if (!disk.isMounted())
            QSKIP("this user may mount no file system");
        const auto letGo = qScopeGuard([] { base().close(); });
        m_user->host.baseFolder = disk.folder();
        QVERIFY(SessionSettings::setMuted(QStringLiteral("a@d"), true));
        base().close();
        QVERIFY(disk.makeReadOnly());
        QVERIFY(!SessionSettings::setMuted(QStringLiteral("b@d"), true));
        m_user->host.user = QStringLiteral("new");
        QVERIFY(!base().isOpen());
    }

    // One of them would mute everybody.
    void mutedRowsWithoutAJidAreDropped()
    {
        makeFile(m_user->file(),
                 {QStringLiteral("CREATE TABLE sessionsetting (sessionJid VARCHAR(100) primary "
                                 "key, isNotHint VARCHAR(2), theirs INT)"),
                  QStringLiteral("INSERT INTO sessionsetting VALUES (NULL, 'T', 1)"),
                  QStringLiteral("INSERT INTO sessionsetting VALUES ('a@d', 'T', 2)")});
        QCOMPARE(SessionSettings::muted(), QSet<QString>{QStringLiteral("a@d")});
        // Replacing leaves what others keep in the rows.
        QVERIFY(SessionSettings::replaceMuted({QStringLiteral("b@d"), QString()}));
        QCOMPARE(SessionSettings::muted(), QSet<QString>{QStringLiteral("b@d")});
        QSqlQuery query(base().database());
        QVERIFY(query.exec(
            QStringLiteral("SELECT theirs FROM sessionsetting WHERE sessionJid = 'a@d'")));
        QVERIFY(query.next());
        QCOMPARE(query.value(0).toInt(), 2);
    }

private:
    QScopedPointer<LocalUser> m_user;
};

FRIENDUI_TEST(TstLocalDatabase)
#include "tst_localdatabase.moc"
