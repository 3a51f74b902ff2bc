// The service numbers of the company: those of the sample, any number of made-up ones,
// and what tests change about them. Who has subscribed to them is the business of
// Subscriptions. All functions may be called from any thread.
#pragma once

#include <QHash>
#include <QString>

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

struct ServiceNumber
{
    QString code, name, description;
    QString icon; // a name at the file service; empty: none
    int kind = 0;
    bool isBoundToApplication = false, isInteractive = true, isFolded = false;
    QString subject, contact;
    std::string menu = "[]";      // JSON, as clients get it
    std::string channel = "null"; // JSON
    int status = 1;
    qint64 version = 1;
    bool isClosed = false; // nobody may subscribe to it
};

class ServiceNumberList
{
public:
    static constexpr int MostExtra = 20000;

    ServiceNumberList();

    // Those of the sample first.
    std::vector<ServiceNumber> all() const;
    std::optional<ServiceNumber> find(const QString &code) const;
    // Whose drawn icon has this name, also when it has another icon now; empty: nobody's.
    QString codeOfIcon(const QString &fileName) const;
    // Grows with every change.
    qint64 version() const;

    void setExtra(int count); // 0 to MostExtra
    using Change = std::function<void(ServiceNumber *)>;
    void change(const QString &code, const Change &change);
    // Forgets the changes; the made-up numbers become as many as they were at first.
    void reset();
    void setExtraAtStart(int count);

private:
    ServiceNumber changed(ServiceNumber number) const;
    int indexOfExtra(const QString &code) const;

    mutable std::mutex m_mutex;
    int m_extra = 0, m_extraAtStart = 0;
    qint64 m_version; // seconds when it began: also grows from one run to the next
    struct Changes
    {
        std::vector<Change> changes;
        qint64 version = 1; // of the record
    };
    QHash<QString, Changes> m_changes;
};
