// The network as a page in the client sees it: http and https alone, peers verified as
// for every other request of the client, nothing kept, and an end to what it may load.
#pragma once

#include "http/requestheaders.h"

#include <QNetworkAccessManager>
#include <QSet>
#include <QUrl>

class PageNetwork : public QNetworkAccessManager
{
    Q_OBJECT

public:
    static constexpr int MaximumRequests = 300;               // of one page
    static constexpr int MaximumTold = 10;                    // refusals of a page in the log
    static constexpr qint64 MaximumReply = 16 * 1024 * 1024;  // bytes
    static constexpr qint64 MaximumOfPage = 4 * MaximumReply; // bytes

    explicit PageNetwork(QObject *parent = nullptr);

    // The requests that follow are those of this page.
    void begin(const QUrl &page);
    // Whether the page itself, without what belongs to it, came in full as one that can
    // be shown.
    bool hasArrived() const { return m_state == Arrived; }
    bool hasFailed() const { return m_state == Failed; }

signals:
    void pageFailed();

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request,
                                 QIODevice *body) override;

private:
    enum State
    {
        Waiting,
        Arrived,
        Failed
    };
    QString refusal(Operation operation, const QUrl &url);
    void watch(QNetworkReply *reply);
    void headersCame(QNetworkReply *reply);
    void ended(QNetworkReply *reply);
    void setState(State state);

    QUrl m_page; // where it is by now
    State m_state = Waiting;
    QSet<QUrl> m_refused; // what a redirect may not lead to
    int m_pages = 0;      // begun so far
    int m_requests = 0;
    int m_refusals = 0;
    qint64 m_received = 0; // bytes
};
