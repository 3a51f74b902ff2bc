// Every conversation's messages in the embedded core, read from the file, and what
// no client has been given yet.
#pragma once

#include "hostapi/roomrecords.h"

#include <QList>

class CoreStore;

class MessageBook
{
public:
    // The store must outlive the book.
    explicit MessageBook(CoreStore *store);

    bool isSeeded() const;
    // Into an empty file only, all or nothing; they are not delivered yet.
    bool seed(const QList<MessageData> &messages);
    bool add(const MessageData &message);
    QList<MessageData> newest(const QString &sessionJid, int limit) const; // oldest first

    QList<MessageData> undelivered() const; // oldest first
    void setDelivered();

private:
    CoreStore *m_store;
};
