// What happens to the user's virtual teams, asked of the web services by requests that
// wait until there is something: one is always under way. While nobody answers it asks
// again, ever more rarely.
#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

class ServiceCall;
struct ServiceReply;

// An application that waits for the user's decision.
struct TeamRequest
{
    QString type; // "audit": a team is to be made; "join": an invitation into one
    QString teamId;
    QString member;        // uid of who asks
    QString teamName = {}; // empty: not told

    friend bool operator==(const TeamRequest &a, const TeamRequest &b)
    {
        return a.type == b.type && a.teamId == b.teamId && a.member == b.member;
    }
};

// What became of an application of the user's own.
struct TeamDecision
{
    QString teamName;
    QString member; // uid of who has decided
    bool agreed = false;
};

class TeamEvents : public QObject
{
    Q_OBJECT

public:
    static constexpr int WaitSeconds = 25;
    static constexpr int FirstPause = 500;     // ms
    static constexpr int LongestPause = 30000; // ms

    explicit TeamEvents(QObject *parent = nullptr);
    ~TeamEvents() override;

    // Of the service; how the requests are told from others.
    static QString path();

    // Goes on where it was stopped, so that nothing is missed in between.
    void start();
    void stop();
    bool isRunning() const { return m_isRunning; }
    // Asks again what waits for a decision.
    void refresh();

signals:
    void teamsChanged(const QStringList &teamIds);
    void requested(const TeamRequest &request);
    void decided(const TeamDecision &decision);
    // All that wait now; what is not among them has been decided.
    void waiting(const QList<TeamRequest> &requests);

private:
    ServiceCall *ask(qint64 since, void (TeamEvents::*taken)(const ServiceReply &));
    void poll();
    void takeWaiting(const ServiceReply &reply);
    void takeNews(const ServiceReply &reply);
    void tryLater();

    QPointer<ServiceCall> m_poll, m_refresh;
    QTimer m_retry;
    bool m_isRunning = false;
    qint64 m_since = -1; // -1: nothing was asked yet
    int m_pause = FirstPause;
};
