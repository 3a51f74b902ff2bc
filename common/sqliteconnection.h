// A connection to an SQLite database, by its name: statements prepared once,
// failures logged, transactions in one another. Whoever opened the connection may
// be somebody else. One thread.
#pragma once

#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <functional>

class SqliteConnection
{
public:
    explicit SqliteConnection(const QString &name) : m_name(name) {}
    virtual ~SqliteConnection() = default;
    SqliteConnection(const SqliteConnection &) = delete;
    SqliteConnection &operator=(const SqliteConnection &) = delete;

    QString connectionName() const { return m_name; }
    QSqlDatabase database() const { return QSqlDatabase::database(m_name, false); }

    // Prepared once and kept, forward only: read it to its end, or finish() it, before
    // it is used again. Only for texts that hold no values: each text is kept.
    QSqlQuery prepared(const QString &statement) const;
    // Executes, and logs a failure with `caller`, as "DBLatest::clear".
    bool run(QSqlQuery *query, const char *caller = "SqliteConnection::run") const;
    // A null text is bound as an empty one.
    bool run(const QString &statement, const QVariantList &values = {},
             const char *caller = "SqliteConnection::run") const;
    // The first column of the first row; invalid without one.
    QVariant value(const QString &statement, const QVariantList &values = {},
                   const char *caller = "SqliteConnection::value") const;
    // All that `work` writes, or nothing. A failure of `work` or of the file: false.
    // Inside another transaction it is a part of that one, and fails it.
    bool inTransaction(const std::function<bool()> &work);

    void forgetStatements() const { m_prepared.clear(); }

private:
    const QString m_name;
    mutable QHash<QString, QSqlQuery> m_prepared;
    bool m_inTransaction = false;
    bool m_partFailed = false;
};
