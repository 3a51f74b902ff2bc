// The rows of the list of customer-service channels: the pinned ones on top, the
// newest pin first, then the others as they were delivered.
#pragma once

#include "controls/keyedlistmodel.h"
#include "servicenum/customerchannels.h"

#include <QStringList>

struct ChannelRow
{
    CustomerChannels::Channel channel;
    int pin = 0; // the higher the newer; 0: not pinned
};

struct ChannelPlace
{
    int pin = 0;
    int arrival = 0;

    bool operator<(const ChannelPlace &other) const
    {
        return pin != other.pin ? pin > other.pin : arrival < other.arrival;
    }
    bool operator==(const ChannelPlace &other) const
    {
        return pin == other.pin && arrival == other.arrival;
    }
};

using ChannelRows = KeyedListModel<ChannelRow, ChannelPlace>;

class ChannelModel : public ChannelRows
{
    Q_OBJECT

public:
    using ChannelRows::ChannelRows;

    // Brings the rows in line with the channels delivered.
    void load();
    void update(const QString &id); // of one channel

    // The newest first; also ids of channels that have no row.
    const QStringList &pins() const { return m_pins; }
    void setPins(const QStringList &pins);

    QVariant data(const QModelIndex &index, int role) const override;

    // The texts are made when they are asked for: views ask again.
    void retranslate();

protected:
    QString keyOf(const ChannelRow &row) const override { return row.channel.data.id; }
    ChannelPlace placeOf(const ChannelRow &row) const override
    {
        return {row.pin, row.channel.arrival};
    }

private:
    int pinOf(const QString &id) const;
    void repin(const QString &id);

    QStringList m_pins;
};
