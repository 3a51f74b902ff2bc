#include "common/localdatabase.h"

#include "common/clientpaths.h"
#include "common/localtables.h"
#include "common/logging.h"
#include "common/postroutine.h"

#include <QSqlDriver>

namespace {
const QString ConnectionName = QStringLiteral("VeltraIMLocal");
const QString MutedNobody = QStringLiteral("SELECT 1 FROM sessionsetting WHERE sessionJid IS NULL");
const QString UnmuteNobody = QStringLiteral("DELETE FROM sessionsetting WHERE sessionJid IS NULL");
const QString Timeless = QStringLiteral("SELECT 1 FROM latestfriendnew WHERE time IS NULL");
const QString EmptyTime = QStringLiteral("UPDATE latestfriendnew SET time = '' WHERE time IS NULL");
constexpr int RetryMs = 5000; // trying takes a second while another process holds the file

SqliteFile::Outcome prepareTables(SqliteConnection *base, QString *problem)
{
    const SqliteFile::Outcome outcome = bringUpToDate(base, LocalTables::all(), problem);
    if (outcome != SqliteFile::Usable)
        return outcome;
    // Older tables allow it, and to "NOT IN" one NULL is everybody.
    if (base->value(MutedNobody).isValid())
        base->run(UnmuteNobody, {}, "LocalDatabase::open");
    // A page is read from a time on, and NULL is neither before nor behind one.
    if (base->value(Timeless).isValid())
        base->run(EmptyTime, {}, "LocalDatabase::open");
    return outcome;
}
} // namespace

LocalDatabase::LocalDatabase() = default;
LocalDatabase::~LocalDatabase() = default;

LocalDatabase &LocalDatabase::instance()
{
    static auto *only = [] {
        // While Qt's own list of connections still stands.
        static const PostRoutine closing([] { instance().close(); });
        return new LocalDatabase;
    }();
    return *only;
}

LocalDatabase::Source LocalDatabase::currentSource()
{
    Source source;
    source.user = ctx().userId();
    if (source.user.isEmpty())
        return source;
    const QSqlDatabase given = ctx().userDatabase();
    if (given.isOpen()) {
        source.file = given.databaseName();
        source.givenConnection = given.connectionName();
        source.givenDriver = given.driver();
    } else {
        source.file = ClientPaths::localDatabaseFile();
    }
    return source;
}

void LocalDatabase::follow()
{
    const Source wanted = currentSource();
    if (wanted == m_source && (m_connection || !m_mayRetry.hasExpired()))
        return;
    close();
    m_source = wanted;
    if (wanted.file.isEmpty())
        return;
    if (wanted.givenConnection.isEmpty() ? openOwn() : takeGiven()) {
        // Not inside whatever asked for the database.
        QMetaObject::invokeMethod(this, &LocalDatabase::opened, Qt::QueuedConnection);
        return;
    }
    m_connection.reset();
    m_mayRetry.setRemainingTime(RetryMs);
}

bool LocalDatabase::openOwn()
{
    auto file = std::make_unique<SqliteFile>(m_source.file, ConnectionName);
    QString problem;
    const bool done =
        file->open([&file](QString *why) { return prepareTables(file.get(), why); }, &problem);
    const QString damaged = file->setAsideAs();
    if (!damaged.isEmpty()) {
        QMetaObject::invokeMethod(
            this, [this, damaged] { emit fileSetAside(damaged); }, Qt::QueuedConnection);
    }
    m_connection = std::move(file);
    return done;
}

bool LocalDatabase::takeGiven()
{
    // How it is opened, and what becomes of it when it is damaged, is the host's affair.
    m_connection = std::make_unique<SqliteConnection>(m_source.givenConnection);
    QString problem;
    if (prepareTables(m_connection.get(), &problem) == SqliteFile::Usable)
        return true;
    LOG_ERROR(logText(problem));
    return false;
}

QSqlDatabase LocalDatabase::database()
{
    follow();
    return m_connection ? m_connection->database() : QSqlDatabase();
}

QSqlQuery LocalDatabase::prepared(const QString &statement)
{
    follow();
    return m_connection ? m_connection->prepared(statement) : QSqlQuery(QSqlDatabase());
}

bool LocalDatabase::run(QSqlQuery *query, const char *caller)
{
    follow();
    if (m_connection)
        return m_connection->run(query, caller);
    LOG_ERROR(caller << "(),ERROR: there is no local database");
    return false;
}

bool LocalDatabase::run(const QString &statement, const QVariantList &values, const char *caller)
{
    follow();
    if (m_connection)
        return m_connection->run(statement, values, caller);
    LOG_ERROR(caller << "(),ERROR: there is no local database");
    return false;
}

bool LocalDatabase::inTransaction(const std::function<bool()> &work)
{
    follow();
    return m_connection && m_connection->inTransaction(work);
}

void LocalDatabase::close()
{
    m_connection.reset();
    m_source = Source();
    m_mayRetry.setRemainingTime(0);
}
