// What is known of service numbers: the user's subscriptions and every other number that
// was found or shown, kept in step with the web services and the host. The views show it
// and ask it; none of them sends requests of its own but the search.
#pragma once

#include "hostapi/servicerecords.h"
#include "servicenum/serviceicons.h"

#include <QList>
#include <QObject>
#include <QString>

#include <memory>

// One per process; another user's log-in empties it. GUI thread only.
class ServiceNumbers : public QObject
{
    Q_OBJECT

public:
    enum State
    {
        Unasked,
        Loading, // until the list came for the first time
        Ready,   // also while it is asked for again
        Failed
    };

    static ServiceNumbers &instance();
    ~ServiceNumbers() override;

    State state() const; // of the list of subscriptions
    // Asks for the subscriptions, unless that is under way. One that failed is made up
    // for when the connection is back.
    void load();
    // In the service's order; numbers subscribed to since stand at the end.
    QList<CServiceNumData> subscriptions() const;

    // A number that is known from anywhere; null until then, and after the next change.
    const CServiceNumData *find(const QString &code) const;
    bool isSubscribed(const QString &code) const;
    // Takes in what a search has found. Whether the user has subscribed is known from
    // the list, once that is there.
    void note(const QList<CServiceNumData> &numbers);
    // Asks for the newest record of one number; changed() or detailFailed() follows.
    void refresh(const QString &code);

    // changed() follows, or subscriptionFailed(). Nothing happens while isBusy().
    void subscribe(const QString &code);
    void unsubscribe(const QString &code);
    bool isBusy(const QString &code) const; // a subscription or its end is under way

    // The local file of the number's icon, or the default one's path; fetched when it is
    // asked for and not there. iconReady() tells when it is.
    QString icon(const QString &code);

signals:
    void stateChanged();               // of the list, or its content
    void changed(const QString &code); // the record, the subscription, or isBusy()
    void subscriptionFailed(const QString &code, const QString &errorText); // "1": no right
    void cancellationFailed(const QString &code);
    void detailFailed(const QString &code);
    void iconReady(const QString &code, const QString &file);

private:
    ServiceNumbers();
    void follow();
    void clear();
    void sendList();
    void listCame(const QList<CServiceNumData> &numbers, const QString &version);
    void takeList(QList<CServiceNumData> numbers);
    void listFailed();
    bool store(CServiceNumData number);
    void add(const QList<CServiceNumData> &numbers);
    void fetchUnknown();
    void subscriptionAnswered(const QString &code, bool ok, const QString &errorText);
    void cancellationAnswered(const QString &code, bool ok);
    void setSubscribed(const QString &code, bool subscribed);
    void recordCame(const QString &code, CServiceNumData number);
    template <class Send> void announce(Send send);

    struct Private;
    std::unique_ptr<Private> d;
    ServiceIcons m_icons;
    bool m_isAnnouncing = false;
};
