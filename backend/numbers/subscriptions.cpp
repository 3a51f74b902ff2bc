#include "backend/numbers/subscriptions.h"

#include "sample/samplechannels.h"

#include <QSet>

#include <optional>

QStringList Subscriptions::codes()
{
    QStringList added;
    QSet<QString> decided;
    Statement rows =
        m_transaction.prepare("SELECT code, isSub FROM subscription WHERE uid = ? ORDER BY number");
    rows.bind(m_uid);
    while (rows.next()) {
        decided.insert(rows.text(0));
        if (rows.number(1) != 0)
            added.append(rows.text(0));
    }
    QStringList codes;
    for (const SampleServiceNumber &number : sampleServiceNumbers()) {
        if (number.isSubscribed && !decided.contains(number.code))
            codes.append(number.code);
    }
    return codes + added;
}

std::vector<ServiceNumber> Subscriptions::subscribed()
{
    std::vector<ServiceNumber> numbers;
    for (const QString &code : codes()) {
        if (std::optional<ServiceNumber> number = m_numbers.find(code))
            numbers.push_back(std::move(*number));
    }
    return numbers;
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
    const QStringList codesNow = codes();
    const QSet<QString> have(codesNow.begin(), codesNow.end());
    for (const ServiceNumber &number : m_numbers.all()) {
        if (!have.contains(number.code))
            write(number.code, true);
    }
    tell();
}
