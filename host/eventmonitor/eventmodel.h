// The recorded events as a table of bounded size.
//
// Events are queued by record(), which is cheap, and appended as one batch by
// flush(). A payload is decoded when its cell is first asked for.
#pragma once

#include "host/eventlog.h"
#include "host/eventmonitor/recordmodel.h"

#include <QJsonArray>

#include <deque>

class EventModel : public RecordModel
{
    Q_OBJECT

public:
    enum Column
    {
        Time,
        Direction,
        Code,
        Name,
        Sender,
        Receiver,
        Payload,
        ColumnCount
    };
    enum Role
    {
        CodeRole = Qt::UserRole, // int
        DirectionRole            // int, an EventInfo::Direction
    };

    // Above this many rows, or bytes of payload, the oldest rows go.
    static constexpr int DefaultCapacity = 20000;
    static constexpr qint64 MaximumBytes = 64 * 1024 * 1024;

    explicit EventModel(QObject *parent = nullptr, int capacity = DefaultCapacity);

    void record(const EventRecord &record);
    bool hasPending() const { return !m_pending.empty(); }
    void flush() override;
    void clear() override;

    const EventRecord &at(int row) const { return m_rows[size_t(row)].record; }
    qint64 dropped() const override { return m_dropped; }

    // Tabs and line breaks inside a cell become blanks.
    QString asText(const QVector<int> &rows) const override;
    QJsonArray asJson(const QVector<int> &rows) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    static QString nameOf(const EventRecord &record);

private:
    struct Row
    {
        EventRecord record;
        mutable QString summary; // null until first asked for
    };
    QString text(const Row &row, int column) const;
    const QString &summary(const Row &row) const;
    void makeRoom();

    const int m_capacity;
    std::deque<Row> m_rows;
    std::deque<EventRecord> m_pending;
    qint64 m_bytes = 0;
    qint64 m_pendingBytes = 0;
    qint64 m_dropped = 0;
};
