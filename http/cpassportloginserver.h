// The client of the log-in ticket service: holds the cookies of the user who is
// logged in and exchanges the long-lived ticket for a fresh auth id when that has
// expired. Made and owned by the host, which hands it out through its context;
// host and module each compile this class, so the operations are virtual.
#pragma once

#include <QObject>
#include <QString>

#include <memory>

class QNetworkReply;

class CPassportLoginServer : public QObject
{
    Q_OBJECT

public:
    static constexpr int ExchangeTimeout = 10000;       // ms
    static constexpr qint64 MaximumReply = 1024 * 1024; // bytes

    explicit CPassportLoginServer(QObject *parent = nullptr);
    ~CPassportLoginServer() override;

    // Cookie values; empty: none. Secret: never logged in full.
    QString authId() const { return m_authId; } // imAuthId
    void setAuthId(const QString &value) { m_authId = value; }
    QString ticket() const { return m_ticket; } // IMTGC
    void setTicket(const QString &value) { m_ticket = value; }
    QString rememberMe() const { return m_rememberMe; } // im_ids_r_me
    void setRememberMe(const QString &value) { m_rememberMe = value; }

    // Whether an exchange is under way; signal_refreshed() will tell its end.
    bool isRefreshing() const { return m_refreshing; }

    // Asks the ticket service for a fresh auth id. One exchange at a time. The
    // signals come later, never inside the call.
    virtual void ManualRefreshAuthID();
    // The back end says that the log-in has expired. Refreshes it unless that is
    // under way or this ticket has been refused.
    virtual void UserOverdue();

signals:
    // The exchange ended. False: the ticket is no longer good, or the service
    // could not be reached.
    void signal_refreshed(bool success);
    // The ticket is no longer good: the user has to log in again.
    void signal_sessionOver();

protected:
    void finishRefresh(bool success);

private:
    struct Exchange;
    void exchangeEnded();
    void refuse();

    QString m_authId, m_ticket, m_rememberMe;
    bool m_refreshing = false;
    QString m_refusedTicket; // asked for once and refused; null: none was
    std::unique_ptr<Exchange> m_exchange;
};
