// The back end's SQLite file. Nothing is read or written outside a Transaction,
// which has the database to itself until it ends: two users' requests never
// interleave.
//
//     Transaction transaction(database);
//     Statement find = transaction.prepare("SELECT uid FROM ticket WHERE digest = ?");
//     find.bind(digest);
//     while (find.next())
//         use(find.text(0));
//     transaction.commit();
//
// A failing statement throws DatabaseError; the request that caused it is answered
// with status 500 and its transaction is undone.
#pragma once

#include <QByteArray>
#include <QString>

#include <mutex>
#include <stdexcept>

struct sqlite3;
struct sqlite3_stmt;

class DatabaseError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// The file is no sound database.
class DatabaseDamaged : public DatabaseError
{
public:
    using DatabaseError::DatabaseError;
};

class Database
{
public:
    Database() = default;
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    // Opens or makes the file, readable by its owner only, and brings its tables up
    // to date. A file that is not a sound database is set aside under a name ending
    // in ".damaged" and a new one is begun. False with *problem set when it cannot be
    // used for another reason: not writable, in use, of a newer back end.
    bool open(const QString &file, QString *problem);
    void close();

private:
    friend class Transaction;
    bool openOnce(const QString &file, QString *problem);

    sqlite3 *m_handle = nullptr;
    std::mutex m_mutex;
};

// A prepared statement; values are bound from left to right.
class Statement
{
public:
    Statement(sqlite3 *handle, const char *sql);
    ~Statement();
    Statement(Statement &&other) noexcept;
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    Statement &bind(const QString &text);
    Statement &bind(const QByteArray &blob);
    Statement &bind(qint64 number);

    bool next(); // false: no more rows
    void run();  // to its end; may be run again with new values

    QString text(int column) const;
    QByteArray blob(int column) const;
    qint64 number(int column) const;

private:
    [[noreturn]] void fail() const;

    sqlite3 *m_handle;
    sqlite3_stmt *m_statement = nullptr;
    int m_bound = 0;
};

// Undone at the end of its life unless committed. Statements end before it.
class Transaction
{
public:
    explicit Transaction(Database &database);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    Statement prepare(const char *sql);
    int changes() const; // rows that the last statement changed
    qint64 lastId() const;
    void commit();

private:
    std::lock_guard<std::mutex> m_lock;
    sqlite3 *m_handle;
    bool m_done = false;
};
