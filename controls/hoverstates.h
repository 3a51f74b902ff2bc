// When the card of a person opens and closes as the pointer moves: after a rest on the
// person's row, and after a while away from row and card. It knows neither widgets nor
// clocks: each call tells the time, in milliseconds of any clock that only goes forward.
#pragma once

#include <QString>

class HoverStates
{
public:
    enum State
    {
        Closed,
        Resting, // the pointer is on a row whose card is yet to open
        Open,
        Closing // open, but the pointer is elsewhere
    };
    static constexpr int RestTime = 500;  // ms
    static constexpr int GraceTime = 300; // ms; enough to get from the row to the card

    State state() const;
    const QString &row() const { return m_row; }     // whose row the pointer is on
    const QString &shown() const { return m_shown; } // whose card is open

    // The pointer is on this person's row; an empty jid: on none.
    void setRow(const QString &jid, qint64 now);
    void setOnCard(bool onCard, qint64 now);
    // What belongs to the card is open above it, such as a box: the card stays.
    void setHeld(bool held, qint64 now);
    bool isHeld() const { return m_held; }

    // Opened by other means than a rest, as if the pointer were on the row.
    void open(const QString &jid);
    // At once. The row that the pointer is on opens no card until it has been left.
    void close();

    // When advance() has something to do; negative: never.
    qint64 due() const;
    // At most one step; true when a card was opened or closed.
    bool advance(qint64 now);

private:
    void update(qint64 now);

    static constexpr qint64 Never = -1;

    QString m_row;
    QString m_shown;
    bool m_onCard = false;
    bool m_held = false;
    qint64 m_openDue = Never;
    qint64 m_closeDue = Never;
};
