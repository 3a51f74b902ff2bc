#include "common/localtables.h"

const SqliteTable &LocalTables::sessionSetting()
{
    // NOT NULL: one muted row without a jid would empty the list of latest contacts.
    static const SqliteTable table = {
        "sessionsetting", " (sessionJid VARCHAR(100) primary key NOT NULL, isNotHint VARCHAR(2))"};
    return table;
}

const QVector<SqliteTable> &LocalTables::all()
{
    static const QVector<SqliteTable> tables = {
        {"latestfriendnew",
         " (jid VARCHAR(100) primary key, displayname VARCHAR(100),accountNo VARCHAR(100), icon "
         "VARCHAR(100), signature VARCHAR(100), time VARCHAR(100), lastcontent VARCHAR(1000), "
         "onjob VARCHAR(100), issystemnotice INT, appkey VARCHAR(100), isTop INT, isLocalSession "
         "INT)",
         // With the jid, so that rows of one second have an order, and the list's own.
         {"CREATE INDEX IF NOT EXISTS latestfriendnewinorder ON latestfriendnew (time, jid DESC)",
          "CREATE INDEX IF NOT EXISTS latestfriendnewtop ON latestfriendnew (time) WHERE isTop = "
          "1"}},
        {"deletedfriendnew",
         " (jid VARCHAR(100) primary key, displayname VARCHAR(100), accountNo VARCHAR(100), time "
         "VARCHAR(100), icon VARCHAR(100), onjob VARCHAR(100))"},
        sessionSetting(),
        {"cstopchannel", " (UserID VARCHAR(100) PRIMARY KEY, TopChannelList VARCHAR(200))"},
        {"latestunread", " (jid VARCHAR(100) PRIMARY KEY, unread INT)"},
    };
    return tables;
}
