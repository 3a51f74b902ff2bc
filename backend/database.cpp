#include "backend/database.h"

#include "backend/datafolder.h"
#include "backend/schema.h"
#include "common/platform.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace {
constexpr int BusyTimeout = 5000; // ms

[[noreturn]] void raise(sqlite3 *handle)
{
    const int code = handle ? sqlite3_errcode(handle) : SQLITE_NOMEM;
    if (code == SQLITE_NOTADB || code == SQLITE_CORRUPT)
        throw DatabaseDamaged(sqlite3_errmsg(handle));
    throw DatabaseError(handle ? sqlite3_errmsg(handle) : "out of memory");
}

void execute(sqlite3 *handle, const char *sql)
{
    if (sqlite3_exec(handle, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        raise(handle);
}

void setAside(const QString &file)
{
    const QString aside = file + QStringLiteral(".damaged");
    QFile::remove(aside);
    QFile::rename(file, aside);
    for (const char *companion : {"-wal", "-shm"})
        QFile::remove(file + QLatin1String(companion));
}

void upgrade(Transaction &transaction)
{
    const std::vector<const char *> &steps = schemaSteps();
    const qint64 count = qint64(steps.size());
    qint64 taken = 0;
    {
        Statement version = transaction.prepare("PRAGMA user_version");
        if (version.next())
            taken = version.number(0);
    }
    if (taken > count)
        throw DatabaseError("the file belongs to a newer back end");
    for (qint64 step = taken; step < count; ++step)
        transaction.prepare(steps[size_t(step)]).run();
    const std::string mark = "PRAGMA user_version = " + std::to_string(count);
    transaction.prepare(mark.c_str()).run();
}
} // namespace

Database::~Database()
{
    close();
}

void Database::close()
{
    sqlite3_close(m_handle);
    m_handle = nullptr;
}

bool Database::open(const QString &file, QString *problem)
{
    for (bool mayBeDamaged : {true, false}) {
        try {
            return openOnce(file, problem);
        } catch (const DatabaseError &error) {
            close();
            *problem = file + QStringLiteral(": ") + QString::fromUtf8(error.what());
            if (!mayBeDamaged || !dynamic_cast<const DatabaseDamaged *>(&error))
                return false;
            setAside(file);
        }
    }
    return false;
}

bool Database::openOnce(const QString &file, QString *problem)
{
    close();
    if (!touchOwnerOnly(file, problem))
        return false;
    // Its locking is the Transaction's, so that SQLite need not lock as well.
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(Platform::nativePath(file).toUtf8().constData(), &m_handle, flags,
                        nullptr) != SQLITE_OK)
        raise(m_handle);
    sqlite3_busy_timeout(m_handle, BusyTimeout);
    execute(m_handle, "PRAGMA journal_mode = WAL");
    execute(m_handle, "PRAGMA synchronous = NORMAL");
    execute(m_handle, "PRAGMA foreign_keys = ON");
    Transaction transaction(*this);
    {
        Statement check = transaction.prepare("PRAGMA quick_check(1)");
        if (!check.next() || check.text(0) != QLatin1String("ok"))
            throw DatabaseDamaged("the file is damaged");
    }
    upgrade(transaction);
    transaction.commit();
    return true;
}

Statement::Statement(sqlite3 *handle, const char *sql) : m_handle(handle)
{
    if (sqlite3_prepare_v2(handle, sql, -1, &m_statement, nullptr) != SQLITE_OK)
        fail();
}

Statement::Statement(Statement &&other) noexcept
    : m_handle(other.m_handle), m_statement(other.m_statement), m_bound(other.m_bound)
{
    other.m_statement = nullptr;
}

Statement::~Statement()
{
    sqlite3_finalize(m_statement);
}

void Statement::fail() const
{
    raise(m_handle);
}

Statement &Statement::bind(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    if (sqlite3_bind_text(m_statement, ++m_bound, bytes.constData(), bytes.size(),
                          SQLITE_TRANSIENT) != SQLITE_OK)
        fail();
    return *this;
}

Statement &Statement::bind(const QByteArray &blob)
{
    if (sqlite3_bind_blob(m_statement, ++m_bound, blob.constData(), blob.size(),
                          SQLITE_TRANSIENT) != SQLITE_OK)
        fail();
    return *this;
}

Statement &Statement::bind(qint64 number)
{
    if (sqlite3_bind_int64(m_statement, ++m_bound, number) != SQLITE_OK)
        fail();
    return *this;
}

bool Statement::next()
{
    const int result = sqlite3_step(m_statement);
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        fail();
    return result == SQLITE_ROW;
}

void Statement::run()
{
    while (next()) {
    }
    sqlite3_reset(m_statement);
    m_bound = 0;
}

QString Statement::text(int column) const
{
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(m_statement, column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(m_statement, column));
}

QByteArray Statement::blob(int column) const
{
    const auto *bytes = static_cast<const char *>(sqlite3_column_blob(m_statement, column));
    return QByteArray(bytes, sqlite3_column_bytes(m_statement, column));
}

qint64 Statement::number(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

Transaction::Transaction(Database &database) : m_lock(database.m_mutex), m_handle(database.m_handle)
{
    if (!m_handle)
        throw DatabaseError("the database is closed");
    execute(m_handle, "BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (!m_done)
        sqlite3_exec(m_handle, "ROLLBACK", nullptr, nullptr, nullptr);
}

Statement Transaction::prepare(const char *sql)
{
    return Statement(m_handle, sql);
}

int Transaction::changes() const
{
    return sqlite3_changes(m_handle);
}

qint64 Transaction::lastId() const
{
    return sqlite3_last_insert_rowid(m_handle);
}

void Transaction::commit()
{
    execute(m_handle, "COMMIT");
    m_done = true;
}
