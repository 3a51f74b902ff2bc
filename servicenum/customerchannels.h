// The customer-service channels that the host has delivered, whether or not their
// page is there to show them, and the messages in them that nobody has looked at.
//
// Follows the hub from the first use on. The channels are the logged-in user's: a
// log-out forgets them. GUI thread only.
#pragma once

#include "hostapi/hostrecords.h"

#include <QHash>
#include <QObject>
#include <QVector>

class CustomerChannels : public QObject
{
    Q_OBJECT

public:
    struct Channel
    {
        CSChannelData data;
        QString picture; // local file, or empty
        int arrival = 0; // counts the channels delivered; 0 is the first
        int unread = 0;  // messages
    };

    static CustomerChannels &instance();

    // Null when it was not delivered; good until the next change.
    const Channel *find(const QString &id) const;
    QVector<Channel> channels() const; // in no order

    // A channel that is there already keeps its arrival. One without an id is refused.
    void add(const CSChannelData &data);
    void remove(const QString &id);
    void setPicture(const QString &id, const QString &file);
    void clear();

signals:
    // `id` was added or something of it changed.
    void changed(const QString &id);
    void removed(const QString &id);
    void cleared();

private:
    CustomerChannels();
    void messageCame(bool received, const MessageData &message);
    void setUnread(const QString &id, int unread);

    QHash<QString, Channel> m_channels;
    int m_delivered = 0;
};
