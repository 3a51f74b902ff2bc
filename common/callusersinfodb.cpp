#include "common/callusersinfodb.h"

#include "common/clientpaths.h"
#include "common/logging.h"

#include <QFileInfo>
#include <QSqlError>

namespace {
const QString ConnectionName = QStringLiteral("VeltraIMUser");

const QString Table = QStringLiteral("UserUIDInfo");
const QString HasTable =
    QStringLiteral("SELECT 1 FROM sqlite_master where type = 'table' and  name = ");
const QString Create = QStringLiteral("CREATE TABLE ");
const QString Columns =
    QStringLiteral("(Uid VARCHAR(20) PRIMARY KEY, Enterprise VARCHAR(20), Account VARCHAR(20), "
                   "PhoneNum VARCHAR(20), CreatedTime TimeStamp NOT NULL DEFAULT "
                   "(datetime('now','localtime')))");
const QString Select = QStringLiteral("SELECT * FROM ");
const QString Delete = QStringLiteral("DELETE FROM ");
const QString OfUid = QStringLiteral(" WHERE Uid = ");
const QString Insert = QStringLiteral("INSERT INTO ");
const QString InsertColumns =
    QStringLiteral(" (Uid, Enterprise ,Account, PhoneNum) VALUES (?, ?, ?, ?)");
const QString SelectAll = QStringLiteral("SELECT Uid, Enterprise, Account, PhoneNum FROM ");
const QString OldestFirst = QStringLiteral(" ORDER BY CreatedTime ASC");

// Without NUL, which would end the statement.
QString quoted(QString value)
{
    value.remove(QChar(0));
    value.replace(QLatin1Char('\''), QLatin1String("''"));
    return QLatin1Char('\'') + value + QLatin1Char('\'');
}

// The SET list; a part without a value is left out, and the first has no comma.
QString assignments(const QString &enterprise, const QString &account, const QString &phone)
{
    QString list;
    const auto add = [&list](const char *name, const QString &value) {
        list += QLatin1String(list.isEmpty() ? " " : " ,") + QLatin1String(name) + value;
    };
    if (!enterprise.isEmpty())
        add("Enterprise  = ", quoted(enterprise));
    if (!account.isEmpty())
        add("Account   = ", quoted(account));
    if (!phone.isEmpty())
        add("PhoneNum  = ", quoted(phone));
    add("CreatedTime = ", QStringLiteral("datetime('now','localtime')"));
    return list;
}
} // namespace

bool CAllUserInfoDB::open()
{
    QSqlDatabase database =
        QSqlDatabase::contains(ConnectionName)
            ? QSqlDatabase::database(ConnectionName, false)
            : QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), ConnectionName);
    if (ApplicationContext *host = hostContext())
        host->setAllUsersDatabase(database);
    const QString fileName = ClientPaths::allUsersDatabaseFile();
    const bool isOpen = m_file && database.isOpen() && m_file->fileName() == fileName &&
                        QFileInfo::exists(fileName);
    if (isOpen)
        return true;
    m_file = std::make_unique<SqliteFile>(fileName, ConnectionName);
    QString problem;
    return m_file->open([this](QString *why) { return makeTable(why); }, &problem);
}

SqliteFile::Outcome CAllUserInfoDB::makeTable(QString *problem)
{
    const char caller[] = "CAllUserInfoDB::open";
    QSqlQuery query(m_file->database());
    const auto isThere = [&] {
        return run(&query, HasTable + quoted(Table), caller, QString()) && query.next();
    };
    // Another process may make the table in between.
    if (isThere() || run(&query, Create + Table + Columns, caller, QString()) || isThere())
        return SqliteFile::Usable;
    *problem = QStringLiteral("%1 has no table and can get none.").arg(m_file->fileName());
    return SqliteFile::Refused;
}

QString CAllUserInfoDB::setAsideAs() const
{
    return m_file ? m_file->setAsideAs() : QString();
}

bool CAllUserInfoDB::run(QSqlQuery *query, const QString &statement, const char *caller,
                         const QString &key)
{
    query->setForwardOnly(true);
    return told(*query, query->exec(statement), caller, key);
}

bool CAllUserInfoDB::told(const QSqlQuery &query, bool done, const char *caller, const QString &key)
{
    // Not the statement: it holds phone numbers.
    if (!done)
        LOG_ERROR(caller << "(),ERROR:" << logText(query.lastError().text())
                         << ".uid=" << logText(key));
    return done;
}

bool CAllUserInfoDB::save(const QString &uid, const QString &enterprise, const QString &account,
                          const QString &phone)
{
    const char caller[] = "CAllUserInfoDB::save";
    if (!m_file || uid.isEmpty())
        return false;
    return m_file->inTransaction([&] {
        QSqlQuery query(m_file->database());
        if (!run(&query, Select + Table + OfUid + quoted(uid), caller, uid))
            return false;
        if (query.next()) {
            query.finish();
            return run(&query,
                       QLatin1String("UPDATE ") + Table + QLatin1String(" SET ") +
                           assignments(enterprise, account, phone) + OfUid + quoted(uid),
                       caller, uid);
        }
        query.prepare(Insert + Table + InsertColumns);
        for (const QString &value : {uid, enterprise, account, phone})
            query.addBindValue(value.isNull() ? QStringLiteral("") : value);
        return told(query, query.exec(), caller, uid);
    });
}

bool CAllUserInfoDB::removeWhere(const QString &condition, const char *caller, const QString &key)
{
    return m_file && m_file->inTransaction([&] {
        QSqlQuery query(m_file->database());
        if (!run(&query, Select + Table + condition, caller, key))
            return false;
        const bool found = query.next();
        query.finish();
        return !found || run(&query, Delete + Table + condition, caller, key);
    });
}

bool CAllUserInfoDB::removeOthersWithPhone(const QString &phone, const QString &uid)
{
    return phone.isEmpty() || removeWhere(QLatin1String(" WHERE PhoneNum = ") + quoted(phone) +
                                              QLatin1String(" AND Uid != ") + quoted(uid),
                                          "CAllUserInfoDB::removeOthersWithPhone", uid);
}

bool CAllUserInfoDB::remove(const QString &uid)
{
    return !uid.isEmpty() && removeWhere(OfUid + quoted(uid), "CAllUserInfoDB::remove", uid);
}

QVector<UserUidInfo> CAllUserInfoDB::all()
{
    QVector<UserUidInfo> users;
    if (!m_file)
        return users;
    QSqlQuery query(m_file->database());
    if (!run(&query, SelectAll + Table + OldestFirst, "CAllUserInfoDB::all", QString()))
        return users;
    while (query.next()) {
        users.append({query.value(0).toString(), query.value(1).toString(),
                      query.value(2).toString(), query.value(3).toString()});
    }
    return users;
}
