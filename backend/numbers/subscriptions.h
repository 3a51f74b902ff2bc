// Who has subscribed to which service numbers. Everybody begins with those of the sample.
// A user's other clients are told by an event. Lives within a transaction.
#pragma once

#include "backend/eventlog.h"
#include "backend/numbers/servicenumberlist.h"

#include <vector>

class Subscriptions
{
public:
    Subscriptions(Transaction &transaction, const ServiceNumberList &numbers, const QString &uid)
        : m_transaction(transaction), m_numbers(numbers), m_uid(uid)
    {
    }

    // Those of the beginning, then the others as they came.
    std::vector<ServiceNumber> subscribed();
    // Of these, also where there is no such number any more.
    QStringList codes();
    // Another one after each change of the subscriptions or of any record.
    qint64 version();
    void set(const QString &code, bool subscribed);
    void subscribeToAll();

private:
    void write(const QString &code, bool subscribed);
    void tell();

    Transaction &m_transaction;
    const ServiceNumberList &m_numbers;
    const QString m_uid;
};
