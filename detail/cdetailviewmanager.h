// The windows of contact cards, at most one per jid, and the own profile's window.
#pragma once

#include "controls/windowregistry.h"

#include <QObject>
#include <QPointer>

class CDetailView;
class OwnProfileWindow;

class CDetailViewManager : public QObject
{
    Q_OBJECT

public:
    // At a time: the host's events open cards, too, and may come by the thousand.
    static constexpr int MaximumCards = 50;

    static CDetailViewManager *instance();

    // Opens or raises the card of a contact, or the own profile for the own jid. Does
    // nothing for an empty jid; tells the user while offline.
    void openDialogByJid(const QString &jid);
    // The card of a jid, made with its connections if there is none, not yet shown;
    // null for an empty jid, and with too many cards open.
    CDetailView *createInit(const QString &jid);

    CDetailView *openDialog(const QString &jid) const; // null: not open
    OwnProfileWindow *ownProfileWindow() const;        // null: not open

public slots:
    void slot_closeDetailDialog(const QString &jid);
    void slot_showTopicWidget(QString jid);
    void slot_openLeaderDetail(QString jid);
    void slot_showPhoto(QString jid);
    void slot_sendMail(QString jid);
    void slot_opendialog(QString jid);
    void slot_orgPosition(QString jid);

private:
    CDetailViewManager();
    void openOwnProfile(const QString &jid);
    void connectDialog(CDetailView *dialog);

    WindowRegistry<CDetailView> m_dialogs;
    QPointer<OwnProfileWindow> m_ownProfile;
};
