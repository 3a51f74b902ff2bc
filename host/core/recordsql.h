// Records of hostapi in and out of SQL, in the order of their fieldsOf(): one table
// column per field, named by the statement.
#pragma once

#include "hostapi/recordstream.h"

#include <QSqlQuery>
#include <QVariant>

namespace RecordSql {

template <class T> QVariant toSql(const T &value)
{
    if constexpr (std::is_same_v<T, QString>)
        return value.isNull() ? QString::fromLatin1("") : value; // the columns are NOT NULL
    else
        return qint64(value);
}

template <class T> void fromSql(const QVariant &stored, T *value)
{
    if constexpr (std::is_same_v<T, QString>)
        *value = stored.toString();
    else
        *value = T(stored.toLongLong());
}

template <class Record> void bind(QSqlQuery *query, const Record &record)
{
    std::apply([query](const auto &...field) { (query->addBindValue(toSql(field)), ...); },
               Record::fieldsOf(record));
}

template <class Record> void read(const QSqlQuery &query, Record *record)
{
    int column = 0;
    std::apply([&](auto &...field) { (fromSql(query.value(column++), &field), ...); },
               Record::fieldsOf(*record));
}

// "INSERT OR REPLACE INTO table(columns) VALUES(?,?,...)"
inline QString insertStatement(const char *table, const char *columns)
{
    const QString names = QString::fromLatin1(columns);
    QStringList marks;
    for (int i = 0; i <= names.count(QLatin1Char(',')); ++i)
        marks.append(QStringLiteral("?"));
    return QStringLiteral("INSERT OR REPLACE INTO %1(%2) VALUES(%3)")
        .arg(QString::fromLatin1(table), names, marks.join(QLatin1Char(',')));
}

inline QString selectStatement(const char *table, const char *columns)
{
    return QStringLiteral("SELECT %1 FROM %2")
        .arg(QString::fromLatin1(columns), QString::fromLatin1(table));
}

} // namespace RecordSql
