// The per-user database "localData.db", which the plug-in shares with its host:
// the connection, its tables, their upgrade.
//
// The connection is the host's, or the plug-in's own when the host has none; another
// user's takes its place by itself. A file that cannot be used leaves everything
// without a result and a line in the log; a damaged one is set aside under another
// name, never deleted, and a new one begun. GUI thread only.
#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <functional>
#include <memory>

class SqliteConnection;

class LocalDatabase : public QObject
{
    Q_OBJECT

public:
    static LocalDatabase &instance();

    // Open, with all tables as they are today; or not open when there is no file to be
    // had, or nobody is logged in.
    QSqlDatabase database();
    // Also false before the first use.
    bool isOpen() { return database().isOpen(); }

    // A statement prepared once per connection, forward only: read it to its end, or
    // finish() it, before it is used again. Invalid without a database.
    QSqlQuery prepared(const QString &statement);
    // Executes, and logs a failure with `caller`, as "DBLatest::clear".
    bool run(QSqlQuery *query, const char *caller);
    bool run(const QString &statement, const QVariantList &values, const char *caller);
    // All that `work` writes, or nothing. Inside another transaction it is a part of
    // that one.
    bool inTransaction(const std::function<bool()> &work);

    // Lets go of the connection: of a user who has logged out, or in a test.
    void close();

signals:
    // A damaged file was set aside; `file` is its new name.
    void fileSetAside(const QString &file);
    // Another user's tables from here on, or this user's for the first time.
    void opened();

private:
    struct Source
    {
        QString user, file;
        QString givenConnection; // the host's; empty: the plug-in's own
        const void *givenDriver = nullptr;

        bool operator==(const Source &other) const
        {
            return user == other.user && file == other.file &&
                   givenConnection == other.givenConnection && givenDriver == other.givenDriver;
        }
    };

    LocalDatabase();
    ~LocalDatabase() override;
    static Source currentSource();
    void follow(); // the user and the host's connection
    bool openOwn();
    bool takeGiven();

    Source m_source;
    std::unique_ptr<SqliteConnection> m_connection;
    QDeadlineTimer m_mayRetry;
};
