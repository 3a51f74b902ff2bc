// The pointer and the floating card of a person: the rests and leaves of all lists come
// together here, since there is one pointer and one card. What shows and hides the card
// is PaneActions; whoever has the card tells what becomes of it.
#pragma once

#include "controls/hoverstates.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTimer>

class QWidget;
class RowView;

class CardHover : public QObject
{
    Q_OBJECT

public:
    static CardHover &instance();

    HoverStates::State state() const { return m_states.state(); }

    // --- Of the lists ---------------------------------------------------------------
    // The pointer is on the row of this person; an empty jid: on nobody's.
    void pointerOn(RowView *list, const QModelIndex &row, const QString &jid);
    // Pressed, scrolled, hidden: the card closes, and the rest that went on leads to none.
    void cancel(const RowView *list);
    // Whether the card that is open tells of a row of this list.
    bool isCardOf(const RowView *list) const;

    // --- Of the card ----------------------------------------------------------------
    // It is open, whether or not a rest was before it. Not owned.
    void cardShown(const QString &jid, QWidget *card);
    void cardHidden();
    void setPointerOnCard(bool onCard);
    // The pointer has left a row that is in none of the lists.
    void rowLeft(const QString &jid);

signals:
    void cardChanged(); // isCardOf() may have another answer

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Place
    {
        QPointer<RowView> list; // null: none of ours
        QPersistentModelIndex row;
    };

    CardHover();
    qint64 now() const { return m_clock.elapsed(); }
    void settle(); // after every change of the states
    void step();
    void open();
    bool mayOpen() const;
    void close(); // not while something holds the card
    void rowsRemoved();

    // Of what happens elsewhere while there is a rest or a card.
    bool belongsToCard(const QObject *object) const;
    bool isAnchor(const QObject *object) const;
    bool takesEscape(QEvent *event);
    void windowShown(const QWidget *window);
    void updateHold();

    HoverStates m_states;
    QElapsedTimer m_clock;
    QTimer m_timer;
    Place m_rested;
    Place m_shown;
    QPointer<QWidget> m_anchor; // the window beside whose row the card is
    QPointer<QWidget> m_card;
    const RowView *m_listOfCard = nullptr; // only to be compared
    bool m_filters = false;
};
