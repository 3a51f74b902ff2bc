#include "host/core/corestore.h"

#include "common/logging.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSqlError>

namespace {
constexpr int BusyTimeout = 1000; // ms; the window stands still while it waits

const char Integrity[] = "PRAGMA quick_check(1)";
const char SetUp[] = "PRAGMA journal_mode=WAL";
const char FasterSync[] = "PRAGMA synchronous=NORMAL";
const char ReadVersion[] = "PRAGMA user_version";
const char WriteVersion[] = "PRAGMA user_version=%1";
const char CountTables[] = "SELECT count(*) FROM sqlite_master";
const char ReadMeta[] = "SELECT value FROM meta WHERE key=?";
const char WriteMeta[] = "INSERT OR REPLACE INTO meta(key,value) VALUES(?,?)";

QString atomicNumber()
{
    static int number = 0;
    return QString::number(++number);
}

// The columns take no NULL, which a null string would be.
void bindAll(QSqlQuery *query, const QVariantList &values)
{
    for (const QVariant &value : values) {
        const bool isNullText = value.type() == QVariant::String && value.toString().isNull();
        query->addBindValue(isNullText ? QVariant(QString::fromLatin1("")) : value);
    }
}

bool isDamage(const QSqlError &error)
{
    // SQLITE_CORRUPT and SQLITE_NOTADB
    return error.nativeErrorCode() == QLatin1String("11") ||
           error.nativeErrorCode() == QLatin1String("26");
}
} // namespace

const QVector<QStringList> &CoreStore::schemaSteps()
{
    static const QVector<QStringList> steps = {
        {
            QStringLiteral("CREATE TABLE meta(key TEXT PRIMARY KEY, value TEXT NOT NULL) "
                           "WITHOUT ROWID"),
            QStringLiteral("CREATE TABLE rostergroups(id TEXT NOT NULL, isInner INTEGER NOT NULL, "
                           "name TEXT NOT NULL, PRIMARY KEY(isInner, id))"),
            QStringLiteral("CREATE TABLE contacts(jid TEXT PRIMARY KEY, remark TEXT NOT NULL, "
                           "groupId TEXT NOT NULL, groupName TEXT NOT NULL, "
                           "subscription TEXT NOT NULL, nickName TEXT NOT NULL, "
                           "headPath TEXT NOT NULL, onJob INTEGER NOT NULL, "
                           "account TEXT NOT NULL, companyCode TEXT NOT NULL, "
                           "outside INTEGER NOT NULL, sign TEXT NOT NULL, "
                           "spell TEXT NOT NULL)"),
            QStringLiteral(
                "CREATE TABLE profiles(jid TEXT PRIMARY KEY, userName TEXT NOT NULL, "
                "photoName TEXT NOT NULL, nickName TEXT NOT NULL, sign TEXT NOT NULL, "
                "status INTEGER NOT NULL, sex TEXT NOT NULL, bday TEXT NOT NULL, "
                "locality TEXT NOT NULL, empStatus INTEGER NOT NULL, orgCount INTEGER NOT NULL, "
                "employeeCode TEXT NOT NULL, duty TEXT NOT NULL, mobile TEXT NOT NULL, "
                "otherPhone TEXT NOT NULL, personalMobile TEXT NOT NULL, email TEXT NOT NULL, "
                "orgId TEXT NOT NULL, orgName TEXT NOT NULL, companyName TEXT NOT NULL, "
                "isAdmin INTEGER NOT NULL, leaderId TEXT NOT NULL, version INTEGER NOT NULL, "
                "leaderName TEXT NOT NULL)"),
            QStringLiteral(
                "CREATE TABLE rooms(roomJid TEXT PRIMARY KEY, roomName TEXT NOT NULL, "
                "memberCount TEXT NOT NULL, headImage TEXT NOT NULL, classify INTEGER NOT NULL, "
                "ownerJid TEXT NOT NULL, managerJid TEXT NOT NULL, createTime TEXT NOT NULL, "
                "version TEXT NOT NULL, topsigntype TEXT NOT NULL, topsigndate TEXT NOT NULL, "
                "noticesubject TEXT NOT NULL, noticecontent TEXT NOT NULL, "
                "localExist INTEGER NOT NULL, isExist INTEGER NOT NULL, "
                "isOpenBarCode INTEGER NOT NULL, isOpenJoinValidate INTEGER NOT NULL, "
                "isAutoRelease INTEGER NOT NULL, isOpenWaterMark INTEGER NOT NULL, "
                "isInnerMuc INTEGER NOT NULL, companyCode TEXT NOT NULL, "
                "forbidden INTEGER NOT NULL)"),
            QStringLiteral("CREATE TABLE roommembers(roomJid TEXT NOT NULL, jid TEXT NOT NULL, "
                           "name TEXT NOT NULL, role INTEGER NOT NULL, PRIMARY KEY(roomJid, jid))"),
            QStringLiteral(
                "CREATE TABLE messages(id INTEGER PRIMARY KEY, sessionJid TEXT NOT NULL, "
                "fromJid TEXT NOT NULL, toJid TEXT NOT NULL, body TEXT NOT NULL, "
                "time TEXT NOT NULL, kind INTEGER NOT NULL, displayName TEXT NOT NULL, "
                "icon TEXT NOT NULL, appKey TEXT NOT NULL)"),
            QStringLiteral("CREATE INDEX messagesBySession ON messages(sessionJid, id)"),
        },
        {
            // The category an import last gave a contact, to tell the file's change
            // from the user's.
            QStringLiteral("CREATE TABLE imported(jid TEXT PRIMARY KEY, category TEXT NOT NULL)"),
        },
    };
    return steps;
}

CoreStore::CoreStore(const QString &fileName)
    : m_fileName(fileName), m_connection(QStringLiteral("core-") + atomicNumber())
{
}

CoreStore::~CoreStore()
{
    close();
}

void CoreStore::close()
{
    if (!m_database.isValid())
        return;
    m_prepared.clear();
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connection);
}

bool CoreStore::open(QString *problem)
{
    if (!QDir().mkpath(QFileInfo(m_fileName).absolutePath())) {
        *problem = QStringLiteral("The folder %1 cannot be made.")
                       .arg(QFileInfo(m_fileName).absolutePath());
        return false;
    }
    Outcome outcome = tryOpen(problem);
    if (outcome == Damaged) {
        close();
        if (!setAside(problem))
            return false;
        outcome = tryOpen(problem);
    }
    return outcome == Usable;
}

CoreStore::Outcome CoreStore::tryOpen(QString *problem)
{
    // Made here, so that nobody else can read it for even a moment; the journal
    // files take over the permissions.
    QFile file(m_fileName);
    if (!file.open(QIODevice::ReadWrite)) {
        *problem = QStringLiteral("%1: %2").arg(m_fileName, file.errorString());
        return Refused;
    }
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    file.close();

    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    m_database.setDatabaseName(m_fileName);
    m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(BusyTimeout));
    if (!m_database.open()) {
        *problem = QStringLiteral("%1: %2").arg(m_fileName, m_database.lastError().text());
        return isDamage(m_database.lastError()) ? Damaged : Refused;
    }
    QSqlQuery query(m_database);
    const auto failed = [&](const char *statement) {
        if (query.exec(QString::fromLatin1(statement)))
            return false;
        *problem = QStringLiteral("%1: %2").arg(m_fileName, query.lastError().text());
        return true;
    };
    if (failed(Integrity) || !query.next())
        return isDamage(query.lastError()) ? Damaged : Refused;
    if (query.value(0).toString() != QLatin1String("ok"))
        return Damaged;
    const Outcome outcome = prepareSchema(problem);
    // Last, because it writes: a file that cannot serve stays as it is.
    if (outcome == Usable && (failed(SetUp) || failed(FasterSync)))
        return Refused;
    return outcome;
}

CoreStore::Outcome CoreStore::prepareSchema(QString *problem)
{
    const QVariant stored = value(QString::fromLatin1(ReadVersion));
    const int version = stored.isValid() ? stored.toInt() : -1;
    if (version > schemaSteps().size()) {
        *problem =
            QStringLiteral("%1 was made by a newer version of this program.").arg(m_fileName);
        return Refused;
    }
    // Tables without a version: some other program's file.
    if (version < 0 || (version == 0 && value(QString::fromLatin1(CountTables)).toInt() != 0))
        return Damaged;
    if (version < schemaSteps().size() && !upgrade(version)) {
        *problem = QStringLiteral("%1 cannot be upgraded.").arg(m_fileName);
        return Refused;
    }
    return Usable;
}

bool CoreStore::upgrade(int from)
{
    return inTransaction([this, from] {
        for (int step = from; step < schemaSteps().size(); ++step) {
            for (const QString &statement : schemaSteps().at(step)) {
                if (!run(statement))
                    return false;
            }
        }
        return run(QString::fromLatin1(WriteVersion).arg(schemaSteps().size()));
    });
}

bool CoreStore::setAside(QString *problem)
{
    const QString stem = m_fileName + QStringLiteral(".damaged-") +
                         QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    QString target = stem;
    for (int i = 2; QFile::exists(target); ++i)
        target = stem + QLatin1Char('-') + QString::number(i);
    if (!QFile::rename(m_fileName, target)) {
        *problem = QStringLiteral("%1 is damaged and cannot be renamed.").arg(m_fileName);
        return false;
    }
    // They belong to the damaged file and would be replayed into the new one.
    for (const char *suffix : {"-wal", "-shm"}) {
        const QString journal = m_fileName + QString::fromLatin1(suffix);
        if (QFile::exists(journal))
            QFile::rename(journal, target + QString::fromLatin1(suffix));
    }
    m_notice =
        QCoreApplication::translate(
            "CoreStore", "The data file was damaged. It was kept as %1, and a new one was begun.")
            .arg(target);
    LOG_ERROR("the core's data file was damaged and is kept as " << logText(target));
    return true;
}

QSqlQuery CoreStore::prepared(const QString &statement) const
{
    const auto known = m_prepared.constFind(statement);
    if (known != m_prepared.constEnd())
        return *known;
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (query.prepare(statement))
        m_prepared.insert(statement, query);
    else
        LOG_ERROR("not prepared: " << statement << ": " << logText(query.lastError().text()));
    return query;
}

bool CoreStore::run(QSqlQuery *query) const
{
    if (query->exec())
        return true;
    LOG_ERROR("failed: " << query->lastQuery() << ": " << logText(query->lastError().text()));
    return false;
}

bool CoreStore::run(const QString &statement, const QVariantList &values) const
{
    QSqlQuery query = prepared(statement);
    bindAll(&query, values);
    return run(&query);
}

QVariant CoreStore::value(const QString &statement, const QVariantList &values) const
{
    QSqlQuery query = prepared(statement);
    bindAll(&query, values);
    QVariant result;
    if (run(&query) && query.next())
        result = query.value(0);
    query.finish(); // an open read would keep the journal from being folded in
    return result;
}

bool CoreStore::inTransaction(const std::function<bool()> &work)
{
    if (m_inTransaction)
        return work();
    if (!m_database.transaction()) {
        LOG_ERROR("no transaction: " << logText(m_database.lastError().text()));
        return false;
    }
    m_inTransaction = true;
    const bool done = work();
    m_inTransaction = false;
    if (done && m_database.commit())
        return true;
    m_database.rollback();
    return false;
}

QString CoreStore::meta(const QString &key) const
{
    return value(QString::fromLatin1(ReadMeta), {key}).toString();
}

bool CoreStore::setMeta(const QString &key, const QString &value)
{
    return run(QString::fromLatin1(WriteMeta), {key, value});
}

qint64 CoreStore::nextNumber(const QString &key, qint64 atLeast)
{
    const qint64 number = qMax(atLeast, meta(key).toLongLong() + 1);
    return setMeta(key, QString::number(number)) ? number : 0;
}
