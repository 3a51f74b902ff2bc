// The finished web requests as a table of bounded size. Like the events, they are
// queued by record() and appended as one batch by flush().
#pragma once

#include "host/eventmonitor/recordmodel.h"
#include "hostapi/webrequestrecord.h"

#include <deque>

class WebRequestModel : public RecordModel
{
    Q_OBJECT

public:
    enum Column
    {
        Time,
        Method,
        Status,
        Duration,
        Sent,
        Received,
        Address,
        Error,
        ColumnCount
    };

    // Above this many rows the oldest go.
    static constexpr int DefaultCapacity = 2000;

    explicit WebRequestModel(QObject *parent = nullptr, int capacity = DefaultCapacity);

    // What may be secret is masked before it is kept.
    void record(const WebRequestRecord &record);
    void flush() override;
    void clear() override;
    qint64 dropped() const override { return m_dropped; }
    QString asText(const QVector<int> &rows) const override;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    static QString text(const WebRequestRecord &record, int column);

    const int m_capacity;
    std::deque<WebRequestRecord> m_rows;
    std::deque<WebRequestRecord> m_pending;
    qint64 m_dropped = 0;
};
