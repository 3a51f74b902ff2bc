// What is kept of a user's external contacts: people outside the own company.
#pragma once

#include <QString>

#include <mutex>
#include <unordered_map>

namespace FriendLimit {
constexpr int Contacts = 500; // of a user, when nothing else is said
constexpr int MostContacts = 100000;
constexpr int Reason = 200;             // characters
constexpr int Groups = 200;             // of a user
constexpr int Lifetime = 7 * 24 * 3600; // seconds that a request can be answered
constexpr int Found = 20;               // people of one search
} // namespace FriendLimit

struct Friend
{
    QString uid;
    qint64 group = 0; // 0: the default group
    QString remark;
};

struct FriendGroup
{
    qint64 id = 0;
    QString name;
};

struct FriendRequest
{
    QString asker, asked;
    QString reason;
    qint64 group = 0; // of the asker, for the contact to be
    qint64 time = 0;  // s since the epoch
};

// The numbers are sent.
enum class FriendStatus
{
    Open = 0,
    Accepted = 1,
    Blocked = 2,
    Expired = 3
};

// How many external contacts a user may have. From any thread.
class FriendLimits
{
public:
    explicit FriendLimits(int everybody) : m_start(everybody), m_everybody(everybody) {}

    int of(const QString &uid) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto own = m_own.find(uid.toStdString());
        return own == m_own.end() ? m_everybody : own->second;
    }
    // An empty uid: of everybody who has none of the own.
    void set(const QString &uid, int most)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (uid.isEmpty())
            m_everybody = most;
        else
            m_own[uid.toStdString()] = most;
    }
    void reset()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_everybody = m_start;
        m_own.clear();
    }

private:
    mutable std::mutex m_mutex;
    const int m_start;
    int m_everybody;
    std::unordered_map<std::string, int> m_own;
};
