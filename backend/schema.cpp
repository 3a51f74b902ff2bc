#include "backend/schema.h"

#include "backend/database.h"

namespace {
constexpr const char *Steps[] = {
    // The tickets themselves are not kept: who reads the file cannot log in with it.
    "CREATE TABLE ticket ("
    " digest BLOB PRIMARY KEY, kind INTEGER NOT NULL, uid TEXT NOT NULL,"
    " expires INTEGER NOT NULL) WITHOUT ROWID",
    "CREATE INDEX ticketByUser ON ticket (uid, kind)",
    "CREATE TABLE upload ("
    " number INTEGER PRIMARY KEY AUTOINCREMENT, uid TEXT NOT NULL, name TEXT UNIQUE,"
    " type TEXT NOT NULL, size INTEGER NOT NULL, md5 TEXT NOT NULL)",
    "CREATE TABLE portrait (uid TEXT PRIMARY KEY, name TEXT NOT NULL)",
    "CREATE TABLE transfer ("
    " id TEXT PRIMARY KEY, uid TEXT NOT NULL, fileName TEXT NOT NULL, size INTEGER NOT NULL,"
    " md5 TEXT NOT NULL, begun INTEGER NOT NULL)",
    "CREATE TABLE sessionSetting ("
    " uid TEXT NOT NULL, sessionJid TEXT NOT NULL, isNotHint INTEGER NOT NULL,"
    " PRIMARY KEY (uid, sessionJid)) WITHOUT ROWID",
};
constexpr int StepCount = int(sizeof Steps / sizeof *Steps);
} // namespace

void upgradeSchema(Transaction &transaction)
{
    qint64 taken = 0;
    {
        Statement version = transaction.prepare("PRAGMA user_version");
        if (version.next())
            taken = version.number(0);
    }
    if (taken > StepCount)
        throw DatabaseError("the file belongs to a newer back end");
    for (qint64 step = taken; step < StepCount; ++step)
        transaction.prepare(Steps[step]).run();
    const std::string mark = "PRAGMA user_version = " + std::to_string(StepCount);
    transaction.prepare(mark.c_str()).run();
}
