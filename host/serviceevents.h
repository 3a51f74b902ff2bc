// What happens at the web services that concerns the user, asked for by requests that wait
// until there is something: one is always under way. While nobody answers it asks again,
// ever more rarely.
#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

class MessagingCore;
class ServiceCall;
class WebServices;
struct ServiceNews;
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

// Somebody outside the company wants to become a contact. All texts are anybody's.
struct FriendRequest
{
    QString uid; // of who asks
    QString name, companyName, reason;
    QString time; // yyyy-MM-dd hh:mm:ss
};

class ServiceEvents : public QObject
{
    Q_OBJECT

public:
    static constexpr int WaitSeconds = 25;
    static constexpr int FirstPause = 500;     // ms
    static constexpr int LongestPause = 30000; // ms

    explicit ServiceEvents(QObject *parent = nullptr);
    ~ServiceEvents() override;

    // Of the service; how the requests are told from others.
    static QString path();

    // Runs whenever the user is logged in at both. Neither is owned; both outlive this.
    void follow(const WebServices *services, const MessagingCore *core);
    // Before the first start: what came up to this number is known already.
    void goOnFrom(qint64 since) { m_since = since; }

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
    void friendRequested(const FriendRequest &request);
    // External contacts, their groups or what is known of them.
    void friendsChanged();
    void pictureChanged(const QString &uid, const QString &photoName);
    // Subscriptions to service numbers.
    void subscriptionsChanged();
    // All that wait now; what is not among them has been decided.
    void waiting(const QList<TeamRequest> &requests);
    void friendsWaiting(const QList<FriendRequest> &requests);
    // Everything up to this number has been told.
    void reached(qint64 since);

private:
    ServiceCall *ask(qint64 since, void (ServiceEvents::*taken)(const ServiceReply &));
    void poll();
    void takeWaiting(const ServiceReply &reply);
    void takeNews(const ServiceReply &reply);
    void tell(const ServiceNews &news);
    void tryLater();

    QPointer<ServiceCall> m_poll, m_refresh;
    QTimer m_retry;
    bool m_isRunning = false;
    bool m_isFirstPoll = false; // since the start
    qint64 m_since = -1;        // -1: nothing was asked yet
    int m_pause = FirstPause;
};
