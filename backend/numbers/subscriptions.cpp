#include "backend/numbers/subscriptions.h"

std::vector<ServiceNumber> Subscriptions::subscribed()
{
    std::vector<ServiceNumber> added;
    QSet<QString> decided;
    Statement rows =
        m_transaction.prepare("SELECT code, isSub FROM subscription WHERE uid = ? ORDER BY number");
    rows.bind(m_uid);
    while (rows.next()) {
        decided.insert(rows.text(0));
        if (rows.number(1) == 0)
            continue;
        if (std::optional<ServiceNumber> number = m_numbers.find(rows.text(0)))
            added.push_back(std::move(*number));
    }
    std::vector<ServiceNumber> result;
    for (ServiceNumber &number : m_numbers.all()) {
        if (number.isSubscribed && !decided.contains(number.code))
            result.push_back(std::move(number));
    }
    std::move(added.begin(), added.end(), std::back_inserter(result));
    return result;
}

QSet<QString> Subscriptions::codes()
{
    QSet<QString> codes;
    for (const ServiceNumber &number : subscribed())
        codes.insert(number.code);
    return codes;
}

qint64 Subscriptions::version()
{
    Statement row = m_transaction.prepare("SELECT version FROM subscriptionVersion WHERE uid = ?");
    row.bind(m_uid);
    return m_numbers.version() + (row.next() ? row.number(0) : 0);
}

void Subscriptions::write(const QString &code, bool subscribed)
{
    m_transaction.prepare("INSERT OR REPLACE INTO subscription (uid, code, isSub) VALUES (?, ?, ?)")
        .bind(m_uid)
        .bind(code)
        .bind(qint64(subscribed))
        .run();
}

void Subscriptions::tell()
{
    m_transaction
        .prepare("INSERT INTO subscriptionVersion (uid, version) VALUES (?, 1)"
                 " ON CONFLICT (uid) DO UPDATE SET version = version + 1")
        .bind(m_uid)
        .run();
    EventLog(m_transaction).tell({m_uid}, EventType::Services, QString(), m_uid);
}

void Subscriptions::set(const QString &code, bool subscribed)
{
    if (codes().contains(code) == subscribed)
        return;
    write(code, subscribed);
    tell();
}

void Subscriptions::subscribeToAll()
{
    const QSet<QString> have = codes();
    for (const ServiceNumber &number : m_numbers.all()) {
        if (!have.contains(number.code))
            write(number.code, true);
    }
    tell();
}
