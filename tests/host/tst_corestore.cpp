// The embedded core's file: permissions, damage, versions, transactions.
#include "common/platform.h"
#include "host/core/corestore.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QTemporaryDir>

namespace {
// Every table and index with its columns, in a fixed order.
QStringList shapeOf(CoreStore *store)
{
    QStringList shape;
    QSqlQuery query = store->prepared(
        QStringLiteral("SELECT m.name||' '||ifnull(m.sql,'') FROM sqlite_master m ORDER BY 1"));
    if (store->run(&query)) {
        while (query.next())
            shape.append(query.value(0).toString());
    }
    return shape;
}
} // namespace

class TstCoreStore : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder.reset(new QTemporaryDir);
        m_file = m_folder->filePath(QStringLiteral("sub/core.db"));
    }

    void onlyTheOwnerMayRead()
    {
        CoreStore store(m_file);
        QString problem;
        QVERIFY2(store.open(&problem), qPrintable(problem));
        QVERIFY(store.setMeta(QStringLiteral("a"), QStringLiteral("b")));
        for (const QFileInfo &file : QFileInfo(m_file).dir().entryInfoList(QDir::Files))
            QVERIFY2(Platform::isOwnerOnly(file.filePath()), qPrintable(file.fileName()));
    }

    void everyOlderVersionIsUpgradedToTheFreshShape()
    {
        QString problem;
        CoreStore fresh(m_folder->filePath(QStringLiteral("fresh.db")));
        QVERIFY(fresh.open(&problem));
        const QStringList shape = shapeOf(&fresh);
        QVERIFY(shape.size() > 7);

        for (int version = 1; version < CoreStore::schemaSteps().size(); ++version) {
            const QString name = m_folder->filePath(QStringLiteral("v%1.db").arg(version));
            {
                QSqlDatabase old =
                    QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("old"));
                old.setDatabaseName(name);
                QVERIFY(old.open());
                QSqlQuery query(old);
                for (int step = 0; step < version; ++step) {
                    for (const QString &statement : CoreStore::schemaSteps().at(step))
                        QVERIFY2(query.exec(statement), qPrintable(query.lastError().text()));
                }
                QVERIFY(query.exec(QStringLiteral("INSERT INTO meta VALUES('kept','yes')")));
                QVERIFY(query.exec(QStringLiteral("PRAGMA user_version=%1").arg(version)));
            }
            QSqlDatabase::removeDatabase(QStringLiteral("old"));
            CoreStore upgraded(name);
            QVERIFY2(upgraded.open(&problem), qPrintable(problem));
            QCOMPARE(shapeOf(&upgraded), shape);
            QCOMPARE(upgraded.meta(QStringLiteral("kept")), QStringLiteral("yes"));
            QVERIFY(upgraded.notice().isEmpty());
        }
    }

    void damagedFilesAreKeptUnderANameThatIsTold_data()
    {
        const Rows<QString> row{"how"};
        row("no database at all", "text");
        row("cut in the middle", "cut");
        row("page overwritten", "page");
        row("another program's tables", "foreign");
    }
    void damagedFilesAreKeptUnderANameThatIsTold()
    {
        QFETCH(QString, how);
        QString problem;
        {
            CoreStore store(m_file);
            QVERIFY(store.open(&problem));
            QVERIFY(store.inTransaction([&] {
                for (int i = 0; i < 3000; ++i)
                    store.setMeta(QString::number(i), QString(80, QLatin1Char('x')));
                return true;
            }));
        }
        QByteArray bytes = contentOf(m_file);
        QVERIFY(bytes.size() > 100000);
        if (how == QLatin1String("text"))
            bytes = QByteArray("not a database, only a text of some length\n").repeated(200);
        else if (how == QLatin1String("cut"))
            bytes.truncate(bytes.size() / 2);
        else if (how == QLatin1String("page"))
            bytes.replace(8192, 60000, QByteArray(60000, '\x5a'));
        writeFile(m_file, bytes);
        if (how == QLatin1String("foreign")) {
            QFile::remove(m_file);
            {
                QSqlDatabase other =
                    QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("other"));
                other.setDatabaseName(m_file);
                QVERIFY(other.open());
                QSqlQuery(other).exec(QStringLiteral("CREATE TABLE theirs(a)"));
            }
            QSqlDatabase::removeDatabase(QStringLiteral("other"));
            bytes = contentOf(m_file);
        }

        CoreStore store(m_file);
        QVERIFY2(store.open(&problem), qPrintable(problem));
        QCOMPARE(store.meta(QStringLiteral("1")), QString()); // a new one was begun
        const QDir folder = QFileInfo(m_file).dir();
        const QStringList kept = folder.entryList({QStringLiteral("core.db.damaged-*")});
        QVERIFY(!kept.isEmpty());
        QVERIFY2(store.notice().contains(kept.first()), qPrintable(store.notice()));
        QCOMPARE(contentOf(folder.filePath(kept.first())), bytes);
    }

    void filesThatCannotServeAreRefusedUntouched()
    {
        QString problem;
        {
            CoreStore store(m_file);
            QVERIFY(store.open(&problem));
            QVERIFY(store.run(QStringLiteral("PRAGMA user_version=999")));
        }
        CoreStore newer(m_file);
        QVERIFY(!newer.open(&problem));
        QVERIFY2(problem.contains(QLatin1String("newer")), qPrintable(problem));
        QCOMPARE(QFileInfo(m_file).dir().entryList({QStringLiteral("*damaged*")}), QStringList());

        // Another program holds it: busy is not damaged.
        const QString held = m_folder->filePath(QStringLiteral("held.db"));
        {
            QSqlDatabase other =
                QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("holder"));
            other.setDatabaseName(held);
            QVERIFY(other.open());
            QVERIFY(QSqlQuery(other).exec(QStringLiteral("BEGIN EXCLUSIVE")));
            CoreStore busy(held);
            problem.clear();
            QVERIFY(!busy.open(&problem));
            QVERIFY(!problem.isEmpty());
        }
        QSqlDatabase::removeDatabase(QStringLiteral("holder"));
        QCOMPARE(QFileInfo(held).dir().entryList({QStringLiteral("*damaged*")}), QStringList());

        // A file where the folder should be.
        writeFile(m_folder->filePath(QStringLiteral("plain")), "x");
        CoreStore nowhere(m_folder->filePath(QStringLiteral("plain/core.db")));
        problem.clear();
        QVERIFY(!nowhere.open(&problem));
        QVERIFY(!problem.isEmpty());
    }

    void transactionsAreAllOrNothing()
    {
        QString problem;
        CoreStore store(m_file);
        QVERIFY(store.open(&problem));
        const QString key = QStringLiteral("k");
        QVERIFY(!store.inTransaction([&] {
            store.inTransaction([&] { return store.setMeta(key, QStringLiteral("inner")); });
            return false;
        }));
        QCOMPARE(store.meta(key), QString());
        QVERIFY(store.inTransaction([&] { return store.setMeta(key, QStringLiteral("x")); }));
        QCOMPARE(store.meta(key), QStringLiteral("x"));
        QCOMPARE(store.nextNumber(QStringLiteral("n"), 5), 5);
        QCOMPARE(store.nextNumber(QStringLiteral("n"), 5), 6);
    }

private:
    QScopedPointer<QTemporaryDir> m_folder;
    QString m_file;
};

FRIENDUI_TEST(TstCoreStore)
#include "tst_corestore.moc"
