// The database "UserInfo.db", shared by every account that has logged in on this
// machine: uid, enterprise, account name, phone number.
//
// It has one connection per process, "VeltraIMUser", which the host is given. GUI
// thread only. A failure is a line in the log, and false or an empty list.
#pragma once

#include "common/sqlitefile.h"

#include <QVector>

#include <memory>

struct UserUidInfo
{
    QString uid, enterprise, account, phone;
};

class CAllUserInfoDB
{
public:
    CAllUserInfoDB() = default;

    // True when the database is open and has its table. A damaged file is set aside
    // and a new one begun.
    bool open();
    // The name under which open() kept a damaged file; empty when there was none.
    QString setAsideAs() const;

    // Adds the user, or updates what is not empty. Makes them the newest.
    bool save(const QString &uid, const QString &enterprise, const QString &account,
              const QString &phone);
    // Removes the other users with this number, which one person alone can have.
    // Without a number nothing is done.
    bool removeOthersWithPhone(const QString &phone, const QString &uid);
    bool remove(const QString &uid);
    QVector<UserUidInfo> all(); // the oldest first

private:
    SqliteFile::Outcome makeTable(QString *problem);
    bool run(QSqlQuery *query, const QString &statement, const char *caller, const QString &key);
    // Logs what was not done, and returns `done`.
    bool told(const QSqlQuery &query, bool done, const char *caller, const QString &key);
    bool removeWhere(const QString &condition, const char *caller, const QString &key);

    std::unique_ptr<SqliteFile> m_file;
};
