// The windows of the add-contact flow, at most one per person.
#pragma once

#include "controls/windowregistry.h"

#include <QObject>
#include <QSet>

class AddFriend;

class CAddFriendMannger : public QObject
{
    Q_OBJECT

public:
    // Of these windows, for the host's events to open; the user may open more.
    static constexpr int MaximumOpened = 50;

    // Made at the first use, when it connects itself to the hub; never destroyed.
    static CAddFriendMannger *instance();

    // Opens or raises the window for a person and asks how the person takes requests.
    // Does nothing for an empty jid; tells the user while offline, and for the own
    // jid. `groupId` is preselected.
    void openDialog(const QString &jid, const QString &groupId = QString());

    // Whether the jid can still be added.
    bool mayAddContact(const QString &jid) const;

    AddFriend *dialog(const QString &jid) const; // null: not open

public slots:
    void slot_closeDialog(const QString &jid);

private:
    CAddFriendMannger();

    // A new window, connected and registered, or null when there must be none; then
    // the user was told why.
    AddFriend *makeDialog(const QString &jid);
    void policyReceived(const QString &userjid, const QString &userconfig,
                        const QString &strMoveToGpName, const QString &strDisplayName,
                        bool bNeedOpenDilog);
    void succeeded(const QString &jid);
    void failed(const QString &jid);

    WindowRegistry<AddFriend> m_dialogs;
    QSet<QString> m_requested; // jids whose answer has not come yet
};
