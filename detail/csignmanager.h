// The one floating card of the process: whom it shows, where, and what its buttons do.
// When it opens and closes is CardHover's.
#pragma once

#include "detail/cardplace.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QPointer>

class CSignEx;

class CSignManager : public QObject
{
    Q_OBJECT

public:
    // ms. A profile that the host knows is not asked for again so soon.
    static constexpr int ProfileAge = 60 * 1000;

    static CSignManager *instance();

    // Shows the card beside a row; the one that is open makes way. x, y: where the row
    // has the edge at which the card goes, at its top, on the screen; `width`: the row's.
    // While offline, without the right to see profiles, and for who is nobody there is
    // no card.
    void showCard(const QString &jid, int x, int y, int width, bool preferLeft);
    // The pointer has left the row of this person: the card closes unless the pointer
    // comes to it in time. An empty jid: the card closes at once, whoever it shows.
    void hideCard(const QString &jid);

    const QString &jid() const { return m_jid; } // empty: no card is open
    CSignEx *card() const { return m_card; }     // null: none was needed yet

public slots:
    void slot_enter();
    void slot_leave();
    void slot_showTopicWidget(QString jid);
    void slot_showDetailWidget(QString jid);
    void slot_showPhoto(QString jid);
    void slot_orgPosition(QString jid);
    void slot_sendMail(QString jid);
    void slot_opendialog(QString jid);
    void slot_reloadVcard(QString jid);

private:
    CSignManager();
    void makeCard();
    void place();
    void close();
    void rejectBoxes();
    void askForProfile();
    bool isRecent(const QString &jid) const;

    QString m_jid;
    QPointer<CSignEx> m_card;
    CardPlace::Anchor m_anchor;
    QHash<QString, qint64> m_asked; // when the profile of a jid was asked for
    QElapsedTimer m_clock;
};
