// The windows of the add-contact flow, at most one per person.
#pragma once

#include "controls/windowregistry.h"

#include <QObject>

class AddFriend;

class CAddFriendMannger : public QObject
{
    Q_OBJECT

public:
    static CAddFriendMannger *instance();

    // Opens or raises the window for a person. Does nothing for an empty jid; tells
    // the user while offline, and for the own jid. `groupId` is preselected.
    void openDialog(const QString &jid, const QString &groupId = QString());

    AddFriend *dialog(const QString &jid) const; // null: not open

public slots:
    void slot_closeDialog(const QString &jid);

private:
    CAddFriendMannger();

    WindowRegistry<AddFriend> m_dialogs;
};
