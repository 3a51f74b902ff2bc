#include "common/sqlitefile.h"

#include "common/logging.h"
#include "common/platform.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSqlError>
#include <QUuid>

namespace {
const QString Integrity = QStringLiteral("PRAGMA quick_check(1)");
const QString WriteAhead = QStringLiteral("PRAGMA journal_mode=WAL");
const QString FasterSync = QStringLiteral("PRAGMA synchronous=NORMAL");

// SQLite's result codes
bool isDamage(const QSqlError &error)
{
    return error.nativeErrorCode() == QLatin1String("11") || // SQLITE_CORRUPT
           error.nativeErrorCode() == QLatin1String("26");   // SQLITE_NOTADB
}
bool isBusy(const QSqlError &error)
{
    return error.nativeErrorCode() == QLatin1String("5");
}
} // namespace

SqliteFile::SqliteFile(const QString &fileName, const QString &connectionName)
    : SqliteConnection(connectionName),
      m_fileName(fileName),
      m_isOwnConnection(!QSqlDatabase::contains(connectionName))
{
    if (m_isOwnConnection)
        QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
}

SqliteFile::~SqliteFile()
{
    forgetStatements();
    if (!m_isOwnConnection)
        return;
    close();
    QSqlDatabase::removeDatabase(connectionName());
}

QString SqliteFile::freeConnectionName(const char *purpose)
{
    return QString::fromLatin1(purpose) + QLatin1Char('-') +
           QUuid::createUuid().toString(QUuid::Id128);
}

void SqliteFile::close()
{
    forgetStatements();
    database().close();
}

bool SqliteFile::open(const Schema &schema, QString *problem)
{
    close();
    const bool done = openOrReplace(schema, problem);
    if (!done) {
        close();
        LOG_ERROR(logText(*problem));
    }
    return done;
}

bool SqliteFile::openOrReplace(const Schema &schema, QString *problem)
{
    const QString folder = QFileInfo(m_fileName).absolutePath();
    if (!QDir().mkpath(folder)) {
        *problem = QStringLiteral("The folder %1 cannot be made.").arg(folder);
        return false;
    }
    Outcome outcome = tryOpen(schema, problem);
    if (outcome != Damaged)
        return outcome == Usable;
    close();
    // Of two processes that find the damage, one makes the new file, which the
    // other must not take away again.
    QLockFile lock(m_fileName + QStringLiteral(".lock"));
    if (!lock.tryLock(BusyTimeout)) {
        *problem = QStringLiteral("%1 is damaged and in use.").arg(m_fileName);
        return false;
    }
    outcome = tryOpen(schema, problem);
    if (outcome == Damaged) {
        close();
        outcome = setAside(problem) ? tryOpen(schema, problem) : Refused;
    }
    return outcome == Usable;
}

SqliteFile::Outcome SqliteFile::make(QString *problem)
{
    // Before SQLite does: the journals take over the permissions.
    QFile file(m_fileName);
    // Another process may make it at this moment, which is as good.
    Platform::makeFileForOwner(m_fileName);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
        *problem = QStringLiteral("%1: %2").arg(m_fileName, file.errorString());
        return Refused;
    }
    // Found here, and not by SQLite, which would take the journal away.
    const QByteArray magic = QByteArrayLiteral("SQLite format 3\0");
    if (file.size() == 0 || file.read(magic.size()) == magic)
        return Usable;
    *problem = QStringLiteral("%1 is no database.").arg(m_fileName);
    return Damaged;
}

SqliteFile::Outcome SqliteFile::tryOpen(const Schema &schema, QString *problem)
{
    const Outcome made = make(problem);
    if (made != Usable)
        return made;
    QSqlDatabase base = database();
    const auto failure = [this, problem](const QSqlError &error) {
        *problem = QStringLiteral("%1: %2").arg(m_fileName, error.text());
        return isDamage(error) ? Damaged : Refused;
    };
    base.close();
    base.setDatabaseName(Platform::nativePath(m_fileName));
    base.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(BusyTimeout));
    if (!base.open())
        return failure(base.lastError());
    QSqlQuery query(base);
    if (!query.exec(Integrity) || !query.next())
        return failure(query.lastError());
    if (query.value(0).toString() != QLatin1String("ok")) {
        *problem = QStringLiteral("%1: %2").arg(m_fileName, query.value(0).toString());
        return Damaged;
    }
    query.finish();
    const Outcome outcome = schema(problem);
    // Last, because it writes: a file that cannot serve stays as it is. A process that
    // holds the file at this moment has changed the mode itself, or the next will.
    if (outcome == Usable &&
        ((!query.exec(WriteAhead) && !isBusy(query.lastError())) || !query.exec(FasterSync)))
        return failure(query.lastError());
    // Not every system gives them the permissions of their file. Reading makes them.
    query.exec(QStringLiteral("SELECT 1 FROM sqlite_master LIMIT 1"));
    query.finish();
    for (const char *suffix : {"-wal", "-shm"})
        Platform::restrictToOwner(m_fileName + QLatin1String(suffix));
    return outcome;
}

bool SqliteFile::setAside(QString *problem)
{
    const QString stem = m_fileName + QStringLiteral(".damaged-") +
                         QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    QString target = stem;
    for (int i = 2; QFile::exists(target); ++i)
        target = stem + QLatin1Char('-') + QString::number(i);
    // The journals belong to the damaged file and would be replayed into the new one.
    const QStringList suffixes{QString(), QStringLiteral("-wal"), QStringLiteral("-shm"),
                               QStringLiteral("-journal")};
    for (const QString &suffix : suffixes) {
        if (Platform::waitUntilClosed(m_fileName + suffix))
            continue;
        *problem = QStringLiteral("%1 is damaged and in use.").arg(m_fileName);
        return false;
    }
    for (const QString &suffix : suffixes) {
        if ((suffix.isEmpty() || QFile::exists(m_fileName + suffix)) &&
            !QFile::rename(m_fileName + suffix, target + suffix) && suffix.isEmpty()) {
            *problem = QStringLiteral("%1 is damaged and cannot be renamed.").arg(m_fileName);
            return false;
        }
    }
    m_setAsideAs = target;
    LOG_ERROR(logText(*problem) << ": the damaged file is kept as " << logText(target));
    return true;
}
