// The table "latestfriendnew" of the local database: who the user exchanged
// messages with, and when. Each function is false, or empty, with a line in the log
// when there is no database or a statement fails.
#pragma once

#include "plugin/sharedrecords.h"

#include <QString>
#include <QVector>

namespace LatestContactsTable {

enum Names
{
    Named,       // those that have a display name
    AlsoNameless // all
};

// Rows `offset`.. of those that may be listed, the newest first, complete records;
// limit 0: all. The order is by time alone: pinned ones are not first.
QVector<DBFriendData> page(int limit, int offset, Names names = Named);
// Where a row stands among those that page() lists: by its time as stored, the rows of
// one second by the jid.
struct Place
{
    QString time, jid;
};
// The next ones behind that place, which takes the same time however far down it is.
QVector<DBFriendData> pageBehind(const Place &place, int limit);
// The pinned ones of those that may be listed.
QVector<DBFriendData> pinned();
bool find(const QString &jid, DBFriendData *out);
// Time and content of the newest row of all.
bool newest(QString *time, QString *content);

// Adds or replaces, all in one transaction; texts are stored not null, the content
// cut to 1,000 characters.
bool store(const QVector<DBFriendData> &records);
bool rename(const QString &jid, const QString &name);
bool setIcon(const QString &jid, const QString &icon);
bool setUnread(const QString &jid, int count); // in a table of its own
bool remove(const QString &jid);
bool clear(); // every row, listed or not

// Whether a record would be listed: the rule of the query, for messages as they
// come.
bool isListable(const DBFriendData &record, bool muted, Names names = Named);

// The queries of page(), without its limit, and of pageBehind(), for who asks how they
// are carried out.
QString listStatement(Names names = Named);
QString statementBehind();

} // namespace LatestContactsTable
