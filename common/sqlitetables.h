// Tables of a file that others keep tables in, too: recognised, made and upgraded by
// their columns, since such a file has no version number of its own.
#pragma once

#include "common/sqlitefile.h"

#include <QVector>

struct SqliteTable
{
    const char *name;
    // As CREATE TABLE takes it, in parentheses; no comma inside a column.
    const char *columns;
    // Statements that change nothing when repeated, such as CREATE INDEX IF NOT EXISTS.
    QVector<const char *> more = {};
};

// Makes the tables that are missing and adds the columns that older ones lack, all
// or nothing. Damaged: a table of that name has no such key, and is somebody else's.
SqliteFile::Outcome bringUpToDate(SqliteConnection *file, const QVector<SqliteTable> &tables,
                                  QString *problem);
