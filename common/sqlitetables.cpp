#include "common/sqlitetables.h"

#include <QSet>
#include <QSqlError>
#include <QStringList>

namespace {

// "jid VARCHAR(100) primary key" and so on
QStringList columnsOf(const SqliteTable &table)
{
    const QString text = QString::fromLatin1(table.columns).trimmed();
    QStringList columns;
    for (const QString &column : text.mid(1, text.size() - 2).split(QLatin1Char(',')))
        columns.append(column.trimmed());
    return columns;
}

struct Changes
{
    QStringList statements;
    QString foreignTable;
    bool isKnown = true; // the file could be read
};

Changes missingIn(const SqliteConnection &file, const QVector<SqliteTable> &tables)
{
    Changes changes;
    for (const SqliteTable &table : tables) {
        const QString name = QString::fromLatin1(table.name);
        QSqlQuery query(file.database());
        QSet<QString> present; // in lower case: SQLite minds none
        if (!query.exec(QLatin1String("PRAGMA table_info(") + name + QLatin1Char(')'))) {
            // With the first: each would wait for the same lock.
            changes.isKnown = false;
            return changes;
        }
        while (query.next())
            present.insert(query.value(1).toString().toLower());
        if (present.isEmpty()) {
            changes.statements.append(QLatin1String("CREATE TABLE ") + name +
                                      QString::fromLatin1(table.columns));
            continue;
        }
        for (const QString &column : columnsOf(table)) {
            if (present.contains(column.section(QLatin1Char(' '), 0, 0).toLower()))
                continue;
            if (column.contains(QLatin1String("primary key"), Qt::CaseInsensitive))
                changes.foreignTable = name;
            changes.statements.append(QLatin1String("ALTER TABLE ") + name +
                                      QLatin1String(" ADD ") + column);
        }
    }
    return changes;
}

bool runAll(const SqliteConnection &file, const QStringList &statements,
            const QVector<SqliteTable> &tables)
{
    for (const QString &statement : statements) {
        if (!file.run(statement, {}, "bringUpToDate"))
            return false;
    }
    for (const SqliteTable &table : tables) {
        for (const char *statement : table.more) {
            if (!file.run(QString::fromLatin1(statement), {}, "bringUpToDate"))
                return false;
        }
    }
    return true;
}

} // namespace

SqliteFile::Outcome bringUpToDate(SqliteConnection *file, const QVector<SqliteTable> &tables,
                                  QString *problem)
{
    const QString name = file->database().databaseName();
    Changes changes = missingIn(*file, tables);
    if (!changes.isKnown) {
        *problem = QStringLiteral("%1 cannot be read.").arg(name);
        return SqliteFile::Refused;
    }
    if (changes.statements.isEmpty() && runAll(*file, {}, tables))
        return SqliteFile::Usable;
    // Once more, now that no other process can be at the same work.
    const bool done = file->inTransaction([&] {
        changes = missingIn(*file, tables);
        return changes.isKnown && changes.foreignTable.isEmpty() &&
               runAll(*file, changes.statements, tables);
    });
    file->forgetStatements();
    if (done)
        return SqliteFile::Usable;
    *problem = changes.foreignTable.isEmpty()
                   ? QStringLiteral("%1 cannot be upgraded.").arg(name)
                   : QStringLiteral("%1: the table %2 is of another program.")
                         .arg(name, changes.foreignTable);
    return changes.foreignTable.isEmpty() ? SqliteFile::Refused : SqliteFile::Damaged;
}
