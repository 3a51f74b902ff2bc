#include "host/core/corestore.h"

#include <QCoreApplication>

namespace {
const char ReadVersion[] = "PRAGMA user_version";
const char WriteVersion[] = "PRAGMA user_version=%1";
const char CountTables[] = "SELECT count(*) FROM sqlite_master";
const char ReadMeta[] = "SELECT value FROM meta WHERE key=?";
const char WriteMeta[] = "INSERT OR REPLACE INTO meta(key,value) VALUES(?,?)";
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

CoreStore::CoreStore(const QString &fileName) : SqliteFile(fileName, freeConnectionName("core")) {}

bool CoreStore::open(QString *problem)
{
    return SqliteFile::open([this](QString *why) { return prepareSchema(why); }, problem);
}

QString CoreStore::damageNotice(const QString &keptAs)
{
    if (keptAs.isEmpty())
        return QString();
    return QCoreApplication::translate(
               "CoreStore",
               "The data file was damaged. It was kept as %1, and a new one was begun.")
        .arg(keptAs);
}

SqliteFile::Outcome CoreStore::prepareSchema(QString *problem)
{
    const QVariant stored = value(QString::fromLatin1(ReadVersion));
    const int version = stored.isValid() ? stored.toInt() : -1;
    if (version > schemaSteps().size()) {
        *problem =
            QStringLiteral("%1 was made by a newer version of this program.").arg(fileName());
        return Refused;
    }
    // Tables without a version: some other program's file.
    if (version < 0 || (version == 0 && value(QString::fromLatin1(CountTables)).toInt() != 0)) {
        *problem = QStringLiteral("%1 is of another program.").arg(fileName());
        return Damaged;
    }
    if (version < schemaSteps().size() && !upgrade(version)) {
        *problem = QStringLiteral("%1 cannot be upgraded.").arg(fileName());
        return Refused;
    }
    return Usable;
}

bool CoreStore::upgrade(int from)
{
    const bool done = inTransaction([this, from] {
        for (int step = from; step < schemaSteps().size(); ++step) {
            for (const QString &statement : schemaSteps().at(step)) {
                if (!run(statement))
                    return false;
            }
        }
        return run(QString::fromLatin1(WriteVersion).arg(schemaSteps().size()));
    });
    forgetStatements();
    return done;
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
