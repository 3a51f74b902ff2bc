#include "backend/schema.h"

const std::vector<const char *> &schemaSteps()
{
    static const std::vector<const char *> steps{
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
    return steps;
}
