// What a panel of the monitor asks of the table that it shows: records are queued
// and come in as one batch.
#pragma once

#include <QAbstractTableModel>
#include <QVector>

class RecordModel : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    virtual void flush() = 0;
    virtual void clear() = 0;
    virtual qint64 dropped() const = 0; // since the last clear()
    // Rows in the given order, one a line, cells separated by tabs.
    virtual QString asText(const QVector<int> &rows) const = 0;
};
