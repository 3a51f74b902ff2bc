// Searches for people outside the company by way of the host, which answers without
// saying what it answers: one search is under way at a time, and of the texts typed
// meanwhile only the newest is searched for next.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QList>
#include <QObject>
#include <QTimer>

class ExternalPeopleSearch : public QObject
{
    Q_OBJECT

public:
    static constexpr int Delay = 300;       // ms, after the last letter
    static constexpr int Patience = 10000;  // ms
    static constexpr int FewestLetters = 2; // of what the service searches for
    static constexpr int MostHits = 100;    // of one answer

    enum State
    {
        Idle, // nothing is typed
        TooShort,
        Offline,
        Searching, // or about to
        Done,
        Failed
    };

    explicit ExternalPeopleSearch(QObject *parent = nullptr);

    void setText(const QString &text);
    State state() const { return m_state; }
    // Whether the host owes an answer, to whatever text.
    bool isWaiting() const { return m_patience.isActive(); }
    // Without waiting for further letters.
    void searchNow();
    // After a failure.
    void retry();

signals:
    void stateChanged();
    // What the text of now has brought, each person once, the user left out.
    void found(const QList<SearchFriendResultData> &people);

private:
    void ask();
    void arrived(const QList<SearchFriendResultData> &results, int count);
    void setState(State state);

    QString m_text;
    QString m_asked; // while isWaiting()
    State m_state = Idle;
    QTimer m_delay;
    QTimer m_patience;
};
