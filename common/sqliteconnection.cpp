#include "common/sqliteconnection.h"

#include "common/logging.h"

#include <QSqlError>

namespace {
// Not "BEGIN": a transaction that reads before it writes could no longer wait for
// another process that wrote in between, but would fail at once.
const QString Begin = QStringLiteral("BEGIN IMMEDIATE");
const QString Commit = QStringLiteral("COMMIT");
const QString Rollback = QStringLiteral("ROLLBACK");

void bindAll(QSqlQuery *query, const QVariantList &values)
{
    for (const QVariant &value : values) {
        const bool isNullText = value.type() == QVariant::String && value.toString().isNull();
        query->addBindValue(isNullText ? QVariant(QString::fromLatin1("")) : value);
    }
}

void logFailure(const char *caller, const QString &statement, const QSqlError &error)
{
    LOG_ERROR(caller << "(),ERROR:" << logText(error.text()) << ": " << logText(statement));
}
} // namespace

QSqlQuery SqliteConnection::prepared(const QString &statement) const
{
    const auto known = m_prepared.constFind(statement);
    if (known != m_prepared.constEnd())
        return *known;
    QSqlQuery query(database());
    query.setForwardOnly(true);
    if (query.prepare(statement))
        m_prepared.insert(statement, query);
    else
        logFailure("SqliteConnection::prepared", statement, query.lastError());
    return query;
}

bool SqliteConnection::run(QSqlQuery *query, const char *caller) const
{
    if (query->exec())
        return true;
    logFailure(caller, query->lastQuery(), query->lastError());
    // Whoever owns the connection may have opened it anew: its statements are void.
    m_prepared.clear();
    return false;
}

bool SqliteConnection::run(const QString &statement, const QVariantList &values,
                           const char *caller) const
{
    QSqlQuery query = prepared(statement);
    bindAll(&query, values);
    return run(&query, caller);
}

QVariant SqliteConnection::value(const QString &statement, const QVariantList &values,
                                 const char *caller) const
{
    QSqlQuery query = prepared(statement);
    bindAll(&query, values);
    QVariant result;
    if (run(&query, caller) && query.next())
        result = query.value(0);
    query.finish(); // an open read would keep the journal from being folded in
    return result;
}

bool SqliteConnection::inTransaction(const std::function<bool()> &work)
{
    if (m_inTransaction) {
        const bool done = work();
        m_partFailed |= !done;
        return done;
    }
    if (!run(Begin, {}, "SqliteConnection::inTransaction"))
        return false;
    m_inTransaction = true;
    m_partFailed = false;
    const bool done = work() && !m_partFailed;
    m_inTransaction = false;
    if (done && run(Commit, {}, "SqliteConnection::inTransaction"))
        return true;
    // Without a line when it fails: a full disk has ended the transaction already.
    QSqlQuery(database()).exec(Rollback);
    return false;
}
