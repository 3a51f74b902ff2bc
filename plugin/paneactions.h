// What the hub asks of the pane, and what one feature asks of another, without
// either knowing the other's views.
#pragma once

#include <QString>

// Implemented once, where the pane is put together; a test has a recording fake.
// All calls are made on the GUI thread and may come from inside a host event:
// none may block, so dialogs are opened, not executed. Jids and ids come from
// other people or a server; an unknown one is the implementation's to refuse.
class PaneActions
{
public:
    // A destroyed object is no longer paneActions().
    virtual ~PaneActions();

    // --- Friend tree ----------------------------------------------------------
    // Whether offline contacts start hidden.
    virtual void hideOfflineInitialised(bool hide) = 0;
    // Raises the friend tree, selects the contact's row and scrolls to it.
    virtual void locateContact(const QString &jid) = 0;
    // The same for a group of contacts, by its id.
    virtual void locateGroup(const QString &groupId) = 0;
    // Raises the page of group chats, on the side where the room is, and selects it.
    virtual void locateRoom(const QString &roomJid) = 0;
    // Raises a page by the id of its entry, such as "friends".
    virtual void raisePage(const QString &id) = 0;

    // --- Contact information --------------------------------------------------
    // Whether openContactDetail() leads anywhere, for menus that offer it.
    virtual bool canOpenContactDetail() const = 0;
    // Opens or raises the window of a contact; false when it could not be made.
    virtual bool openContactDetail(const QString &jid) = 0;
    // The same for the own profile.
    virtual bool openOwnDetail() = 0;
    // Shows the floating card beside a row, at once; there is one, which goes from
    // person to person. x, y: screen position of the row's edge where the card goes, at
    // the row's top, width: the row's width, all in pixels. No card is shown while
    // offline, and where canOpenContactDetail() says no.
    virtual void showContactCard(const QString &jid, int x, int y, int width, bool preferLeft) = 0;
    // The pointer has left the row of the person whom the card shows: it closes after
    // a moment, unless the pointer has come to it. An empty jid: it closes at once,
    // whoever it shows.
    virtual void hideContactCard(const QString &jid) = 0;

    // --- Adding contacts ------------------------------------------------------
    // Whether a jid can still be added. The default is mayBecomeContact().
    virtual bool mayAddContact(const QString &jid) const;
    // Starts the add-contact flow for a person.
    virtual void addContact(const QString &jid) = 0;
    // The answer to an external-contact request, or the arrival of one. action:
    // 0 request, 1 confirmation, 2 blacklist; code: the service's result code.
    virtual void externalContactAnswer(const QString &jid, bool success, int code, int action) = 0;

    // --- Organisation, teams, service numbers, channels -----------------------
    // Shows a person (isOrganisation false) or a department in the organisation
    // tree.
    virtual void locateInOrganisation(const QString &uid, bool isOrganisation) = 0;
    // type "audit": open the approval window of the team for the member who asks
    // to join; type "join": open the join window of the team.
    virtual void virtualTeamEvent(const QString &type, const QString &teamId,
                                  const QString &member) = 0;
    // Shows the page of teams, the team opened and its row selected.
    virtual void locateTeam(const QString &teamId) = 0;
    // Opens the detail of a service number.
    virtual void openServiceNumber(const QString &code) = 0;
    virtual void openServiceNumberSearch() = 0;
    // Shows the customer-service page and loads its channels again.
    virtual void reloadChannels() = 0;
    // Shows the page and selects the channel.
    virtual void locateChannel(const QString &channelId) = 0;
};

// The actions of this process; null until the pane's assembly sets them. Not
// owned.
PaneActions *paneActions();
void setPaneActions(PaneActions *actions);

// Whether the jid is neither empty, nor the user's own, nor a contact already.
bool mayBecomeContact(const QString &jid);
