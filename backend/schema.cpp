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
        "CREATE TABLE company ("
        " code TEXT PRIMARY KEY, approver TEXT NOT NULL, approval INTEGER NOT NULL) WITHOUT ROWID",
        "CREATE TABLE team ("
        " vtId INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL, reason TEXT NOT NULL,"
        " creator TEXT NOT NULL, company TEXT NOT NULL, creation INTEGER NOT NULL)",
        "INSERT INTO sqlite_sequence (name, seq) VALUES ('team', 1000)",
        "CREATE INDEX teamByCreator ON team (creator, name)",
        "CREATE INDEX teamByCompany ON team (company, creation)",
        "CREATE TABLE teamGroup ("
        " groupId INTEGER PRIMARY KEY AUTOINCREMENT,"
        " vtId INTEGER NOT NULL REFERENCES team ON DELETE CASCADE,"
        " parent INTEGER NOT NULL, name TEXT NOT NULL, level INTEGER NOT NULL,"
        " UNIQUE (vtId, parent, name))",
        "CREATE TABLE teamMember ("
        " number INTEGER PRIMARY KEY AUTOINCREMENT,"
        " vtId INTEGER NOT NULL REFERENCES team ON DELETE CASCADE,"
        " uid TEXT NOT NULL, groupId INTEGER NOT NULL, role INTEGER NOT NULL,"
        " nickName TEXT NOT NULL DEFAULT '', duty TEXT NOT NULL DEFAULT '', UNIQUE (vtId, uid))",
        "CREATE INDEX teamMemberByGroup ON teamMember (vtId, groupId)",
        "CREATE INDEX teamMemberByUser ON teamMember (uid)",
        "CREATE UNIQUE INDEX teamOwner ON teamMember (vtId) WHERE role = 2",
        "CREATE TABLE teamInvitation ("
        " vtId INTEGER NOT NULL REFERENCES team ON DELETE CASCADE, company TEXT NOT NULL,"
        " inviter TEXT NOT NULL, reason TEXT NOT NULL, decision INTEGER NOT NULL,"
        " PRIMARY KEY (vtId, company)) WITHOUT ROWID",
        "CREATE INDEX teamInvitationByCompany ON teamInvitation (company, decision)",
        "CREATE TABLE teamInvited ("
        " vtId INTEGER NOT NULL REFERENCES team ON DELETE CASCADE, company TEXT NOT NULL,"
        " uid TEXT NOT NULL, UNIQUE (vtId, company, uid))",
        "CREATE INDEX teamInvitedByUser ON teamInvited (uid)",
        // One row for each who is told; a newer one of the same kind takes its place.
        "CREATE TABLE teamEvent ("
        " seq INTEGER PRIMARY KEY AUTOINCREMENT, uid TEXT NOT NULL, type TEXT NOT NULL,"
        " vtId INTEGER NOT NULL, member TEXT NOT NULL, time INTEGER NOT NULL,"
        " UNIQUE (uid, type, vtId))",
        "CREATE TABLE teamEventForgotten (id INTEGER PRIMARY KEY CHECK (id = 1),"
        " seq INTEGER NOT NULL)",
        // The events of everything else joined those of the teams, whose numbers go on.
        "CREATE TABLE event ("
        " seq INTEGER PRIMARY KEY AUTOINCREMENT, uid TEXT NOT NULL, type TEXT NOT NULL,"
        " subject TEXT NOT NULL, member TEXT NOT NULL, time INTEGER NOT NULL,"
        " UNIQUE (uid, type, subject))",
        "INSERT INTO sqlite_sequence (name, seq)"
        " SELECT 'event', seq FROM sqlite_sequence WHERE name = 'teamEvent'",
        "INSERT INTO event SELECT seq, uid, type, vtId, member, time FROM teamEvent",
        "DROP TABLE teamEvent",
        "ALTER TABLE teamEventForgotten RENAME TO eventForgotten",
        // Each contact is a row on either side. Group 0 is the default one.
        "CREATE TABLE friend ("
        " number INTEGER PRIMARY KEY AUTOINCREMENT, uid TEXT NOT NULL, other TEXT NOT NULL,"
        " groupId INTEGER NOT NULL, remark TEXT NOT NULL DEFAULT '', UNIQUE (uid, other))",
        "CREATE TABLE friendGroup ("
        " number INTEGER PRIMARY KEY AUTOINCREMENT, uid TEXT NOT NULL,"
        " groupId INTEGER NOT NULL, name TEXT NOT NULL, UNIQUE (uid, groupId), UNIQUE (uid, name))",
        // Open ones, and those that nobody has answered in time.
        "CREATE TABLE friendRequest ("
        " asker TEXT NOT NULL, asked TEXT NOT NULL, reason TEXT NOT NULL,"
        " groupId INTEGER NOT NULL, time INTEGER NOT NULL, PRIMARY KEY (asker, asked))"
        " WITHOUT ROWID",
        "CREATE INDEX friendRequestByAsked ON friendRequest (asked, time)",
        "CREATE TABLE friendBlock (uid TEXT NOT NULL, other TEXT NOT NULL,"
        " PRIMARY KEY (uid, other)) WITHOUT ROWID",
        // Whose contacts of the sample company have got rows, and whose groups.
        "CREATE TABLE friendStart ("
        " uid TEXT PRIMARY KEY, hasContacts INTEGER NOT NULL) WITHOUT ROWID",
        // What users have changed about the subscriptions that everybody begins with.
        "CREATE TABLE subscription ("
        " number INTEGER PRIMARY KEY AUTOINCREMENT, uid TEXT NOT NULL, code TEXT NOT NULL,"
        " isSub INTEGER NOT NULL, UNIQUE (uid, code))",
        "CREATE TABLE subscriptionVersion ("
        " uid TEXT PRIMARY KEY, version INTEGER NOT NULL) WITHOUT ROWID",
    };
    return steps;
}
