// Searches the company's service numbers by name while somebody types. Each change of the
// text searches; only the answer for the newest one is told.
#pragma once

#include "hostapi/servicerecords.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>

class CHttpServiceNum;

class ServiceNumFinder : public QObject
{
    Q_OBJECT

public:
    enum State
    {
        Idle,
        Searching,
        Done,
        Failed, // tried again when the connection has come back
        Offline // goes on as soon as there is one
    };

    // A search goes out at once, unless another one is under way: who types fast has
    // changed the text again by then. It is given up after so long.
    static constexpr int Delay = 150; // ms

    explicit ServiceNumFinder(QObject *parent = nullptr);

    State state() const { return m_state; }
    QString text() const { return m_text; }
    // An empty text finds all numbers.
    void setText(const QString &text);
    // Searches for the same text again.
    void retry();
    // What is under way is of no interest any more.
    void stop();

signals:
    // In the service's order. Comes before the state changes.
    void found(const QString &text, const QList<CServiceNumData> &numbers);
    void stateChanged();

private:
    void begin();
    void send();
    void drop();
    void arrived(const QString &text, const QList<CServiceNumData> &numbers, bool ok);
    void setState(State state);

    State m_state = Idle;
    QString m_text;
    QPointer<CHttpServiceNum> m_running;
    QTimer m_delay; // for the next one, while another is under way
};
