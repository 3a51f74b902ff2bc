// The host's log-in to the web services: sends name and password once, keeps the
// tickets in the passport object that the module uses too, and logs in again when
// the ticket service says that they are no longer good. While nobody answers it
// tries again, ever more rarely. Nothing of it is written to a file.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

class CHttpSession;
class CPassportLoginServer;
class QNetworkReply;

class WebSession : public QObject
{
    Q_OBJECT

public:
    enum State
    {
        LoggedOut,
        LoggingIn,
        LoggedIn,
        Waiting, // before it tries again
        Refused  // name or password are wrong; it does not try again
    };

    static constexpr int FirstPause = 500;      // ms
    static constexpr int LongestPause = 30000;  // ms
    static constexpr int SteadySession = 60000; // ms; one that lasts less was no success

    explicit WebSession(QObject *parent = nullptr);
    ~WebSession() override;

    // Of the user who is logged in; owned by this object.
    CPassportLoginServer *passport() const { return m_passport; }

    // At the address that the service address file tells. Ends what was before.
    void logIn(const QString &user, const QString &password);
    // Forgets user, password and tickets.
    void logOut();

    State state() const { return m_state; }
    // Of the last log-in that failed; plain text.
    QString problem() const { return m_problem; }

signals:
    void stateChanged();

private:
    void setState(State state);
    void forgetTickets();
    void send();
    void takeReply(QNetworkReply *reply);
    void tryLater();
    void sessionOver();

    CPassportLoginServer *m_passport;
    QPointer<CHttpSession> m_request;
    State m_state = LoggedOut;
    QString m_user, m_password, m_problem;
    QTimer m_retry;
    QElapsedTimer m_since; // of the last success
    int m_pause = FirstPause;
};
