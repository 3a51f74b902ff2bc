// The network access managers of the process. A manager sends six requests to a
// host at a time and makes the others wait where nobody sees them; so every running
// request has one to itself, and takes one over whose connection is still alive.
#pragma once

#include <QNetworkAccessManager>
#include <QTimer>

#include <memory>
#include <vector>

class ManagerPool;

// A manager for one request, given back when this ends. Replies that are still
// attached to it then must be finished or aborted.
class ManagerLease
{
public:
    ManagerLease() = default;
    ManagerLease(ManagerLease &&other) noexcept;
    ManagerLease &operator=(ManagerLease &&other) noexcept;
    ~ManagerLease();

    explicit operator bool() const { return m_manager; }
    QNetworkAccessManager *operator->() const { return m_manager; }
    void giveBack();

private:
    friend class ManagerPool;
    explicit ManagerLease(QNetworkAccessManager *manager) : m_manager(manager) {}
    QNetworkAccessManager *m_manager = nullptr;
};

// GUI thread only. Ends with the application: what is given back later is deleted.
class ManagerPool
{
public:
    // As many as the limits on requests at a time make useful.
    static constexpr int MaximumIdle = 25;
    // Each manager has a thread and a connection: unless something is sent for so
    // long, in ms, the idle ones end.
    static constexpr int KeptIdle = 120000;

    static ManagerPool &instance();

    // With an empty cookie jar.
    ManagerLease lend();
    // One for all who want it, and its jar.
    QNetworkAccessManager *shared();

    int idle() const { return int(m_idle.size()); }
    // Managers made so far.
    int made() const { return m_made; }
    // Ends the idle managers and their connections.
    void clear();

private:
    friend class ManagerLease;
    ManagerPool();
    void takeBack(QNetworkAccessManager *manager);
    static void close();

    std::vector<std::unique_ptr<QNetworkAccessManager>> m_idle; // most recently used last
    std::unique_ptr<QNetworkAccessManager> m_shared;
    QTimer m_rest;
    int m_made = 0;
    bool m_closed = false;
};
